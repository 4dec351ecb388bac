// Painter: Qt's painter over an Image (and a widget's paint event), from
// Painter.begin(image) to painter:done().
#include "qluabindings.h"
#include "qluaimage.h"
#include "qluapainter.h"
#include "qluaqt.h"

#include <QHash>

struct LPainter::State
{
    luabind::object keep;
    // For an indexed image: the image, the true-colour canvas painted, and the canvas as it began.
    LImage* indexed = nullptr;
    QImage canvas;
    QImage before;
    // Last, so that it ends before the canvas goes when a script never calls done().
    std::unique_ptr<QPainter> painter;
};

LPainter::LPainter(QPaintDevice* device, const luabind::object& keep)
    : m_state(std::make_shared<State>())
{
    m_state->keep = keep;
    m_state->painter = std::make_unique<QPainter>();
    if (!m_state->painter->begin(device))
        throw lua::fault(QStringLiteral("Painter: this device cannot be painted"));
}

LPainter LPainter::onImage(const luabind::object& image)
{
    const auto target = luabind::object_cast_nothrow<LImage*>(image);
    if (!target)
        throw lua::fault(QStringLiteral("Painter.begin: an Image is needed"));
    LImage* lImage = *target;
    if (lImage->image.isNull())
        throw lua::fault(QStringLiteral("Painter.begin: the image is empty"));
    if (lImage->image.format() != QImage::Format_Indexed8)
        return LPainter(&lImage->image, image);
    QImage canvas = lImage->image.convertToFormat(QImage::Format_ARGB32);
    LPainter painter;
    painter.m_state = std::make_shared<State>();
    painter.m_state->keep = image;
    painter.m_state->indexed = lImage;
    painter.m_state->before = canvas;
    painter.m_state->canvas = canvas;
    painter.m_state->painter = std::make_unique<QPainter>(&painter.m_state->canvas);
    return painter;
}

QPainter& LPainter::painter() const
{
    if (!isActive())
        throw lua::fault(QStringLiteral("Painter: painting is done"));
    return *m_state->painter;
}

bool LPainter::isActive() const
{
    return m_state && m_state->painter && m_state->painter->isActive();
}

namespace {

// The entry of `table` nearest to `colour`, alpha counted like a channel.
int nearestIndex(const QVector<QRgb>& table, QRgb colour)
{
    int best = 0;
    int bestDistance = INT_MAX;
    for (int i = 0; i < table.size(); ++i) {
        const int dr = qRed(table[i]) - qRed(colour), dg = qGreen(table[i]) - qGreen(colour);
        const int db = qBlue(table[i]) - qBlue(colour), da = qAlpha(table[i]) - qAlpha(colour);
        const int distance = dr * dr + dg * dg + db * db + da * da;
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace

void LPainter::done()
{
    if (!isActive())
        return;
    m_state->painter->end();
    if (LImage* target = m_state->indexed) {
        const QVector<QRgb> table = target->image.colorTable();
        QHash<QRgb, int> found;
        for (int y = 0; y < m_state->canvas.height(); ++y) {
            const auto* now = reinterpret_cast<const QRgb*>(m_state->canvas.constScanLine(y));
            const auto* was = reinterpret_cast<const QRgb*>(m_state->before.constScanLine(y));
            for (int x = 0; x < m_state->canvas.width(); ++x) {
                if (now[x] == was[x])
                    continue;
                auto index = found.find(now[x]);
                if (index == found.end())
                    index = found.insert(now[x], nearestIndex(table, now[x]));
                target->image.setPixel(x, y, uint(*index));
            }
        }
        m_state->canvas = QImage();
        m_state->before = QImage();
        m_state->indexed = nullptr;
    }
    m_state->keep = luabind::object();
}

namespace {

QPainter& p(const LPainter& painter) { return painter.painter(); }

LPainter begin(const luabind::object& image) { return LPainter::onImage(image); }
void done(LPainter& painter) { painter.done(); }
bool isActive(const LPainter& painter) { return painter.isActive(); }
void save(LPainter& painter) { p(painter).save(); }
void restore(LPainter& painter) { p(painter).restore(); }

QPen pen(const LPainter& painter) { return p(painter).pen(); }
void setPen(LPainter& painter, const QPen& pen) { p(painter).setPen(pen); }
void setPenColor(LPainter& painter, const QColor& colour) { p(painter).setPen(colour); }
QBrush brush(const LPainter& painter) { return p(painter).brush(); }
void setBrush(LPainter& painter, const QBrush& brush) { p(painter).setBrush(brush); }
void setBrushColor(LPainter& painter, const QColor& colour) { p(painter).setBrush(colour); }
QFont font(const LPainter& painter) { return p(painter).font(); }
void setFont(LPainter& painter, const QFont& font) { p(painter).setFont(font); }
double opacity(const LPainter& painter) { return p(painter).opacity(); }
void setOpacity(LPainter& painter, double value) { p(painter).setOpacity(value); }
bool antialiasing(const LPainter& painter) { return p(painter).testRenderHint(QPainter::Antialiasing); }
void setAntialiasing(LPainter& painter, bool on) { p(painter).setRenderHint(QPainter::Antialiasing, on); }
int compositionMode(const LPainter& painter) { return int(p(painter).compositionMode()); }
void setCompositionMode(LPainter& painter, int mode) { p(painter).setCompositionMode(QPainter::CompositionMode(mode)); }

void translate(LPainter& painter, double dx, double dy) { p(painter).translate(dx, dy); }
void scale(LPainter& painter, double sx, double sy) { p(painter).scale(sx, sy); }
void rotate(LPainter& painter, double degrees) { p(painter).rotate(degrees); }
void resetTransform(LPainter& painter) { p(painter).resetTransform(); }
void setClipRect(LPainter& painter, const QRect& rect) { p(painter).setClipRect(rect); }
void setClipping(LPainter& painter, bool on) { p(painter).setClipping(on); }

void drawPoint(LPainter& painter, int x, int y) { p(painter).drawPoint(x, y); }
void drawPointAt(LPainter& painter, const QPoint& point) { p(painter).drawPoint(point); }
void drawLine(LPainter& painter, int x1, int y1, int x2, int y2) { p(painter).drawLine(x1, y1, x2, y2); }
void drawLineOf(LPainter& painter, const QLine& line) { p(painter).drawLine(line); }
void drawLineBetween(LPainter& painter, const QPoint& a, const QPoint& b) { p(painter).drawLine(a, b); }
void drawRect(LPainter& painter, int x, int y, int w, int h) { p(painter).drawRect(x, y, w, h); }
void drawRectOf(LPainter& painter, const QRect& rect) { p(painter).drawRect(rect); }
void drawEllipse(LPainter& painter, int x, int y, int w, int h) { p(painter).drawEllipse(x, y, w, h); }
void drawEllipseIn(LPainter& painter, const QRect& rect) { p(painter).drawEllipse(rect); }
void drawEllipseAround(LPainter& painter, const QPoint& centre, int rx, int ry) { p(painter).drawEllipse(centre, rx, ry); }
void drawRoundedRect(LPainter& painter, const QRect& rect, double rx, double ry) { p(painter).drawRoundedRect(rect, rx, ry); }
// Angles in sixteenths of a degree, as Qt's.
void drawArc(LPainter& painter, const QRect& rect, int start, int span) { p(painter).drawArc(rect, start, span); }
void drawPie(LPainter& painter, const QRect& rect, int start, int span) { p(painter).drawPie(rect, start, span); }
void drawChord(LPainter& painter, const QRect& rect, int start, int span) { p(painter).drawChord(rect, start, span); }
void drawPolygon(LPainter& painter, const QPolygon& polygon) { p(painter).drawPolygon(polygon); }
void drawPolyline(LPainter& painter, const QPolygon& polygon) { p(painter).drawPolyline(polygon); }
void drawConvexPolygon(LPainter& painter, const QPolygon& polygon) { p(painter).drawConvexPolygon(polygon); }
void drawPoints(LPainter& painter, const QPolygon& points) { p(painter).drawPoints(points); }
void drawText(LPainter& painter, int x, int y, const QString& text) { p(painter).drawText(x, y, text); }
void drawTextAt(LPainter& painter, const QPoint& point, const QString& text) { p(painter).drawText(point, text); }
void drawTextIn(LPainter& painter, const QRect& rect, int flags, const QString& text) { p(painter).drawText(rect, flags, text); }
void drawImage(LPainter& painter, int x, int y, const LImage& image) { p(painter).drawImage(x, y, image.image); }
void drawImageAt(LPainter& painter, const QPoint& point, const LImage& image) { p(painter).drawImage(point, image.image); }
void drawImageIn(LPainter& painter, const QRect& rect, const LImage& image) { p(painter).drawImage(rect, image.image); }
void fillRect(LPainter& painter, int x, int y, int w, int h, const QColor& colour) { p(painter).fillRect(x, y, w, h, colour); }
void fillRectOf(LPainter& painter, const QRect& rect, const QColor& colour) { p(painter).fillRect(rect, colour); }
void fillRectBrush(LPainter& painter, const QRect& rect, const QBrush& brush) { p(painter).fillRect(rect, brush); }
void eraseRect(LPainter& painter, int x, int y, int w, int h) { p(painter).eraseRect(x, y, w, h); }
void eraseRectOf(LPainter& painter, const QRect& rect) { p(painter).eraseRect(rect); }

} // namespace

void registerLuaPainter(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LPainter>("Painter")
            .enum_("constants")[
                value("AlignLeft", Qt::AlignLeft), value("AlignRight", Qt::AlignRight),
                value("AlignHCenter", Qt::AlignHCenter), value("AlignTop", Qt::AlignTop),
                value("AlignBottom", Qt::AlignBottom), value("AlignVCenter", Qt::AlignVCenter),
                value("AlignCenter", Qt::AlignCenter), value("TextWordWrap", Qt::TextWordWrap),
                value("CompositionMode_SourceOver", QPainter::CompositionMode_SourceOver),
                value("CompositionMode_Source", QPainter::CompositionMode_Source),
                value("CompositionMode_Clear", QPainter::CompositionMode_Clear),
                value("CompositionMode_Xor", QPainter::CompositionMode_Xor)
            ]
            .property("isActive", &isActive)
            .property("pen", &pen, &setPen)
            .property("brush", &brush, &setBrush)
            .property("font", &font, &setFont)
            .property("opacity", &opacity, &setOpacity)
            .property("antialiasing", &antialiasing, &setAntialiasing)
            .property("compositionMode", &compositionMode, &setCompositionMode)
            .def("setPen", &setPen)
            .def("setPen", &setPenColor)
            .def("setBrush", &setBrush)
            .def("setBrush", &setBrushColor)
            .def("setFont", &setFont)
            .def("done", &done)
            .def("save", &save)
            .def("restore", &restore)
            .def("translate", &translate)
            .def("scale", &scale)
            .def("rotate", &rotate)
            .def("resetTransform", &resetTransform)
            .def("setClipRect", &setClipRect)
            .def("setClipping", &setClipping)
            .def("drawPoint", &drawPoint)
            .def("drawPoint", &drawPointAt)
            .def("drawLine", &drawLine)
            .def("drawLine", &drawLineOf)
            .def("drawLine", &drawLineBetween)
            .def("drawRect", &drawRect)
            .def("drawRect", &drawRectOf)
            .def("drawEllipse", &drawEllipse)
            .def("drawEllipse", &drawEllipseIn)
            .def("drawEllipse", &drawEllipseAround)
            .def("drawRoundedRect", &drawRoundedRect)
            .def("drawArc", &drawArc)
            .def("drawPie", &drawPie)
            .def("drawChord", &drawChord)
            .def("drawPolygon", &drawPolygon)
            .def("drawPolyline", &drawPolyline)
            .def("drawConvexPolygon", &drawConvexPolygon)
            .def("drawPoints", &drawPoints)
            .def("drawText", &drawText)
            .def("drawText", &drawTextAt)
            .def("drawText", &drawTextIn)
            .def("drawImage", &drawImage)
            .def("drawImage", &drawImageAt)
            .def("drawImage", &drawImageIn)
            .def("fillRect", &fillRect)
            .def("fillRect", &fillRectOf)
            .def("fillRect", &fillRectBrush)
            .def("eraseRect", &eraseRect)
            .def("eraseRect", &eraseRectOf)
            .scope[def("begin", &begin)]
    ];
}
