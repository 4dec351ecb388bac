-- The fight screen (fight.def): its files and the life bars' section.
function template(project)
    project.definitions:append([[
; A fight screen made from the program's template.
[Info]
name = "Template fight screen"
author = "Pugilforge template"

[Files]
sff = fight.sff
snd = fight.snd
fightfx.sff = fightfx.sff
fightfx.air = fightfx.air
common.snd = common.snd

[Lifebar]
p1.pos = 140, 12
p2.pos = 180, 12
]])
    return true
end
