-- Gives every sprite of a group the same axis, so the frames of a move stand
-- on one spot; one undoable edit.
function main()
    local p = project()
    if p == nil then return end
    local group = tonumber(ask(translate("Align axes"), translate("Group"), "0"))
    if group == nil then return end
    local sprites = p.sprites
    local first = -1
    for i = 0, sprites.count - 1 do
        if sprites:at(i).itemGroup == group then first = i break end
    end
    if first < 0 then
        message(translate("Align axes"), string.format(translate("No sprite in group %d."), group))
        return
    end
    local sample = sprites:at(first)
    local x = tonumber(ask(translate("Align axes"), translate("Axis X"), tostring(sample.x)))
    local y = tonumber(ask(translate("Align axes"), translate("Axis Y"), tostring(sample.y)))
    if x == nil or y == nil then return end
    sprites:fullAxis(x, y, false, group)
    print(string.format("axes of group %d set to %d, %d", group, x, y))
end
