#pragma once

#include "qsynmsg.h"

#include <QTextBlockUserData>
#include <QVector>

/// One bracket of a line, for the editor's bracket matching.
struct QParenthesis
{
    QChar character;
    int position = 0;
};

/**
 * What the syntax processor keeps beside one line of a document: the line's
 * findings and its brackets. Made on the first pass over the line and kept
 * (the document owns it); each pass replaces its contents.
 */
class QSyntaxBlockData : public QTextBlockUserData
{
public:
    QSynMsgList messages;
    QVector<QParenthesis> parentheses;
};
