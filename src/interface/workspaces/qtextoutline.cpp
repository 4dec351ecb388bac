#include "qtextoutline.h"

#include "syntax/qmugensyntaxhierarchy.h"

#include <QScrollBar>
#include <QTextDocument>

QTextOutline::QTextOutline(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("textOutline"));
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true); // outlines of big state files hold thousands of rows
    m_timer.setSingleShot(true);
    m_timer.setInterval(updateDelay);
    connect(&m_timer, &QTimer::timeout, this, &QTextOutline::rebuild);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        emit lineActivated(item->data(0, Qt::UserRole).toInt());
    });
}

QTextOutline::~QTextOutline() = default;

void QTextOutline::setTextDocument(QTextDocument* document)
{
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    m_document = document;
    m_hierarchy.reset(document ? new QMugenSyntaxHierarchy(document) : nullptr);
    if (document)
        connect(document, &QTextDocument::contentsChanged, &m_timer, qOverload<>(&QTimer::start));
    rebuild();
}

void QTextOutline::rebuild()
{
    m_timer.stop();
    // Keep which definitions the author had closed across rebuilds.
    QSet<QString> collapsed;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (!topLevelItem(i)->isExpanded() && topLevelItem(i)->childCount() > 0)
            collapsed.insert(topLevelItem(i)->text(0));
    }
    const int scroll = verticalScrollBar()->value();
    setUpdatesEnabled(false);
    clear();
    if (m_document && m_hierarchy) {
        m_hierarchy->update();
        QList<QTreeWidgetItem*> top;
        QTreeWidgetItem* parent = nullptr;
        for (const QMugenSyntaxHierarchy::Item& entry : m_hierarchy->outline()) {
            auto* item = new QTreeWidgetItem(QStringList{entry.label});
            item->setData(0, Qt::UserRole, entry.line);
            item->setToolTip(0, tr("Line %1").arg(entry.line + 1));
            if (entry.level > 0 && parent) {
                parent->addChild(item);
            } else {
                top.append(item);
                parent = item;
            }
        }
        addTopLevelItems(top);
        for (QTreeWidgetItem* item : top)
            item->setExpanded(!collapsed.contains(item->text(0)));
    }
    verticalScrollBar()->setValue(scroll);
    setUpdatesEnabled(true);
}
