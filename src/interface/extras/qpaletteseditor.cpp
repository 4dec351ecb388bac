#include "qpaletteseditor.h"

#include "qpalettegrid.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"
#include "util/qpathresolver.h"
#include "util/qprompt.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

/// An ACT file is the 768 bytes of 256 colours, sometimes followed by a count and a transparent index.
constexpr qint64 actSize = 768;
constexpr qint64 actSizeWithCount = 772;

} // namespace

void QPalettesEditor::initialized(QWidget* rightPage)
{
    auto* layout = new QVBoxLayout(rightPage);
    layout->setContentsMargins(4, 4, 4, 4);
    m_choice = new QComboBox(rightPage);
    m_choice->setObjectName(QStringLiteral("paletteChoice"));
    m_choice->setToolTip(tr("The palette of the sprite file to show, by group and index"));
    m_grid = new QPaletteGrid(rightPage);
    m_grid->setObjectName(QStringLiteral("paletteGrid"));
    m_entry = new QLabel(rightPage);
    auto* numbers = new QHBoxLayout;
    for (QSpinBox** box : { &m_red, &m_green, &m_blue }) {
        *box = new QSpinBox(rightPage);
        (*box)->setRange(0, 255);
        connect(*box, &QSpinBox::editingFinished, this, &QPalettesEditor::applyNumbers);
        numbers->addWidget(*box);
    }
    m_red->setPrefix(tr("R "));
    m_green->setPrefix(tr("G "));
    m_blue->setPrefix(tr("B "));
    auto* buttons = new QHBoxLayout;
    auto* colour = new QPushButton(tr("Colour..."), rightPage);
    auto* load = new QPushButton(tr("Load..."), rightPage);
    auto* save = new QPushButton(tr("Save..."), rightPage);
    load->setToolTip(tr("Read ACT, RIFF, JASC, Painter, ACO, ASE palettes or the colours of a PCX or PNG"));
    save->setToolTip(tr("Write the palette as an ACT file"));
    for (QPushButton* button : { colour, load, save })
        buttons->addWidget(button);
    connect(colour, &QPushButton::clicked, this, [this]() { askColor(selectedIndex()); });
    connect(load, &QPushButton::clicked, this, &QPalettesEditor::askLoad);
    connect(save, &QPushButton::clicked, this, &QPalettesEditor::askSave);
    connect(m_choice, &QComboBox::currentIndexChanged, this, &QPalettesEditor::showPalette);
    connect(m_grid, &QPaletteGrid::picked, this, &QPalettesEditor::showEntry);
    connect(m_grid, &QPaletteGrid::activated, this, &QPalettesEditor::askColor);

    m_list = new QListWidget(rightPage);
    m_list->setObjectName(QStringLiteral("paletteFiles"));
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout->addWidget(m_choice);
    layout->addWidget(m_grid);
    layout->addWidget(m_entry);
    layout->addLayout(numbers);
    layout->addLayout(buttons);
    layout->addWidget(new QLabel(tr("Palette files of the definitions:"), rightPage));
    layout->addWidget(m_list, 1);
}

void QPalettesEditor::setProject(QProject* project)
{
    if (m_project && m_project != project)
        disconnect(m_project->sprites()->undoStack(), nullptr, this, nullptr);
    const bool other = m_project != project;
    m_project = project;
    if (other && project) {
        // Undo, redo and every new edit may change the colours or the list of palettes.
        connect(project->sprites()->undoStack(), &QUndoStack::indexChanged, this, [this]() {
            const int shown = currentPalette();
            fillPaletteChoice();
            setCurrentPalette(shown);
            showPalette();
        });
    }
    fillPaletteChoice();
    showPalette();
    listPaletteFiles();
}

QSprites* QPalettesEditor::sprites() const
{
    return m_project ? m_project->sprites() : nullptr;
}

QSpritePalette* QPalettesEditor::palette() const
{
    const int position = currentPalette();
    return sprites() && position >= 0 ? sprites()->paletteAt(position) : nullptr;
}

int QPalettesEditor::currentPalette() const
{
    return m_choice ? m_choice->currentIndex() : -1;
}

void QPalettesEditor::setCurrentPalette(int position)
{
    if (position >= 0 && position < m_choice->count())
        m_choice->setCurrentIndex(position);
}

int QPalettesEditor::selectedIndex() const
{
    return m_grid->selected();
}

void QPalettesEditor::selectIndex(int index)
{
    m_grid->select(index);
}

void QPalettesEditor::fillPaletteChoice()
{
    const QSignalBlocker blocker(m_choice);
    m_choice->clear();
    const int count = sprites() ? sprites()->paletteCount() : 0;
    for (int i = 0; i < count; ++i) {
        const QSpritePalette* each = sprites()->paletteAt(i);
        m_choice->addItem(tr("Palette %1,%2").arg(each->itemGroup()).arg(each->itemIndex()));
    }
    m_choice->setEnabled(count > 0);
    if (count == 0)
        m_choice->addItem(tr("No palettes in the sprites"));
}

void QPalettesEditor::showPalette()
{
    const QSpritePalette* shown = palette();
    m_grid->setColors(shown ? shown->colors() : nullptr);
    showEntry();
}

void QPalettesEditor::showEntry()
{
    const QSpritePalette* shown = palette();
    const QRGBA* colors = shown ? shown->colors() : nullptr;
    const int index = selectedIndex();
    for (QSpinBox* box : { m_red, m_green, m_blue })
        box->setEnabled(colors != nullptr);
    if (!colors) {
        m_entry->setText(tr("No colours to show."));
        return;
    }
    const QRGBA& colour = colors[index];
    m_entry->setText(tr("Entry %1: #%2%3%4%5")
                         .arg(index)
                         .arg(colour.r, 2, 16, QLatin1Char('0'))
                         .arg(colour.g, 2, 16, QLatin1Char('0'))
                         .arg(colour.b, 2, 16, QLatin1Char('0'))
                         .arg(index == 0 ? tr(" (transparent)") : QString()));
    const QSignalBlocker red(m_red), green(m_green), blue(m_blue);
    m_red->setValue(colour.r);
    m_green->setValue(colour.g);
    m_blue->setValue(colour.b);
}

void QPalettesEditor::applyNumbers()
{
    setColor(selectedIndex(), QColor(m_red->value(), m_green->value(), m_blue->value()));
}

void QPalettesEditor::setColor(int index, const QColor& color)
{
    QSpritePalette* shown = palette();
    if (!shown || !shown->colors() || index < 0 || index > 255 || !color.isValid())
        return;
    QRGBA colors[256];
    std::copy(shown->colors(), shown->colors() + 256, colors);
    const QRGBA wanted(quint8(color.red()), quint8(color.green()), quint8(color.blue()), colors[index].a);
    if (colors[index] == wanted)
        return;
    colors[index] = wanted;
    shown->setColors(colors, ssmShared);
    showPalette();
}

void QPalettesEditor::warn(const QString& text) const
{
    prompt().warning(tr("Palettes"), text);
}

bool QPalettesEditor::loadPalette(const QString& path)
{
    QSpritePalette* shown = palette();
    if (!shown)
        return false;
    const QFileInfo file(path);
    const QString name = QDir::toNativeSeparators(path);
    if (!file.isFile()) {
        warn(tr("%1: the file can't be opened.").arg(name));
        return false;
    }
    if (file.suffix().compare(QLatin1String("act"), Qt::CaseInsensitive) == 0 && file.size() != actSize
        && file.size() != actSizeWithCount) {
        warn(tr("%1: an ACT palette has %2 or %3 bytes, this file has %4.")
                 .arg(name)
                 .arg(actSize)
                 .arg(actSizeWithCount)
                 .arg(file.size()));
        return false;
    }
    if (!shown->fromFile(path, ssmShared)) {
        warn(tr("%1: no palette could be read.").arg(name));
        return false;
    }
    showPalette();
    return true;
}

bool QPalettesEditor::savePalette(const QString& path)
{
    const QSpritePalette* shown = palette();
    if (!shown)
        return false;
    if (shown->toFile(path))
        return true;
    warn(tr("%1: the palette could not be written.").arg(QDir::toNativeSeparators(path)));
    return false;
}

void QPalettesEditor::askColor(int index)
{
    const QSpritePalette* shown = palette();
    if (!shown || !shown->colors())
        return;
    const QRGBA& colour = shown->colors()[index];
    const QColor chosen = QColorDialog::getColor(
        QColor(colour.r, colour.g, colour.b), m_grid, tr("Colour %1 of the palette").arg(index));
    if (chosen.isValid())
        setColor(index, chosen);
}

void QPalettesEditor::askLoad()
{
    const QString path = QFileDialog::getOpenFileName(m_grid, tr("Load a palette"), QString(),
        tr("Palettes (*.act *.pal *.aco *.ase *.pcx *.png);;All files (*)"));
    if (!path.isEmpty())
        loadPalette(path);
}

void QPalettesEditor::askSave()
{
    const QString path = QFileDialog::getSaveFileName(
        m_grid, tr("Save the palette"), QString(), tr("Adobe Color Table (*.act)"));
    if (!path.isEmpty())
        savePalette(path);
}

void QPalettesEditor::listPaletteFiles()
{
    m_list->clear();
    if (!m_project)
        return;
    const QProjectFiles files = m_project->definitions()->files();
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const QString& file = files.palettes.at(i);
        if (file.isEmpty())
            continue;
        const bool found = resolvePath(files.baseDir, file).exists;
        auto* item = new QListWidgetItem(tr("%1: %2").arg(i + 1).arg(file), m_list);
        if (!found) {
            item->setForeground(QColor(198, 40, 40));
            item->setToolTip(tr("The file is missing."));
        }
    }
    if (m_list->count() == 0)
        new QListWidgetItem(m_project->type() == ptCharacter ? tr("The definitions name no palette files.")
                                                             : tr("Only characters have palette files."),
            m_list);
}
