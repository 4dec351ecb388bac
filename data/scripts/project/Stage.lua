-- A stage with one flat floor layer drawn here.
function template(project)
    project.definitions:append([[
; A stage made from the program's template.
[Info]
name = "Template stage"
displayname = "Template stage"
mugenversion = 1.1
author = "Pugilforge template"

[Camera]
startx = 0
starty = 0
boundleft = -150
boundright = 150
boundhigh = -25
boundlow = 0
verticalfollow = .2
floortension = 0
tension = 50

[PlayerInfo]
p1startx = -70
p1starty = 0
p1facing = 1
p2startx = 70
p2starty = 0
p2facing = -1
leftbound = -1000
rightbound = 1000

[Bound]
screenleft = 15
screenright = 15

[StageInfo]
zoffset = 200
autoturn = 1
resetBG = 1
localcoord = 320, 240

[Shadow]
intensity = 96
color = 0, 0, 0
yscale = .4

[BGdef]
spr = template.sff
debugbg = 0

[BG Floor]
type = normal
spriteno = 0, 0
start = 0, 0
delta = 1, 1
tile = 1, 1
]])
    local image = Image(64, 64)
    image:setColor(0, rgb(90, 140, 200))
    image:setColor(1, rgb(120, 160, 90))
    image:fillRect(0, 32, 64, 32, 1)
    local sprite = project.sprites:add()
    sprite:setImage(image)
    return true
end
