-- Moves every sprite of one group to another group number, as one undoable edit.
function main()
    local p = project()
    if p == nil then return end
    local from = tonumber(ask(translate("Rename group"), translate("Group"), "0"))
    if from == nil then return end
    local to = tonumber(ask(translate("Rename group"), translate("New group"), tostring(from)))
    if to == nil or to == from then return end
    local sprites = p.sprites
    local moved = 0
    for i = 0, sprites.count - 1 do
        if sprites:at(i).itemGroup == from then moved = moved + 1 end
    end
    if moved == 0 then
        message(translate("Rename group"), string.format(translate("No sprite in group %d."), from))
        return
    end
    sprites:renameGroup(from, to)
    print(string.format("%d sprites moved from group %d to %d", moved, from, to))
end
