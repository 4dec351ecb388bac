#pragma once

#include "util/qprompt.h"

#include <QList>
#include <QString>

/**
 * The tests' prompt: records everything a model says or asks, and answers
 * questions from a script (then with each question's default). Installs
 * itself for its lifetime.
 */
class QRecordingPrompt : public QPrompt
{
public:
    struct Entry
    {
        QString kind; ///< "information", "warning", "critical" or "question"
        QString title;
        QString text;
    };

    QRecordingPrompt();
    ~QRecordingPrompt() override;

    /// The answers for the next questions, in order.
    void script(const QList<Button>& answers) { m_answers = answers; }

    const QList<Entry>& entries() const { return m_entries; }
    int count(const QString& kind) const;
    void clear() { m_entries.clear(); }

    void information(const QString& title, const QString& text) override;
    void warning(const QString& title, const QString& text) override;
    void critical(const QString& title, const QString& text) override;
    Button question(const QString& title, const QString& text, Buttons buttons,
                    Button defaultButton) override;

private:
    QList<Entry> m_entries;
    QList<Button> m_answers;
};
