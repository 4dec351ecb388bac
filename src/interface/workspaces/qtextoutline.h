#pragma once

#include <QPointer>
#include <QTimer>
#include <QTreeWidget>

#include <memory>

class QLuaSyntaxHierarchy;
class QMugenSyntaxHierarchy;
class QTextDocument;

/**
 * The outline of the text shown: states under their state definitions, the
 * actions of an AIR, the commands of a CMD, the groups of a DEF, and the
 * functions of a Lua file. It follows
 * edits a moment after the author stops typing, rather than on every key,
 * and a click on an entry asks to jump to its line.
 */
class QTextOutline : public QTreeWidget
{
    Q_OBJECT
public:
    static constexpr int updateDelay = 300;

    explicit QTextOutline(QWidget* parent = nullptr);
    ~QTextOutline() override;

    /// Outlines the document (null empties the outline).
    void setTextDocument(QTextDocument* document);
    /// Rebuilds now rather than on the timer.
    void rebuild();

signals:
    void lineActivated(int line);

private:
    QPointer<QTextDocument> m_document;
    std::unique_ptr<QMugenSyntaxHierarchy> m_hierarchy;
    std::unique_ptr<QLuaSyntaxHierarchy> m_lua; ///< instead, for a Lua file
    QTimer m_timer;
};
