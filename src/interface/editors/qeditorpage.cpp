#include "qeditorpage.h"

#include "qtoolbarfit.h"

#include <QAction>
#include <QSpinBox>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

namespace QEditorPage {

void layOut(QWidget* page, QToolBar* toolBar, QWidget* field, QWidget* list, QWidget* right, int leftWidth)
{
    toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QToolBarFit::apply(toolBar);
    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->setSpacing(2);
    leftLayout->addWidget(field);
    leftLayout->addWidget(list, 1);

    auto* splitter = new QSplitter(page);
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({ leftWidth, 1200 - leftWidth });

    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(toolBar);
    layout->addWidget(splitter, 1);
}

QAction* addAction(QWidget* page, QToolBar* toolBar, const QString& name, const QString& text,
                   const QKeySequence& keys)
{
    QAction* action = toolBar->addAction(text);
    action->setObjectName(name);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    page->addAction(action);
    return action;
}

QSpinBox* numberBox(QWidget* parent, const QString& name)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(-32768, 32767);
    box->setKeyboardTracking(false);
    return box;
}

} // namespace QEditorPage
