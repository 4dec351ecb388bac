#include "qcharpalettestrip.h"

#include "model/qsprites.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QToolButton>

namespace {

constexpr int paletteNumbers = 12;
constexpr int buttonsPerRow = 4;

/// A small picture of a palette: the colours the file keeps (often 32 of a
/// character's palette), in rows of 4, 8 or 16, stretched to a square.
QIcon paletteIcon(const QRGBA* colors, int count)
{
    const int columns = count <= 16 ? 4 : count <= 64 ? 8 : 16;
    const int rows = (qMax(count, columns) + columns - 1) / columns;
    QImage picture(columns, rows, QImage::Format_RGB32);
    picture.fill(Qt::black);
    for (int i = 0; i < count; ++i)
        picture.setPixel(i % columns, i / columns, qRgb(colors[i].r, colors[i].g, colors[i].b));
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
        button->setIcon(paletteIcon(palette->colors(), qBound(1, int(palette->colorCount()), 256)));
        button->setIconSize(QSize(32, 32));
        button->setText(QString::number(number));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setToolTip(tr("Show the sprites with palette 1,%1 (pal%1 of the definitions)").arg(number));
        const int place = m_buttons->buttons().size();
        m_layout->addWidget(button, place / buttonsPerRow, place % buttonsPerRow);
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
