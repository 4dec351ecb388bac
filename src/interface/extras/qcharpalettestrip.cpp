#include "qcharpalettestrip.h"

#include "model/qsprites.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QToolButton>

namespace {

constexpr int paletteNumbers = 12;

/// A small picture of a palette: its 256 colours as a 16 by 16 grid.
QIcon paletteIcon(const QRGBA* colors)
{
    QImage picture(16, 16, QImage::Format_RGB32);
    for (int i = 0; i < 256; ++i)
        picture.setPixel(i % 16, i / 16, qRgb(colors[i].r, colors[i].g, colors[i].b));
    return QIcon(QPixmap::fromImage(picture.scaled(32, 32)));
}

} // namespace

QCharPaletteStrip::QCharPaletteStrip(QWidget* parent)
    : QWidget(parent)
    , m_buttons(new QButtonGroup(this))
    , m_layout(new QGridLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
    m_buttons->setExclusive(true);
    connect(m_buttons, &QButtonGroup::idClicked, this, &QCharPaletteStrip::chosenChanged);
}

void QCharPaletteStrip::setSprites(QSprites* sprites)
{
    const int kept = chosen();
    for (QAbstractButton* button : m_buttons->buttons()) {
        m_buttons->removeButton(button);
        delete button;
    }
    for (int number = 1; sprites && number <= paletteNumbers; ++number) {
        const QSpritePalette* palette = sprites->paletteAt(sprites->findPalette(0, 1, number));
        if (!palette || !palette->colors())
            continue;
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("charPalette%1").arg(number));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setIcon(paletteIcon(palette->colors()));
        button->setIconSize(QSize(32, 32));
        button->setText(QString::number(number));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setToolTip(tr("Show the sprites with palette 1,%1 (pal%1 of the definitions)").arg(number));
        const int place = m_buttons->buttons().size();
        m_layout->addWidget(button, place / 6, place % 6);
        m_buttons->addButton(button, number);
    }
    if (QAbstractButton* again = m_buttons->button(kept))
        again->setChecked(true);
    else if (QAbstractButton* first = m_buttons->button(1))
        first->setChecked(true);
    setVisible(count() > 0);
}

int QCharPaletteStrip::chosen() const
{
    return qMax(0, m_buttons->checkedId());
}

void QCharPaletteStrip::choose(int number)
{
    if (QAbstractButton* button = m_buttons->button(number)) {
        button->setChecked(true);
        emit chosenChanged(number);
    }
}

int QCharPaletteStrip::count() const
{
    return int(m_buttons->buttons().size());
}
