#pragma once

#include "qluaheaders.h"

#include <QImage>
#include <QPainter>

#include <memory>

struct LImage;

/**
 * A painter as scripts hold it, from `begin` to `done`. Copies share one
 * painter. While it paints an Image it holds the image's Lua value, so the
 * image outlives the painter whatever the script drops.
 *
 * Qt cannot paint on an 8-bit indexed image, the form sprites take: such an
 * image is painted as a true-colour copy, and `done` gives each pixel the
 * painting changed the nearest colour of the image's own table, so the
 * pixels it did not touch keep their indices.
 */
class LPainter
{
public:
    LPainter() = default;
    /// Paints on a device of the program's (a widget in its paint event); `keep` is held until done().
    LPainter(QPaintDevice* device, const luabind::object& keep);
    /// Paints on the Image `image` (a Lua value holding an LImage).
    static LPainter onImage(const luabind::object& image);

    /// The active painter, or a Lua fault after done().
    QPainter& painter() const;
    bool isActive() const;
    /// Ends the painting; an indexed image receives its pixels now.
    void done();

private:
    struct State;
    std::shared_ptr<State> m_state;
};
