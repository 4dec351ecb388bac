#include "qparamgroup.h"

#include "qelementtexteditor.h"
#include "qfloatnparam.h"
#include "qfloatparam.h"
#include "qgroupparam.h"
#include "qintnparam.h"
#include "qintparam.h"

#include <QSet>

#include <algorithm>

namespace {

enum ParamSubType : QTextElementSubType {
    stString = 1,
    stValue = 2,
    stInt = 3,
    stIntN = 4,
    stFloat = 5,
    stFloatN = 6,
    stFile = 9
};

/// Sets x, then y, of `point` from the first values of a list parameter;
/// the coordinates it does not have keep their value.
template <class Param, class Point>
Point pointFrom(const Param* param, Point point)
{
    if (!param || param->count() < 1)
        return point;
    point.setX(param->value(0));
    if (param->count() > 1)
        point.setY(param->value(1));
    return point;
}

} // namespace

void QParamGroup::clean()
{
    for (QGroupParam* param : std::as_const(m_params))
        param->m_group = nullptr;
    m_params.clear();
    m_reportUpdates = true;
    QGroupHeader::clean();
}

QGroupParam* QParamGroup::parameter(const QString& key) const
{
    for (QGroupParam* param : m_params)
        if (param->key() == key)
            return param;
    return nullptr;
}

QGroupParam* QParamGroup::parameter(QGroupParamID id) const
{
    for (QGroupParam* param : m_params)
        if (param->id() == id)
            return param;
    return nullptr;
}

QGroupParam* QParamGroup::parameter(QGroupParamID id, QTextElementSubType subType) const
{
    QGroupParam* param = parameter(id);
    return param && param->subType() == subType ? param : nullptr;
}

int QParamGroup::paramAsInt(QGroupParamID id, int defaultValue) const
{
    auto* param = static_cast<QIntParam*>(parameter(id, stInt));
    return param ? param->value() : defaultValue;
}

double QParamGroup::paramAsFloat(QGroupParamID id, double defaultValue) const
{
    auto* param = static_cast<QFloatParam*>(parameter(id, stFloat));
    return param ? param->value() : defaultValue;
}

QString QParamGroup::paramAsString(QGroupParamID id, const QString& defaultValue) const
{
    QGroupParam* param = parameter(id);
    if (!param)
        return defaultValue;
    const QTextElementSubType subType = param->subType();
    return subType == stString || subType == stValue || subType == stFile ? param->getValue().toString()
                                                                          : defaultValue;
}

QPoint QParamGroup::paramAsPoint(QGroupParamID id, QPoint defaultValue) const
{
    return pointFrom(static_cast<QIntNParam*>(parameter(id, stIntN)), defaultValue);
}

QPointF QParamGroup::paramAsPointF(QGroupParamID id, QPointF defaultValue) const
{
    return pointFrom(static_cast<QFloatNParam*>(parameter(id, stFloatN)), defaultValue);
}

QVector3D QParamGroup::paramAsVector3(QGroupParamID id, QVector3D defaultValue) const
{
    auto* param = static_cast<QFloatNParam*>(parameter(id, stFloatN));
    if (!param)
        return defaultValue;
    for (int i = 0; i < std::min(param->count(), 3); ++i)
        defaultValue[i] = float(param->value(i));
    return defaultValue;
}

QVector<int> QParamGroup::paramAsIntVector(QGroupParamID id, const QVector<int>& defaultValue) const
{
    auto* param = static_cast<QIntNParam*>(parameter(id, stIntN));
    if (!param)
        return defaultValue;
    QVector<int> values = defaultValue;
    if (values.size() < param->count())
        values.resize(param->count());
    for (int i = 0; i < param->count(); ++i)
        values[i] = param->value(i);
    return values;
}

QVector<double> QParamGroup::paramAsFloatVector(QGroupParamID id, const QVector<double>& defaultValue) const
{
    auto* param = static_cast<QFloatNParam*>(parameter(id, stFloatN));
    if (!param)
        return defaultValue;
    QVector<double> values = defaultValue;
    if (values.size() < param->count())
        values.resize(param->count());
    for (int i = 0; i < param->count(); ++i)
        values[i] = param->value(i);
    return values;
}

QVariant QParamGroup::paramAsVariant(QGroupParamID id, const QVariant& defaultValue) const
{
    QGroupParam* param = parameter(id);
    return param ? param->getValue() : defaultValue;
}

QGroupParam* QParamGroup::removeParam(QGroupParam* param)
{
    if (!m_params.removeOne(param))
        return nullptr;
    param->m_group = nullptr;
    int lastFound = -1;
    for (QTextElement* element = nextValid(); element && !(element->type() & headerBit);
         element = element->nextValid()) {
        if (element->groupType() != QGroupParam::paramGroupType || element == param)
            continue;
        auto* candidate = static_cast<QGroupParam*>(element);
        if (candidate->m_group == this) {
            lastFound = int(m_params.indexOf(candidate));
            continue;
        }
        if (candidate->id() != param->id() || candidate->m_group)
            continue;
        const bool atEnd = lastFound == -1 || lastFound == m_params.size() - 1;
        m_params.insert(atEnd ? m_params.size() : lastFound + 1, candidate);
        candidate->m_group = this;
        return candidate;
    }
    return nullptr;
}

void QParamGroup::setParamValue(QGroupParamID id, const QString& key, const QString& value)
{
    QElementTextEditor* owner = editor();
    if (!owner)
        return;
    m_reportUpdates = false;
    QGroupParam* param = parameter(id);
    const QString line = key + QLatin1String(" = ") + value;
    if (value.isEmpty()) {
        if (param)
            param->remove(true);
    } else if (param) {
        param->changeText(line, true);
    } else {
        QTextElement* last = m_params.isEmpty() ? static_cast<QTextElement*>(this) : m_params.last();
        owner->insertAfter(last, line, true);
    }
    m_reportUpdates = true;
}

QList<QGroupParam*> QParamGroup::collectParams() const
{
    QList<QGroupParam*> params;
    QSet<QGroupParamID> seen;
    for (QTextElement* element = nextValid(); element && !(element->type() & headerBit);
         element = element->nextValid()) {
        if (element->groupType() != QGroupParam::paramGroupType)
            continue;
        auto* param = static_cast<QGroupParam*>(element);
        if (!seen.contains(param->id())) {
            seen.insert(param->id());
            params.append(param);
        }
    }
    return params;
}

void QParamGroup::setParams(const QList<QGroupParam*>& params)
{
    for (QGroupParam* param : std::as_const(m_params))
        if (param->m_group == this)
            param->m_group = nullptr;
    m_params = params;
    for (QGroupParam* param : std::as_const(m_params)) {
        if (param->m_group && param->m_group != this)
            param->m_group->m_params.removeOne(param);
        param->m_group = this;
    }
}

void QParamGroup::forget(QGroupParam* param)
{
    m_params.removeOne(param);
    param->m_group = nullptr;
}
