#pragma once

#include <QTextBlockUserData>

class QTextElement;

/**
 * The user data of every line of an element document: the element that
 * stands for the line, or null. The document deletes it with its line; the
 * element then learns that its line is gone (see QTextElement::lineDeleted),
 * so the editor can report it removed on the next change.
 */
class QTextEditorBlockData : public QTextBlockUserData
{
public:
    ~QTextEditorBlockData() override;

    QTextElement* element() const { return m_element; }
    void setElement(QTextElement* element) { m_element = element; }

private:
    QTextElement* m_element = nullptr;
};
