#pragma once

#include <QWidget>

class QButtonGroup;
class QSprites;

/**
 * The character's palettes 1,1 to 1,12 (the DEF's pal1 to pal12) side by
 * side, each a small picture of its colours with its number; one is chosen
 * at a time, and choosing another asks for the view to show it.
 */
class QCharPaletteStrip : public QWidget
{
    Q_OBJECT
public:
    explicit QCharPaletteStrip(QWidget* parent = nullptr);

    /// Shows the group-1 palettes of `sprites` (none for null).
    void setSprites(QSprites* sprites);
    /// The number chosen, 1 to 12; 0 when there is none.
    int chosen() const;
    void choose(int number);
    int count() const;

signals:
    void chosenChanged(int number);

private:
    QButtonGroup* m_buttons;
    class QGridLayout* m_layout;
};
