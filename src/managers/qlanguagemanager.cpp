#include "qlanguagemanager.h"

QLanguageManager* langMan = nullptr;

QLanguageManager::QLanguageManager(QCoreApplication* application, const QString& directory)
    : QObject(application)
    , QResourceDirectory(directory, Subdirectories, QStringLiteral("info.xml"))
{
}
