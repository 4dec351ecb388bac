-- The head of a crouching attack's state: the player stays crouched and keeps its crouch friction.
function codeSnippet()
    return [[
[Statedef 400]
type = C
movetype = A
physics = C
juggle = 2
ctrl = 0
anim = 400
poweradd = 25
sprpriority = 2
facep2 = 1
]]
end
