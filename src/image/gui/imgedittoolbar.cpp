#include "imgedittoolbar.h"

#include "image/qbasepentool.h"
#include "image/qfloodfilltool.h"
#include "image/qimagerender.h"
#include "image/qrectseltool.h"

#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

ImgEditToolBar::ImgEditToolBar(QImageRender* render, QWidget* parent)
    : QToolBar(tr("Tools"), parent)
    , m_render(render)
    , m_penSize(new QSlider(Qt::Horizontal, this))
    , m_tolerance(new QSpinBox(this))
    , m_selectionMode(new QComboBox(this))
{
    setObjectName(QStringLiteral("imgEditTools"));
    auto* group = new QActionGroup(this);
    const QList<QPair<QString, QString>> names = {
        { tr("Pen"),
            tr("Pen: left button foreground, right background; Shift-click joins to the last stroke") },
        { tr("Eraser"), tr("Eraser: left erases all, right only the foreground colour") },
        { tr("Replace"), tr("Replace pen: recolours pairs of palette entries") },
        { tr("Fill"), tr("Flood fill with the foreground") },
        { tr("Picker"), tr("Colour picker: left foreground, right background") },
        { tr("Rect select"), tr("Rectangle selection: click selects all, Shift adds, Ctrl takes away") },
        { tr("Pen select"), tr("Selection pen: left adds, right takes away") },
        { tr("Move sel."), tr("Move the selected pixels (arrows move by one)") },
        { tr("Hand"), tr("Pan the view (or hold Space)") },
    };
    for (int type = 0; type < itCount; ++type) {
        QAction* action = addAction(names.at(type).first);
        action->setToolTip(names.at(type).second);
        action->setCheckable(true);
        action->setChecked(type == render->currentToolType());
        group->addAction(action);
        connect(
            action, &QAction::triggered, this, [render, type]() { render->setTool(QImageToolType(type)); });
        m_actions << action;
    }
    addSeparator();

    m_penSize->setRange(1, QBasePenTool::maxPenSize);
    m_penSize->setFixedWidth(120);
    m_penSize->setToolTip(tr("Pen size (+ and - keys)"));
    m_penSizeItem = addWidget(m_penSize);
    m_tolerance->setRange(0, 255);
    m_tolerance->setPrefix(tr("Tolerance "));
    m_toleranceItem = addWidget(m_tolerance);
    m_selectionMode->addItems(
        { tr("Replace selection"), tr("Add to selection"), tr("Subtract from selection") });
    m_selectionModeItem = addWidget(m_selectionMode);

    connect(m_penSize, &QSlider::valueChanged, this, [this](int size) {
        if (auto* pen = qobject_cast<QBasePenTool*>(m_render->currentTool()))
            pen->setPenSize(size);
    });
    for (int type : { itPen, itEraser, itReplace, itPenSel })
        connect(static_cast<QBasePenTool*>(render->tool(QImageToolType(type))), &QBasePenTool::penSizeChanged,
            m_penSize, &QSlider::setValue);
    connect(m_tolerance, qOverload<int>(&QSpinBox::valueChanged), this, [render](int value) {
        static_cast<QFloodFillTool*>(render->tool(itFloodFill))->setTolerance(value);
    });
    connect(m_selectionMode, qOverload<int>(&QComboBox::activated), this, [render](int mode) {
        static_cast<QRectSelTool*>(render->tool(itRectSel))->setMode(QRectSelTool::Mode(mode));
    });
    connect(render, &QImageRender::toolChanged, this, &ImgEditToolBar::toolChanged);
    toolChanged(render->currentToolType());
}

void ImgEditToolBar::toolChanged(QImageToolType type)
{
    m_actions.at(type)->setChecked(true);
    auto* pen = qobject_cast<QBasePenTool*>(m_render->tool(type));
    m_penSizeItem->setVisible(pen);
    if (pen)
        m_penSize->setValue(pen->penSize());
    m_toleranceItem->setVisible(type == itFloodFill);
    m_selectionModeItem->setVisible(type == itRectSel);
}
