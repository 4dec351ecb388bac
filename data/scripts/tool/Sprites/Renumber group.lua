-- Renumbers the sprites of one group with consecutive indices (closing the
-- gaps left by deleted sprites), optionally into another group, and points
-- the frames of the actions at the new numbers. One dialog asks for
-- everything and shows, while the author types, what will happen.

-- The sprites of `group`, in the order of their indices.
local function groupSprites(sprites, group)
    local found = {}
    for i = 0, sprites.count - 1 do
        local s = sprites:at(i)
        if s.itemGroup == group then found[#found + 1] = s end
    end
    table.sort(found, function(a, b) return a.itemIndex < b.itemIndex end)
    return found
end

-- A sprite of `group` outside `moving` that already has one of the new numbers, or nil.
local function clash(sprites, group, moving, first, step)
    local moved, taken = {}, {}
    for _, s in ipairs(moving) do moved[s.position] = true end
    for k = 1, #moving do taken[first + (k - 1) * step] = true end
    for i = 0, sprites.count - 1 do
        local s = sprites:at(i)
        if s.itemGroup == group and not moved[i] and taken[s.itemIndex] then return s end
    end
    return nil
end

local function askSettings(sprites, title)
    local startGroup = sprites.count > 0 and sprites:at(0).itemGroup or 0
    local dlg = Dialog{windowTitle = title, minW = 360}
    local group = IntEdit{min = 0, max = 65535, value = startGroup}
    local newGroup = IntEdit{min = 0, max = 65535, value = startGroup}
    local first = IntEdit{min = 0, max = 65535, value = 0}
    local step = IntEdit{min = 1, max = 1000, value = 1}
    local frames = CheckBox{text = translate("Point the actions' frames at the new numbers"), checked = true}
    local summary = Label{wordWrap = true, minH = 40}
    local ok = PushButton{text = translate("Renumber"), default = true}
    local cancel = PushButton{text = translate("Cancel")}

    local function refresh()
        local n = #groupSprites(sprites, group.value)
        if n == 0 then
            summary.text = string.format(translate("Group %d has no sprite."), group.value)
        else
            local last = first.value + (n - 1) * step.value
            summary.text = string.format(translate("%d sprites of group %d become %d,%d to %d,%d."),
                                         n, group.value, newGroup.value, first.value, newGroup.value, last)
        end
        ok.enabled = n > 0
    end
    -- A new group number proposes itself as the target too.
    group.valueChanged = function(value)
        if newGroup.value ~= value then newGroup.value = value end
        refresh()
    end
    newGroup.valueChanged = refresh
    first.valueChanged = refresh
    step.valueChanged = refresh
    ok.clicked = function() dlg:accept() end
    cancel.clicked = function() dlg:reject() end

    local form = FormLayout()
    form:addRow(translate("Group"), group)
    form:addRow(translate("New group"), newGroup)
    form:addRow(translate("First index"), first)
    form:addRow(translate("Step"), step)
    form:addRow(frames)
    local buttons = HBoxLayout()
    buttons:addStretch()
    buttons:addWidget(ok)
    buttons:addWidget(cancel)
    local box = VBoxLayout()
    box:addLayout(form)
    box:addWidget(summary)
    box:addLayout(buttons)
    dlg.layout = box
    refresh()
    if dlg:exec() ~= Dialog.Accepted then return nil end
    return {group = group.value, newGroup = newGroup.value, first = first.value, step = step.value,
            frames = frames.checked}
end

function main()
    local p = project()
    if p == nil then return end
    local title = translate("Renumber sprite group")
    local sprites = p.sprites
    local settings = askSettings(sprites, title)
    if settings == nil then return end
    local moving = groupSprites(sprites, settings.group)
    if #moving == 0 then return end
    local taken = clash(sprites, settings.newGroup, moving, settings.first, settings.step)
    if taken ~= nil then
        message(title, string.format(translate("Sprite %d,%d already has one of the new numbers: nothing was changed."),
                                     taken.itemGroup, taken.itemIndex))
        return
    end

    -- Old number to new, for the frames.
    local renumbered = {}
    sprites:beginMacro(title)
    for k, s in ipairs(moving) do
        local index = settings.first + (k - 1) * settings.step
        renumbered[s.itemIndex] = index
        s.itemGroup = settings.newGroup
        s.itemIndex = index
    end
    sprites:endMacro()

    local pointed = 0
    if settings.frames then
        local animations = p.animations
        for a = 0, animations.count - 1 do
            local action = animations:at(a)
            for f = 0, action.frameCount - 1 do
                local frame = action:frameAt(f)
                local index = frame.spriteGroup == settings.group and renumbered[frame.spriteIndex]
                if index then
                    frame:setSprite(settings.newGroup, index)
                    pointed = pointed + 1
                end
            end
        end
    end
    print(string.format("%d sprites renumbered into group %d from index %d, %d frames follow",
                        #moving, settings.newGroup, settings.first, pointed))
end
