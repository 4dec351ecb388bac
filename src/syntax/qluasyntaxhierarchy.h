#pragma once

#include "qmugensyntaxhierarchy.h"

#include <QList>

class QTextDocument;

/**
 * The outline of a Lua file: its functions in document order, each with its
 * parameters and line ("function name(a, b)", "local function name()",
 * "name = function()", "t.name = function()"). A function written inside
 * another one stands under it. Lines of comments and of long strings are
 * passed over. Like the engine files' outline it is rebuilt as a whole by
 * update(), on a timer rather than on every key.
 */
class QLuaSyntaxHierarchy
{
public:
    using Item = QMugenSyntaxHierarchy::Item;

    /// `document` must outlive the outline.
    explicit QLuaSyntaxHierarchy(const QTextDocument* document);

    void update();
    QList<Item> outline() const { return m_items; }

private:
    const QTextDocument* m_document;
    QList<Item> m_items;
};
