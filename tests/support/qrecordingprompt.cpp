#include "qrecordingprompt.h"

QRecordingPrompt::QRecordingPrompt()
{
    QPrompt::install(this);
}

QRecordingPrompt::~QRecordingPrompt()
{
    QPrompt::install(nullptr);
}

int QRecordingPrompt::count(const QString& kind) const
{
    int n = 0;
    for (const Entry& entry : m_entries)
        n += entry.kind == kind;
    return n;
}

void QRecordingPrompt::information(const QString& title, const QString& text)
{
    m_entries.append({QStringLiteral("information"), title, text});
}

void QRecordingPrompt::warning(const QString& title, const QString& text)
{
    m_entries.append({QStringLiteral("warning"), title, text});
}

void QRecordingPrompt::critical(const QString& title, const QString& text)
{
    m_entries.append({QStringLiteral("critical"), title, text});
}

QPrompt::Button QRecordingPrompt::question(const QString& title, const QString& text, Buttons,
                                           Button defaultButton)
{
    m_entries.append({QStringLiteral("question"), title, text});
    return m_answers.isEmpty() ? defaultButton : m_answers.takeFirst();
}
