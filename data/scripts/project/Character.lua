-- A small complete character: it stands, walks, jumps, crouches, guards,
-- throws one punch with hit boxes, and takes hits through the engine's
-- common states (common1.cns). Its sprites are drawn here: a round-headed
-- fighter in a blue gi, in the poses the actions need.

local W, H = 64, 104 -- sprite size; the axis is at the feet, in the middle

local palette = {}
for i = 1, 256 do palette[i] = rgb(0, 0, 0) end
palette[1] = rgb(255, 0, 255)   -- 0: transparent
palette[2] = rgb(24, 20, 28)    -- 1: outline, hair
palette[3] = rgb(240, 196, 150) -- 2: skin
palette[4] = rgb(40, 90, 200)   -- 3: gi
palette[5] = rgb(20, 20, 20)    -- 4: belt
palette[6] = rgb(250, 250, 250) -- 5: gloves

local SKIN, HAIR, GI, BELT, GLOVE = 2, 1, 3, 4, 5

-- One pose: how low the hips are, how the legs spread, where the fists go.
local function drawPose(pose)
    local image = Image(W, H)
    for i = 1, 256 do image:setColor(i - 1, palette[i]) end
    local lean = pose.lean or 0
    local hip = pose.hip or 56          -- height of the hips from the feet
    local top = H - hip - 40             -- top of the body
    local cx = W / 2 + lean
    -- legs
    local spread = pose.spread or 6
    image:fillRect(cx - spread - 5, H - hip, 8, hip - (pose.tuck or 0), GI)
    image:fillRect(cx + spread - 3, H - hip, 8, hip - (pose.tuck or 0), GI)
    image:fillRect(cx - spread - 6, H - 5 - (pose.tuck or 0), 9, 5, SKIN)
    image:fillRect(cx + spread - 3, H - 5 - (pose.tuck or 0), 9, 5, SKIN)
    -- body and belt
    image:fillRect(cx - 11, top + 14, 22, 30, GI)
    image:fillRect(cx - 11, H - hip - 4, 22, 4, BELT)
    -- head
    image:fillEllipse(cx - 9, top - 6, 18, 20, SKIN)
    image:fillRect(cx - 9, top - 6, 18, 5, HAIR)
    -- arms: a fist at (x, y) from the shoulder
    for _, fist in ipairs(pose.fists or {{10, 20}, {-6, 22}}) do
        local fx, fy = cx + fist[1], top + 16 + fist[2]
        local x1, x2 = math.min(cx, fx), math.max(cx, fx)
        image:fillRect(x1, math.min(top + 16, fy), x2 - x1 + 4, 5, GI)
        image:fillRect(fx, math.min(top + 16, fy), 5, math.abs(fy - top - 16) + 5, GI)
        image:fillEllipse(fx - 1, fy - 1, 8, 8, GLOVE)
    end
    return image
end

-- The sprites: group, index, pose.
local poses = {
    {0, 0, {}}, {0, 1, {hip = 55}},
    {10, 0, {hip = 30}},
    {20, 0, {spread = 10}}, {20, 1, {spread = 3}}, {20, 2, {spread = 12}}, {20, 3, {spread = 2}},
    {40, 0, {hip = 44}}, {40, 1, {tuck = 14, fists = {{8, 4}, {-8, 6}}}},
    {120, 0, {fists = {{6, 0}, {2, 4}}}}, {121, 0, {hip = 30, fists = {{6, 0}, {2, 4}}}},
    {200, 0, {fists = {{14, 16}, {-6, 22}}}}, {200, 1, {lean = 3, fists = {{26, 8}, {-6, 22}}}},
    {200, 2, {fists = {{14, 16}, {-6, 22}}}},
    {5000, 0, {lean = -5, fists = {{-4, 24}, {-12, 26}}}}, {5000, 1, {lean = -8, fists = {{-8, 26}, {-14, 26}}}},
    {5030, 0, {lean = -6, tuck = 10, fists = {{-10, -4}, {-16, 0}}}},
    {5040, 0, {hip = 8, lean = -14, spread = 14, fists = {{-20, -10}, {-24, -6}}}},
    {5080, 0, {hip = 6, spread = 16, lean = -18, fists = {{-22, -6}, {-26, -2}}}},
    {9000, 0, {}}, {9000, 1, {}},
}

local function makeSprites(sprites)
    local shared = nil
    for _, entry in ipairs(poses) do
        local sprite = sprites:add()
        sprite.itemGroup, sprite.itemIndex = entry[1], entry[2]
        if shared == nil then
            sprite:setImage(drawPose(entry[3]))
            shared = sprites:paletteAt(0)
            shared.itemGroup, shared.itemIndex = 1, 1
        else
            sprite:setImage(drawPose(entry[3]), shared)
        end
        sprite.x, sprite.y = W / 2, H
    end
end

-- Actions: number, frames as {group, index, time}; the body box of each
-- frame comes from its sprite, and the punch adds its fist.
local actions = {
    {0, {{0, 0, 40}, {0, 1, 40}}}, {5, {{0, 0, 4}}}, {6, {{10, 0, 4}}},
    {10, {{10, 0, 3}}}, {11, {{10, 0, -1}}}, {12, {{10, 0, 3}}},
    {20, {{20, 0, 6}, {20, 1, 6}, {20, 2, 6}, {20, 3, 6}}}, {21, {{20, 3, 6}, {20, 2, 6}, {20, 1, 6}, {20, 0, 6}}},
    {40, {{40, 0, 3}}}, {41, {{40, 1, -1}}}, {42, {{40, 1, -1}}}, {43, {{40, 1, -1}}},
    {44, {{40, 1, -1}}}, {45, {{40, 1, -1}}}, {46, {{40, 1, -1}}}, {47, {{40, 0, 3}}},
    {100, {{20, 0, 4}, {20, 2, 4}}}, {105, {{40, 1, -1}}},
    {120, {{120, 0, 2}}}, {121, {{121, 0, 2}}}, {122, {{120, 0, 2}}},
    {130, {{120, 0, -1}}}, {131, {{121, 0, -1}}}, {132, {{120, 0, -1}}},
    {140, {{120, 0, 2}}}, {141, {{121, 0, 2}}}, {142, {{120, 0, 2}}},
    {150, {{120, 0, -1}}}, {151, {{120, 0, -1}}}, {152, {{121, 0, -1}}}, {153, {{121, 0, -1}}},
    {154, {{120, 0, -1}}}, {155, {{120, 0, -1}}},
    {170, {{5000, 1, -1}}}, {175, {{0, 0, -1}}}, {180, {{0, 0, -1}}}, {181, {{0, 1, -1}}},
    {190, {{0, 0, 30}}}, {195, {{0, 0, 30}}},
    {200, {{200, 0, 3}, {200, 1, 4}, {200, 2, 6}}},
}
-- The get-hit actions the common states play.
local hits = {5000, 5001, 5002, 5005, 5006, 5007, 5010, 5011, 5012, 5015, 5016, 5017, 5020, 5021, 5022,
              5025, 5026, 5027, 5030, 5035, 5040, 5050, 5051, 5052, 5060, 5061, 5062, 5070, 5071, 5080,
              5081, 5090, 5100, 5101, 5110, 5111, 5120, 5121, 5160, 5161, 5170, 5171, 5200, 5210}
local hitSprite = {[0] = {5000, 0}, [1] = {5000, 1}, [3] = {5030, 0}, [4] = {5040, 0}, [5] = {5030, 0},
                   [6] = {5040, 0}, [7] = {5030, 0}, [8] = {5080, 0}, [9] = {5080, 0}, [10] = {5080, 0},
                   [11] = {5080, 0}, [12] = {5080, 0}, [16] = {5030, 0}, [17] = {5080, 0}, [20] = {5040, 0},
                   [21] = {5000, 1}}
for _, number in ipairs(hits) do
    local s = hitSprite[math.floor((number - 5000) / 10)] or {5000, 0}
    actions[#actions + 1] = {number, {{s[1], s[2], number % 10 == 0 and 3 or -1}}}
end

local function makeActions(animations, sprites)
    for _, entry in ipairs(actions) do
        local action = animations:add(entry[1])
        for _, f in ipairs(entry[2]) do
            local frame = action:frameAdd()
            frame:setSprite(f[1], f[2])
            frame.time = f[3]
            local b = sprites:at(sprites:find(f[1], f[2])):bounds()
            frame:insertBox(HitBoxes.Collision, b.x1 + 4, b.y1, b.x2 - 4, 0)
            if f[1] == 200 and f[2] == 1 then
                frame:insertBox(HitBoxes.Attack, 20, -76, b.x2, -62)
            end
        end
    end
end

local def = [[
; A character made from the program's template.
[Info]
name = "Template"
displayname = "Template"
versiondate = 01,01,2026
mugenversion = 1.1
author = "Pugilforge template"
pal.defaults = 1
localcoord = 320, 240

[Files]
cmd = template.cmd
cns = template.cns
st = template.cns
stcommon = common1.cns
sprite = template.sff
anim = template.air

[Arcade]
intro.storyboard =
ending.storyboard =
]]

local cmd = [[
; The buttons and the directions the common states read.
[Remap]
x = x
y = y
z = z
a = a
b = b
c = c
s = s

[Defaults]
command.time = 15
command.buffer.time = 1

[Command]
name = "x"
command = x
time = 1

[Command]
name = "holdfwd"
command = /$F
time = 1

[Command]
name = "holdback"
command = /$B
time = 1

[Command]
name = "holdup"
command = /$U
time = 1

[Command]
name = "holddown"
command = /$D
time = 1

[Statedef -1]

[State -1, Punch]
type = ChangeState
value = 200
triggerall = command = "x"
trigger1 = statetype = S
trigger1 = ctrl
]]

local cns = [[
; Constants and the one attack of the template character.
[Data]
life = 1000
attack = 100
defence = 100
fall.defence_up = 50
liedown.time = 60
airjuggle = 15
sparkno = 2
guard.sparkno = 40
KO.echo = 0
volume = 0
IntPersistIndex = 60
FloatPersistIndex = 40

[Size]
xscale = 1
yscale = 1
ground.back = 15
ground.front = 16
air.back = 12
air.front = 12
height = 60
attack.dist = 160
proj.attack.dist = 90
proj.doscale = 0
head.pos = -5, -90
mid.pos = -5, -60
shadowoffset = 0
draw.offset = 0, 0

[Velocity]
walk.fwd = 2.4
walk.back = -2.2
run.fwd = 4.6, 0
run.back = -4.5, -3.8
jump.neu = 0, -8.4
jump.back = -2.55
jump.fwd = 2.5
runjump.back = -2.55, -8.1
runjump.fwd = 4, -8.1
airjump.neu = 0, -8.1
airjump.back = -2.55
airjump.fwd = 2.5
air.gethit.groundrecover = -.15, -3.5
air.gethit.airrecover.mul = .5, .2
air.gethit.airrecover.add = 0, -4.5
air.gethit.airrecover.back = -1
air.gethit.airrecover.fwd = 0
air.gethit.airrecover.up = -2
air.gethit.airrecover.down = 1.5

[Movement]
airjump.num = 0
airjump.height = 35
yaccel = .44
stand.friction = .85
crouch.friction = .82
stand.friction.threshold = 2
crouch.friction.threshold = .05
air.gethit.groundlevel = 25
air.gethit.groundrecover.ground.threshold = -20
air.gethit.groundrecover.groundlevel = 10
air.gethit.airrecover.threshold = -1
air.gethit.airrecover.yaccel = .35
air.gethit.trip.groundlevel = 15
down.bounce.offset = 0, 20
down.bounce.yaccel = .4
down.bounce.groundlevel = 12
down.friction.threshold = .05

; Standing punch
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

[State 200, Hit]
type = HitDef
trigger1 = AnimElem = 2
attr = S, NA
damage = 30, 0
animtype = Light
guardflag = MA
hitflag = MAF
priority = 3, Hit
pausetime = 8, 8
sparkno = 0
sparkxy = -10, -70
ground.type = High
ground.slidetime = 10
ground.hittime = 12
ground.velocity = -4
air.velocity = -3, -4

[State 200, End]
type = ChangeState
trigger1 = AnimTime = 0
value = 0
ctrl = 1
]]

function template(project)
    project.definitions:append(def)
    project.commands:append(cmd)
    project:addStates("template.cns"):append(cns)
    makeSprites(project.sprites)
    makeActions(project.animations, project.sprites)
    return true
end
