#pragma once

#include "qelementtextcursor.h"
#include "qtextelementchange.h"
#include "qtextelementmatcher.h"
#include "qtextelementtypes.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QTextBlock>

class QTextDocument;
class QTextElement;

/**
 * A text document with the chain of elements that follows it line by line.
 *
 * After every change only the touched lines are read again: each line's
 * element is kept and updated, replaced, added or dropped, and the whole
 * change is reported once, as a list of QTextElementChange, to
 * updateInternal() (whose default emits update()), then as updated(bool),
 * true when elements came or went. Removed elements are still readable
 * during the report and return to their pools right after.
 *
 * Lines are matched only against the registry entries enabled here through
 * enableElement(). Edits made in code go through cursor(); with
 * `linkDocument` the editor also follows edits made on the document
 * directly (a view, undo and redo). beginChange()/endChange() make one undo
 * step and one updated() signal of several edits.
 *
 * The editor is a plain QObject: watching the file on disk belongs to the
 * document models built on it.
 */
class QElementTextEditor : public QObject
{
    Q_OBJECT

public:
    explicit QElementTextEditor(bool linkDocument, QObject* parent = nullptr);
    ~QElementTextEditor() override;

    QTextDocument* document() const { return m_document; }
    QElementTextCursor& cursor() { return m_cursor; }
    /// The first element of the chain, or null.
    QTextElement* head() const { return m_head; }
    /// The element of the line `line`, or null.
    QTextElement* elementAt(int line) const;
    static QTextElement* elementOf(const QTextBlock& block);

    /// Adds (on) or takes back (off) one user of the entries of this kind;
    /// entries take part while their count is above 0.
    void enableElement(bool on, QTextElementType type, QTextElementSubType subType);

    void beginChange();
    void endChange();

    /// Reads every line again, as after loading a text that wasn't followed.
    void updateAllElements();

    /// Inserts a line above the element's line (`useBlock`) or above its first line.
    void insertBefore(QTextElement* element, const QString& text, bool useBlock);
    /// Inserts a line below the element's line (`useBlock`) or below its last
    /// line; at the end of the document for a null element.
    void insertAfter(QTextElement* element, const QString& text, bool useBlock);
    /// Appends a line at the end of the document.
    void insert(const QString& text);

    /// While above 0 no change of the document reaches the chain.
    void raiseSuppress() { ++m_suppress; }
    void lowerSuppress() { --m_suppress; }

public slots:
    /// Follows a change of the document: `removed` and `added` characters at `position`.
    void contentsChanged(int position, int removed, int added);

signals:
    void update(QElementTextEditor* editor, QList<QTextElementChange>& changes);
    void updated(bool structureChanged);

protected:
    /// Hears every change; the default emits update(). Models call
    /// updateCommonElements() first.
    virtual void updateInternal(QList<QTextElementChange>& changes);

private:
    friend class QTextElement;

    /// The element the next line read again follows in the chain. Looking for
    /// it may go far up a file whose lines mostly have none, so it is looked
    /// for only when a new element is linked in: most edits keep or drop the
    /// element their line has.
    struct Preceding
    {
        QTextBlock above; ///< where to look up from while `known` is false
        QTextElement* element = nullptr;
        bool known = false;
    };
    static QTextElement* precedingElement(Preceding& preceding);
    /// Reads one line again; returns bit 1 when the chain changed, bit 2 when
    /// an element was updated.
    int processBlock(const QTextBlock& block, Preceding& previous, QList<QTextElementChange>& changes);
    /// Reports the elements whose lines the document deleted.
    int takeDeletedLines(QList<QTextElementChange>& changes);
    void finishChange(int result, QList<QTextElementChange>& changes);
    void removeElement(QTextElement* element, QList<QTextElementChange>& changes);
    void link(QTextElement* element, QTextElement* previous);
    void unlink(QTextElement* element);
    void lineDeleted(QTextElement* element);
    void insertLineAt(int position, const QString& text);

    QTextDocument* m_document;
    QElementTextCursor m_cursor;
    int m_suppress = 1;
    int m_changeDepth = 0;
    bool m_pendingStructure = false;
    QTextElement* m_head = nullptr;
    QMap<unsigned long long, int> m_enableCounts;
    QTextElementMatcher m_matcher;
    QList<QTextElement*> m_deletedLines;
};
