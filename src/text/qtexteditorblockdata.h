#pragma once

#include "text/qsynmsg.h"

#include <QTextBlockUserData>
#include <QVector>

class QTextElement;

/// One bracket of a line, for the editor's bracket matching.
struct QParenthesis
{
    QChar character;
    int position = 0;
};

/**
 * The user data of every line of a text document. A line has one user-data
 * slot, shared by the element chain and the syntax processor, so both keep
 * their part here: the element that stands for the line (or null), and the
 * checker's findings and brackets, replaced on each pass over the line.
 *
 * The document deletes it with its line; the element then learns that its
 * line is gone (see QTextElement::lineDeleted), so the editor can report it
 * removed on the next change.
 */
class QTextEditorBlockData : public QTextBlockUserData
{
public:
    ~QTextEditorBlockData() override;

    QTextElement* element() const { return m_element; }
    void setElement(QTextElement* element) { m_element = element; }

    QSynMsgList messages;
    QVector<QParenthesis> parentheses;
    /// Checked as the last line of its section, where what the section
    /// misses is reported.
    bool endsSection = false;

private:
    QTextElement* m_element = nullptr;
};
