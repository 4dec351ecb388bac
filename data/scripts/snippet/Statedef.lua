-- The head of a standing attack's state.
function codeSnippet()
    return [[
[Statedef 200]
type = S
movetype = A
physics = S
juggle = 1
velset = 0, 0
ctrl = 0
anim = 200
poweradd = 20
sprpriority = 2
]]
end
