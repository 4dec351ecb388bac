-- The usual end of an attack: back to standing, with control, when the animation is over.
function codeSnippet()
    return [[
[State 0, End]
type = ChangeState
trigger1 = AnimTime = 0
value = 0
ctrl = 1
]]
end
