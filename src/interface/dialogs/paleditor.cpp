#include "paleditor.h"

#include "formats/qimagefiles.h"
#include "formats/qpalettefile.h"
#include "formats/qrgbpalette.h"
#include "image/qcolorquantizer.h"
#include "interface/extras/qpalettegrid.h"
#include "model/qpaletteentries.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QBoxLayout>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>

#include <cstring>

PalEditor::PalEditor(QSprites* sprites, int palette, int sprite, QWidget* parent)
    : QDialog(parent)
    , m_sprites(sprites)
    , m_palette(palette)
    , m_sprite(sprite)
    , m_order(QPaletteEntries::identity())
{
    setObjectName(QStringLiteral("palEditor"));
    setWindowTitle(tr("Palette editor"));
    std::memset(static_cast<void*>(m_colors), 0, sizeof m_colors);
    const QSpritePalette* edited = m_sprites ? m_sprites->paletteAt(m_palette) : nullptr;
    if (edited && edited->colors())
        std::memcpy(static_cast<void*>(m_colors), edited->colors(), sizeof m_colors);
    else
        m_sprites = nullptr; // nothing of a sprite file to edit: palette files alone
    if (m_sprites && m_sprites->at(m_sprite))
        m_spriteImage = m_sprites->at(m_sprite)->image();

    auto* layout = new QGridLayout(this);
    buildPalettePart(layout);
    buildOperations(layout);
    auto* files = new QHBoxLayout;
    auto* open = new QPushButton(tr("Open..."), this);
    auto* save = new QPushButton(tr("Save as..."), this);
    open->setToolTip(tr("Read ACT, RIFF, JASC, Painter, ACO, ASE palettes or the colours of a PCX or PNG"));
    save->setToolTip(tr("Write the palette in any of the formats the program reads"));
    connect(open, &QPushButton::clicked, this, &PalEditor::askOpen);
    connect(save, &QPushButton::clicked, this, &PalEditor::askSave);
    files->addWidget(open);
    files->addWidget(save);
    files->addStretch(1);
    auto* buttons = new QDialogButtonBox(this);
    if (m_sprites) {
        buttons->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
        connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &PalEditor::apply);
        connect(buttons, &QDialogButtonBox::accepted, this, [this]() {
            apply();
            accept();
        });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    } else {
        buttons->setStandardButtons(QDialogButtonBox::Close);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }
    files->addWidget(buttons);
    layout->addLayout(files, 2, 0, 1, 2);
    changed();
}

void PalEditor::buildPalettePart(QGridLayout* layout)
{
    auto* colours = new QGroupBox(m_sprites ? tr("Palette %1,%2")
                                                  .arg(m_sprites->paletteAt(m_palette)->itemGroup())
                                                  .arg(m_sprites->paletteAt(m_palette)->itemIndex())
                                            : tr("Palette"),
                                  this);
    auto* box = new QVBoxLayout(colours);
    m_grid = new QPaletteGrid(colours);
    m_grid->setObjectName(QStringLiteral("palEditorGrid"));
    m_grid->setMinimumSize(16 * 18 + 1, 16 * 18 + 1);
    m_entry = new QLabel(colours);
    box->addWidget(m_grid, 1);
    box->addWidget(m_entry);
    connect(m_grid, &QPaletteGrid::picked, this, &PalEditor::changed);
    connect(m_grid, &QPaletteGrid::activated, this, &PalEditor::askColor);
    layout->addWidget(colours, 0, 0, 2, 1);

    auto* preview = new QGroupBox(tr("Preview"), this);
    auto* previewLayout = new QVBoxLayout(preview);
    m_view = new QLabel(preview);
    m_view->setObjectName(QStringLiteral("palEditorPreview"));
    m_view->setAlignment(Qt::AlignCenter);
    m_view->setWordWrap(true);
    m_view->setMinimumSize(260, 220);
    previewLayout->addWidget(m_view, 1);
    layout->addWidget(preview, 0, 1);
}

void PalEditor::buildOperations(QGridLayout* layout)
{
    auto* operations = new QGroupBox(tr("Entries"), this);
    auto* grid = new QGridLayout(operations);
    auto button = [this, operations](const QString& text, const QString& tip, auto slot) {
        auto* each = new QPushButton(text, operations);
        each->setToolTip(tip);
        connect(each, &QPushButton::clicked, this, slot);
        return each;
    };
    m_follow = new QCheckBox(tr("Pixels follow the entries"), operations);
    m_follow->setToolTip(tr("Moved entries take the sprites' pixels along, so every sprite keeps its look"));
    m_follow->setChecked(m_sprites != nullptr);
    m_follow->setEnabled(m_sprites != nullptr);
    m_other = new QSpinBox(operations);
    m_other->setRange(0, 255);
    m_other->setPrefix(tr("with "));
    grid->addWidget(m_follow, 0, 0, 1, 3);
    grid->addWidget(button(tr("Move left"), tr("Move the chosen entry one place back"),
                           [this]() { moveEntry(selectedIndex(), selectedIndex() - 1); }),
                    1, 0);
    grid->addWidget(button(tr("Move right"), tr("Move the chosen entry one place on"),
                           [this]() { moveEntry(selectedIndex(), selectedIndex() + 1); }),
                    1, 1);
    auto* swap = new QHBoxLayout;
    swap->addWidget(button(tr("Swap"), tr("Trade places of the chosen entry and the one given"),
                           [this]() { swapEntries(selectedIndex(), m_other->value()); }));
    swap->addWidget(m_other);
    grid->addLayout(swap, 1, 2);
    auto* optimise = button(tr("Optimise"), tr("Used entries to the front, the unused ones after them in black"),
                            &PalEditor::optimise);
    optimise->setEnabled(m_sprites != nullptr);
    grid->addWidget(button(tr("From image..."), tr("Take the colours of a picture"), &PalEditor::askGenerate), 2, 0);
    grid->addWidget(optimise, 2, 1);
    grid->addWidget(button(tr("Grey scale"), tr("Every colour to its grey"), &PalEditor::greyScale), 2, 2);
    auto* eight = button(tr("Force 8-bit"), tr("The sprite file keeps all 256 colours of the palette"),
                         &PalEditor::forceEightBits);
    eight->setEnabled(m_sprites != nullptr);
    grid->addWidget(eight, 3, 0);
    layout->addWidget(operations, 1, 1);
}

int PalEditor::selectedIndex() const
{
    return m_grid->selected();
}

void PalEditor::selectIndex(int index)
{
    m_grid->select(index);
}

void PalEditor::setPixelsFollow(bool on)
{
    m_follow->setChecked(on && m_sprites);
}

void PalEditor::changed()
{
    m_grid->setColors(m_colors);
    const int index = selectedIndex();
    const QRGBA& colour = m_colors[index];
    QString text = tr("Entry %1: %2, %3, %4").arg(index).arg(colour.r).arg(colour.g).arg(colour.b);
    if (m_sprites && m_order.at(index) != index)
        text += tr(" (was %1)").arg(m_order.at(index));
    m_entry->setText(text);

    if (m_spriteImage.isNull()) {
        m_preview = QImage();
        m_view->setText(m_sprites ? tr("The sprite has no picture.") : tr("No sprite: open a palette file, or make one here and save it."));
        return;
    }
    m_preview = QPaletteEntries::reorderPixels(m_spriteImage, m_order);
    if (m_preview.format() == QImage::Format_Indexed8) {
        QVector<QRgb> table = paletteToColorTable(m_colors);
        table[0] = 0; // the transparent colour
        m_preview.setColorTable(table);
    }
    const QSize room = m_view->size().expandedTo(QSize(260, 220)) - QSize(8, 8);
    const int zoom = qMax(1, qMin(room.width() / qMax(1, m_preview.width()), room.height() / qMax(1, m_preview.height())));
    QPixmap shown(m_preview.size() * zoom);
    shown.fill(palette().color(QPalette::Base));
    QPainter painter(&shown);
    painter.drawImage(QRect(QPoint(0, 0), shown.size()), m_preview);
    painter.end();
    m_view->setPixmap(shown.width() > room.width() || shown.height() > room.height()
                          ? shown.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                          : shown);
}

void PalEditor::setColor(int index, const QRGBA& color)
{
    if (index < 0 || index > 255)
        return;
    m_colors[index] = color;
    changed();
}

void PalEditor::reorder(const QVector<int>& step)
{
    QRGBA colours[256];
    QPaletteEntries::reorderColors(m_colors, step, colours);
    std::memcpy(static_cast<void*>(m_colors), colours, sizeof m_colors);
    // Without the pixels following, the colours move under pixels that stay.
    if (m_follow->isChecked())
        m_order = QPaletteEntries::combined(m_order, step);
}

void PalEditor::swapEntries(int a, int b)
{
    if (a < 0 || a > 255 || b < 0 || b > 255 || a == b)
        return;
    reorder(QPaletteEntries::swapped(a, b));
    m_grid->select(b);
    changed();
}

void PalEditor::moveEntry(int from, int to)
{
    if (from < 0 || from > 255 || to < 0 || to > 255 || from == to)
        return;
    reorder(QPaletteEntries::moved(from, to));
    m_grid->select(to);
    changed();
}

void PalEditor::greyScale()
{
    for (QRGBA& each : m_colors) {
        const uchar grey = uchar(qGray(each.r, each.g, each.b));
        each = QRGBA(grey, grey, grey, each.a);
    }
    changed();
}

void PalEditor::optimise()
{
    if (!m_sprites)
        return;
    const QVector<bool> usedAtOpen = QPaletteEntries::usedEntries(m_sprites, m_palette);
    QVector<bool> used(256);
    int count = 1;
    for (int i = 0; i < 256; ++i) {
        used[i] = usedAtOpen.at(m_order.at(i));
        count += i > 0 && used[i] ? 1 : 0;
    }
    const bool follow = m_follow->isChecked();
    m_follow->setChecked(true); // dropping entries only makes sense with the pixels following
    reorder(QPaletteEntries::compacted(used));
    m_follow->setChecked(follow);
    for (int i = count; i < 256; ++i)
        m_colors[i] = QRGBA(0, 0, 0);
    changed();
}

void PalEditor::forceEightBits()
{
    m_eightBits = true;
    m_entry->setText(tr("The palette will keep all 256 colours in the file."));
}

bool PalEditor::generateFrom(const QString& imagePath)
{
    const QImage image = loadImage(imagePath);
    if (image.isNull()) {
        warn(tr("%1: the picture can't be read.").arg(QDir::toNativeSeparators(imagePath)));
        return false;
    }
    if (image.format() == QImage::Format_Indexed8) {
        QRGBA colours[256] = {};
        colorTableToPalette(image.colorTable(), colours);
        colours[0].a = 0;
        std::memcpy(static_cast<void*>(m_colors), colours, sizeof m_colors);
    } else {
        // Entry 0 stays the transparent colour; the picture's colours take the other 255.
        QColorQuantizer quantizer(255, 8);
        quantizer.processImage(image);
        QVector<QRgb> table;
        quantizer.getColorTable(table);
        for (int i = 1; i < 256; ++i)
            m_colors[i] = QRGBA(uchar(qRed(table.at(i - 1))), uchar(qGreen(table.at(i - 1))),
                                uchar(qBlue(table.at(i - 1))));
    }
    changed();
    return true;
}

bool PalEditor::loadFile(const QString& path)
{
    QString fault;
    if (!readPaletteFile(path, m_colors, fault)) {
        warn(fault);
        return false;
    }
    m_fileName = path;
    changed();
    return true;
}

bool PalEditor::saveFile(const QString& path, QPaletteFileFormat format)
{
    if (QPaletteWriter::save(path, format, m_colors)) {
        m_fileName = path;
        return true;
    }
    warn(tr("%1: the palette could not be written.").arg(QDir::toNativeSeparators(path)));
    return false;
}

bool PalEditor::apply()
{
    QSpritePalette* palette = m_sprites ? m_sprites->paletteAt(m_palette) : nullptr;
    if (!palette)
        return false;
    m_sprites->beginMacro(tr("Palette editor"));
    QPaletteEntries::reorder(m_sprites, m_palette, m_order);
    palette->setColors(m_colors, ssmShared);
    if (m_eightBits && palette->colorCount() < 256)
        palette->setColorCount(256);
    m_sprites->endMacro();
    m_order = QPaletteEntries::identity();
    m_eightBits = false;
    if (m_sprites->at(m_sprite))
        m_spriteImage = m_sprites->at(m_sprite)->image();
    changed();
    emit applied();
    return true;
}

void PalEditor::askColor(int index)
{
    const QColor chosen = QColorDialog::getColor(m_colors[index].toQColor(), this, tr("Colour %1").arg(index));
    if (chosen.isValid())
        setColor(index, QRGBA(uchar(chosen.red()), uchar(chosen.green()), uchar(chosen.blue()), m_colors[index].a));
}

QString PalEditor::askOpenName(QWidget* parent, const QString& start)
{
    return QFileDialog::getOpenFileName(parent, tr("Open a palette"), start,
        tr("Palettes (*.act *.pal *.aco *.ase *.txt *.pcx *.png);;All files (*)"));
}

QString PalEditor::askSaveName(QWidget* parent, const QString& start, QPaletteFileFormat& format)
{
    QString filter;
    QString path = QFileDialog::getSaveFileName(parent, tr("Save the palette"), start,
                                                QPaletteWriter::filters().join(QStringLiteral(";;")), &filter);
    format = QPaletteWriter::formatOfFilter(filter);
    if (!path.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += QLatin1Char('.') + QPaletteWriter::suffix(format);
    return path;
}

void PalEditor::askOpen()
{
    const QString path = askOpenName(this, QFileInfo(m_fileName).path());
    if (!path.isEmpty())
        loadFile(path);
}

void PalEditor::askSave()
{
    QPaletteFileFormat format = pffACT;
    const QString path = askSaveName(this, m_fileName, format);
    if (!path.isEmpty())
        saveFile(path, format);
}

void PalEditor::askGenerate()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Make the palette from a picture"), QString(),
        tr("Pictures (*.png *.pcx *.bmp *.gif *.jpg);;All files (*)"));
    if (!path.isEmpty())
        generateFrom(path);
}

void PalEditor::warn(const QString& text)
{
    prompt().warning(tr("Palette editor"), text);
}
