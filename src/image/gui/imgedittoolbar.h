#pragma once

#include "image/qimagetooltype.h"

#include <QToolBar>

class QActionGroup;
class QImageRender;
class QSlider;
class QSpinBox;
class QComboBox;

/**
 * The tools as one exclusive group of buttons, followed by the options of
 * the tool in use: the pen size for the pens, the tolerance of the fill,
 * and the mode of the rectangle selection.
 */
class ImgEditToolBar : public QToolBar
{
    Q_OBJECT
public:
    explicit ImgEditToolBar(QImageRender* render, QWidget* parent = nullptr);

    QAction* toolAction(QImageToolType type) const { return m_actions.value(type); }
    QSlider* penSize() const { return m_penSize; }

private:
    void toolChanged(QImageToolType type);

    QImageRender* m_render;
    QList<QAction*> m_actions;
    QSlider* m_penSize;
    QSpinBox* m_tolerance;
    QComboBox* m_selectionMode;
    QAction* m_penSizeItem;
    QAction* m_toleranceItem;
    QAction* m_selectionModeItem;
};
