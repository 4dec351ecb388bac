-- A low hit of a crouching attack: a HitDef that must be guarded low, with a trip on air hits.
function codeSnippet()
    return [[
[State 400, Hit]
type = HitDef
trigger1 = AnimElem = 3
attr = C, NA
damage = 25, 2
animtype = Medium
guardflag = L
hitflag = MAFD
priority = 3, Hit
pausetime = 10, 10
sparkno = 1
sparkxy = -10, -20
hitsound = 5, 1
guardsound = 6, 0
ground.type = Low
ground.slidetime = 12
ground.hittime = 14
ground.velocity = -5
air.animtype = Back
air.velocity = -2.5, -3
air.fall = 1
]]
end
