#pragma once

#include "qresourcedirectory.h"

#include <QObject>

#include <QCoreApplication>

/// The translations: each folder of the directory with an "info.xml".
class QLanguageManager : public QObject, public QResourceDirectory
{
    Q_OBJECT
public:
    QLanguageManager(QCoreApplication* application, const QString& directory);

signals:
    /// Sent after another language was made active.
    void langChanged();
};

extern QLanguageManager* langMan;
