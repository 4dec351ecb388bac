#pragma once

#include "interface/qinterfaceworkspace.h"

#include <QColor>
#include <QPointer>

class QComboBox;
class QLabel;
class QListWidget;
class QPaletteGrid;
class QSpinBox;
class QSpritePalette;
class QSprites;

/**
 * The palettes of the project on the right panel: the 256 colours of one
 * palette of the sprite file, picked from the list of all of them, with the
 * picked entry's numbers to edit, a colour dialog, and loading from any
 * palette format the program reads or saving as ACT; under them, the twelve
 * palette files a character's DEF may name. Every change of colours is an
 * undoable edit of the sprites.
 *
 * As in the sounds editor, the file operations take names in public calls
 * and the buttons ask for them; a file that can't be a palette is named in
 * a one-line warning and changes nothing.
 */
class QPalettesEditor : public QInterfaceExtraEditor
{
    Q_OBJECT
public:
    using QInterfaceExtraEditor::QInterfaceExtraEditor;

    int id() const override { return 1; }
    QString name() const override { return QStringLiteral("palettes"); }
    QString title() const override { return tr("Palettes"); }
    void initialized(QWidget* rightPage) override;
    void setProject(QProject* project) override;

    /// The palette shown, by its position in the sprite file; -1 when none.
    int currentPalette() const;
    void setCurrentPalette(int position);
    int selectedIndex() const;
    void selectIndex(int index);
    /// Changes one colour of the palette shown.
    void setColor(int index, const QColor& color);
    /// Reads a palette file into the palette shown.
    bool loadPalette(const QString& path);
    /// Writes the palette shown as an ACT file.
    bool savePalette(const QString& path);

private:
    QSpritePalette* palette() const;
    QSprites* sprites() const;
    void fillPaletteChoice();
    void showPalette();
    void showEntry();
    void applyNumbers();
    void askColor(int index);
    void askLoad();
    void askSave();
    void listPaletteFiles();
    void warn(const QString& text) const;

    QPointer<QProject> m_project;
    QComboBox* m_choice = nullptr;
    QPaletteGrid* m_grid = nullptr;
    QLabel* m_entry = nullptr;
    QSpinBox* m_red = nullptr;
    QSpinBox* m_green = nullptr;
    QSpinBox* m_blue = nullptr;
    QListWidget* m_list = nullptr;
};
