<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BakDlg</name>
    <message>
        <source>Load backup</source>
        <translation>Sicherung laden</translation>
    </message>
    <message>
        <source>Choose the backup to load (newest first). Saving afterwards writes the project&apos;s own files.</source>
        <translation>Wählen Sie die Sicherung, die geladen werden soll (die neueste zuerst). Beim Speichern werden danach die eigenen Dateien des Projekts geschrieben.</translation>
    </message>
    <message>
        <source>This project has no backups yet.</source>
        <translation>Dieses Projekt hat noch keine Sicherungen.</translation>
    </message>
</context>
<context>
    <name>Calculator</name>
    <message>
        <source>Calculator</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>e.g. (320 - 48) / 2</source>
        <translation>z. B. (320 - 48) / 2</translation>
    </message>
    <message>
        <source>—</source>
        <translation>—</translation>
    </message>
</context>
<context>
    <name>ClipDlg</name>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
</context>
<context>
    <name>ErrorDlg</name>
    <message>
        <source>Errors and warnings</source>
        <translation>Fehler und Warnungen</translation>
    </message>
    <message numerus="yes">
        <source>%n error(s)</source>
        <translation>
            <numerusform>%n Fehler</numerusform>
            <numerusform>%n Fehler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>double-click a row to go there</source>
        <translation>Doppelklick auf eine Zeile springt dorthin</translation>
    </message>
    <message>
        <source>No issues found!</source>
        <translation>Keine Probleme gefunden!</translation>
    </message>
    <message>
        <source>Faults of every file of the project show here.</source>
        <translation>Hier erscheinen die Fehler aller Dateien des Projekts.</translation>
    </message>
</context>
<context>
    <name>FindDlgMlt</name>
    <message>
        <source>Regular expression</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Match case</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Whole words</source>
        <translation>Ganze Wörter</translation>
    </message>
    <message>
        <source>Find and replace in all files</source>
        <translation>In allen Dateien suchen und ersetzen</translation>
    </message>
    <message>
        <source>Find:</source>
        <translation>Suchen:</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>Ersetzen durch:</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Find all</source>
        <translation>Alle suchen</translation>
    </message>
    <message>
        <source>Replace all</source>
        <translation>Alle ersetzen</translation>
    </message>
    <message>
        <source>Undo replace</source>
        <translation>Ersetzen rückgängig machen</translation>
    </message>
    <message numerus="yes">
        <source>%n match(es)</source>
        <translation>
            <numerusform>%n Treffer</numerusform>
            <numerusform>%n Treffer</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 replaced in %2 file(s)</source>
        <translation>%1 ersetzt in %2 Datei(en)</translation>
    </message>
    <message>
        <source>Replace undone</source>
        <translation>Ersetzen rückgängig gemacht</translation>
    </message>
</context>
<context>
    <name>ImgEdit</name>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>x %1, y %2: entry %3</source>
        <translation>x %1, y %2: Eintrag %3</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Import image as layer...</source>
        <translation>Bild als Ebene &amp;importieren...</translation>
    </message>
    <message>
        <source>&amp;Apply to sprite</source>
        <translation>Auf Sprite &amp;anwenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste as layer</source>
        <translation>Als Ebene &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Delete selected pixels</source>
        <translation>Ausgewählte Pixel &amp;löschen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Alles a&amp;uswählen</translation>
    </message>
    <message>
        <source>Select &amp;none</source>
        <translation>Auswahl au&amp;fheben</translation>
    </message>
    <message>
        <source>&amp;Layer</source>
        <translation>&amp;Ebene</translation>
    </message>
    <message>
        <source>&amp;New layer</source>
        <translation>&amp;Neue Ebene</translation>
    </message>
    <message>
        <source>&amp;Duplicate layer</source>
        <translation>Ebene &amp;duplizieren</translation>
    </message>
    <message>
        <source>&amp;Remove layer</source>
        <translation>Ebene &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Merge down</source>
        <translation>Nach unten &amp;vereinen</translation>
    </message>
    <message>
        <source>&amp;Flatten</source>
        <translation>Auf eine Ebene &amp;reduzieren</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>B&amp;ild</translation>
    </message>
    <message>
        <source>&amp;True colour</source>
        <translation>&amp;Echtfarben</translation>
    </message>
    <message>
        <source>&amp;Crop to content</source>
        <translation>Auf Inhalt &amp;zuschneiden</translation>
    </message>
    <message>
        <source>Flip &amp;horizontally</source>
        <translation>&amp;Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Flip &amp;vertically</source>
        <translation>&amp;Vertikal spiegeln</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Pixel &amp;grid</source>
        <translation>Pixel&amp;raster</translation>
    </message>
    <message>
        <source>&amp;Actual size beside</source>
        <translation>&amp;Originalgröße daneben</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Sprite %1, %2</source>
        <translation>Sprite %1, %2</translation>
    </message>
    <message>
        <source>Image editor - sprite %1, %2</source>
        <translation>Bildeditor – Sprite %1, %2</translation>
    </message>
    <message>
        <source>Image editor</source>
        <translation>Bildeditor</translation>
    </message>
    <message>
        <source>Apply to sprite</source>
        <translation>Auf Sprite anwenden</translation>
    </message>
    <message>
        <source>The sprite is indexed, but the picture is in true colour now.
Map its colours to the sprite&apos;s palette (Yes), or build a new palette for the sprite from the picture&apos;s colours (No)?</source>
        <translation>Das Sprite hat indizierte Farben, das Bild ist jetzt aber in Echtfarben.
Sollen seine Farben auf die Palette des Sprites abgebildet werden (Ja), oder soll aus den Farben des Bildes eine neue Palette für das Sprite entstehen (Nein)?</translation>
    </message>
    <message>
        <source>Edit image</source>
        <translation>Bild bearbeiten</translation>
    </message>
    <message>
        <source>Apply the changes to the sprite %1, %2 before closing?</source>
        <translation>Die Änderungen vor dem Schließen auf das Sprite %1, %2 anwenden?</translation>
    </message>
    <message>
        <source>The clipboard holds no picture</source>
        <translation>Die Zwischenablage enthält kein Bild</translation>
    </message>
    <message>
        <source>Import image as layer</source>
        <translation>Bild als Ebene importieren</translation>
    </message>
    <message>
        <source>Images (*.png *.bmp *.gif *.pcx *.jpg)</source>
        <translation>Bilder (*.png *.bmp *.gif *.pcx *.jpg)</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>ImgEditColor</name>
    <message>
        <source>Left click: foreground, right click: background</source>
        <translation>Linksklick: Vordergrund, Rechtsklick: Hintergrund</translation>
    </message>
    <message>
        <source>FG %1
BG %2</source>
        <translation>VG %1
HG %2</translation>
    </message>
</context>
<context>
    <name>ImgEditLayers</name>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Plus</source>
        <translation>Addieren</translation>
    </message>
    <message>
        <source>Multiply</source>
        <translation>Multiplizieren</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Negativ multiplizieren</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Ineinanderkopieren</translation>
    </message>
    <message>
        <source>Darken</source>
        <translation>Abdunkeln</translation>
    </message>
    <message>
        <source>Lighten</source>
        <translation>Aufhellen</translation>
    </message>
    <message>
        <source>Color Dodge</source>
        <translation>Farbig abwedeln</translation>
    </message>
    <message>
        <source>Color Burn</source>
        <translation>Farbig nachbelichten</translation>
    </message>
    <message>
        <source>Hard Light</source>
        <translation>Hartes Licht</translation>
    </message>
    <message>
        <source>Soft Light</source>
        <translation>Weiches Licht</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Exclusion</source>
        <translation>Ausschluss</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New layer</source>
        <translation>Neue Ebene</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopie</translation>
    </message>
    <message>
        <source>Duplicate layer</source>
        <translation>Ebene duplizieren</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf.</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>Ebene entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Move layer up</source>
        <translation>Ebene nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Runter</translation>
    </message>
    <message>
        <source>Move layer down</source>
        <translation>Ebene nach unten</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Vereinen</translation>
    </message>
    <message>
        <source>Merge down</source>
        <translation>Nach unten vereinen</translation>
    </message>
    <message>
        <source>Blend mode</source>
        <translation>Füllmethode</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Blend modes and opacity apply to true-colour pictures only</source>
        <translation>Füllmethoden und Deckkraft wirken nur bei Echtfarbenbildern</translation>
    </message>
    <message>
        <source>Layer %1</source>
        <translation>Ebene %1</translation>
    </message>
</context>
<context>
    <name>ImgEditToolBar</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Pen: left button foreground, right background; Shift-click joins to the last stroke</source>
        <translation>Stift: linke Taste Vordergrund, rechte Hintergrund; Umschalt-Klick verbindet mit dem letzten Strich</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Radierer</translation>
    </message>
    <message>
        <source>Eraser: left erases all, right only the foreground colour</source>
        <translation>Radierer: links radiert alles, rechts nur die Vordergrundfarbe</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Replace pen: recolours pairs of palette entries</source>
        <translation>Ersetzungsstift: färbt Paare von Paletteneinträgen um</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllen</translation>
    </message>
    <message>
        <source>Flood fill with the foreground</source>
        <translation>Fläche mit der Vordergrundfarbe füllen</translation>
    </message>
    <message>
        <source>Picker</source>
        <translation>Pipette</translation>
    </message>
    <message>
        <source>Colour picker: left foreground, right background</source>
        <translation>Pipette: links Vordergrund, rechts Hintergrund</translation>
    </message>
    <message>
        <source>Rect select</source>
        <translation>Rechteckauswahl</translation>
    </message>
    <message>
        <source>Rectangle selection: click selects all, Shift adds, Ctrl takes away</source>
        <translation>Rechteckauswahl: Klick wählt alles, Umschalt fügt hinzu, Strg nimmt weg</translation>
    </message>
    <message>
        <source>Pen select</source>
        <translation>Auswahlstift</translation>
    </message>
    <message>
        <source>Selection pen: left adds, right takes away</source>
        <translation>Auswahlstift: links fügt hinzu, rechts nimmt weg</translation>
    </message>
    <message>
        <source>Move sel.</source>
        <translation>Ausw. versch.</translation>
    </message>
    <message>
        <source>Move the selected pixels (arrows move by one)</source>
        <translation>Die ausgewählten Pixel verschieben (Pfeiltasten um eins)</translation>
    </message>
    <message>
        <source>Hand</source>
        <translation>Hand</translation>
    </message>
    <message>
        <source>Pan the view (or hold Space)</source>
        <translation>Die Ansicht verschieben (oder Leertaste halten)</translation>
    </message>
    <message>
        <source>Pen size (+ and - keys)</source>
        <translation>Stiftgröße (Tasten + und -)</translation>
    </message>
    <message>
        <source>Tolerance </source>
        <translation>Toleranz </translation>
    </message>
    <message>
        <source>Replace selection</source>
        <translation>Auswahl ersetzen</translation>
    </message>
    <message>
        <source>Add to selection</source>
        <translation>Zur Auswahl hinzufügen</translation>
    </message>
    <message>
        <source>Subtract from selection</source>
        <translation>Von der Auswahl abziehen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Quorvantek Pugilforge</source>
        <translation>Quorvantek Pugilforge</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Action list</source>
        <translation>Aktionsliste</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Do you really want to close Pugilforge?</source>
        <translation>Wollen Sie Pugilforge wirklich schließen?</translation>
    </message>
</context>
<context>
    <name>MugRunDlg</name>
    <message>
        <source>Run in M.U.G.E.N.</source>
        <translation>In M.U.G.E.N. testen</translation>
    </message>
    <message>
        <source>M.U.G.E.N. will fail if you try to test a char created with a new format in an older version (default format is 1.1).</source>
        <translation>M.U.G.E.N. scheitert, wenn Sie eine Figur in einem neueren Format in einer älteren Version testen (Standardformat ist 1.1).</translation>
    </message>
    <message>
        <source>Choose the target:</source>
        <translation>Wählen Sie das Ziel:</translation>
    </message>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>Oops, you need to configure a M.U.G.E.N. first. Do it in the Tools / Options.</source>
        <translation>Hoppla, zuerst muss ein M.U.G.E.N. eingerichtet werden. Das geht unter Werkzeuge / Einstellungen.</translation>
    </message>
</context>
<context>
    <name>MugenDlg</name>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Executable:</source>
        <translation>Programmdatei:</translation>
    </message>
    <message>
        <source>Parameters:</source>
        <translation>Parameter:</translation>
    </message>
    <message>
        <source>Icon:</source>
        <translation>Symbol:</translation>
    </message>
    <message>
        <source>M.U.G.E.N.</source>
        <translation>M.U.G.E.N.</translation>
    </message>
    <message>
        <source>the engine&apos;s mugen.exe</source>
        <translation>die mugen.exe der Engine</translation>
    </message>
    <message>
        <source>Ready-made parameters: %0 is the current project, %1 the project of the first tab, %2 of the second...</source>
        <translation>Fertige Parameter: %0 ist das aktuelle Projekt, %1 das Projekt des ersten Tabs, %2 das des zweiten...</translation>
    </message>
    <message>
        <source>Ready-made parameters</source>
        <translation>Fertige Parameter</translation>
    </message>
    <message>
        <source>M.U.G.E.N. executable</source>
        <translation>M.U.G.E.N.-Programmdatei</translation>
    </message>
    <message>
        <source>M.U.G.E.N. executable (*.exe)</source>
        <translation>M.U.G.E.N.-Programmdatei (*.exe)</translation>
    </message>
    <message>
        <source>M.U.G.E.N. icon</source>
        <translation>M.U.G.E.N.-Symbol</translation>
    </message>
    <message>
        <source>Portable Network Graphic (*.png)</source>
        <translation>Portable Network Graphic (*.png)</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>(from the preset)</source>
        <translation>(aus der Vorgabe)</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Engines</source>
        <translation>Engines</translation>
    </message>
    <message>
        <source>Ask before closing the program</source>
        <translation>Vor dem Schließen des Programms nachfragen</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
    <message>
        <source>Preset:</source>
        <translation>Vorgabe:</translation>
    </message>
    <message>
        <source>Icon set:</source>
        <translation>Symbolsatz:</translation>
    </message>
    <message>
        <source>Style:</source>
        <translation>Stil:</translation>
    </message>
    <message>
        <source>Colour set:</source>
        <translation>Farbsatz:</translation>
    </message>
    <message>
        <source>Recent projects:</source>
        <translation>Zuletzt geöffnete Projekte:</translation>
    </message>
    <message>
        <source>Assign</source>
        <translation>Zuweisen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>PalEditor</name>
    <message>
        <source>Palette editor</source>
        <translation>Paletteneditor</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Read ACT, RIFF, JASC, Painter, ACO, ASE palettes or the colours of a PCX or PNG</source>
        <translation>Liest ACT-, RIFF-, JASC-, Painter-, ACO- und ASE-Paletten oder die Farben eines PCX oder PNG</translation>
    </message>
    <message>
        <source>Write the palette in any of the formats the program reads</source>
        <translation>Schreibt die Palette in einem der Formate, die das Programm liest</translation>
    </message>
    <message>
        <source>Palette %1,%2</source>
        <translation>Palette %1,%2</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message>
        <source>Pixels follow the entries</source>
        <translation>Pixel folgen den Einträgen</translation>
    </message>
    <message>
        <source>Moved entries take the sprites&apos; pixels along, so every sprite keeps its look</source>
        <translation>Verschobene Einträge nehmen die Pixel der Sprites mit, so behält jedes Sprite sein Aussehen</translation>
    </message>
    <message>
        <source>with </source>
        <translation>mit </translation>
    </message>
    <message>
        <source>Move left</source>
        <translation>Nach links</translation>
    </message>
    <message>
        <source>Move the chosen entry one place back</source>
        <translation>Den gewählten Eintrag eine Stelle zurück</translation>
    </message>
    <message>
        <source>Move right</source>
        <translation>Nach rechts</translation>
    </message>
    <message>
        <source>Move the chosen entry one place on</source>
        <translation>Den gewählten Eintrag eine Stelle weiter</translation>
    </message>
    <message>
        <source>Swap</source>
        <translation>Tauschen</translation>
    </message>
    <message>
        <source>Trade places of the chosen entry and the one given</source>
        <translation>Den gewählten und den angegebenen Eintrag vertauschen</translation>
    </message>
    <message>
        <source>Optimise</source>
        <translation>Optimieren</translation>
    </message>
    <message>
        <source>Used entries to the front, the unused ones after them in black</source>
        <translation>Benutzte Einträge nach vorn, die unbenutzten danach in Schwarz</translation>
    </message>
    <message>
        <source>From image...</source>
        <translation>Aus Bild...</translation>
    </message>
    <message>
        <source>Take the colours of a picture</source>
        <translation>Die Farben eines Bildes übernehmen</translation>
    </message>
    <message>
        <source>Grey scale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Every colour to its grey</source>
        <translation>Jede Farbe in ihr Grau</translation>
    </message>
    <message>
        <source>Force 8-bit</source>
        <translation>8 Bit erzwingen</translation>
    </message>
    <message>
        <source>The sprite file keeps all 256 colours of the palette</source>
        <translation>Die Sprite-Datei behält alle 256 Farben der Palette</translation>
    </message>
    <message>
        <source>Entry %1: %2, %3, %4</source>
        <translation>Eintrag %1: %2, %3, %4</translation>
    </message>
    <message>
        <source> (was %1)</source>
        <translation> (war %1)</translation>
    </message>
    <message>
        <source>The sprite has no picture.</source>
        <translation>Das Sprite hat kein Bild.</translation>
    </message>
    <message>
        <source>The palette will keep all 256 colours in the file.</source>
        <translation>Die Palette behält alle 256 Farben in der Datei.</translation>
    </message>
    <message>
        <source>%1: the picture can&apos;t be read.</source>
        <translation>%1: Das Bild kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1: the palette could not be written.</source>
        <translation>%1: Die Palette konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Open a palette</source>
        <translation>Palette öffnen</translation>
    </message>
    <message>
        <source>Palettes (*.act *.pal *.aco *.ase *.txt *.pcx *.png);;All files (*)</source>
        <translation>Paletten (*.act *.pal *.aco *.ase *.txt *.pcx *.png);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the palette</source>
        <translation>Palette speichern</translation>
    </message>
    <message>
        <source>Make the palette from a picture</source>
        <translation>Palette aus einem Bild erstellen</translation>
    </message>
    <message>
        <source>Pictures (*.png *.pcx *.bmp *.gif *.jpg);;All files (*)</source>
        <translation>Bilder (*.png *.pcx *.bmp *.gif *.jpg);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>No sprite: open a palette file, or make one here and save it.</source>
        <translation>Kein Sprite: Öffnen Sie eine Palettendatei, oder erstellen Sie hier eine und speichern Sie sie.</translation>
    </message>
</context>
<context>
    <name>ProjDlg</name>
    <message>
        <source>Project template</source>
        <translation>Projektvorlage</translation>
    </message>
    <message>
        <source>Start the new project from:</source>
        <translation>Das neue Projekt beginnen mit:</translation>
    </message>
</context>
<context>
    <name>QActionListPanel</name>
    <message>
        <source>Search number or name</source>
        <translation>Nummer oder Name suchen</translation>
    </message>
    <message>
        <source>New action</source>
        <translation>Neue Aktion</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete action</source>
        <translation>Aktion löschen</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Sort by number</source>
        <translation>Nach Nummer sortieren</translation>
    </message>
    <message>
        <source>Rename action</source>
        <translation>Aktion umbenennen</translation>
    </message>
    <message>
        <source>Number and name of the action:</source>
        <translation>Nummer und Name der Aktion:</translation>
    </message>
</context>
<context>
    <name>QActionManager</name>
    <message>
        <source>&amp;New project</source>
        <translation>&amp;Neues Projekt</translation>
    </message>
    <message>
        <source>&amp;Open project...</source>
        <translation>Projekt ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save project &amp;as...</source>
        <translation>Projekt speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Close project</source>
        <translation>Projekt s&amp;chließen</translation>
    </message>
    <message>
        <source>Close all projects</source>
        <translation>Alle Projekte schließen</translation>
    </message>
    <message>
        <source>Close other projects</source>
        <translation>Andere Projekte schließen</translation>
    </message>
    <message>
        <source>Check for &amp;errors</source>
        <translation>Auf Fehler &amp;prüfen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Clear the editor</source>
        <translation>Editor leeren</translation>
    </message>
    <message>
        <source>Open into the editor...</source>
        <translation>In den Editor öffnen...</translation>
    </message>
    <message>
        <source>Save the editor&apos;s file</source>
        <translation>Datei des Editors speichern</translation>
    </message>
    <message>
        <source>Save the editor&apos;s file as...</source>
        <translation>Datei des Editors speichern unter...</translation>
    </message>
    <message>
        <source>&amp;Left panel</source>
        <translation>&amp;Linke Leiste</translation>
    </message>
    <message>
        <source>&amp;Right panel</source>
        <translation>&amp;Rechte Leiste</translation>
    </message>
    <message>
        <source>&amp;Action list</source>
        <translation>&amp;Aktionsliste</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;About Pugilforge</source>
        <translation>Ü&amp;ber Pugilforge</translation>
    </message>
    <message>
        <source>&amp;Calculator</source>
        <translation>&amp;Taschenrechner</translation>
    </message>
    <message>
        <source>Clip&amp;board</source>
        <translation>&amp;Zwischenablage</translation>
    </message>
    <message>
        <source>&amp;Palette editor...</source>
        <translation>&amp;Paletteneditor...</translation>
    </message>
    <message>
        <source>New state file...</source>
        <translation>Neue Zustandsdatei...</translation>
    </message>
    <message>
        <source>Add state file...</source>
        <translation>Zustandsdatei hinzufügen...</translation>
    </message>
    <message>
        <source>Remove state file</source>
        <translation>Zustandsdatei entfernen</translation>
    </message>
    <message>
        <source>Insert controller</source>
        <translation>Controller einfügen</translation>
    </message>
    <message>
        <source>Insert snippet</source>
        <translation>Textbaustein einfügen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>R&amp;eplace...</source>
        <translation>Erset&amp;zen...</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>&amp;Nächstes suchen</translation>
    </message>
    <message>
        <source>Find pre&amp;vious</source>
        <translation>&amp;Vorheriges suchen</translation>
    </message>
    <message>
        <source>Find and replace in &amp;all files...</source>
        <translation>In allen &amp;Dateien suchen und ersetzen...</translation>
    </message>
    <message>
        <source>&amp;Script editor...</source>
        <translation>&amp;Skripteditor...</translation>
    </message>
    <message>
        <source>Create &amp;backup</source>
        <translation>Sicherung &amp;anlegen</translation>
    </message>
    <message>
        <source>&amp;Load backup...</source>
        <translation>Sicherung &amp;laden...</translation>
    </message>
    <message>
        <source>&amp;Run in M.U.G.E.N.</source>
        <translation>In M.U.G.E.N. &amp;testen</translation>
    </message>
    <message>
        <source>New throw...</source>
        <translation>Neuer Wurf...</translation>
    </message>
</context>
<context>
    <name>QAnimSpriteWorkspace</name>
    <message>
        <source>Center axis</source>
        <translation>Achse zentrieren</translation>
    </message>
    <message>
        <source>Sprite crosshair</source>
        <translation>Fadenkreuz des Sprites</translation>
    </message>
    <message>
        <source>Animation crosshair</source>
        <translation>Fadenkreuz der Animation</translation>
    </message>
    <message>
        <source>Extra crosshair</source>
        <translation>Zusätzliches Fadenkreuz</translation>
    </message>
    <message>
        <source>Rulers</source>
        <translation>Lineale</translation>
    </message>
    <message>
        <source>Guide lines</source>
        <translation>Hilfslinien</translation>
    </message>
    <message>
        <source>Attack boxes (Clsn1)</source>
        <translation>Angriffsboxen (Clsn1)</translation>
    </message>
    <message>
        <source>Collision boxes (Clsn2)</source>
        <translation>Kollisionsboxen (Clsn2)</translation>
    </message>
    <message>
        <source>Default attack boxes</source>
        <translation>Standard-Angriffsboxen</translation>
    </message>
    <message>
        <source>Default collision boxes</source>
        <translation>Standard-Kollisionsboxen</translation>
    </message>
    <message>
        <source>OpenGL mode</source>
        <translation>OpenGL-Modus</translation>
    </message>
    <message>
        <source>Native mode</source>
        <translation>Nativer Modus</translation>
    </message>
    <message>
        <source>Sprites and animations</source>
        <translation>Sprites und Animationen</translation>
    </message>
</context>
<context>
    <name>QAnimations</name>
    <message>
        <source>Save AIR</source>
        <translation>AIR speichern</translation>
    </message>
    <message>
        <source>You can&apos;t save an empty AIR because M.U.G.E.N. will not open it.</source>
        <translation>Eine leere AIR kann nicht gespeichert werden, weil M.U.G.E.N. sie nicht öffnet.</translation>
    </message>
    <message>
        <source>Discard changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Do you really want to discard the changes made in the animations?</source>
        <translation>Wollen Sie die Änderungen an den Animationen wirklich verwerfen?</translation>
    </message>
    <message>
        <source>The frame stands in no action.</source>
        <translation>Der Frame steht in keiner Aktion.</translation>
    </message>
    <message>
        <source>The boxes are declared for no frame.</source>
        <translation>Die Boxen sind für keinen Frame deklariert.</translation>
    </message>
    <message>
        <source>%1 boxes are declared, %2 follow.</source>
        <translation>%1 Boxen sind deklariert, %2 folgen.</translation>
    </message>
    <message>
        <source>The box has no declaration above it.</source>
        <translation>Über der Box steht keine Deklaration.</translation>
    </message>
    <message>
        <source>The line speaks of no frame.</source>
        <translation>Die Zeile beschreibt keinen Frame.</translation>
    </message>
</context>
<context>
    <name>QAnimationsEditor</name>
    <message>
        <source>Add frame</source>
        <translation>Frame hinzufügen</translation>
    </message>
    <message>
        <source>Delete frame</source>
        <translation>Frame löschen</translation>
    </message>
    <message>
        <source>&lt;b&gt;Actions:&lt;/b&gt; %1&lt;br&gt;Double-click a cell of the frames to change it, drop sprites on the table to add frames; drag the sprite in the view to move it, Alt+2 draws a Clsn2 box.</source>
        <translation>&lt;b&gt;Aktionen:&lt;/b&gt; %1&lt;br&gt;Doppelklicken Sie eine Zelle der Frames, um sie zu ändern; ziehen Sie Sprites auf die Tabelle, um Frames hinzuzufügen; ziehen Sie das Sprite in der Ansicht, um es zu verschieben; Alt+2 zeichnet eine Clsn2-Box.</translation>
    </message>
    <message>
        <source>Animations</source>
        <translation>Animationen</translation>
    </message>
</context>
<context>
    <name>QCharPaletteStrip</name>
    <message>
        <source>Show the sprites with palette 1,%1 (pal%1 of the definitions)</source>
        <translation>Die Sprites mit Palette 1,%1 zeigen (pal%1 der Definitionen)</translation>
    </message>
</context>
<context>
    <name>QCodecs</name>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
</context>
<context>
    <name>QColorsetManager</name>
    <message>
        <source>Background start</source>
        <translation>Hintergrund Anfang</translation>
    </message>
    <message>
        <source>Background end</source>
        <translation>Hintergrund Ende</translation>
    </message>
    <message>
        <source>CLSN 1</source>
        <translation>CLSN 1</translation>
    </message>
    <message>
        <source>CLSN 2</source>
        <translation>CLSN 2</translation>
    </message>
    <message>
        <source>CLSN 1 Default</source>
        <translation>CLSN 1 Standard</translation>
    </message>
    <message>
        <source>CLSN 2 Default</source>
        <translation>CLSN 2 Standard</translation>
    </message>
    <message>
        <source>Block header</source>
        <translation>Blockkopf</translation>
    </message>
    <message>
        <source>Block parameter</source>
        <translation>Blockparameter</translation>
    </message>
    <message>
        <source>Block controller</source>
        <translation>Block-Controller</translation>
    </message>
    <message>
        <source>Block range</source>
        <translation>Blockbereich</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Kommentare</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Konstante</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Line highlight</source>
        <translation>Zeilenhervorhebung</translation>
    </message>
    <message>
        <source>Matched parenthesis</source>
        <translation>Passende Klammer</translation>
    </message>
    <message>
        <source>Matched parenthesis range</source>
        <translation>Bereich passender Klammern</translation>
    </message>
    <message>
        <source>Parameter literal value</source>
        <translation>Literalwert eines Parameters</translation>
    </message>
</context>
<context>
    <name>QCommands</name>
    <message>
        <source>Do you really want to discard the changes made in the commands?</source>
        <translation>Wollen Sie die Änderungen an den Befehlen wirklich verwerfen?</translation>
    </message>
</context>
<context>
    <name>QCommandsEditor</name>
    <message>
        <source>(no name)</source>
        <translation>(kein Name)</translation>
    </message>
    <message>
        <source>command = %1
Line %2</source>
        <translation>command = %1
Zeile %2</translation>
    </message>
    <message>
        <source>(new commands)</source>
        <translation>(neue Befehle)</translation>
    </message>
    <message>
        <source>No [Command] yet: the snippets on the tool bar start one.</source>
        <translation>Noch kein [Command]: Die Textbausteine in der Werkzeugleiste beginnen einen.</translation>
    </message>
    <message numerus="yes">
        <source>%n command(s); click one to go to it.</source>
        <translation>
            <numerusform>%n Befehl; klicken Sie ihn an, um zu ihm zu gehen.</numerusform>
            <numerusform>%n Befehle; klicken Sie einen an, um zu ihm zu gehen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
</context>
<context>
    <name>QConfigManager</name>
    <message>
        <source>Pugilforge 3 Configuration (*.pfc3)</source>
        <translation>Pugilforge-3-Konfiguration (*.pfc3)</translation>
    </message>
</context>
<context>
    <name>QDefinitions</name>
    <message>
        <source>Do you really want to discard the changes made in the definitions?</source>
        <translation>Wollen Sie die Änderungen an den Definitionen wirklich verwerfen?</translation>
    </message>
</context>
<context>
    <name>QDefinitionsEditor</name>
    <message>
        <source>(new definitions)</source>
        <translation>(neue Definitionen)</translation>
    </message>
    <message>
        <source>Definitions</source>
        <translation>Definitionen</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
    </message>
    <message>
        <source>Animations</source>
        <translation>Animationen</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>States</source>
        <translation>Zustände</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Files this project names</source>
        <translation>Dateien, die dieses Projekt nennt</translation>
    </message>
    <message>
        <source>None yet: name them in [Files].</source>
        <translation>Noch keine: nennen Sie sie unter [Files].</translation>
    </message>
    <message numerus="yes">
        <source>%n palette(s)</source>
        <translation>
            <numerusform>%n Palette</numerusform>
            <numerusform>%n Paletten</numerusform>
        </translation>
    </message>
    <message>
        <source>not here</source>
        <translation>nicht hier</translation>
    </message>
    <message>
        <source>&quot;not here&quot;: the engine also looks in its data folder.</source>
        <translation>„nicht hier“: die Engine sucht auch in ihrem Datenordner.</translation>
    </message>
    <message>
        <source>Ctrl+click a file&apos;s name in the text to open its editor.</source>
        <translation>Strg+Klick auf den Namen einer Datei im Text öffnet ihren Editor.</translation>
    </message>
</context>
<context>
    <name>QFileWatcherManager</name>
    <message>
        <source>%1 was changed by another program.
Reload it and lose your changes?</source>
        <translation>%1 wurde von einem anderen Programm geändert.
Neu laden und Ihre Änderungen verlieren?</translation>
    </message>
    <message>
        <source>%1 was changed by another program.
Reload it?</source>
        <translation>%1 wurde von einem anderen Programm geändert.
Neu laden?</translation>
    </message>
    <message>
        <source>File changed</source>
        <translation>Datei geändert</translation>
    </message>
</context>
<context>
    <name>QFrameBoxTools</name>
    <message>
        <source>Boxes</source>
        <translation>Boxen</translation>
    </message>
    <message>
        <source>Clsn2</source>
        <translation>Clsn2</translation>
    </message>
    <message>
        <source>Clsn1</source>
        <translation>Clsn1</translation>
    </message>
    <message>
        <source>Draw %1 boxes with the mouse; the right button ends (%2)</source>
        <translation>%1-Boxen mit der Maus zeichnen; die rechte Taste beendet (%2)</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete the selected boxes</source>
        <translation>Die ausgewählten Boxen löschen</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Make the selected boxes defaults of the frames that follow, or the frame&apos;s own again</source>
        <translation>Die ausgewählten Boxen zum Standard der folgenden Frames machen, oder wieder zu eigenen Boxen des Frames</translation>
    </message>
    <message>
        <source>Swap 1/2</source>
        <translation>1/2 tauschen</translation>
    </message>
    <message>
        <source>Make the selected boxes Clsn2 if Clsn1, or Clsn1</source>
        <translation>Die ausgewählten Boxen von Clsn1 zu Clsn2 machen, sonst zu Clsn1</translation>
    </message>
    <message>
        <source>To next</source>
        <translation>Zum nächsten</translation>
    </message>
    <message>
        <source>Give the next frame the boxes of this one, and go on to it</source>
        <translation>Dem nächsten Frame die Boxen dieses Frames geben und zu ihm weitergehen</translation>
    </message>
    <message>
        <source>To all</source>
        <translation>Zu allen</translation>
    </message>
    <message>
        <source>Give every frame of the action the boxes of this one</source>
        <translation>Jedem Frame der Aktion die Boxen dieses Frames geben</translation>
    </message>
</context>
<context>
    <name>QFrameTableModel</name>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>Blend</source>
        <translation>Mischung</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>The animation loops back to this frame</source>
        <translation>Die Animation springt zu diesem Frame zurück</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>Skalierung X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>Skalierung Y</translation>
    </message>
    <message>
        <source>Interpolation</source>
        <translation>Interpolation</translation>
    </message>
    <message>
        <source>Loop start</source>
        <translation>Schleifenstart</translation>
    </message>
</context>
<context>
    <name>QHistoryManager</name>
    <message>
        <source>Open all</source>
        <translation>Alle öffnen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>File not found!</source>
        <translation>Datei nicht gefunden!</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; doesn&apos;t exists. Do you want to remove it from the history?</source>
        <translation>Die Datei &apos;%1&apos; existiert nicht. Wollen Sie sie aus dem Verlauf entfernen?</translation>
    </message>
</context>
<context>
    <name>QImageCanvas</name>
    <message>
        <source>%1 copy</source>
        <translation>Kopie von %1</translation>
    </message>
    <message>
        <source>Pasted</source>
        <translation>Eingefügt</translation>
    </message>
</context>
<context>
    <name>QInterface</name>
    <message>
        <source>Recent projects</source>
        <translation>Zuletzt geöffnete Projekte</translation>
    </message>
    <message>
        <source>Main tool bar</source>
        <translation>Hauptwerkzeugleiste</translation>
    </message>
    <message>
        <source>Editor tool bar</source>
        <translation>Editor-Werkzeugleiste</translation>
    </message>
    <message>
        <source>About Pugilforge</source>
        <translation>Über Pugilforge</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Quorvantek Pugilforge %1&lt;/h3&gt;&lt;p&gt;An authoring environment for the files of the M.U.G.E.N. fighting engine.&lt;/p&gt;&lt;p&gt;Icons: Adwaita icon theme by the GNOME Project (CC-BY-SA 3.0 or LGPL 3), and the team&apos;s own drawings.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Quorvantek Pugilforge %1&lt;/h3&gt;&lt;p&gt;Eine Autorenumgebung für die Dateien der Kampfspiel-Engine M.U.G.E.N.&lt;/p&gt;&lt;p&gt;Symbole: Adwaita-Symbolthema des GNOME-Projekts (CC-BY-SA 3.0 oder LGPL 3) und eigene Zeichnungen des Teams.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Project %1</source>
        <translation>Projekt %1</translation>
    </message>
    <message>
        <source>Loading project...</source>
        <translation>Projekt wird geladen...</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>The project &apos;%1&apos; could not be opened.</source>
        <translation>Das Projekt &apos;%1&apos; konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Project: %1, Version: M.U.G.E.N. %2</source>
        <translation>Projekt: %1, Version: M.U.G.E.N. %2</translation>
    </message>
    <message>
        <source>No issues found!</source>
        <translation>Keine Probleme gefunden!</translation>
    </message>
    <message numerus="yes">
        <source>%n error(s) found!</source>
        <translation>
            <numerusform>%n Fehler gefunden!</numerusform>
            <numerusform>%n Fehler gefunden!</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings found!</source>
        <translation>
            <numerusform>%n Warnung gefunden!</numerusform>
            <numerusform>%n Warnungen gefunden!</numerusform>
        </translation>
    </message>
    <message>
        <source>Definitions or Font (*.def *.fnt)</source>
        <translation>Definitionen oder Schrift (*.def *.fnt)</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Not every file of the project could be saved.</source>
        <translation>Nicht jede Datei des Projekts konnte gespeichert werden.</translation>
    </message>
    <message>
        <source>Definitions (*.def)</source>
        <translation>Definitionen (*.def)</translation>
    </message>
    <message>
        <source>Sprites (*.sff)</source>
        <translation>Sprites (*.sff)</translation>
    </message>
    <message>
        <source>Animations (*.air)</source>
        <translation>Animationen (*.air)</translation>
    </message>
    <message>
        <source>Commands (*.cmd)</source>
        <translation>Befehle (*.cmd)</translation>
    </message>
    <message>
        <source>Constants (*.cns);;States (*.st);;Text (*.txt);;Lua script (*.lua)</source>
        <translation>Konstanten (*.cns);;Zustände (*.st);;Text (*.txt);;Lua-Skript (*.lua)</translation>
    </message>
    <message>
        <source>Sounds (*.snd)</source>
        <translation>Klänge (*.snd)</translation>
    </message>
    <message>
        <source>Save definitions</source>
        <translation>Definitionen speichern</translation>
    </message>
    <message>
        <source>Save sprites</source>
        <translation>Sprites speichern</translation>
    </message>
    <message>
        <source>Save animations</source>
        <translation>Animationen speichern</translation>
    </message>
    <message>
        <source>Save commands</source>
        <translation>Befehle speichern</translation>
    </message>
    <message>
        <source>Save states</source>
        <translation>Zustände speichern</translation>
    </message>
    <message>
        <source>Save sounds</source>
        <translation>Klänge speichern</translation>
    </message>
    <message>
        <source>Save as UTF-8</source>
        <translation>Als UTF-8 speichern</translation>
    </message>
    <message>
        <source>Do you want to save the text files as UTF-8?</source>
        <translation>Wollen Sie die Textdateien als UTF-8 speichern?</translation>
    </message>
    <message>
        <source>Only projects can be handed over for now: %1</source>
        <translation>Bisher können nur Projekte übergeben werden: %1</translation>
    </message>
    <message>
        <source>Create backup</source>
        <translation>Sicherung anlegen</translation>
    </message>
    <message>
        <source>The project has no folder yet: save it once, and its backups go into &quot;backup&quot; beside its DEF.</source>
        <translation>Das Projekt hat noch keinen Ordner: Speichern Sie es einmal, dann kommen seine Sicherungen nach „backup“ neben seiner DEF.</translation>
    </message>
    <message>
        <source>Creating backup...</source>
        <translation>Sicherung wird angelegt...</translation>
    </message>
    <message>
        <source>Backup written to %1</source>
        <translation>Sicherung geschrieben nach %1</translation>
    </message>
    <message>
        <source>The backup couldn&apos;t be written into &quot;%1&quot;.</source>
        <translation>Die Sicherung konnte nicht in „%1“ geschrieben werden.</translation>
    </message>
    <message>
        <source>Loading backup...</source>
        <translation>Sicherung wird geladen...</translation>
    </message>
    <message>
        <source>Loading the backup was cancelled: the project&apos;s own files are loaded.</source>
        <translation>Das Laden der Sicherung wurde abgebrochen: Die eigenen Dateien des Projekts sind geladen.</translation>
    </message>
    <message>
        <source>Backup loaded: saving writes it to the project&apos;s own files.</source>
        <translation>Sicherung geladen: Beim Speichern wird sie in die eigenen Dateien des Projekts geschrieben.</translation>
    </message>
    <message>
        <source>Saving project for testing...</source>
        <translation>Projekt wird zum Testen gespeichert...</translation>
    </message>
    <message>
        <source>M.U.G.E.N. is running; the copies go when it ends.</source>
        <translation>M.U.G.E.N. läuft; die Kopien werden entfernt, sobald es endet.</translation>
    </message>
    <message>
        <source>M.U.G.E.N. has ended.</source>
        <translation>M.U.G.E.N. wurde beendet.</translation>
    </message>
    <message>
        <source>M.U.G.E.N. ended with the code %1.</source>
        <translation>M.U.G.E.N. endete mit dem Code %1.</translation>
    </message>
    <message>
        <source>Tool script error</source>
        <translation>Fehler im Werkzeugskript</translation>
    </message>
    <message>
        <source>Template script error</source>
        <translation>Fehler im Vorlagenskript</translation>
    </message>
</context>
<context>
    <name>QMugenModel</name>
    <message>
        <source>%1
Parameters: %2</source>
        <translation>%1
Parameter: %2</translation>
    </message>
</context>
<context>
    <name>QMugenPreset</name>
    <message>
        <source>Current char vs current char</source>
        <translation>Aktuelle Figur gegen aktuelle Figur</translation>
    </message>
    <message>
        <source>Current char vs current char AI</source>
        <translation>Aktuelle Figur gegen aktuelle Figur (KI)</translation>
    </message>
    <message>
        <source>Current char vs KFM</source>
        <translation>Aktuelle Figur gegen KFM</translation>
    </message>
    <message>
        <source>Current char vs KFM AI</source>
        <translation>Aktuelle Figur gegen KFM (KI)</translation>
    </message>
    <message>
        <source>KFM vs KFM on current Stage</source>
        <translation>KFM gegen KFM auf der aktuellen Stage</translation>
    </message>
    <message>
        <source>Current motif</source>
        <translation>Aktuelles Motiv</translation>
    </message>
    <message>
        <source>KFM vs KFM on current motif</source>
        <translation>KFM gegen KFM im aktuellen Motiv</translation>
    </message>
</context>
<context>
    <name>QMugenRun</name>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>Oops, you can run only one instance of M.U.G.E.N. at the same time.</source>
        <translation>Hoppla, M.U.G.E.N. kann nur einmal zur gleichen Zeit laufen.</translation>
    </message>
    <message>
        <source>Oops, wrong parameters on the M.U.G.E.N. configuration. Check it in the Tools / Options.</source>
        <translation>Hoppla, die Parameter in der M.U.G.E.N.-Konfiguration sind falsch. Prüfen Sie sie unter Werkzeuge / Einstellungen.</translation>
    </message>
    <message>
        <source>Oops, you can&apos;t run Storyboard, Font or Fight FX.</source>
        <translation>Hoppla, Storyboards, Schriften und Fight FX lassen sich nicht starten.</translation>
    </message>
    <message>
        <source>The project names &quot;%1&quot;, outside its folder: its copy would be written outside &quot;%2&quot;.</source>
        <translation>Das Projekt nennt „%1“ außerhalb seines Ordners: Seine Kopie würde außerhalb von „%2“ geschrieben.</translation>
    </message>
    <message>
        <source>The engine&apos;s folder &quot;%1&quot; doesn&apos;t exist.</source>
        <translation>Der Ordner der Engine „%1“ existiert nicht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is already in the engine&apos;s folder. A run writes its copies there and removes them afterwards: move it away and run again.</source>
        <translation>„%1“ liegt schon im Ordner der Engine. Ein Testlauf schreibt seine Kopien dorthin und entfernt sie danach: Verschieben Sie die Datei und starten Sie erneut.</translation>
    </message>
    <message>
        <source>The engine&apos;s folder &quot;%1&quot; is read-only: the copies for the run can&apos;t be written there.</source>
        <translation>Der Ordner der Engine „%1“ ist schreibgeschützt: Die Kopien für den Testlauf können dort nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The copy of the project for the run couldn&apos;t be written into &quot;%1&quot;: nothing was left there.</source>
        <translation>Die Kopie des Projekts für den Testlauf konnte nicht nach „%1“ geschrieben werden: Dort ist nichts zurückgeblieben.</translation>
    </message>
    <message>
        <source>Run in M.U.G.E.N.</source>
        <translation>In M.U.G.E.N. testen</translation>
    </message>
    <message>
        <source>The engine couldn&apos;t be started with &quot;%1 %2&quot;: %3</source>
        <translation>Die Engine konnte nicht mit „%1 %2“ gestartet werden: %3</translation>
    </message>
    <message>
        <source>The engine stopped unexpectedly: %1</source>
        <translation>Die Engine wurde unerwartet beendet: %1</translation>
    </message>
    <message>
        <source>&quot;%1 %2&quot; ended with the code %3.</source>
        <translation>„%1 %2“ endete mit dem Code %3.</translation>
    </message>
    <message>
        <source>%1
    in %2, line %3</source>
        <translation>%1
    in %2, Zeile %3</translation>
    </message>
    <message>
        <source>M.U.G.E.N. errors</source>
        <translation>M.U.G.E.N.-Fehler</translation>
    </message>
</context>
<context>
    <name>QMugenSyntaxProcessor</name>
    <message>
        <source>Unknown interpolation</source>
        <translation>Unbekannte Interpolation</translation>
    </message>
    <message>
        <source>Unknown flip type</source>
        <translation>Unbekannte Spiegelungsart</translation>
    </message>
    <message>
        <source>Unknown transparency</source>
        <translation>Unbekannte Transparenz</translation>
    </message>
    <message>
        <source>Unknown trigger &apos;%1&apos;</source>
        <translation>Unbekannter Trigger &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Unknown value</source>
        <translation>Unbekannter Wert</translation>
    </message>
    <message>
        <source>Unknown constant &apos;%1&apos;</source>
        <translation>Unbekannte Konstante &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Unknown &apos;Defaults&apos; parameter</source>
        <translation>Unbekannter &apos;Defaults&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown &apos;Palette Keymap&apos; parameter</source>
        <translation>Unbekannter &apos;Palette Keymap&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown &apos;Quotes&apos; parameter</source>
        <translation>Unbekannter &apos;Quotes&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown &apos;Info&apos;&apos; parameter</source>
        <translation>Unbekannter &apos;Info&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown &apos;BG&apos; type</source>
        <translation>Unbekannter &apos;BG&apos;-Typ</translation>
    </message>
    <message>
        <source>Unknown &apos;BG Ctrl&apos; type</source>
        <translation>Unbekannter &apos;BG Ctrl&apos;-Typ</translation>
    </message>
    <message>
        <source>Unknown &apos;State&apos; type</source>
        <translation>Unbekannter &apos;State&apos;-Typ</translation>
    </message>
    <message>
        <source>Unknown &apos;Remap&apos; parameter</source>
        <translation>Unbekannter &apos;Remap&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown &apos;Remap&apos; value</source>
        <translation>Unbekannter &apos;Remap&apos;-Wert</translation>
    </message>
    <message>
        <source>Unknown &apos;Command&apos; parameter</source>
        <translation>Unbekannter &apos;Command&apos;-Parameter</translation>
    </message>
    <message>
        <source>Unknown command key</source>
        <translation>Unbekannte Befehlstaste</translation>
    </message>
    <message>
        <source>Unexpected token &apos;%1&apos;</source>
        <translation>Unerwartetes Zeichen &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Syntax error - code ends before line</source>
        <translation>Syntaxfehler – der Code endet vor der Zeile</translation>
    </message>
    <message>
        <source>Invalid group</source>
        <translation>Ungültige Gruppe</translation>
    </message>
    <message>
        <source>Wrong StateDef</source>
        <translation>Falsche StateDef</translation>
    </message>
    <message>
        <source>Space required after State</source>
        <translation>Nach State ist ein Leerzeichen nötig</translation>
    </message>
    <message>
        <source>Wrong State</source>
        <translation>Falscher State</translation>
    </message>
    <message>
        <source>Unknown parameter value &apos;%1&apos;</source>
        <translation>Unbekannter Parameterwert &apos;%1&apos;</translation>
    </message>
    <message>
        <source>This parameter requires %n value(s)</source>
        <translation>Dieser Parameter erfordert %n Wert(e)</translation>
    </message>
    <message>
        <source>Trigger invalid for the M.U.G.E.N. version of the current project</source>
        <translation>Trigger ist für die M.U.G.E.N.-Version des aktuellen Projekts ungültig</translation>
    </message>
    <message>
        <source>Controller invalid for the M.U.G.E.N. version of the current project</source>
        <translation>Controller ist für die M.U.G.E.N.-Version des aktuellen Projekts ungültig</translation>
    </message>
    <message>
        <source>Unknown &apos;StateDef type&apos; value &apos;%1&apos;</source>
        <translation>Unbekannter Wert &apos;%1&apos; für &apos;StateDef type&apos;</translation>
    </message>
    <message>
        <source>Unknown &apos;StateDef movetype&apos; value &apos;%1&apos;</source>
        <translation>Unbekannter Wert &apos;%1&apos; für &apos;StateDef movetype&apos;</translation>
    </message>
    <message>
        <source>Unknown &apos;StateDef physics&apos; value &apos;%1&apos;</source>
        <translation>Unbekannter Wert &apos;%1&apos; für &apos;StateDef physics&apos;</translation>
    </message>
    <message>
        <source>&apos;%1&apos; named by the DEF does not exist</source>
        <translation>&apos;%1&apos;, von der DEF genannt, existiert nicht</translation>
    </message>
    <message>
        <source>Missing parameter &apos;%1&apos; that the &apos;%2&apos; controller requires</source>
        <translation>Fehlender Parameter &apos;%1&apos;, den der Controller &apos;%2&apos; erfordert</translation>
    </message>
    <message>
        <source>Unknown parameter &apos;%1&apos; for the &apos;%2&apos; controller, ignored by the engine</source>
        <translation>Unbekannter Parameter &apos;%1&apos; für den Controller &apos;%2&apos;, von der Engine übergangen</translation>
    </message>
    <message>
        <source>Unknown parameter &apos;%1&apos; for the &apos;%2&apos; controller, ignored by the engine: did you mean &apos;%3&apos;?</source>
        <translation>Unbekannter Parameter &apos;%1&apos; für den Controller &apos;%2&apos;, von der Engine übergangen: Meinten Sie &apos;%3&apos;?</translation>
    </message>
    <message>
        <source>Unknown &apos;StateDef&apos; parameter &apos;%1&apos;, ignored by the engine</source>
        <translation>Unbekannter &apos;StateDef&apos;-Parameter &apos;%1&apos;, von der Engine übergangen</translation>
    </message>
    <message>
        <source>Parameter invalid for the M.U.G.E.N. version of the current project, ignored by the engine</source>
        <translation>Parameter ist für die M.U.G.E.N.-Version des aktuellen Projekts ungültig, von der Engine übergangen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read by the engine as &apos;%2&apos;</source>
        <translation>&apos;%1&apos; liest die Engine als &apos;%2&apos;</translation>
    </message>
    <message>
        <source>&apos;%1&apos; separates folders with &apos;\&apos;, which only Windows reads as a separator</source>
        <translation>&apos;%1&apos; trennt Ordner mit &apos;\&apos;, was nur Windows als Trenner liest</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is on disk as &apos;%2&apos;: only a system that ignores letter case finds it</source>
        <translation>&apos;%1&apos; liegt auf der Festplatte als &apos;%2&apos;: Nur ein System, das Groß- und Kleinschreibung nicht unterscheidet, findet es</translation>
    </message>
    <message>
        <source>Trigger deprecated in the M.U.G.E.N %1</source>
        <translation>Trigger ist in M.U.G.E.N %1 veraltet</translation>
    </message>
    <message>
        <source>Parameter deprecated in the M.U.G.E.N %1</source>
        <translation>Parameter ist in M.U.G.E.N %1 veraltet</translation>
    </message>
    <message>
        <source>State controller deprecated in the M.U.G.E.N %1</source>
        <translation>State-Controller ist in M.U.G.E.N %1 veraltet</translation>
    </message>
</context>
<context>
    <name>QMugenSyntaxProperties</name>
    <message>
        <source>XML Error</source>
        <translation>XML-Fehler</translation>
    </message>
    <message>
        <source>Can&apos;t open &apos;%1&apos;</source>
        <translation>&apos;%1&apos; kann nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>QOrganizerEditor</name>
    <message>
        <source>Drag an item to give it another place in the file</source>
        <translation>Einen Eintrag ziehen, um ihm einen anderen Platz in der Datei zu geben</translation>
    </message>
    <message>
        <source>This editor has no list to organize.</source>
        <translation>Dieser Editor hat keine Liste zum Ordnen.</translation>
    </message>
    <message>
        <source>Auto-organize</source>
        <translation>Automatisch ordnen</translation>
    </message>
    <message>
        <source>Sort the whole list into the order the engine expects</source>
        <translation>Die ganze Liste in die Reihenfolge bringen, die die Engine erwartet</translation>
    </message>
    <message>
        <source>Organizer</source>
        <translation>Organisator</translation>
    </message>
</context>
<context>
    <name>QPaletteFile</name>
    <message>
        <source>%1: the file can&apos;t be opened.</source>
        <translation>%1: Die Datei kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>%1: an ACT palette has %2 or %3 bytes, this file has %4.</source>
        <translation>%1: Eine ACT-Palette hat %2 oder %3 Bytes, diese Datei hat %4.</translation>
    </message>
    <message>
        <source>%1: no palette could be read (an image must have indexed colours).</source>
        <translation>%1: Es konnte keine Palette gelesen werden (ein Bild muss indizierte Farben haben).</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
</context>
<context>
    <name>QPaletteGrid</name>
    <message>
        <source>Click a colour to pick it, double-click to change it.</source>
        <translation>Klicken Sie eine Farbe an, um sie zu wählen; doppelklicken Sie, um sie zu ändern.</translation>
    </message>
</context>
<context>
    <name>QPalettesEditor</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Die Datei fehlt.</translation>
    </message>
    <message>
        <source>The definitions name no palette files.</source>
        <translation>Die Definitionen nennen keine Palettendateien.</translation>
    </message>
    <message>
        <source>Only characters have palette files.</source>
        <translation>Nur Figuren haben Palettendateien.</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Paletten</translation>
    </message>
    <message>
        <source>The palette shown: the current sprite&apos;s, or any other of the sprite file</source>
        <translation>Die gezeigte Palette: die des aktuellen Sprites oder eine andere der Sprite-Datei</translation>
    </message>
    <message>
        <source>R </source>
        <translation>R </translation>
    </message>
    <message>
        <source>G </source>
        <translation>G </translation>
    </message>
    <message>
        <source>B </source>
        <translation>B </translation>
    </message>
    <message>
        <source>Character palettes:</source>
        <translation>Charakterpaletten:</translation>
    </message>
    <message>
        <source>The palettes 1,1 to 1,12; the view shows the sprites in the one chosen</source>
        <translation>Die Paletten 1,1 bis 1,12; die Ansicht zeigt die Sprites in der gewählten</translation>
    </message>
    <message>
        <source>Palette files of the definitions:</source>
        <translation>Palettendateien der Definitionen:</translation>
    </message>
    <message>
        <source>Colour...</source>
        <translation>Farbe...</translation>
    </message>
    <message>
        <source>Change the chosen colour in a colour dialog</source>
        <translation>Die gewählte Farbe in einem Farbdialog ändern</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Click the sprite in the view to pick the entry under the mouse</source>
        <translation>Auf das Sprite in der Ansicht klicken, um den Eintrag unter der Maus zu wählen</translation>
    </message>
    <message>
        <source>Editor...</source>
        <translation>Editor...</translation>
    </message>
    <message>
        <source>Reorder, optimise and convert the palette in the palette editor</source>
        <translation>Die Palette im Paletteneditor umordnen, optimieren und umwandeln</translation>
    </message>
    <message>
        <source>Load...</source>
        <translation>Laden...</translation>
    </message>
    <message>
        <source>Read ACT, RIFF, JASC, Painter, ACO, ASE palettes or the colours of a PCX or PNG</source>
        <translation>Liest ACT-, RIFF-, JASC-, Painter-, ACO- und ASE-Paletten oder die Farben eines PCX oder PNG</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Write the palette in any of the formats the program reads</source>
        <translation>Schreibt die Palette in einem der Formate, die das Programm liest</translation>
    </message>
    <message>
        <source>Apply to</source>
        <translation>Anwenden auf</translation>
    </message>
    <message>
        <source>Give the palette shown to sprites</source>
        <translation>Die gezeigte Palette Sprites zuweisen</translation>
    </message>
    <message>
        <source>The current sprite</source>
        <translation>Das aktuelle Sprite</translation>
    </message>
    <message>
        <source>The selected sprites</source>
        <translation>Die gewählten Sprites</translation>
    </message>
    <message>
        <source>The current sprite&apos;s group</source>
        <translation>Die Gruppe des aktuellen Sprites</translation>
    </message>
    <message>
        <source>Remap</source>
        <translation>Umleiten</translation>
    </message>
    <message>
        <source>Show the current sprite&apos;s palette as the palette shown, as the engine&apos;s remaps do</source>
        <translation>Die Palette des aktuellen Sprites als die gezeigte darstellen, wie es die Umleitungen der Engine tun</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the chosen remap</source>
        <translation>Die gewählte Umleitung entfernen</translation>
    </message>
    <message>
        <source>Remaps of the view:</source>
        <translation>Umleitungen der Ansicht:</translation>
    </message>
    <message>
        <source>Palette %1,%2</source>
        <translation>Palette %1,%2</translation>
    </message>
    <message>
        <source>No palettes in the sprites</source>
        <translation>Keine Paletten in den Sprites</translation>
    </message>
    <message>
        <source>No colours to show.</source>
        <translation>Keine Farben anzuzeigen.</translation>
    </message>
    <message>
        <source>Entry %1: #%2%3%4%5</source>
        <translation>Eintrag %1: #%2%3%4%5</translation>
    </message>
    <message>
        <source> (transparent)</source>
        <translation> (transparent)</translation>
    </message>
    <message>
        <source>%1: the palette could not be written.</source>
        <translation>%1: Die Palette konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Apply a palette</source>
        <translation>Palette anwenden</translation>
    </message>
    <message>
        <source>Colour %1 of the palette</source>
        <translation>Farbe %1 der Palette</translation>
    </message>
</context>
<context>
    <name>QPlaybackControls</name>
    <message>
        <source>Play</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Play the action</source>
        <translation>Die Aktion abspielen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Pause on the frame shown</source>
        <translation>Auf dem gezeigten Frame anhalten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Stop and go back to the first frame</source>
        <translation>Anhalten und zum ersten Frame zurückgehen</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Tick</translation>
    </message>
    <message>
        <source>One tick on</source>
        <translation>Einen Tick weiter</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Frame</translation>
    </message>
    <message>
        <source>On to the next frame</source>
        <translation>Weiter zum nächsten Frame</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Start over after the last frame, else end there (%1)</source>
        <translation>Nach dem letzten Frame von vorn beginnen, sonst dort enden (%1)</translation>
    </message>
    <message>
        <source>Onion</source>
        <translation>Zwiebelhaut</translation>
    </message>
    <message>
        <source>Show the frame before faintly behind this one (%1)</source>
        <translation>Den vorigen Frame blass hinter diesem zeigen (%1)</translation>
    </message>
</context>
<context>
    <name>QProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>QProject</name>
    <message>
        <source>Character</source>
        <translation>Figur</translation>
    </message>
    <message>
        <source>Storyboard</source>
        <translation>Storyboard</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>System screens</source>
        <translation>Systembildschirme</translation>
    </message>
    <message>
        <source>Fight HUD &amp; effects</source>
        <translation>Kampfanzeige &amp; Effekte</translation>
    </message>
    <message>
        <source>The sound file %1 can&apos;t be read.</source>
        <translation>Die Klangdatei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The command file %1 can&apos;t be read.</source>
        <translation>Die Befehlsdatei %1 kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>QQuickFind</name>
    <message>
        <source>Regex</source>
        <translation>Regex</translation>
    </message>
    <message>
        <source>Case</source>
        <translation>Groß/klein</translation>
    </message>
    <message>
        <source>Word</source>
        <translation>Wort</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriges</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächstes</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message numerus="yes">
        <source>%n replaced</source>
        <translation>
            <numerusform>%n ersetzt</numerusform>
            <numerusform>%n ersetzt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>QSounds</name>
    <message>
        <source>Discard changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Do you really want to discard the changes made in the sounds?</source>
        <translation>Wollen Sie die Änderungen an den Klängen wirklich verwerfen?</translation>
    </message>
    <message>
        <source>Save SND</source>
        <translation>SND speichern</translation>
    </message>
    <message>
        <source>You can&apos;t save an empty SND because M.U.G.E.N. will not open it.</source>
        <translation>Eine leere SND kann nicht gespeichert werden, weil M.U.G.E.N. sie nicht öffnet.</translation>
    </message>
    <message>
        <source>Empty sound!</source>
        <translation>Leerer Klang!</translation>
    </message>
    <message>
        <source>The group %2, index %3 is already in use by sound #%4!</source>
        <translation>Gruppe %2, Index %3 wird schon von Klang #%4 benutzt!</translation>
    </message>
</context>
<context>
    <name>QSoundsEditor</name>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Play in a loop</source>
        <translation>In Schleife abspielen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Add WAV files...</source>
        <translation>WAV-Dateien hinzufügen...</translation>
    </message>
    <message>
        <source>Add WAV files as a numbered group...</source>
        <translation>WAV-Dateien als nummerierte Gruppe hinzufügen...</translation>
    </message>
    <message>
        <source>Replace with a WAV file...</source>
        <translation>Durch eine WAV-Datei ersetzen...</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move the group to another number...</source>
        <translation>Gruppe auf eine andere Nummer verschieben...</translation>
    </message>
    <message>
        <source>Delete the whole group</source>
        <translation>Die ganze Gruppe löschen</translation>
    </message>
    <message>
        <source>Export the selected sounds...</source>
        <translation>Die ausgewählten Klänge exportieren...</translation>
    </message>
    <message>
        <source>Export the group...</source>
        <translation>Die Gruppe exportieren...</translation>
    </message>
    <message>
        <source>Import an export of sounds...</source>
        <translation>Einen Klangexport importieren...</translation>
    </message>
    <message>
        <source>no sound file</source>
        <translation>keine Klangdatei</translation>
    </message>
    <message numerus="yes">
        <source>%n sound(s) in %1. Double-click a group or number to change it.</source>
        <translation>
            <numerusform>%n Klang in %1. Doppelklicken Sie eine Gruppe oder Nummer, um sie zu ändern.</numerusform>
            <numerusform>%n Klänge in %1. Doppelklicken Sie eine Gruppe oder Nummer, um sie zu ändern.</numerusform>
        </translation>
    </message>
    <message>
        <source>This project has no sounds yet (%1). Add WAV files with the tool bar.</source>
        <translation>Dieses Projekt hat noch keine Klänge (%1). Fügen Sie WAV-Dateien über die Werkzeugleiste hinzu.</translation>
    </message>
    <message>
        <source>&lt;b&gt;File:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Sounds:&lt;/b&gt; %2&lt;br&gt;&lt;b&gt;Groups:&lt;/b&gt; %3&lt;br&gt;&lt;b&gt;Length:&lt;/b&gt; %4 s</source>
        <translation>&lt;b&gt;Datei:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Klänge:&lt;/b&gt; %2&lt;br&gt;&lt;b&gt;Gruppen:&lt;/b&gt; %3&lt;br&gt;&lt;b&gt;Länge:&lt;/b&gt; %4 s</translation>
    </message>
    <message>
        <source>No sound selected.</source>
        <translation>Kein Klang ausgewählt.</translation>
    </message>
    <message>
        <source>Sound %1, %2</source>
        <translation>Klang %1, %2</translation>
    </message>
    <message>
        <source>: empty</source>
        <translation>: leer</translation>
    </message>
    <message>
        <source>: not PCM, no waveform</source>
        <translation>: kein PCM, keine Wellenform</translation>
    </message>
    <message numerus="yes">
        <source>: %n channel(s), %1 Hz, %2 bits, %3 s</source>
        <translation>
            <numerusform>: %n Kanal, %1 Hz, %2 Bit, %3 s</numerusform>
            <numerusform>: %n Kanäle, %1 Hz, %2 Bit, %3 s</numerusform>
        </translation>
    </message>
    <message>
        <source>WAV files (*.wav)</source>
        <translation>WAV-Dateien (*.wav)</translation>
    </message>
    <message>
        <source>Sound export (*.txt);;Elecbyte SndMaker (*.def)</source>
        <translation>Klangexport (*.txt);;Elecbyte SndMaker (*.def)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: the export could not be written completely.</source>
        <translation>%1: Der Export konnte nicht vollständig geschrieben werden.</translation>
    </message>
    <message>
        <source>%1: no sound could be imported.</source>
        <translation>%1: Es konnte kein Klang importiert werden.</translation>
    </message>
    <message>
        <source>Add WAV files</source>
        <translation>WAV-Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Add WAV files as a numbered group</source>
        <translation>WAV-Dateien als nummerierte Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Numbered group</source>
        <translation>Nummerierte Gruppe</translation>
    </message>
    <message>
        <source>Group of the new sounds:</source>
        <translation>Gruppe der neuen Klänge:</translation>
    </message>
    <message>
        <source>Number of the first sound:</source>
        <translation>Nummer des ersten Klangs:</translation>
    </message>
    <message>
        <source>Replace with a WAV file</source>
        <translation>Durch eine WAV-Datei ersetzen</translation>
    </message>
    <message>
        <source>Move group</source>
        <translation>Gruppe verschieben</translation>
    </message>
    <message>
        <source>New number of the group:</source>
        <translation>Neue Nummer der Gruppe:</translation>
    </message>
    <message>
        <source>Export the selected sounds</source>
        <translation>Die ausgewählten Klänge exportieren</translation>
    </message>
    <message>
        <source>Export the group</source>
        <translation>Die Gruppe exportieren</translation>
    </message>
    <message>
        <source>Import sounds</source>
        <translation>Klänge importieren</translation>
    </message>
    <message>
        <source>Sound export (*.txt *.pfe);;All files (*)</source>
        <translation>Klangexport (*.txt *.pfe);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>QSoundsTableModel</name>
    <message>
        <source>An empty sound: the engine can&apos;t play it.</source>
        <translation>Ein leerer Klang: Die Engine kann ihn nicht abspielen.</translation>
    </message>
    <message>
        <source>%1 Hz</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Rate</translation>
    </message>
    <message>
        <source>Bits</source>
        <translation>Bit</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
</context>
<context>
    <name>QSprite</name>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>The image to be set to the sprite %1, %2 (#%3) isn&apos;t color indexed.
For the current SFF version, the image will be converted to indexed with an optimized palette when you save the file.</source>
        <translation>Das Bild für das Sprite %1, %2 (#%3) hat keine indizierten Farben.
Für die aktuelle SFF-Version wird es beim Speichern mit einer optimierten Palette in indizierte Farben umgewandelt.</translation>
    </message>
</context>
<context>
    <name>QSpriteFileImport</name>
    <message>
        <source>%1: not an image this program can read</source>
        <translation>%1: kein Bild, das dieses Programm lesen kann</translation>
    </message>
    <message>
        <source>Add sprites</source>
        <translation>Sprites hinzufügen</translation>
    </message>
    <message>
        <source>This sprite file is saved with 8-bit sprites only. The true-colour pictures will be reduced to 256 colours when it is saved. Add them?</source>
        <translation>Diese Sprite-Datei wird nur mit 8-Bit-Sprites gespeichert. Die Echtfarbenbilder werden beim Speichern auf 256 Farben reduziert. Trotzdem hinzufügen?</translation>
    </message>
    <message>
        <source>add sprites</source>
        <translation>Sprites hinzufügen</translation>
    </message>
</context>
<context>
    <name>QSpritePalette</name>
    <message>
        <source>Palette changes</source>
        <translation>Palettenänderungen</translation>
    </message>
    <message>
        <source>Do you want to use this colors in all other instances of this palette?</source>
        <translation>Wollen Sie diese Farben in allen anderen Vorkommen dieser Palette verwenden?</translation>
    </message>
</context>
<context>
    <name>QSpriteTableModel</name>
    <message>
        <source>raw</source>
        <translation>roh</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>true colour or the palette of the character</source>
        <translation>Echtfarben oder die Palette der Figur</translation>
    </message>
    <message>
        <source>own</source>
        <translation>eigene</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Compression</source>
        <translation>Kompression</translation>
    </message>
</context>
<context>
    <name>QSprites</name>
    <message>
        <source>Sprite loading error</source>
        <translation>Fehler beim Laden der Sprites</translation>
    </message>
    <message>
        <source>%1(0): SFF version &apos;%2.%3.%4.%5&apos; not supported yet</source>
        <translation>%1(0): SFF-Version &apos;%2.%3.%4.%5&apos; wird noch nicht unterstützt</translation>
    </message>
    <message>
        <source>%1(%2): Sprite incorrectly linked to the index %3</source>
        <translation>%1(%2): Sprite falsch mit dem Index %3 verknüpft</translation>
    </message>
    <message>
        <source>%1(%2): Sprite incorrectly linked to the palette index %3</source>
        <translation>%1(%2): Sprite falsch mit dem Palettenindex %3 verknüpft</translation>
    </message>
    <message>
        <source>Sprite saving error</source>
        <translation>Fehler beim Speichern der Sprites</translation>
    </message>
    <message>
        <source>An error occurred when saving the sprite %1.
%2</source>
        <translation>Beim Speichern des Sprites %1 ist ein Fehler aufgetreten.
%2</translation>
    </message>
    <message>
        <source>Can&apos;t create a buffer for the image data.</source>
        <translation>Für die Bilddaten kann kein Puffer angelegt werden.</translation>
    </message>
    <message>
        <source>Can&apos;t create the PCX file.</source>
        <translation>Die PCX-Datei kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Can&apos;t compress the image.</source>
        <translation>Das Bild kann nicht komprimiert werden.</translation>
    </message>
    <message>
        <source>Discard changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Do you really want to discard the changes made in the sprites and/or palettes?</source>
        <translation>Wollen Sie die Änderungen an den Sprites und/oder Paletten wirklich verwerfen?</translation>
    </message>
    <message>
        <source>Save SFF</source>
        <translation>SFF speichern</translation>
    </message>
    <message>
        <source>You can&apos;t save an empty SFF because M.U.G.E.N. will not open it.</source>
        <translation>Eine leere SFF kann nicht gespeichert werden, weil M.U.G.E.N. sie nicht öffnet.</translation>
    </message>
    <message>
        <source>You can&apos;t save this SFF without palettes.</source>
        <translation>Diese SFF kann nicht ohne Paletten gespeichert werden.</translation>
    </message>
    <message>
        <source>Empty sprite!</source>
        <translation>Leeres Sprite!</translation>
    </message>
    <message>
        <source>The sprite at index %1 is empty. You can&apos;t save a SFF file with an empty sprite.</source>
        <translation>Das Sprite an Index %1 ist leer. Eine SFF-Datei mit einem leeren Sprite kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Empty palette!</source>
        <translation>Leere Palette!</translation>
    </message>
    <message>
        <source>The palette at index %1 is empty. You can&apos;t save a SFF file with an empty palette.</source>
        <translation>Die Palette an Index %1 ist leer. Eine SFF-Datei mit einer leeren Palette kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Indexed sprite without palette!</source>
        <translation>Indiziertes Sprite ohne Palette!</translation>
    </message>
    <message>
        <source>Image format not supported for the current version (automatic conversion to 8bit will be made on save)!</source>
        <translation>Bildformat für die aktuelle Version nicht unterstützt (beim Speichern wird automatisch in 8 Bit umgewandelt)!</translation>
    </message>
    <message>
        <source>Sprite can&apos;t receive the group 1 (character) palette at his position!</source>
        <translation>Das Sprite kann an seiner Stelle die Palette der Gruppe 1 (Figur) nicht erhalten!</translation>
    </message>
    <message>
        <source>The group %2, index %3 is already in use by sprite #%4!</source>
        <translation>Gruppe %2, Index %3 wird schon von Sprite #%4 benutzt!</translation>
    </message>
    <message>
        <source>Required sprite %1, %2 is missing!</source>
        <translation>Das benötigte Sprite %1, %2 fehlt!</translation>
    </message>
    <message>
        <source>The group %2, index %3 is already in use by palette #%4!</source>
        <translation>Gruppe %2, Index %3 wird schon von Palette #%4 benutzt!</translation>
    </message>
    <message>
        <source>Version 1.0.1.0 shows sprites 0,0 and 9000,0 of a character in one palette, which cannot hold all their colours: %1 will look different.</source>
        <translation>Version 1.0.1.0 zeigt die Sprites 0,0 und 9000,0 einer Figur in einer Palette, die nicht alle ihre Farben fassen kann: %1 wird anders aussehen.</translation>
    </message>
    <message numerus="yes">
        <source>%n true-colour sprite(s) reduced to 8 bits for this version; the largest colour error of a pixel is %1 of 255.</source>
        <translation>
            <numerusform>%n Echtfarben-Sprite für diese Version auf 8 Bit reduziert; der größte Farbfehler eines Pixels beträgt %1 von 255.</numerusform>
            <numerusform>%n Echtfarben-Sprites für diese Version auf 8 Bit reduziert; der größte Farbfehler eines Pixels beträgt %1 von 255.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>QSpritesEditor</name>
    <message>
        <source>no sprite file</source>
        <translation>keine Sprite-Datei</translation>
    </message>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
    </message>
    <message>
        <source>Go to group,index (Enter)</source>
        <translation>Gehe zu Gruppe,Index (Enter)</translation>
    </message>
    <message>
        <source>No sprite %1.</source>
        <translation>Kein Sprite %1.</translation>
    </message>
    <message>
        <source>Axis of every selected sprite; drag the sprite in the view to move it</source>
        <translation>Achse aller ausgewählten Sprites; ziehen Sie das Sprite in der Ansicht, um es zu verschieben</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>Axis X</source>
        <translation>Achse X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>The SFF version the sprites are saved in; click to change it</source>
        <translation>Die SFF-Version, in der die Sprites gespeichert werden; zum Ändern klicken</translation>
    </message>
    <message>
        <source>&lt;b&gt;File:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Sprites:&lt;/b&gt; %2&lt;br&gt;&lt;b&gt;Palettes:&lt;/b&gt; %3&lt;br&gt;&lt;b&gt;Version:&lt;/b&gt; %4</source>
        <translation>&lt;b&gt;Datei:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Sprites:&lt;/b&gt; %2&lt;br&gt;&lt;b&gt;Paletten:&lt;/b&gt; %3&lt;br&gt;&lt;b&gt;Version:&lt;/b&gt; %4</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Add series...</source>
        <translation>Serie hinzufügen...</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Axis to bottom</source>
        <translation>Achse nach unten</translation>
    </message>
    <message>
        <source>Edit image...</source>
        <translation>Bild bearbeiten...</translation>
    </message>
    <message>
        <source>Replace picture...</source>
        <translation>Bild ersetzen...</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Link to sprite...</source>
        <translation>Mit Sprite verknüpfen...</translation>
    </message>
    <message>
        <source>Unlink</source>
        <translation>Verknüpfung lösen</translation>
    </message>
    <message>
        <source>Use palette...</source>
        <translation>Palette verwenden...</translation>
    </message>
    <message>
        <source>Export pictures...</source>
        <translation>Bilder exportieren...</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Vorschaubilder</translation>
    </message>
    <message>
        <source>delete sprites</source>
        <translation>Sprites löschen</translation>
    </message>
    <message numerus="yes">
        <source>%n sprite(s) deleted.</source>
        <translation>
            <numerusform>%n Sprite gelöscht.</numerusform>
            <numerusform>%n Sprites gelöscht.</numerusform>
        </translation>
    </message>
    <message>
        <source>duplicate sprites</source>
        <translation>Sprites duplizieren</translation>
    </message>
    <message>
        <source>crop sprites</source>
        <translation>Sprites zuschneiden</translation>
    </message>
    <message>
        <source>axis to bottom centre</source>
        <translation>Achse unten mittig</translation>
    </message>
    <message>
        <source>set axis</source>
        <translation>Achse setzen</translation>
    </message>
    <message>
        <source>move sprites</source>
        <translation>Sprites verschieben</translation>
    </message>
    <message>
        <source>No sprite %1 with a picture.</source>
        <translation>Kein Sprite %1 mit einem Bild.</translation>
    </message>
    <message>
        <source>link sprites</source>
        <translation>Sprites verknüpfen</translation>
    </message>
    <message numerus="yes">
        <source>%n sprite(s) linked to %1,%2.</source>
        <translation>
            <numerusform>%n Sprite mit %1,%2 verknüpft.</numerusform>
            <numerusform>%n Sprites mit %1,%2 verknüpft.</numerusform>
        </translation>
    </message>
    <message>
        <source>Link to sprite</source>
        <translation>Mit Sprite verknüpfen</translation>
    </message>
    <message>
        <source>Show the picture of sprite (group,index):</source>
        <translation>Das Bild dieses Sprites zeigen (Gruppe,Index):</translation>
    </message>
    <message>
        <source>unlink sprites</source>
        <translation>Verknüpfung der Sprites lösen</translation>
    </message>
    <message>
        <source>use palette</source>
        <translation>Palette verwenden</translation>
    </message>
    <message>
        <source>Use palette</source>
        <translation>Palette verwenden</translation>
    </message>
    <message>
        <source>Palette (group,index):</source>
        <translation>Palette (Gruppe,Index):</translation>
    </message>
    <message>
        <source>Images (*.png *.pcx *.gif *.bmp)</source>
        <translation>Bilder (*.png *.pcx *.gif *.bmp)</translation>
    </message>
    <message>
        <source>Add a numbered series</source>
        <translation>Nummerierte Serie hinzufügen</translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) will be added.</source>
        <translation>
            <numerusform>%n Bild wird hinzugefügt.</numerusform>
            <numerusform>%n Bilder werden hinzugefügt.</numerusform>
        </translation>
    </message>
    <message>
        <source>First group:</source>
        <translation>Erste Gruppe:</translation>
    </message>
    <message>
        <source>First index:</source>
        <translation>Erster Index:</translation>
    </message>
    <message>
        <source>Step:</source>
        <translation>Schritt:</translation>
    </message>
    <message>
        <source>SFF version %1</source>
        <translation>SFF-Version %1</translation>
    </message>
    <message>
        <source>Add pictures</source>
        <translation>Bilder hinzufügen</translation>
    </message>
    <message numerus="yes">
        <source>%n sprite(s) added.</source>
        <translation>
            <numerusform>%n Sprite hinzugefügt.</numerusform>
            <numerusform>%n Sprites hinzugefügt.</numerusform>
        </translation>
    </message>
    <message>
        <source>First picture of the series</source>
        <translation>Erstes Bild der Serie</translation>
    </message>
    <message>
        <source>Replace picture</source>
        <translation>Bild ersetzen</translation>
    </message>
    <message>
        <source>Picture of %1,%2 replaced.</source>
        <translation>Bild von %1,%2 ersetzt.</translation>
    </message>
    <message>
        <source>Export pictures</source>
        <translation>Bilder exportieren</translation>
    </message>
    <message>
        <source>%1: could not be written</source>
        <translation>%1: konnte nicht geschrieben werden</translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) exported.</source>
        <translation>
            <numerusform>%n Bild exportiert.</numerusform>
            <numerusform>%n Bilder exportiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>PNG pictures (*.png);;PCX pictures (*.pcx)</source>
        <translation>PNG-Bilder (*.png);;PCX-Bilder (*.pcx)</translation>
    </message>
    <message>
        <source>SFF %1</source>
        <translation>SFF %1</translation>
    </message>
</context>
<context>
    <name>QStatesEditor</name>
    <message>
        <source>States %1</source>
        <translation>Zustände %1</translation>
    </message>
    <message>
        <source>States</source>
        <translation>Zustände</translation>
    </message>
    <message>
        <source>Faults are checked as you type; the error icon in the status bar counts them.</source>
        <translation>Fehler werden beim Tippen geprüft; das Fehlersymbol in der Statusleiste zählt sie.</translation>
    </message>
    <message>
        <source>New state file</source>
        <translation>Neue Zustandsdatei</translation>
    </message>
    <message>
        <source>File name beside the DEF:</source>
        <translation>Dateiname neben der DEF:</translation>
    </message>
    <message>
        <source>Add state file</source>
        <translation>Zustandsdatei hinzufügen</translation>
    </message>
    <message>
        <source>States (*.cns *.st);;All files (*)</source>
        <translation>Zustände (*.cns *.st);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 (engine&apos;s, read-only)</source>
        <translation>%1 (der Engine, schreibgeschützt)</translation>
    </message>
    <message>
        <source>This project has no state files: add one from the tool bar.</source>
        <translation>Dieses Projekt hat keine Zustandsdateien: Fügen Sie über die Werkzeugleiste eine hinzu.</translation>
    </message>
    <message>
        <source>The common states come from the engine&apos;s data folder and are shown read-only.</source>
        <translation>Die gemeinsamen Zustände kommen aus dem Datenordner der Engine und werden schreibgeschützt gezeigt.</translation>
    </message>
    <message>
        <source>New throw</source>
        <translation>Neuer Wurf</translation>
    </message>
    <message>
        <source>The project has no state file for the throw: add one first.</source>
        <translation>Das Projekt hat keine Zustandsdatei für den Wurf: fügen Sie zuerst eine hinzu.</translation>
    </message>
    <message>
        <source>Throw script error</source>
        <translation>Fehler im Wurf-Skript</translation>
    </message>
    <message>
        <source>Throw states at line %1 of %2</source>
        <translation>Wurfzustände in Zeile %1 von %2</translation>
    </message>
    <message>
        <source>the CMD</source>
        <translation>der CMD</translation>
    </message>
    <message>
        <source>its command at line %1 of %2</source>
        <translation>sein Befehl in Zeile %1 von %2</translation>
    </message>
    <message>
        <source>its state -1 entry at line %1</source>
        <translation>sein Eintrag in Zustand -1 in Zeile %1</translation>
    </message>
</context>
<context>
    <name>QSyntaxTextEditor</name>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>%1 holds characters that %2 can&apos;t store: it is saved in UTF-8.</source>
        <translation>%1 enthält Zeichen, die %2 nicht speichern kann: die Datei wird in UTF-8 gespeichert.</translation>
    </message>
    <message>
        <source>Discard changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>the new text</source>
        <translation>den neuen Text</translation>
    </message>
    <message>
        <source>Do you really want to discard the changes made in %1?</source>
        <translation>Wollen Sie die Änderungen in %1 wirklich verwerfen?</translation>
    </message>
</context>
<context>
    <name>QTextDocumentEditor</name>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
</context>
<context>
    <name>QTextOutline</name>
    <message>
        <source>Line %1</source>
        <translation>Zeile %1</translation>
    </message>
</context>
<context>
    <name>QTextUndoStack</name>
    <message>
        <source>Typing</source>
        <translation>Tippen</translation>
    </message>
</context>
<context>
    <name>QTextView</name>
    <message>
        <source>Insert snippet</source>
        <translation>Textbaustein einfügen</translation>
    </message>
    <message>
        <source>Insert controller</source>
        <translation>Controller einfügen</translation>
    </message>
</context>
<context>
    <name>QThumbnailsEditor</name>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>First frame of each action; click to open it</source>
        <translation>Erster Frame jeder Aktion; zum Öffnen anklicken</translation>
    </message>
    <message>
        <source>Every sprite; click to open it, or drag it into an action&apos;s frames</source>
        <translation>Alle Sprites; zum Öffnen anklicken, oder in die Frames einer Aktion ziehen</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Vorschaubilder</translation>
    </message>
</context>
<context>
    <name>QWAVInfo</name>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>no readable RIFF WAVE header with a &quot;data&quot; chunk</source>
        <translation>kein lesbarer RIFF-WAVE-Kopf mit einem „data“-Block</translation>
    </message>
    <message>
        <source>truncated: the samples need %1 bytes, %2 are there</source>
        <translation>abgeschnitten: die Samples brauchen %1 Bytes, vorhanden sind %2</translation>
    </message>
</context>
<context>
    <name>QXmlParser</name>
    <message>
        <source>Expected the element &apos;%1&apos;</source>
        <translation>Das Element &apos;%1&apos; wurde erwartet</translation>
    </message>
    <message>
        <source>XML Error</source>
        <translation>XML-Fehler</translation>
    </message>
</context>
<context>
    <name>SaveSpr</name>
    <message>
        <source>Save sprites</source>
        <translation>Sprites speichern</translation>
    </message>
    <message>
        <source>8 bits only, other formats will be converted to 8 bits</source>
        <translation>Nur 8 Bit, andere Formate werden in 8 Bit umgewandelt</translation>
    </message>
    <message>
        <source>5 / 8 bits, other formats will be converted to 8 bits</source>
        <translation>5 / 8 Bit, andere Formate werden in 8 Bit umgewandelt</translation>
    </message>
    <message>
        <source>5 / 8 / 24 / 32 bits, other formats will be converted to 24 bits</source>
        <translation>5 / 8 / 24 / 32 Bit, andere Formate werden in 24 Bit umgewandelt</translation>
    </message>
    <message>
        <source>Write the sprites for:</source>
        <translation>Die Sprites schreiben für:</translation>
    </message>
</context>
<context>
    <name>ScriptEd</name>
    <message>
        <source>Script Editor</source>
        <translation>Skripteditor</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Export for translation...</source>
        <translation>Zur Übersetzung exportieren...</translation>
    </message>
    <message>
        <source>Common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Code snippet</source>
        <translation>Code-Baustein</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Message output</source>
        <translation>Meldungsausgabe</translation>
    </message>
    <message>
        <source>Text output (debug)</source>
        <translation>Textausgabe (Debug)</translation>
    </message>
    <message>
        <source>Open script</source>
        <translation>Skript öffnen</translation>
    </message>
    <message>
        <source>Lua Script (*.lua)</source>
        <translation>Lua-Skript (*.lua)</translation>
    </message>
    <message>
        <source>Save script</source>
        <translation>Skript speichern</translation>
    </message>
    <message>
        <source>The script could not be saved as %1.</source>
        <translation>Das Skript konnte nicht als %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>template() answered %1: %2 sprites, %3 actions, %4 state files</source>
        <translation>template() antwortete %1: %2 Sprites, %3 Aktionen, %4 Zustandsdateien</translation>
    </message>
    <message>
        <source>Script error</source>
        <translation>Skriptfehler</translation>
    </message>
    <message>
        <source>Error!</source>
        <translation>Fehler!</translation>
    </message>
    <message>
        <source>You must save the script before use this function.</source>
        <translation>Sie müssen das Skript speichern, bevor Sie diese Funktion benutzen.</translation>
    </message>
    <message>
        <source>Save for translation</source>
        <translation>Für die Übersetzung speichern</translation>
    </message>
    <message>
        <source>Qt translation sources (*.ts)</source>
        <translation>Qt-Übersetzungsquellen (*.ts)</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>ThrowDlg</name>
    <message>
        <source>the reach</source>
        <translation>Reichweite</translation>
    </message>
    <message>
        <source>the throw</source>
        <translation>Wurf</translation>
    </message>
    <message>
        <source>the opponent held</source>
        <translation>Gegner gehalten</translation>
    </message>
    <message>
        <source>the opponent flying</source>
        <translation>Gegner im Flug</translation>
    </message>
    <message>
        <source>New throw</source>
        <translation>Neuer Wurf</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>States</source>
        <translation>Zustände</translation>
    </message>
    <message>
        <source>First state:</source>
        <translation>Erster Zustand:</translation>
    </message>
    <message>
        <source>The thrower&apos;s attempt; the hold is 10 more, the opponent&apos;s states 20 and 21 more.</source>
        <translation>Der Wurfversuch; das Halten ist 10 höher, die Zustände des Gegners 20 und 21 höher.</translation>
    </message>
    <message>
        <source>Animations</source>
        <translation>Animationen</translation>
    </message>
    <message>
        <source>An action of the AIR: %1.</source>
        <translation>Eine Aktion der AIR: %1.</translation>
    </message>
    <message>
        <source>Hold and release</source>
        <translation>Halten und Loslassen</translation>
    </message>
    <message>
        <source>Ticks held:</source>
        <translation>Ticks gehalten:</translation>
    </message>
    <message>
        <source>Ticks the opponent stays bound before the release.</source>
        <translation>Ticks, die der Gegner vor dem Loslassen gebunden bleibt.</translation>
    </message>
    <message>
        <source>Bind offset X:</source>
        <translation>Bindungsversatz X:</translation>
    </message>
    <message>
        <source>Where the opponent is held, from the thrower&apos;s axis (forward).</source>
        <translation>Wo der Gegner gehalten wird, von der Achse des Werfenden aus (nach vorn).</translation>
    </message>
    <message>
        <source>Bind offset Y:</source>
        <translation>Bindungsversatz Y:</translation>
    </message>
    <message>
        <source>Where the opponent is held, from the thrower&apos;s axis (down).</source>
        <translation>Wo der Gegner gehalten wird, von der Achse des Werfenden aus (nach unten).</translation>
    </message>
    <message>
        <source>Sprite priority:</source>
        <translation>Sprite-Priorität:</translation>
    </message>
    <message>
        <source>The thrower&apos;s sprite priority: above the opponent while throwing.</source>
        <translation>Sprite-Priorität des Werfenden: während des Wurfs über dem Gegner.</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Nach vorn</translation>
    </message>
    <message>
        <source>Behind</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Which way the opponent is thrown.</source>
        <translation>In welche Richtung der Gegner geworfen wird.</translation>
    </message>
    <message>
        <source>Throw:</source>
        <translation>Wurf:</translation>
    </message>
    <message>
        <source>Flight and damage</source>
        <translation>Flug und Schaden</translation>
    </message>
    <message>
        <source>Velocity X:</source>
        <translation>Geschwindigkeit X:</translation>
    </message>
    <message>
        <source>The opponent&apos;s speed when let go; negative is away from the thrower&apos;s back.</source>
        <translation>Geschwindigkeit des Gegners beim Loslassen; negativ ist vom Rücken des Werfenden weg.</translation>
    </message>
    <message>
        <source>Velocity Y:</source>
        <translation>Geschwindigkeit Y:</translation>
    </message>
    <message>
        <source>Negative goes up.</source>
        <translation>Negativ geht nach oben.</translation>
    </message>
    <message>
        <source>Gravity:</source>
        <translation>Schwerkraft:</translation>
    </message>
    <message>
        <source>Added to the opponent&apos;s Y velocity each tick in the air.</source>
        <translation>Wird in der Luft jeden Tick zur Y-Geschwindigkeit des Gegners addiert.</translation>
    </message>
    <message>
        <source>Damage:</source>
        <translation>Schaden:</translation>
    </message>
    <message>
        <source>Life the opponent loses on the release.</source>
        <translation>Leben, das der Gegner beim Loslassen verliert.</translation>
    </message>
    <message>
        <source>Power:</source>
        <translation>Power:</translation>
    </message>
    <message>
        <source>Power the thrower gains.</source>
        <translation>Power, die der Werfende erhält.</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>The command of the CMD that starts the throw: one it has, or a new one with its keys.</source>
        <translation>Der Befehl der CMD, der den Wurf startet: ein vorhandener oder ein neuer mit seinen Tasten.</translation>
    </message>
    <message>
        <source>Command:</source>
        <translation>Befehl:</translation>
    </message>
    <message>
        <source>The keys of a new command (&quot;/F, y&quot;: hold forward and press y); empty for a command the CMD has.</source>
        <translation>Die Tasten eines neuen Befehls (&quot;/F, y&quot;: vorwärts halten und y drücken); leer für einen Befehl, den die CMD schon hat.</translation>
    </message>
    <message>
        <source>Keys:</source>
        <translation>Tasten:</translation>
    </message>
    <message>
        <source>Reach:</source>
        <translation>Reichweite:</translation>
    </message>
    <message>
        <source>How close the opponent&apos;s body must be for the throw to start.</source>
        <translation>Wie nah der Körper des Gegners sein muss, damit der Wurf beginnt.</translation>
    </message>
    <message>
        <source>Write throw</source>
        <translation>Wurf schreiben</translation>
    </message>
    <message>
        <source>The throw&apos;s states go at the end of the shown state file, its command and its state -1 entry into the CMD. Each file takes it as one step to undo.</source>
        <translation>Die Zustände des Wurfs kommen ans Ende der gezeigten Zustandsdatei, sein Befehl und sein Eintrag in Zustand -1 in die CMD. Jede Datei kann es in einem Schritt rückgängig machen.</translation>
    </message>
    <message>
        <source>State %1 exists already (%2): the throw takes %3, %4, %5 and %6.</source>
        <translation>Zustand %1 gibt es schon (%2): der Wurf belegt %3, %4, %5 und %6.</translation>
    </message>
    <message>
        <source>The AIR has no action %1 for %2.</source>
        <translation>Die AIR hat keine Aktion %1 (%2).</translation>
    </message>
    <message>
        <source>Action %1 (the reach) needs two frames at least: the throw&apos;s hit starts at its second.</source>
        <translation>Aktion %1 (Reichweite) braucht mindestens zwei Frames: der Treffer des Wurfs beginnt mit dem zweiten.</translation>
    </message>
    <message>
        <source>The command needs a name, without quotes.</source>
        <translation>Der Befehl braucht einen Namen, ohne Anführungszeichen.</translation>
    </message>
    <message>
        <source>The CMD has a command &quot;%1&quot; already: leave Keys empty to use it, or name a new one.</source>
        <translation>Die CMD hat schon einen Befehl &quot;%1&quot;: lassen Sie Tasten leer, um ihn zu nutzen, oder benennen Sie einen neuen.</translation>
    </message>
    <message>
        <source>The CMD has no command &quot;%1&quot;: give its keys, as /F, y.</source>
        <translation>Die CMD hat keinen Befehl &quot;%1&quot;: geben Sie seine Tasten an, etwa /F, y.</translation>
    </message>
    <message>
        <source>Takes states %1, %2 (the hold), %3 and %4 (the opponent).</source>
        <translation>Belegt die Zustände %1, %2 (das Halten), %3 und %4 (der Gegner).</translation>
    </message>
    <message>
        <source>Ready to write.</source>
        <translation>Bereit zum Schreiben.</translation>
    </message>
</context>
</TS>
