-- A light standing hit: a HitDef with the fields most attacks set.
function codeSnippet()
    return [[
[State 200, Hit]
type = HitDef
trigger1 = AnimElem = 2
attr = S, NA
damage = 20, 0
animtype = Light
guardflag = MA
hitflag = MAF
priority = 3, Hit
pausetime = 8, 8
sparkno = 0
sparkxy = -10, -70
hitsound = 5, 0
guardsound = 6, 0
ground.type = High
ground.slidetime = 10
ground.hittime = 12
ground.velocity = -4
air.velocity = -3, -4
]]
end
