#pragma once

// The undo commands of palette edits; see qspritecommands.h for the rules
// they share.

#include "formats/qrgba.h"
#include "model/qspriteundokinds.h"

#include <array>

/// 256 colours as an undo command keeps them; empty for a palette without data.
class PaletteUndoColors
{
public:
    void hold(const QRGBA* colors);
    const QRGBA* colors() const { return m_present ? m_colors.data() : nullptr; }

private:
    std::array<QRGBA, 256> m_colors;
    bool m_present = false;
};

/**
 * A whole palette taken out of the list or put back: colours, group,
 * index, count, and the palette it shared its table with. The sprites that
 * used it are restored by their own commands.
 */
class PaletteListCommand : public SpriteUndoCommand
{
public:
    PaletteListCommand(QSprites* sprites, int position);

protected:
    void capture();
    void takeOut();
    void putBack();

private:
    int m_position;
    PaletteUndoColors m_colors;
    qint32 m_group = 0;
    qint32 m_index = 0;
    quint16 m_count = 0;
    int m_sharer = -1;
};

/// A palette inserted at a position; make it after the insertion.
using PaletteInsert = ListInsert<PaletteListCommand>;
/// A palette removed; make it before the removal, which it records.
using PaletteRemove = ListRemove<PaletteListCommand>;

class PaletteMove : public ListMove
{
public:
    PaletteMove(QSprites* sprites, int from, int to);
};

/// Group, index and colour count of one palette, swapped on each replay.
class PaletteChangeInfo : public SwapCommand
{
public:
    PaletteChangeInfo(QSprites* sprites, int position);

protected:
    void swap() override;

private:
    int m_position;
    qint32 m_group;
    qint32 m_index;
    quint16 m_count;
};

/// How SharedDataChange reaches the colours of a palette.
struct PaletteColors
{
    using Held = PaletteUndoColors;
    static PaletteUndoColors value(const Held& held) { return held; }
    static void hold(Held& held, QSprites* sprites, int position);
    static int sharer(QSprites* sprites, int position);
    static void store(QSprites* sprites, int position, const PaletteUndoColors& colors);
    static void restore(QSprites* sprites, int position, const PaletteUndoColors& colors, int sharer);
};

/// The colours of one palette, swapped on each replay (see SharedDataChange).
using PaletteChangeColors = SharedDataChange<PaletteColors>;
