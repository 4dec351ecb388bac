#include "qcommandelement.h"

namespace {

struct KeyName
{
    const char16_t* name;
    quint32 mask;
};

constexpr KeyName directions[] = { { u"U", QCommandElement::KeyU }, { u"D", QCommandElement::KeyD },
    { u"B", QCommandElement::KeyB }, { u"F", QCommandElement::KeyF } };
constexpr KeyName buttons[] = { { u"a", QCommandElement::ButtonA }, { u"b", QCommandElement::ButtonB },
    { u"c", QCommandElement::ButtonC }, { u"x", QCommandElement::ButtonX },
    { u"y", QCommandElement::ButtonY }, { u"z", QCommandElement::ButtonZ },
    { u"s", QCommandElement::ButtonS } };
constexpr KeyName diagonals[] = { { u"UB", QCommandElement::KeyU | QCommandElement::KeyB },
    { u"DB", QCommandElement::KeyD | QCommandElement::KeyB },
    { u"UF", QCommandElement::KeyU | QCommandElement::KeyF },
    { u"DF", QCommandElement::KeyD | QCommandElement::KeyF } };

} // namespace

quint32 QCommandElement::keyMask(QStringView name)
{
    for (const auto* table : { directions, diagonals }) {
        for (int i = 0; i < 4; ++i) {
            if (name == QStringView(table[i].name))
                return table[i].mask;
        }
    }
    for (const KeyName& button : buttons) {
        if (name == QStringView(button.name))
            return button.mask;
    }
    return 0;
}

QString QCommandElement::toString() const
{
    QString text;
    if (flags & FlagHold) {
        text += u'/';
        // Only "~" sets the time, yet it is written behind "/": kept as files have it.
        if (time)
            text += QString::number(time);
    }
    if (flags & FlagRelease)
        text += u'~';
    if (flags & FlagDirection)
        text += u'$';
    if (flags & FlagOnly)
        text += u'>';
    for (const KeyName& direction : directions) {
        if (keys & direction.mask)
            text += QStringView(direction.name);
    }
    bool firstButton = true;
    for (const KeyName& button : buttons) {
        if (keys & button.mask) {
            if (!firstButton)
                text += u'+';
            text += QStringView(button.name);
            firstButton = false;
        }
    }
    return text;
}
