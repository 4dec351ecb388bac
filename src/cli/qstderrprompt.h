#pragma once

#include "util/qprompt.h"

/// The command-line tool's prompt: every message goes to standard error as
/// one line, and every question takes its default answer, since a script
/// cannot answer.
class QStderrPrompt : public QPrompt
{
public:
    void information(const QString& title, const QString& text) override;
    void warning(const QString& title, const QString& text) override;
    void critical(const QString& title, const QString& text) override;
    Button question(const QString& title, const QString& text, Buttons buttons,
                    Button defaultButton) override;

private:
    static void writeLine(const QString& title, const QString& text);
};
