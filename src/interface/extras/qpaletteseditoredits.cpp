// The palettes panel's edits: colours, palette files, giving the palette to
// sprites, the character's palettes in the view, remaps and the advanced editor.
#include "qpaletteseditor.h"

#include "qcharpalettestrip.h"
#include "qpalettegrid.h"

#include "formats/qpalettefile.h"
#include "interface/dialogs/paleditor.h"
#include "interface/editors/qspriteseditor.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "util/qprompt.h"

#include <QColorDialog>
#include <QDir>
#include <QListView>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>

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
    QRGBA colors[256] = {};
    if (shown->colors())
        std::copy(shown->colors(), shown->colors() + 256, colors);
    QString fault;
    if (!readPaletteFile(path, colors, fault)) {
        warn(fault);
        return false;
    }
    shown->setColors(colors, ssmShared);
    showPalette();
    return true;
}

bool QPalettesEditor::savePalette(const QString& path, QPaletteFileFormat format)
{
    const QSpritePalette* shown = palette();
    if (!shown || !shown->colors())
        return false;
    if (QPaletteWriter::save(path, format, shown->colors()))
        return true;
    warn(tr("%1: the palette could not be written.").arg(QDir::toNativeSeparators(path)));
    return false;
}

int QPalettesEditor::applyTo(Target target)
{
    QSpritePalette* shown = palette();
    const QSprite* current = m_view->renderer()->sprite();
    if (!shown || (current && current->owner() != sprites()))
        return 0;
    QList<int> positions;
    if (target == Selection) {
        positions = m_spritesEditor->selectedRows();
    } else if (current) {
        for (int i = 0; i < sprites()->count(); ++i)
            if (i == current->index() || (target == Group && sprites()->at(i)->itemGroup() == current->itemGroup()))
                positions.append(i);
    }
    sprites()->beginMacro(tr("Apply a palette"));
    int count = 0;
    for (int position : std::as_const(positions)) {
        if (QSprite* sprite = sprites()->at(position)) {
            sprite->setPalette(shown);
            ++count;
        }
    }
    sprites()->endMacro();
    refreshView();
    return count;
}

void QPalettesEditor::previewCharPalette(int number)
{
    if (!sprites() || number < 1)
        return;
    // The engine shows a character in its chosen palette by putting 1,n where 1,1 stood.
    if (number == 1)
        sprites()->paletteMap()->removeRemap(QSubItem(1, 1));
    else
        sprites()->paletteMap()->setRemap(QSubItem(1, 1), QSubItem(1, number));
    if (m_strip->chosen() != number)
        m_strip->choose(number);
    refreshView();
}

bool QPalettesEditor::remapToShown()
{
    const QSprite* current = m_view->renderer()->sprite();
    const QSpritePalette* shown = palette();
    if (!current || current->owner() != sprites() || !current->palette() || !shown)
        return false;
    if (current->palette() == shown)
        sprites()->paletteMap()->removeRemap(shown->subItem());
    else
        sprites()->paletteMap()->setRemap(current->palette()->subItem(), shown->subItem());
    refreshView();
    return true;
}

void QPalettesEditor::removeRemap(int row)
{
    if (!sprites())
        return;
    const QSubItem from = sprites()->paletteMap()->fromAt(row);
    if (!sprites()->paletteMap()->removeRemap(from))
        return;
    if (from == QSubItem(1, 1))
        m_strip->choose(1);
    refreshView();
}

void QPalettesEditor::setColorCapture(bool on)
{
    m_view->renderer()->setColorCapture(on);
    if (m_capture->isChecked() != on)
        m_capture->setChecked(on);
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
    const QString path = PalEditor::askOpenName(m_grid, QString());
    if (!path.isEmpty())
        loadPalette(path);
}

void QPalettesEditor::askSave()
{
    QPaletteFileFormat format = pffACT;
    const QString path = PalEditor::askSaveName(m_grid, QString(), format);
    if (!path.isEmpty())
        savePalette(path, format);
}

void QPalettesEditor::openEditor()
{
    const QSprite* current = m_view->renderer()->sprite();
    PalEditor editor(sprites(), currentPalette(), current && current->owner() == sprites() ? current->index() : -1,
                     m_grid->window());
    editor.exec();
}
