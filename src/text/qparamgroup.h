#pragma once

#include "qgroupheader.h"

#include <QList>
#include <QPoint>
#include <QPointF>
#include <QVariant>
#include <QVector3D>
#include <QVector>

class QGroupParam;

/**
 * A group header whose group holds parameters: the `key = value` lines up to
 * the next header. The first line of a key counts; later duplicates stay in
 * the chain but not in the group, and take over when the first goes.
 *
 * The lookups give the default when the parameter is absent or of another
 * sub-type. The membership is kept by updateCommonElements(), which also
 * tells the group of removed and updated members through paramsRemoved()
 * and paramsUpdated(): a model overrides them. setParamValue() writes a
 * value without that report, since the caller already knows it.
 */
class QParamGroup : public QGroupHeader
{
public:
    QTextElementType type() const override { return groupType() | headerBit | paramGroupBit; }
    void clean() override;

    virtual void paramsRemoved(const QList<QGroupParam*>& params) { }
    virtual void paramsUpdated(const QList<QGroupParam*>& params) { }

    int parameterCount() const { return int(m_params.size()); }
    QGroupParam* parameter(int index) const { return m_params.value(index); }
    /// By registered key, compared exactly.
    QGroupParam* parameter(const QString& key) const;
    QGroupParam* parameter(QGroupParamID id) const;
    QGroupParam* parameter(QGroupParamID id, QTextElementSubType subType) const;
    const QList<QGroupParam*>& parameters() const { return m_params; }

    int paramAsInt(QGroupParamID id, int defaultValue) const;
    double paramAsFloat(QGroupParamID id, double defaultValue) const;
    QString paramAsString(QGroupParamID id, const QString& defaultValue) const;
    QPoint paramAsPoint(QGroupParamID id, QPoint defaultValue) const;
    QPointF paramAsPointF(QGroupParamID id, QPointF defaultValue) const;
    QVector3D paramAsVector3(QGroupParamID id, QVector3D defaultValue) const;
    QVector<int> paramAsIntVector(QGroupParamID id, const QVector<int>& defaultValue) const;
    QVector<double> paramAsFloatVector(QGroupParamID id, const QVector<double>& defaultValue) const;
    QVariant paramAsVariant(QGroupParamID id, const QVariant& defaultValue) const;

    /**
     * Takes `param` out of the group. If a later line of the group has the
     * same ID, that duplicate becomes the member in its place and is
     * returned, so the owner hears an update rather than a removal; else null.
     */
    QGroupParam* removeParam(QGroupParam* param);
    /// Rewrites the line of `id` as "key = value", inserts it after the
    /// group's last parameter if absent, or removes it for an empty value.
    void setParamValue(QGroupParamID id, const QString& key, const QString& value);

    /// False while setParamValue() runs: its own edits are not reported as updates.
    bool reportsUpdates() const { return m_reportUpdates; }
    /// The members the group's lines give now: the first valid parameter of
    /// each ID between this header and the next, in document order.
    QList<QGroupParam*> collectParams() const;
    /// Makes `params` the members, releasing the ones no longer listed.
    void setParams(const QList<QGroupParam*>& params);

private:
    friend class QGroupParam;
    /// Drops a member without looking for a duplicate (the member is going away).
    void forget(QGroupParam* param);

    bool m_reportUpdates = true;
    QList<QGroupParam*> m_params;
};
