#pragma once

#include "formats/qpalettewriter.h"
#include "formats/qrgba.h"

#include <QDialog>
#include <QImage>
#include <QVector>

class QCheckBox;
class QLabel;
class QPaletteGrid;
class QSpinBox;
class QSprites;

/**
 * The advanced palette editor. It works on a copy of one palette and shows
 * the result at once on a sprite that uses it; nothing reaches the sprite
 * file before Apply (or OK), which makes all the work one undo step.
 *
 * Entries can be moved and swapped with the sprites' pixels following them,
 * so every sprite keeps its look (or, with "Pixels follow" off, the colours
 * change places under the pixels). The palette can also be made from an
 * image, optimised (used entries to the front, the rest black), turned to
 * grey, marked as a full 8-bit palette, read from and saved to every palette
 * format. Without a sprite file it edits palette files alone.
 */
class PalEditor : public QDialog
{
    Q_OBJECT
public:
    /// Edits the palette at `palette` of `sprites`, previewed on the sprite at
    /// `sprite`; without sprites it edits palette files alone.
    explicit PalEditor(QSprites* sprites = nullptr, int palette = -1, int sprite = -1, QWidget* parent = nullptr);

    const QRGBA* colors() const { return m_colors; }
    /// Where each entry came from: order[new] is the entry's position in the palette as opened.
    const QVector<int>& order() const { return m_order; }
    int selectedIndex() const;
    void selectIndex(int index);
    void setPixelsFollow(bool on);
    /// The preview as drawn: the sprite's pixels in the working order and colours; null without a sprite.
    QImage preview() const { return m_preview; }

    void setColor(int index, const QRGBA& color);
    void swapEntries(int a, int b);
    void moveEntry(int from, int to);
    void greyScale();
    /// Used entries first, in their order, the unused ones after them in black.
    void optimise();
    void forceEightBits();
    /// Takes the colours of an image: its table when indexed, else the 255 its quantizer finds.
    bool generateFrom(const QString& imagePath);
    /// Reads a palette file into the working copy; a fault is told in one line.
    bool loadFile(const QString& path);
    bool saveFile(const QString& path, QPaletteFileFormat format);
    /// Writes the work into the sprite file as one undo step; false without one.
    bool apply();

    /// Asks for a palette file to read, in any format the program reads; empty when cancelled.
    static QString askOpenName(QWidget* parent, const QString& start);
    /// Asks for a palette file to write and its format (a name without suffix gets the format's).
    static QString askSaveName(QWidget* parent, const QString& start, QPaletteFileFormat& format);

signals:
    void applied();

private:
    void buildPalettePart(class QGridLayout* layout);
    void buildOperations(class QGridLayout* layout);
    void changed();
    void reorder(const QVector<int>& step);
    void askColor(int index);
    void askOpen();
    void askSave();
    void askGenerate();
    void warn(const QString& text);

    QSprites* m_sprites;
    int m_palette;
    int m_sprite;
    QImage m_spriteImage;
    QRGBA m_colors[256];
    QVector<int> m_order;
    bool m_eightBits = false;
    QImage m_preview;
    QString m_fileName;

    QPaletteGrid* m_grid = nullptr;
    QLabel* m_entry = nullptr;
    QLabel* m_view = nullptr;
    QSpinBox* m_other = nullptr;
    QCheckBox* m_follow = nullptr;
};
