// Ranges: AbstractSlider with Slider and ScrollBar, ProgressBar, and the
// ProgressDialog a script shows during long work.
#include "qluarange.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QProgressBar>
#include <QProgressDialog>
#include <QScrollBar>
#include <QSlider>

namespace {

template<class H>
void initOriented(const luabind::argument& self, int orientation)
{
    lq::make<H>(self, Qt::Orientation(orientation));
}

constexpr char valueChanged[] = "valueChanged(int)";
constexpr char sliderMoved[] = "sliderMoved(int)";
constexpr char sliderPressed[] = "sliderPressed()";
constexpr char sliderReleased[] = "sliderReleased()";
constexpr char rangeChanged[] = "rangeChanged(int,int)";
constexpr char canceled[] = "canceled()";

luabind::scope lqabstractslider()
{
    using namespace luabind;
    return class_<LAbstractSlider, LWidget>("AbstractSlider")
        LQ_RANGE(QAbstractSlider)
        LQ_PROPERTY("singleStep", QAbstractSlider, singleStep, setSingleStep)
        LQ_PROPERTY("pageStep", QAbstractSlider, pageStep, setPageStep)
        LQ_PROPERTY("orientation", QAbstractSlider, orientation, setOrientation)
        LQ_PROPERTY("tracking", QAbstractSlider, hasTracking, setTracking)
        LQ_PROPERTY("invertedAppearance", QAbstractSlider, invertedAppearance, setInvertedAppearance)
        LQ_PROPERTY("sliderPosition", QAbstractSlider, sliderPosition, setSliderPosition)
        LQ_READ("sliderDown", QAbstractSlider, isSliderDown)
        LQ_SIGNAL("valueChanged", valueChanged)
        LQ_SIGNAL("sliderMoved", sliderMoved)
        LQ_SIGNAL("sliderPressed", sliderPressed)
        LQ_SIGNAL("sliderReleased", sliderReleased)
        LQ_SIGNAL("rangeChanged", rangeChanged)
        .enum_("Orientation")[value("Horizontal", Qt::Horizontal), value("Vertical", Qt::Vertical)];
}

luabind::scope lqslider()
{
    using namespace luabind;
    return class_<LSlider, LAbstractSlider>("Slider")
        LQ_CONSTRUCTORS(LSlider)
        .def("__init", &initOriented<LSlider>)
        LQ_PARENT_CONSTRUCTOR(LSlider)
        LQ_PROPERTY("tickInterval", QSlider, tickInterval, setTickInterval)
        LQ_PROPERTY("tickPosition", QSlider, tickPosition, setTickPosition)
        .enum_("TickPosition")[
            value("NoTicks", QSlider::NoTicks), value("TicksAbove", QSlider::TicksAbove),
            value("TicksLeft", QSlider::TicksLeft), value("TicksBelow", QSlider::TicksBelow),
            value("TicksRight", QSlider::TicksRight), value("TicksBothSides", QSlider::TicksBothSides)
        ];
}

luabind::scope lqscrollbar()
{
    using namespace luabind;
    return class_<LScrollBar, LAbstractSlider>("ScrollBar")
        LQ_CONSTRUCTORS(LScrollBar)
        .def("__init", &initOriented<LScrollBar>)
        LQ_PARENT_CONSTRUCTOR(LScrollBar);
}

luabind::scope lqprogressbar()
{
    using namespace luabind;
    return class_<LProgressBar, LWidget>("ProgressBar")
        LQ_CONSTRUCTORS(LProgressBar)
        LQ_PARENT_CONSTRUCTOR(LProgressBar)
        LQ_RANGE(QProgressBar)
        LQ_PROPERTY("format", QProgressBar, format, setFormat)
        LQ_PROPERTY("textVisible", QProgressBar, isTextVisible, setTextVisible)
        LQ_PROPERTY("orientation", QProgressBar, orientation, setOrientation)
        LQ_PROPERTY("invertedAppearance", QProgressBar, invertedAppearance, setInvertedAppearance)
        LQ_PROPERTY("alignment", QProgressBar, alignment, setAlignment)
        LQ_READ("text", QProgressBar, text)
        LQ_SIGNAL("valueChanged", valueChanged)
        LQ_METHOD("reset", QProgressBar, reset);
}

luabind::scope lqprogressdialog()
{
    using namespace luabind;
    return class_<LProgressDialog, LDialog>("ProgressDialog")
        LQ_WINDOW_CONSTRUCTORS(LProgressDialog)
        LQ_PARENT_CONSTRUCTOR(LProgressDialog)
        // Setting the value lets the window repaint and Cancel be pressed during a script's long loop.
        LQ_RANGE(QProgressDialog)
        LQ_PROPERTY("labelText", QProgressDialog, labelText, setLabelText)
        LQ_PROPERTY("minDuration", QProgressDialog, minimumDuration, setMinimumDuration)
        LQ_PROPERTY("minimumDuration", QProgressDialog, minimumDuration, setMinimumDuration)
        LQ_PROPERTY("autoClose", QProgressDialog, autoClose, setAutoClose)
        LQ_PROPERTY("autoReset", QProgressDialog, autoReset, setAutoReset)
        LQ_READ("wasCanceled", QProgressDialog, wasCanceled)
        LQ_SIGNAL("canceled", canceled)
        LQ_METHOD("setLabelText", QProgressDialog, setLabelText)
        LQ_METHOD("setCancelButtonText", QProgressDialog, setCancelButtonText)
        LQ_METHOD("cancel", QProgressDialog, cancel)
        LQ_METHOD("reset", QProgressDialog, reset);
}

} // namespace

void registerLuaQSlider(lua_State* state)
{
    lq::wraps<LAbstractSlider>();
    lq::wraps<LSlider>();
    lq::wraps<LScrollBar>();
    lq::wraps<LProgressBar>();
    lq::wraps<LProgressDialog>();
    luabind::module(state)[lqabstractslider(), lqslider(), lqscrollbar(), lqprogressbar(), lqprogressdialog()];
}
