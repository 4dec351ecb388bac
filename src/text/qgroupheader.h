#pragma once

#include "qtextelement.h"

class QNameComment;

/**
 * The `[...]` line that opens a group. The group runs to the line before the
 * next header; the comment lines directly above it belong to it (see
 * firstLine()), and a `;` comment right above it (blank lines between
 * allowed) names it: nameText().
 */
class QGroupHeader : public QTextElement
{
public:
    QTextElementType type() const override { return groupType() | headerBit; }
    /// The first of the comment and blank-only lines that stand directly above.
    int firstLine() const override;
    /// The line before the next header's first line, or blockCount() for the
    /// last group (one past the end, clipped by endPosition()).
    int lastLine() const override;
    void clean() override;

    QNameComment* nameComment() const { return m_comment; }
    /// Links both ways, unlinking the header's and the comment's old partners.
    void setNameComment(QNameComment* comment);

    /// The text of the naming comment, or an empty string.
    QString nameText() const;
    /// Rewrites, removes (empty text) or inserts the naming comment.
    void setNameText(const QString& text);

private:
    QNameComment* m_comment = nullptr;
};
