-- The skeleton of a system screen (motif): its [Info], [Files] and the title screen's background.
function template(project)
    project.definitions:append([[
; A system screen made from the program's template.
[Info]
name = "Template screen"
author = "Pugilforge template"
mugenversion = 1.1
localcoord = 320, 240

[Files]
spr = system.sff
snd = system.snd
logo.storyboard =
intro.storyboard =
select = select.def
fight = fight.def
font1 = f-4x6.fnt

[Title Info]
fadein.time = 10
fadeout.time = 10
menu.pos = 159, 158

[TitleBGdef]
bgclearcolor = 0, 0, 0
]])
    return true
end
