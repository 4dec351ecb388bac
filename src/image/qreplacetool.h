#pragma once

#include "image/qbasepentool.h"

/**
 * A pen that recolours: under it, each "from" entry of up to five pairs
 * becomes its "to" entry (the right button replaces the other way round),
 * and every other pixel stays. With Shift held it changes nothing. Up and
 * Down pick the row that a palette click fills: the left button sets its
 * "from", another button its "to".
 */
class QReplaceTool : public QBasePenTool
{
    Q_OBJECT
public:
    static constexpr int pairCount = 5;

    struct Pair
    {
        bool set = false;
        unsigned char from = 0;
        unsigned char to = 0;
    };

    explicit QReplaceTool(QImageCanvas* canvas)
        : QBasePenTool(canvas, true)
    {
    }

    Pair pair(int row) const { return m_pairs[row]; }
    void setPair(int row, unsigned char from, unsigned char to);
    void clearPair(int row);
    int currentRow() const { return m_row; }
    void setCurrentRow(int row);

    bool keyPressed(Qt::KeyboardModifiers modifiers, int key) override;
    void colorClicked(bool left, unsigned char index) override;

signals:
    void pairsChanged();

protected:
    void doDraw(const QPoint& at, QImagePainter* painter) override;

private:
    Pair m_pairs[pairCount];
    int m_row = 0;
};
