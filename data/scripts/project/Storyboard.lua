-- A storyboard of one scene that shows for two seconds.
function template(project)
    project.definitions:append([[
; A storyboard made from the program's template.
[SceneDef]
spr = template.sff
startscene = 0

[Scene 0]
fadein.time = 10
fadeout.time = 10
bg.name = Scene0BG
end.time = 120
]])
    return true
end
