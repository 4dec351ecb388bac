// Number fields: AbstractSpinBox, IntEdit (QSpinBox) and FloatEdit (QDoubleSpinBox).
#include "qluarange.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QDoubleSpinBox>
#include <QSpinBox>

namespace {

constexpr char editingFinished[] = "editingFinished()";
constexpr char intChanged[] = "valueChanged(int)";
constexpr char floatChanged[] = "valueChanged(double)";
constexpr char textChanged[] = "textChanged(QString)";

luabind::scope lqabstractspinbox()
{
    using namespace luabind;
    return class_<LAbstractSpinBox, LWidget>("AbstractSpinBox")
        LQ_PROPERTY("readOnly", QAbstractSpinBox, isReadOnly, setReadOnly)
        LQ_PROPERTY("wrapping", QAbstractSpinBox, wrapping, setWrapping)
        LQ_PROPERTY("alignment", QAbstractSpinBox, alignment, setAlignment)
        LQ_PROPERTY("specialValueText", QAbstractSpinBox, specialValueText, setSpecialValueText)
        LQ_PROPERTY("accelerated", QAbstractSpinBox, isAccelerated, setAccelerated)
        LQ_PROPERTY("keyboardTracking", QAbstractSpinBox, keyboardTracking, setKeyboardTracking)
        LQ_PROPERTY("buttonSymbols", QAbstractSpinBox, buttonSymbols, setButtonSymbols)
        LQ_READ("text", QAbstractSpinBox, text)
        LQ_SIGNAL("editingFinished", editingFinished)
        LQ_METHOD("selectAll", QAbstractSpinBox, selectAll)
        LQ_METHOD("stepUp", QAbstractSpinBox, stepUp)
        LQ_METHOD("stepDown", QAbstractSpinBox, stepDown)
        LQ_METHOD("clear", QAbstractSpinBox, clear)
        .enum_("ButtonSymbols")[
            value("UpDownArrows", QAbstractSpinBox::UpDownArrows), value("PlusMinus", QAbstractSpinBox::PlusMinus),
            value("NoButtons", QAbstractSpinBox::NoButtons)
        ];
}

luabind::scope lqintedit()
{
    using namespace luabind;
    return class_<LIntEdit, LAbstractSpinBox>("IntEdit")
        LQ_CONSTRUCTORS(LIntEdit)
        LQ_PARENT_CONSTRUCTOR(LIntEdit)
        LQ_RANGE(QSpinBox)
        LQ_PROPERTY("singleStep", QSpinBox, singleStep, setSingleStep)
        LQ_PROPERTY("prefix", QSpinBox, prefix, setPrefix)
        LQ_PROPERTY("suffix", QSpinBox, suffix, setSuffix)
        LQ_PROPERTY("displayIntegerBase", QSpinBox, displayIntegerBase, setDisplayIntegerBase)
        LQ_READ("cleanText", QSpinBox, cleanText)
        LQ_SIGNAL("valueChanged", intChanged)
        LQ_SIGNAL("textChanged", textChanged)
        LQ_METHOD("setMinimum", QSpinBox, setMinimum)
        LQ_METHOD("setMaximum", QSpinBox, setMaximum);
}

luabind::scope lqfloatedit()
{
    using namespace luabind;
    return class_<LFloatEdit, LAbstractSpinBox>("FloatEdit")
        LQ_CONSTRUCTORS(LFloatEdit)
        LQ_PARENT_CONSTRUCTOR(LFloatEdit)
        LQ_RANGE(QDoubleSpinBox)
        LQ_PROPERTY("singleStep", QDoubleSpinBox, singleStep, setSingleStep)
        LQ_PROPERTY("decimals", QDoubleSpinBox, decimals, setDecimals)
        LQ_PROPERTY("prefix", QDoubleSpinBox, prefix, setPrefix)
        LQ_PROPERTY("suffix", QDoubleSpinBox, suffix, setSuffix)
        LQ_READ("cleanText", QDoubleSpinBox, cleanText)
        LQ_SIGNAL("valueChanged", floatChanged)
        LQ_SIGNAL("textChanged", textChanged)
        LQ_METHOD("setMinimum", QDoubleSpinBox, setMinimum)
        LQ_METHOD("setMaximum", QDoubleSpinBox, setMaximum);
}

} // namespace

void registerLuaQSpin(lua_State* state)
{
    lq::wraps<LAbstractSpinBox>();
    lq::wraps<LIntEdit>();
    lq::wraps<LFloatEdit>();
    luabind::module(state)[lqabstractspinbox(), lqintedit(), lqfloatedit()];
}
