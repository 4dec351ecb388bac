<?xml version='1.0' encoding='utf-8'?>
<TS version="2.1" language="de_DE">
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
        <translation><numerusform>%n Fehler</numerusform><numerusform>%n Fehler</numerusform></translation>
    </message>
    <message numerus="yes">
        <source>%n warning(s)</source>
        <translation><numerusform>%n Warnung</numerusform><numerusform>%n Warnungen</numerusform></translation>
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
    <name>MugenDlg</name>
    <message>
        <source>Engine</source>
        <translation>Engine</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Executable:</source>
        <translation>Programmdatei:</translation>
    </message>
    <message>
        <source>Programs (*.exe)</source>
        <translation>Programme (*.exe)</translation>
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
        <source>Images (*.png *.ico *.xpm)</source>
        <translation>Bilder (*.png *.ico *.xpm)</translation>
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
        <source>No sprite: the palette alone.</source>
        <translation>Kein Sprite: nur die Palette.</translation>
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
        <translation>Auf &amp;Fehler prüfen</translation>
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
        <source>Save the editor's file</source>
        <translation>Datei des Editors speichern</translation>
    </message>
    <message>
        <source>Save the editor's file as...</source>
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
        <translation>&amp;Rechner</translation>
    </message>
    <message>
        <source>Clip&amp;board</source>
        <translation>&amp;Zwischenablage</translation>
    </message>
    <message>
        <source>&amp;Palette editor...</source>
        <translation>&amp;Paletteneditor...</translation>
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
        <translation><numerusform>%n Palette</numerusform><numerusform>%n Paletten</numerusform></translation>
    </message>
    <message>
        <source>not here</source>
        <translation>nicht hier</translation>
    </message>
    <message>
        <source>"not here": the engine also looks in its data folder.</source>
        <translation>„nicht hier“: die Engine sucht auch in ihrem Datenordner.</translation>
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
        <source>The file '%1' doesn't exists. Do you want to remove it from the history?</source>
        <translation>Die Datei '%1' existiert nicht. Wollen Sie sie aus dem Verlauf entfernen?</translation>
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
        <source>&lt;h3&gt;Quorvantek Pugilforge %1&lt;/h3&gt;&lt;p&gt;An authoring environment for the files of the M.U.G.E.N. fighting engine.&lt;/p&gt;&lt;p&gt;Icons: Adwaita icon theme by the GNOME Project (CC-BY-SA 3.0 or LGPL 3), and the team's own drawings.&lt;/p&gt;</source>
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
        <source>The project '%1' could not be opened.</source>
        <translation>Das Projekt '%1' konnte nicht geöffnet werden.</translation>
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
        <translation><numerusform>%n Fehler gefunden!</numerusform><numerusform>%n Fehler gefunden!</numerusform></translation>
    </message>
    <message numerus="yes">
        <source>%n warnings found!</source>
        <translation><numerusform>%n Warnung gefunden!</numerusform><numerusform>%n Warnungen gefunden!</numerusform></translation>
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
</context>
<context>
    <name>QMugenSyntaxProcessor</name>
    <message>
        <source>Unknown interpolation</source>
        <translation>Unbekannte Interpolation</translation>
    </message>
    <message>
        <source>Parameter invalid for the M.U.G.E.N. version of the current project</source>
        <translation>Parameter ungültig für die M.U.G.E.N.-Version des aktuellen Projekts</translation>
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
        <source>Unknown trigger '%1'</source>
        <translation>Unbekannter Trigger '%1'</translation>
    </message>
    <message>
        <source>Unknown value</source>
        <translation>Unbekannter Wert</translation>
    </message>
    <message>
        <source>Unknown constant '%1'</source>
        <translation>Unbekannte Konstante '%1'</translation>
    </message>
    <message>
        <source>Unknown 'Defaults' parameter</source>
        <translation>Unbekannter 'Defaults'-Parameter</translation>
    </message>
    <message>
        <source>Unknown 'Palette Keymap' parameter</source>
        <translation>Unbekannter 'Palette Keymap'-Parameter</translation>
    </message>
    <message>
        <source>Unknown 'Quotes' parameter</source>
        <translation>Unbekannter 'Quotes'-Parameter</translation>
    </message>
    <message>
        <source>Unknown 'Info'' parameter</source>
        <translation>Unbekannter 'Info'-Parameter</translation>
    </message>
    <message>
        <source>Unknown 'BG' type</source>
        <translation>Unbekannter 'BG'-Typ</translation>
    </message>
    <message>
        <source>Unknown 'BG Ctrl' type</source>
        <translation>Unbekannter 'BG Ctrl'-Typ</translation>
    </message>
    <message>
        <source>Unknown 'StateDef' parameter '%1'</source>
        <translation>Unbekannter 'StateDef'-Parameter '%1'</translation>
    </message>
    <message>
        <source>Unknown 'State' type</source>
        <translation>Unbekannter 'State'-Typ</translation>
    </message>
    <message>
        <source>Unknown 'Remap' parameter</source>
        <translation>Unbekannter 'Remap'-Parameter</translation>
    </message>
    <message>
        <source>Unknown 'Remap' value</source>
        <translation>Unbekannter 'Remap'-Wert</translation>
    </message>
    <message>
        <source>Unknown 'Command' parameter</source>
        <translation>Unbekannter 'Command'-Parameter</translation>
    </message>
    <message>
        <source>Unknown command key</source>
        <translation>Unbekannte Befehlstaste</translation>
    </message>
    <message>
        <source>Unexpected token '%1'</source>
        <translation>Unerwartetes Zeichen '%1'</translation>
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
        <source>Unknown parameter '%1' for the '%2' controller</source>
        <translation>Unbekannter Parameter '%1' für den Controller '%2'</translation>
    </message>
    <message>
        <source>Unknown parameter value '%1'</source>
        <translation>Unbekannter Parameterwert '%1'</translation>
    </message>
    <message numerus="yes">
        <source>This parameter requires %n value(s)</source>
        <translation><numerusform>Dieser Parameter braucht %n Wert</numerusform><numerusform>Dieser Parameter braucht %n Werte</numerusform></translation>
    </message>
</context>
<context>
    <name>QMugenSyntaxProperties</name>
    <message>
        <source>XML Error</source>
        <translation>XML-Fehler</translation>
    </message>
    <message>
        <source>Can't open '%1'</source>
        <translation>'%1' kann nicht geöffnet werden</translation>
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
    <message>
        <source>Load a palette</source>
        <translation>Palette laden</translation>
    </message>
    <message>
        <source>Palettes (*.act *.pal *.aco *.ase *.txt *.pcx *.png);;All files (*)</source>
        <translation>Paletten (*.act *.pal *.aco *.ase *.txt *.pcx *.png);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the palette</source>
        <translation>Palette speichern</translation>
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
</context>
<context>
    <name>QSoundsEditor</name>
    <message>
        <source>The definitions name no sound file.</source>
        <translation>Die Definitionen nennen keine Klangdatei.</translation>
    </message>
    <message>
        <source>The sound file %1 is missing.</source>
        <translation>Die Klangdatei %1 fehlt.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Sound file:&lt;/b&gt; %1</source>
        <translation>&lt;b&gt;Klangdatei:&lt;/b&gt; %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Klänge</translation>
    </message>
</context>
<context>
    <name>QSprite</name>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>The image to be set to the sprite %1, %2 (#%3) isn't color indexed.
For the current SFF version, the image will be converted to indexed with an optimized palette when you save the file.</source>
        <translation>Das Bild für das Sprite %1, %2 (#%3) hat keine indizierten Farben.
Für die aktuelle SFF-Version wird es beim Speichern mit einer optimierten Palette in indizierte Farben umgewandelt.</translation>
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
    <name>QSprites</name>
    <message>
        <source>Sprite loading error</source>
        <translation>Fehler beim Laden der Sprites</translation>
    </message>
    <message>
        <source>%1(0): SFF version '%2.%3.%4.%5' not supported yet</source>
        <translation>%1(0): SFF-Version '%2.%3.%4.%5' wird noch nicht unterstützt</translation>
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
        <source>Can't create a buffer for the image data.</source>
        <translation>Für die Bilddaten kann kein Puffer angelegt werden.</translation>
    </message>
    <message>
        <source>Can't create the PCX file.</source>
        <translation>Die PCX-Datei kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Can't compress the image.</source>
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
        <source>You can't save an empty SFF because M.U.G.E.N. will not open it.</source>
        <translation>Eine leere SFF kann nicht gespeichert werden, weil M.U.G.E.N. sie nicht öffnet.</translation>
    </message>
    <message>
        <source>You can't save this SFF without palettes.</source>
        <translation>Diese SFF kann nicht ohne Paletten gespeichert werden.</translation>
    </message>
    <message>
        <source>Empty sprite!</source>
        <translation>Leeres Sprite!</translation>
    </message>
    <message>
        <source>The sprite at index %1 is empty. You can't save a SFF file with an empty sprite.</source>
        <translation>Das Sprite an Index %1 ist leer. Eine SFF-Datei mit einem leeren Sprite kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Empty palette!</source>
        <translation>Leere Palette!</translation>
    </message>
    <message>
        <source>The palette at index %1 is empty. You can't save a SFF file with an empty palette.</source>
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
        <source>Sprite can't receive the group 1 (character) palette at his position!</source>
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
</context>
<context>
    <name>QSpritesEditor</name>
    <message>
        <source>no sprite file</source>
        <translation>keine Sprite-Datei</translation>
    </message>
    <message numerus="yes">
        <source>%n sprite(s) in %1. Each entry is group, index.</source>
        <translation><numerusform>%n Sprite in %1. Jeder Eintrag ist Gruppe, Index.</numerusform><numerusform>%n Sprites in %1. Jeder Eintrag ist Gruppe, Index.</numerusform></translation>
    </message>
    <message>
        <source>This project has no sprites yet (%1).</source>
        <translation>Dieses Projekt hat noch keine Sprites (%1).</translation>
    </message>
    <message>
        <source>&lt;b&gt;File:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Sprites:&lt;/b&gt; %2</source>
        <translation>&lt;b&gt;Datei:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Sprites:&lt;/b&gt; %2</translation>
    </message>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
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
        <source>This project has no state files.</source>
        <translation>Dieses Projekt hat keine Zustandsdateien.</translation>
    </message>
    <message>
        <source>Faults are checked as you type; the error icon in the status bar counts them.</source>
        <translation>Fehler werden beim Tippen geprüft; das Fehlersymbol in der Statusleiste zählt sie.</translation>
    </message>
</context>
<context>
    <name>QSyntaxTextEditor</name>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>%1 holds characters that %2 can't store: it is saved in UTF-8.</source>
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
    <name>QTextFileViewer</name>
    <message>
        <source>Animations</source>
        <translation>Animationen</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>%1 (read-only)</source>
        <translation>%1 (schreibgeschützt)</translation>
    </message>
    <message>
        <source>The definitions name no such file, or it is missing.</source>
        <translation>Die Definitionen nennen keine solche Datei, oder sie fehlt.</translation>
    </message>
    <message>
        <source>Shown read-only: this file is edited in its own editor in a later version.</source>
        <translation>Schreibgeschützt angezeigt: diese Datei wird in einer späteren Version in ihrem eigenen Editor bearbeitet.</translation>
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
    <name>QXmlParser</name>
    <message>
        <source>Expected the element '%1'</source>
        <translation>Das Element '%1' wurde erwartet</translation>
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
</TS>