-- A sound of the character's own SND at the first tick of the state.
function codeSnippet()
    return [[
[State 0, Sound]
type = PlaySnd
trigger1 = Time = 0
value = 0, 0
]]
end
