-- Lists the sprites that no action shows and the sounds that no state
-- plays, so they can be cut from the files. Sprites the engine shows by
-- itself (portraits, group 9000) count as used; sounds named with the F
-- prefix come from the engine's own file and are not counted.

local function key(group, index) return group .. "," .. index end

local function usedSprites(animations)
    local used = {}
    for a = 0, animations.count - 1 do
        local action = animations:at(a)
        for f = 0, action.frameCount - 1 do
            local frame = action:frameAt(f)
            used[key(frame.spriteGroup, frame.spriteIndex)] = true
        end
    end
    return used
end

-- Sound references in state text: PlaySnd's value and the hit and guard sounds.
local function usedSounds(p)
    local used = {}
    local section = ""
    for s = 0, p.statesCount - 1 do
        local text = p:states(s).text
        for line in string.gmatch(text .. "\n", "([^\n]*)\n") do
            local code = line:gsub(";.*", ""):lower()
            if code:match("^%s*%[") then section = code end
            if code:match("^%s*type%s*=%s*playsnd") then section = "playsnd" end
            local k, rest = code:match("^%s*([%w%.]+)%s*=%s*(.*)$")
            if k == "hitsound" or k == "guardsound" or (section == "playsnd" and k == "value") then
                if not rest:match("^%s*f") then
                    local g, n = rest:match("^%s*s?(%d+)%s*,%s*(%d+)")
                    if g then used[key(tonumber(g), tonumber(n))] = true end
                end
            end
        end
    end
    return used
end

function unusedReport(p)
    local sprites, sounds = p.sprites, p.sounds
    local shown = usedSprites(p.animations)
    local unusedSprites = {}
    for i = 0, sprites.count - 1 do
        local s = sprites:at(i)
        if s.itemGroup ~= 9000 and not shown[key(s.itemGroup, s.itemIndex)] then
            unusedSprites[#unusedSprites + 1] = key(s.itemGroup, s.itemIndex)
        end
    end
    local played = usedSounds(p)
    local unusedSounds = {}
    for i = 0, sounds.count - 1 do
        local k = key(sounds:group(i), sounds:sample(i))
        if not played[k] then unusedSounds[#unusedSounds + 1] = k end
    end
    return unusedSprites, unusedSounds
end

function main()
    local p = project()
    if p == nil then return end
    local unusedSprites, unusedSounds = unusedReport(p)
    local text = string.format(translate("Unused sprites (%d): %s\nUnused sounds (%d): %s"),
                               #unusedSprites, table.concat(unusedSprites, " "),
                               #unusedSounds, table.concat(unusedSounds, " "))
    message(translate("Unused sprites and sounds"), text)
end
