#include "airoutline.h"

#include <QFile>
#include <QRegularExpression>

AirOutline AirOutline::read(const QString& path)
{
    AirOutline outline;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return outline;
    static const QRegularExpression header(QStringLiteral("^\\[\\s*begin\\s+action\\s+(-?\\d+)\\s*\\]"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression declaration(QStringLiteral("^clsn([12])(default)?\\s*:\\s*(\\d+)"),
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression frame(QStringLiteral("^(-?\\d+)\\s*,\\s*(-?\\d+)\\s*,\\s*-?\\d+\\s*,\\s*-?\\d+\\s*,\\s*-?\\d+"));
    // Boxes in force: [kind][0 default, 1 next frame only].
    int boxes[2][2] = {{0, 0}, {0, 0}};
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        QString line = QString::fromLatin1(file.readLine());
        line = line.left(line.indexOf(QLatin1Char(';')) >= 0 ? line.indexOf(QLatin1Char(';')) : line.size()).trimmed();
        if (const QRegularExpressionMatch match = header.match(line); match.hasMatch()) {
            outline.actions.append(Action{match.captured(1).toInt(), {}});
            boxes[0][0] = boxes[0][1] = boxes[1][0] = boxes[1][1] = 0;
        } else if (const QRegularExpressionMatch match = declaration.match(line); match.hasMatch()) {
            boxes[match.captured(1).toInt() - 1][match.captured(2).isEmpty() ? 1 : 0] = match.captured(3).toInt();
        } else if (const QRegularExpressionMatch match = frame.match(line); match.hasMatch() && !outline.actions.isEmpty()) {
            Frame shown;
            shown.group = match.captured(1).toInt();
            shown.index = match.captured(2).toInt();
            shown.line = number;
            // A box list of the frame itself replaces the default for it.
            shown.hitBoxes = boxes[0][1] ? boxes[0][1] : boxes[0][0];
            shown.hurtBoxes = boxes[1][1] ? boxes[1][1] : boxes[1][0];
            boxes[0][1] = boxes[1][1] = 0;
            outline.actions.last().frames.append(shown);
        }
    }
    return outline;
}

const AirOutline::Action* AirOutline::find(int number) const
{
    for (const Action& action : actions)
        if (action.number == number)
            return &action;
    return nullptr;
}
