-- Writes the moves of the character's CMD as a text list: each command's
-- name and keys, the engine's own helper commands (hold directions, the
-- AI's) left out.

local function isHelper(name)
    return name:match("^hold") ~= nil or name:match("^recovery") ~= nil or name:lower():match("^ai") ~= nil
end

local keyNames = {["~"] = "release ", ["/"] = "hold ", ["$"] = "", [">"] = "then ", ["+"] = " + "}

local function readable(keys)
    return (keys:gsub("[~/$>]", keyNames))
end

function movelist(commands)
    local lines, seen = {}, {}
    for i = 0, commands.count - 1 do
        local command = commands:at(i)
        local name = command.name
        if name ~= "" and not isHelper(name) and not seen[name .. command.command] then
            seen[name .. command.command] = true
            lines[#lines + 1] = string.format("%-20s %s", name, readable(command.command))
        end
    end
    return table.concat(lines, "\n") .. "\n"
end

function main()
    local p = project()
    if p == nil then return end
    local fileName = saveFileName(translate("Export movelist"), "Text (*.txt)")
    if fileName == nil then return end
    if not writeFile(fileName, movelist(p.commands)) then
        message(translate("Export movelist"), translate("The movelist could not be written."))
        return
    end
    print("movelist written to " .. fileName)
end
