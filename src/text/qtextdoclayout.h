#pragma once

#include <QAbstractTextDocumentLayout>

/**
 * The layout every element document starts with. A document reports its
 * changes only while it has a layout, and the chain needs those reports;
 * this one lays out nothing, so documents of any size cost nothing to keep
 * and work without a GUI. A view that shows the document installs its own.
 */
class QTextDocLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit QTextDocLayout(QTextDocument* document);

    void draw(QPainter*, const PaintContext&) override { }
    int hitTest(const QPointF&, Qt::HitTestAccuracy) const override { return -1; }
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return QSizeF(); }
    QRectF frameBoundingRect(QTextFrame*) const override { return QRectF(); }
    QRectF blockBoundingRect(const QTextBlock&) const override { return QRectF(); }

protected:
    void documentChanged(int, int, int) override { }
};
