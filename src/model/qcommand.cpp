#include "qcommand.h"

#include "text/qcommandparam.h"
#include "text/qstringparam.h"

QString QCommand::name(bool comment) const
{
    return comment ? nameText() : paramAsString(idName, QString());
}

void QCommand::setName(const QString& text, bool comment)
{
    if (comment) {
        setNameText(text);
        return;
    }
    if (auto* param = static_cast<QStringParam*>(parameter(idName, QStringParam::paramSubType)))
        param->setString(text);
}

int QCommand::length() const
{
    const auto* param = static_cast<const QCommandParam*>(parameter(idCommand, QCommandParam::paramSubType));
    return param ? param->length() : 0;
}
