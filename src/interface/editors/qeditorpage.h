#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QSpinBox;
class QToolBar;
class QWidget;

/**
 * The page layout the list editors of the view workspace share: their own
 * tool bar on top, then a list with a field above it (search or jump) beside
 * the right-hand part, split so the author can widen either.
 */
namespace QEditorPage {

/// Lays out `page`; `leftWidth` is the list's share at first.
void layOut(QWidget* page, QToolBar* toolBar, QWidget* field, QWidget* list, QWidget* right, int leftWidth);

/**
 * An action of the page's tool bar named `name` (the icon set finds its icon
 * by it), with `keys` working wherever the focus is on the page, and a tool
 * tip that shows them.
 */
QAction* addAction(QWidget* page, QToolBar* toolBar, const QString& name, const QString& text,
                   const QKeySequence& keys);

/// A field for a number of the file's range (-32768 to 32767) named `name`,
/// that applies its value when the author is done typing rather than at each key.
QSpinBox* numberBox(QWidget* parent, const QString& name);

} // namespace QEditorPage
