#pragma once

#include <QString>
#include <QVector>

/// One finding of the checker on one line: an error (type 0) or a warning
/// (any other type, deprecations included) over a span of columns.
struct QSynMsg
{
    int type = 0;
    int column = 0;
    int length = 0;
    QString text;

    bool isError() const { return type == 0; }
};

using QSynMsgList = QVector<QSynMsg>;
