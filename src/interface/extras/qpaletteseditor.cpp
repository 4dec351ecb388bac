// The palettes panel: its widgets, and following the project and the sprite
// the view shows. The edits are in qpaletteseditoredits.cpp.
#include "qpaletteseditor.h"

#include "qcharpalettestrip.h"
#include "qpalettegrid.h"

#include "interface/qinterfaceeditor.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "util/qpathresolver.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

QPalettesEditor::QPalettesEditor(QAnimSpriteWorkspace* view, QSpritesEditor* spritesEditor, QObject* parent)
    : QInterfaceExtraEditor(parent)
    , m_view(view)
    , m_spritesEditor(spritesEditor)
{
    connect(m_view->renderer(), &QSprRender::spriteChanged, this, &QPalettesEditor::followSprite);
    connect(m_view->renderer(), &QSprRender::colorCaptured, this, [this](unsigned char index) { selectIndex(index); });
}

bool QPalettesEditor::serves(int editor) const
{
    return editor == ieSprites || editor == ieAnimations;
}

void QPalettesEditor::initialized(QWidget* rightPage)
{
    auto* layout = new QVBoxLayout(rightPage);
    layout->setContentsMargins(4, 4, 4, 4);
    m_choice = new QComboBox(rightPage);
    m_choice->setObjectName(QStringLiteral("paletteChoice"));
    m_choice->setToolTip(tr("The palette shown: the current sprite's, or any other of the sprite file"));
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
    connect(m_choice, &QComboBox::currentIndexChanged, this, &QPalettesEditor::showPalette);
    connect(m_grid, &QPaletteGrid::picked, this, &QPalettesEditor::showEntry);
    connect(m_grid, &QPaletteGrid::activated, this, &QPalettesEditor::askColor);

    m_strip = new QCharPaletteStrip(rightPage);
    m_strip->setObjectName(QStringLiteral("charPalettes"));
    connect(m_strip, &QCharPaletteStrip::chosenChanged, this, &QPalettesEditor::previewCharPalette);
    m_list = new QListWidget(rightPage);
    m_list->setObjectName(QStringLiteral("paletteFiles"));
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setMaximumHeight(90);
    layout->addWidget(m_choice);
    layout->addWidget(m_grid);
    layout->addWidget(m_entry);
    layout->addLayout(numbers);
    layout->addWidget(buildButtons(rightPage));
    auto* charTitle = new QLabel(tr("Character palettes:"), rightPage);
    charTitle->setToolTip(tr("The palettes 1,1 to 1,12; the view shows the sprites in the one chosen"));
    layout->addWidget(charTitle);
    layout->addWidget(m_strip);
    layout->addWidget(buildRemaps(rightPage));
    layout->addWidget(new QLabel(tr("Palette files of the definitions:"), rightPage));
    layout->addWidget(m_list);
    layout->addStretch(1);
}

QWidget* QPalettesEditor::buildButtons(QWidget* page)
{
    auto* box = new QWidget(page);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(3);
    auto button = [box](const QString& text, const QString& tip, const QString& name) {
        auto* each = new QToolButton(box);
        each->setText(text);
        each->setToolTip(tip);
        each->setObjectName(name);
        each->setToolButtonStyle(Qt::ToolButtonTextOnly);
        each->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        return each;
    };
    QToolButton* colour = button(tr("Colour..."), tr("Change the chosen colour in a colour dialog"),
                                 QStringLiteral("paletteColour"));
    m_capture = button(tr("Capture"), tr("Click the sprite in the view to pick the entry under the mouse"),
                       QStringLiteral("paletteCapture"));
    m_capture->setCheckable(true);
    QToolButton* editor = button(tr("Editor..."), tr("Reorder, optimise and convert the palette in the palette editor"),
                                 QStringLiteral("paletteEditor"));
    QToolButton* load = button(tr("Load..."), tr("Read ACT, RIFF, JASC, Painter, ACO, ASE palettes or the colours of a PCX or PNG"),
                               QStringLiteral("paletteLoad"));
    QToolButton* save = button(tr("Save..."), tr("Write the palette in any of the formats the program reads"),
                               QStringLiteral("paletteSave"));
    QToolButton* apply = button(tr("Apply to"), tr("Give the palette shown to sprites"), QStringLiteral("paletteApply"));
    auto* targets = new QMenu(apply);
    targets->addAction(tr("The current sprite"), this, [this]() { applyTo(CurrentSprite); });
    targets->addAction(tr("The selected sprites"), this, [this]() { applyTo(Selection); });
    targets->addAction(tr("The current sprite's group"), this, [this]() { applyTo(Group); });
    apply->setMenu(targets);
    apply->setPopupMode(QToolButton::InstantPopup);
    connect(colour, &QToolButton::clicked, this, [this]() { askColor(selectedIndex()); });
    connect(m_capture, &QToolButton::toggled, this, &QPalettesEditor::setColorCapture);
    connect(editor, &QToolButton::clicked, this, &QPalettesEditor::openEditor);
    connect(load, &QToolButton::clicked, this, &QPalettesEditor::askLoad);
    connect(save, &QToolButton::clicked, this, &QPalettesEditor::askSave);
    grid->addWidget(colour, 0, 0);
    grid->addWidget(m_capture, 0, 1);
    grid->addWidget(editor, 0, 2);
    grid->addWidget(load, 1, 0);
    grid->addWidget(save, 1, 1);
    grid->addWidget(apply, 1, 2);
    return box;
}

QWidget* QPalettesEditor::buildRemaps(QWidget* page)
{
    auto* box = new QWidget(page);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    m_remaps = new QListView(box);
    m_remaps->setObjectName(QStringLiteral("paletteRemaps"));
    m_remaps->setMaximumHeight(60);
    auto* add = new QPushButton(tr("Remap"), box);
    add->setToolTip(tr("Show the current sprite's palette as the palette shown, as the engine's remaps do"));
    auto* remove = new QPushButton(tr("Remove"), box);
    remove->setToolTip(tr("Remove the chosen remap"));
    connect(add, &QPushButton::clicked, this, &QPalettesEditor::remapToShown);
    connect(remove, &QPushButton::clicked, this, [this]() { removeRemap(m_remaps->currentIndex().row()); });
    layout->addWidget(new QLabel(tr("Remaps of the view:"), box), 0, 0, 1, 2);
    layout->addWidget(m_remaps, 1, 0, 2, 1);
    layout->addWidget(add, 1, 1);
    layout->addWidget(remove, 2, 1);
    return box;
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
            m_strip->setSprites(sprites());
            refreshView();
        });
    }
    m_remaps->setModel(project ? project->sprites()->paletteMap() : nullptr);
    fillPaletteChoice();
    m_strip->setSprites(sprites());
    followSprite();
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
    return m_choice && m_choice->isEnabled() ? m_choice->currentIndex() : -1;
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

void QPalettesEditor::followSprite()
{
    const QSprite* sprite = m_view->renderer()->sprite();
    if (!sprite || sprite->owner() != sprites() || !sprite->palette())
        return;
    setCurrentPalette(sprites()->indexOfPalette(sprite->palette()));
}

void QPalettesEditor::refreshView()
{
    const QSprite* sprite = m_view->renderer()->sprite();
    if (sprite && sprite->owner() == sprites())
        m_view->renderer()->refresh();
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
