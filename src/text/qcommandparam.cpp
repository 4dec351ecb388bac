#include "qcommandparam.h"

#include <QStringList>

void QCommandParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    m_elements.clear();
    QCommandElement element;
    for (int i = 0; i < tokens.size(); ++i) {
        const QTextToken& token = tokens.at(i);
        switch (token.id) {
        case tokSlash:
            element.flags |= QCommandElement::FlagHold;
            break;
        case tokGreater:
            element.flags |= QCommandElement::FlagOnly;
            break;
        case tokDollar:
            element.flags |= QCommandElement::FlagDirection;
            break;
        case tokTilde:
            element.flags |= QCommandElement::FlagRelease;
            if (i + 1 < tokens.size() && tokens.at(i + 1).id == tokInteger)
                element.time = quint16(tokens.at(i + 1).text.toInt());
            break;
        case tokIdentifier:
            element.keys |= QCommandElement::keyMask(token.text);
            break;
        case tokComma:
            m_elements.append(element);
            element = QCommandElement();
            break;
        default:
            break;
        }
    }
    m_elements.append(element);
}

QString QCommandParam::toString() const
{
    QStringList steps;
    for (const QCommandElement& element : m_elements)
        steps.append(element.toString());
    return steps.join(QLatin1String(", "));
}

int QCommandParam::length() const
{
    int length = 0;
    for (const QCommandElement& element : m_elements)
        length += element.flags & QCommandElement::FlagOnly ? 3 : 1;
    return length;
}
