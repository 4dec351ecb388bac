#pragma once

#include <QPainter>
#include <QWidget>

class QComboBox;
class QImageCanvas;
class QImageLayer;
class QListView;
class QSlider;

/**
 * The layers panel: the stack with names and visibility boxes (top layer
 * first), the blend mode and opacity of the active layer, and buttons to
 * add, duplicate, remove, reorder and merge layers. Every change goes
 * through the canvas, so it is undoable there.
 */
class ImgEditLayers : public QWidget
{
    Q_OBJECT
public:
    explicit ImgEditLayers(QImageCanvas* canvas, QWidget* parent = nullptr);

    QListView* list() const { return m_list; }
    /// Blend modes by combo index: "Normal" and then the composition modes from Plus on.
    static QPainter::CompositionMode blendMode(int comboIndex);
    static int comboIndex(QPainter::CompositionMode mode);

public slots:
    void addLayer();
    void removeLayer();
    void duplicateLayer();
    void moveUp();
    void moveDown();
    void mergeDown();

private:
    void syncFromCanvas();
    void move(int by);

    QImageCanvas* m_canvas;
    QListView* m_list;
    QComboBox* m_blend;
    QSlider* m_opacity;
    bool m_syncing = false;
};
