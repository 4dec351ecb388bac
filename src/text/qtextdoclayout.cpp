#include "qtextdoclayout.h"

QTextDocLayout::QTextDocLayout(QTextDocument* document)
    : QAbstractTextDocumentLayout(document)
{
}
