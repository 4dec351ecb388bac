#pragma once

#include "qtextelement.h"

class QGroupHeader;

/**
 * A `;` comment line directly above a `[` line (blank lines between
 * allowed), which names the group below it. Only such comment lines are
 * elements; the link to the header is kept by updateCommonElements().
 */
class QNameComment : public QTextElement
{
public:
    static constexpr QTextElementType commentGroupType = 0x8;

    QTextElementType groupType() const override { return commentGroupType; }
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    /// The comment's text, trimmed, without its ";".
    const QString& text() const { return m_text; }
    /// Stores the text without touching the line.
    void setText(const QString& text) { m_text = text; }
    QGroupHeader* header() const { return m_header; }

private:
    friend class QGroupHeader;

    QGroupHeader* m_header = nullptr;
    QString m_text;
};
