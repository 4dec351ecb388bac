#include "qmugenpresets.h"

#include <QCoreApplication>

const QList<QMugenPreset>& mugenPresets()
{
    static const QList<QMugenPreset> presets {
        { QCoreApplication::translate("QMugenPreset", "Current char vs current char"),
            QStringLiteral("%0 %0") },
        { QCoreApplication::translate("QMugenPreset", "Current char vs current char AI"),
            QStringLiteral("%0 %0 -p2.ai 1") },
        { QCoreApplication::translate("QMugenPreset", "Current char vs KFM"), QStringLiteral("%0 kfm") },
        { QCoreApplication::translate("QMugenPreset", "Current char vs KFM AI"),
            QStringLiteral("%0 kfm -p2.ai 1") },
        { QCoreApplication::translate("QMugenPreset", "KFM vs KFM on current Stage"),
            QStringLiteral("kfm kfm -s %0") },
        { QCoreApplication::translate("QMugenPreset", "Current motif"), QStringLiteral("-r %0") },
        { QCoreApplication::translate("QMugenPreset", "KFM vs KFM on current motif"),
            QStringLiteral("kfm kfm -r %0") },
    };
    return presets;
}

QString defaultMugenParameters()
{
    return mugenPresets().first().parameters;
}
