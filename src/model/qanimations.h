#pragma once

#include "qanimation.h"
#include "qanimationtypes.h"
#include "qorganizableobject.h"
#include "qprojectfile.h"
#include "text/qtextelementchange.h"

#include <QList>

class QSyntaxTextEditor;
class QCollisionBoxes;
class QElementTextEditor;

/**
 * The animations of a project: the model of its AIR file, a list of actions
 * in text order. The AIR text is the truth: the model follows every edit of
 * the text line by line (update()), and every edit made through the model,
 * here or on an action, frame or box, is a change of the text's lines, so
 * the text editor, the views and scripts always agree, and undo is the
 * text's own undo (one step per model operation).
 *
 * The text lives in a QSyntaxTextEditor that the model is given and does
 * not own (setTextEditor()); the same document can be linked and unlinked.
 * While the model renumbers (the default), a declaration whose box list
 * changes gets its count rewritten, and the boxes behind the change their
 * indices; loading leaves wrong counts as the file has them. Undo and redo
 * are never renumbered, so undoing restores the text exactly.
 *
 * As a list model it shows each action as its number, or "number - name"
 * when a comment above the header names it. changed() tells views of every
 * change, including values that no row shows (frames, boxes).
 *
 * Call init() once per process, before initCommonElements().
 */
class QAnimations : public QOrganizableObject, public QProjectFile
{
    Q_OBJECT

public:
    QAnimations(QProject* project, QSyntaxTextEditor* text, QObject* parent = nullptr);
    ~QAnimations() override;

    /// Registers the lines of an AIR file, once per process.
    static void init();
    /// Deletes the pooled elements of an AIR file that no document uses.
    static void flush();

    QSyntaxTextEditor* textEditor() const { return m_text; }
    /// Works on another document from now on (null: none); the model is rebuilt at once.
    void setTextEditor(QSyntaxTextEditor* text);
    /// Follows (on) or leaves (off) the document; the model is rebuilt at once.
    void linkTxt(bool on);

    bool renumber() const { return m_renumber; }
    void setRenumber(bool on) { m_renumber = on; }

    int count() const { return int(m_list.size()); }
    /// The action at `index`, null out of range.
    QAnimation* at(int index) const { return m_list.value(index); }
    const QList<QAnimation*>& animations() const { return m_list; }
    /// The action a view shows; 0 at first. (Not index(), which would hide
    /// the list model's own.)
    unsigned int currentIndex() const { return m_index; }
    void setCurrentIndex(unsigned int index) { m_index = index; }

    /// Appends "[Begin Action number]" at the end of the text; returns the new action.
    QAnimation* add(int number);
    /// Inserts an action before the one at `position` (appends past the end).
    QAnimation* insert(unsigned int position, int number);
    /// Deletes the action's lines, its naming comment included.
    void remove(unsigned int position) override;
    /// Moves the action's text before the action at `to` (behind the last one at or past the end).
    void move(unsigned int from, unsigned int to) override;
    /**
     * Copies the action behind itself. With a `number` other than -1 the
     * copy's header takes it; with -1 the copy keeps the number, so the file
     * has two actions of one number. Returns the copy.
     */
    QAnimation* duplicate(unsigned int position, int number);
    /// Puts the action's text on the clipboard.
    void copy(unsigned int position);
    /// Inserts the clipboard's text as an action at `position`; false when the clipboard is empty.
    bool paste(unsigned int position);
    /// The first action from `from` on with that number, or -1.
    int find(unsigned int from, int number) const;
    /// The first action from `from` on whose number (in decimal) or name equals `text`, or -1.
    int find(unsigned int from, const QString& text) const;
    /// Sorts the actions by number, keeping the order of equal numbers. One undo step.
    void autoOrganize() override;

    void beginChange() override;
    void endChange() override;

    /// Loads the AIR file into the text (see QSyntaxTextEditor::fromFile);
    /// counts and indices stay as the file has them.
    bool fromFile(const QString& fileName, unsigned int codec, bool keepName);
    /// Writes the text (see QSyntaxTextEditor::toFile).
    bool toFile(const QString& fileName, bool utf8, bool keepName);

    bool canSave(unsigned int version) const override;
    bool canDiscard() override;
    bool isModified() const override;
    bool isEmpty() const override;
    /// The structure's faults: wrong counts, frames outside an action, boxes
    /// without a declaration, declarations without a frame. The text's own
    /// faults are the text editor's messages.
    void checkErrors() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

public slots:
    /// Follows a change of the text.
    void update(QElementTextEditor* editor, QList<QTextElementChange>& changes);

signals:
    /// After every change of the text that reached the model; `structure` is
    /// true when actions, frames, boxes or lines came or went.
    void changed(bool structure);

private:
    /// Reads the list of actions again from the whole text.
    void rebuild();
    void updateRows(const QList<QTextElementChange>& changes);
    /// Rewrites counts and indices that no longer agree with the boxes.
    void renumberBoxes(const QList<QPair<QCollisionBoxes*, int>>& declarations);
    /// Inserts `text` as lines before the action at `position`, or at the end.
    void insertText(unsigned int position, const QString& text);

    QSyntaxTextEditor* m_text = nullptr;
    QList<QAnimation*> m_list;
    unsigned int m_index = 0;
    bool m_renumber = true;
    bool m_linked = false;
};
