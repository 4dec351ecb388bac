-- A font with its [Def] section; the glyphs are added in the sprites editor.
function template(project)
    project.definitions:append([[
; A font made from the program's template.
[Def]
Type = Bitmap
Size = 8, 8
Spacing = 1, 0
Colors = 1
Offset = 0, 0
]])
    return true
end
