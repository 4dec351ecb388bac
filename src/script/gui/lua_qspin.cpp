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

// IntEdit and FloatEdit: the same members over QSpinBox and QDoubleSpinBox.
template<class H, const char* Changed>
luabind::class_<H, LAbstractSpinBox>& numberEdit(luabind::class_<H, LAbstractSpinBox>& edit)
{
    using Q = typename H::Object;
    return edit
        LQ_CONSTRUCTORS(H)
        LQ_PARENT_CONSTRUCTOR(H)
        LQ_RANGE(Q)
        LQ_PROPERTY("singleStep", Q, singleStep, setSingleStep)
        LQ_PROPERTY("prefix", Q, prefix, setPrefix)
        LQ_PROPERTY("suffix", Q, suffix, setSuffix)
        LQ_READ("cleanText", Q, cleanText)
        LQ_SIGNAL("valueChanged", Changed)
        LQ_SIGNAL("textChanged", textChanged)
        LQ_METHOD("setMinimum", Q, setMinimum)
        LQ_METHOD("setMaximum", Q, setMaximum);
}

luabind::scope lqintedit()
{
    luabind::class_<LIntEdit, LAbstractSpinBox> edit("IntEdit");
    numberEdit<LIntEdit, intChanged>(edit)
        LQ_PROPERTY("displayIntegerBase", QSpinBox, displayIntegerBase, setDisplayIntegerBase);
    return edit;
}

luabind::scope lqfloatedit()
{
    luabind::class_<LFloatEdit, LAbstractSpinBox> edit("FloatEdit");
    numberEdit<LFloatEdit, floatChanged>(edit)
        LQ_PROPERTY("decimals", QDoubleSpinBox, decimals, setDecimals);
    return edit;
}

} // namespace

void registerLuaQSpin(lua_State* state)
{
    lq::wraps<LAbstractSpinBox>();
    lq::wraps<LIntEdit>();
    lq::wraps<LFloatEdit>();
    luabind::module(state)[lqabstractspinbox(), lqintedit(), lqfloatedit()];
}
