#include "qstderrprompt.h"

#include <QTextStream>

void QStderrPrompt::writeLine(const QString& title, const QString& text)
{
    QTextStream err(stderr);
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    err << "pugilforge-cli: " << title << ": " << line << '\n';
}

void QStderrPrompt::information(const QString& title, const QString& text)
{
    writeLine(title, text);
}

void QStderrPrompt::warning(const QString& title, const QString& text)
{
    writeLine(title, text);
}

void QStderrPrompt::critical(const QString& title, const QString& text)
{
    writeLine(title, text);
}

QPrompt::Button QStderrPrompt::question(const QString& title, const QString& text, Buttons,
                                        Button defaultButton)
{
    writeLine(title, text);
    return defaultButton;
}
