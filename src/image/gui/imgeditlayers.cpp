#include "imgeditlayers.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QListView>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

ImgEditLayers::ImgEditLayers(QImageCanvas* canvas, QWidget* parent)
    : QWidget(parent)
    , m_canvas(canvas)
    , m_list(new QListView(this))
    , m_blend(new QComboBox(this))
    , m_opacity(new QSlider(Qt::Horizontal, this))
{
    m_list->setModel(canvas->layers());
    m_list->setIconSize(QSize(32, 32));
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);

    m_blend->addItems({ tr("Normal"), tr("Plus"), tr("Multiply"), tr("Screen"), tr("Overlay"), tr("Darken"),
        tr("Lighten"), tr("Color Dodge"), tr("Color Burn"), tr("Hard Light"), tr("Soft Light"),
        tr("Difference"), tr("Exclusion") });
    m_opacity->setRange(0, 100);

    auto* buttons = new QHBoxLayout;
    const auto button = [&](const QString& text, const QString& tip, void (ImgEditLayers::*slot)()) {
        auto* b = new QToolButton(this);
        b->setText(text);
        b->setToolTip(tip);
        connect(b, &QToolButton::clicked, this, slot);
        buttons->addWidget(b);
    };
    button(tr("New"), tr("New layer"), &ImgEditLayers::addLayer);
    button(tr("Copy"), tr("Duplicate layer"), &ImgEditLayers::duplicateLayer);
    button(tr("Del"), tr("Remove layer"), &ImgEditLayers::removeLayer);
    button(tr("Up"), tr("Move layer up"), &ImgEditLayers::moveUp);
    button(tr("Down"), tr("Move layer down"), &ImgEditLayers::moveDown);
    button(tr("Merge"), tr("Merge down"), &ImgEditLayers::mergeDown);
    buttons->addStretch();

    auto* form = new QFormLayout;
    form->addRow(tr("Blend mode"), m_blend);
    form->addRow(tr("Opacity"), m_opacity);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& index) {
            if (!m_syncing)
                m_canvas->setActiveLayer(m_canvas->layers()->at(unsigned(index.row())));
        });
    connect(m_blend, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        if (QImageLayer* layer = m_canvas->activeLayer())
            layer->setBlendMode(blendMode(index), true);
    });
    connect(m_opacity, &QSlider::valueChanged, this, [this](int value) {
        QImageLayer* layer = m_canvas->activeLayer();
        if (layer && !m_syncing)
            layer->setOpacity(value / 100.0, true);
    });
    connect(canvas, &QImageCanvas::activeLayerChanged, this, &ImgEditLayers::syncFromCanvas);
    connect(canvas, &QImageCanvas::layerChanged, this, &ImgEditLayers::syncFromCanvas);
    connect(canvas, &QImageCanvas::formatChanged, this, &ImgEditLayers::syncFromCanvas);
    syncFromCanvas();
}

QPainter::CompositionMode ImgEditLayers::blendMode(int comboIndex)
{
    return comboIndex <= 0 ? QPainter::CompositionMode_SourceOver
                           : QPainter::CompositionMode(comboIndex + 11);
}

int ImgEditLayers::comboIndex(QPainter::CompositionMode mode)
{
    return mode == QPainter::CompositionMode_SourceOver ? 0 : int(mode) - 11;
}

void ImgEditLayers::syncFromCanvas()
{
    m_syncing = true;
    QImageLayer* layer = m_canvas->activeLayer();
    // Among indices there is no blending: an indexed picture shows the top opaque entry.
    const bool blends = layer && m_canvas->format() == CanvasRGBA;
    m_blend->setEnabled(blends);
    m_opacity->setEnabled(blends);
    const QString why = blends ? QString() : tr("Blend modes and opacity apply to true-colour pictures only");
    m_blend->setToolTip(why);
    m_opacity->setToolTip(why);
    if (layer) {
        m_list->setCurrentIndex(m_canvas->layers()->index(layer->index()));
        m_blend->setCurrentIndex(comboIndex(layer->blendMode()));
        m_opacity->setValue(qRound(layer->opacity() * 100));
    }
    m_syncing = false;
}

void ImgEditLayers::addLayer()
{
    m_canvas->addLayer(QImage(), tr("Layer %1").arg(m_canvas->layers()->count() + 1));
}

void ImgEditLayers::removeLayer()
{
    if (QImageLayer* layer = m_canvas->activeLayer())
        m_canvas->removeLayer(layer);
}

void ImgEditLayers::duplicateLayer()
{
    if (QImageLayer* layer = m_canvas->activeLayer())
        m_canvas->duplicateLayer(layer);
}

void ImgEditLayers::move(int by)
{
    QImageLayer* layer = m_canvas->activeLayer();
    if (!layer)
        return;
    const int from = layer->index();
    m_canvas->layers()->move(from, from + by, true);
    syncFromCanvas();
    emit m_canvas->layerChanged();
}

void ImgEditLayers::moveUp()
{
    move(-1);
}

void ImgEditLayers::moveDown()
{
    move(1);
}

void ImgEditLayers::mergeDown()
{
    if (QImageLayer* layer = m_canvas->activeLayer())
        m_canvas->mergeDown(layer);
}
