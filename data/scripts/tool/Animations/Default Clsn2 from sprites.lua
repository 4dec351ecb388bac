-- Adds to every frame of the chosen actions a Clsn2Default box around the
-- visible part of the frame's sprite (its axis and the frame's offset taken
-- into account). Frames that already declare a Clsn2Default keep theirs.
-- The actions are asked as numbers separated by commas; "current" is the
-- action selected in the editor, "all" every action.

local function chosenActions(animations, answer)
    local chosen = {}
    if answer == "all" then
        for i = 0, animations.count - 1 do chosen[#chosen + 1] = animations:at(i) end
    elseif answer == "current" then
        if animations.count > 0 then chosen[1] = animations:at(animations.currentIndex) end
    else
        for number in string.gmatch(answer, "-?%d+") do
            local position = animations:findByNumber(tonumber(number))
            if position >= 0 then chosen[#chosen + 1] = animations:at(position) end
        end
    end
    return chosen
end

function main()
    local p = project()
    if p == nil then return end
    local answer = ask(translate("Default Clsn2 from sprites"), translate("Actions"), "current")
    if answer == nil then return end
    local sprites, animations = p.sprites, p.animations
    local added = 0
    for _, action in ipairs(chosenActions(animations, answer)) do
        for f = 0, action.frameCount - 1 do
            local frame = action:frameAt(f)
            local position = sprites:find(frame.spriteGroup, frame.spriteIndex)
            if position >= 0 and frame:hitBoxes(HitBoxes.CollisionDefault).count == 0 then
                local b = sprites:at(position):bounds()
                if not b.empty then
                    frame:insertBox(HitBoxes.CollisionDefault, b.x1 + frame.offsetX, b.y1 + frame.offsetY,
                                    b.x2 + frame.offsetX, b.y2 + frame.offsetY)
                    added = added + 1
                end
            end
        end
    end
    print(string.format("%d Clsn2Default boxes added", added))
end
