#pragma once

#include "formats/qpalettewriter.h"
#include "interface/qinterfaceworkspace.h"

#include <QColor>
#include <QPointer>

class QAnimSpriteWorkspace;
class QCharPaletteStrip;
class QComboBox;
class QLabel;
class QListView;
class QListWidget;
class QPaletteGrid;
class QSpinBox;
class QSpritePalette;
class QSprites;
class QSpritesEditor;
class QToolButton;

/**
 * The palettes of the project on the right panel, beside the sprites and
 * animations editors. It follows the sprite the view shows: its palette
 * comes up among all palettes of the sprite file. The author picks an entry
 * in the grid or from the view (colour capture), edits it by numbers or a
 * colour dialog, loads and saves the palette in any format the program
 * reads, gives it to the current sprite, the selection or its group, opens
 * the advanced editor, and remaps palettes for the view. The character's
 * palettes 1,1 to 1,12 stand side by side; choosing one shows the sprites
 * with it (a remap of 1,1, as the engine does for the palette chosen).
 *
 * Every change of colours or of a sprite's palette is an undoable edit of
 * the sprites; remaps only change the view. File operations take names in
 * public calls and the buttons ask for them; a file that can't be a palette
 * is named in a one-line warning and changes nothing.
 */
class QPalettesEditor : public QInterfaceExtraEditor
{
    Q_OBJECT
public:
    QPalettesEditor(QAnimSpriteWorkspace* view, QSpritesEditor* spritesEditor, QObject* parent = nullptr);

    /// What "Apply to" gives the palette shown.
    enum Target { CurrentSprite, Selection, Group };

    int id() const override { return 1; }
    QString name() const override { return QStringLiteral("palettes"); }
    QString title() const override { return tr("Palettes"); }
    bool serves(int editor) const override;
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
    /// Writes the palette shown in `format`.
    bool savePalette(const QString& path, QPaletteFileFormat format = pffACT);
    /// Gives the palette shown to the sprites of `target`, as one undo step; how many sprites took it.
    int applyTo(Target target);
    /// Shows the sprites with the character's palette 1,`number` (1 to 12).
    void previewCharPalette(int number);
    /// Makes the view show the current sprite's palette as the palette shown; false without a sprite.
    bool remapToShown();
    void removeRemap(int row);
    /// While on, a click on the sprite in the view picks the entry under it.
    void setColorCapture(bool on);
    QCharPaletteStrip* charPalettes() const { return m_strip; }
    /// The view of sprites and animations it follows.
    QAnimSpriteWorkspace* view() const { return m_view; }
    /// Opens the advanced editor on the palette shown, previewed on the current sprite.
    void openEditor();

private:
    QSpritePalette* palette() const;
    QSprites* sprites() const;
    QWidget* buildButtons(QWidget* page);
    QWidget* buildRemaps(QWidget* page);
    void fillPaletteChoice();
    void showPalette();
    void showEntry();
    void followSprite();
    void refreshView();
    void applyNumbers();
    void askColor(int index);
    void askLoad();
    void askSave();
    void listPaletteFiles();
    void warn(const QString& text) const;

    QAnimSpriteWorkspace* m_view;
    QSpritesEditor* m_spritesEditor;
    QPointer<QProject> m_project;
    QComboBox* m_choice = nullptr;
    QPaletteGrid* m_grid = nullptr;
    QLabel* m_entry = nullptr;
    QSpinBox* m_red = nullptr;
    QSpinBox* m_green = nullptr;
    QSpinBox* m_blue = nullptr;
    QToolButton* m_capture = nullptr;
    QCharPaletteStrip* m_strip = nullptr;
    QListView* m_remaps = nullptr;
    QListWidget* m_list = nullptr;
};
