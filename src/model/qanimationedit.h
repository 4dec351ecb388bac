#pragma once

class QElementTextEditor;
class QString;

/// Inserts `text` (one line or several, without a final line feed) as new
/// lines above the line `line`, or at the end of the document past the last
/// line, through the editor's cursor.
void insertLineAbove(QElementTextEditor* editor, int line, const QString& text);

/**
 * One edit of an animation document made by the model: the lines written
 * while it lives are one undo step and one updated() signal of the editor.
 * With `joinPrevious` the step joins the undo step before it, so that a
 * drag that writes on every mouse move is undone at once.
 */
class QAnimationEdit
{
public:
    QAnimationEdit(QElementTextEditor* editor, bool joinPrevious = false);
    ~QAnimationEdit();
    QAnimationEdit(const QAnimationEdit&) = delete;
    QAnimationEdit& operator=(const QAnimationEdit&) = delete;

private:
    QElementTextEditor* m_editor;
    bool m_joinPrevious;
};
