#pragma once

#include <QList>
#include <QString>

/// A ready-made command line for an engine: "%0" is the current project,
/// "%N" the project at tab N.
struct QMugenPreset
{
    QString label;
    QString parameters;
};

/// The command lines offered beside the parameters of an engine, in menu order.
const QList<QMugenPreset>& mugenPresets();

/// What a new engine starts with: the current character against itself.
QString defaultMugenParameters();
