#include "qproject.h"

QProject::QProject(QObject* parent)
    : QObject(parent)
{
}
