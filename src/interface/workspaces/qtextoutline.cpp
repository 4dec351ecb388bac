#include "qtextoutline.h"

#include "syntax/qluasyntaxhierarchy.h"
#include "syntax/qmugensyntaxhierarchy.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// Whether the text is Lua, told from its start as a file's language is.
bool isLua(const QTextDocument* document)
{
    QString start;
    for (QTextBlock block = document->begin(); block.isValid() && start.size() < 65536; block = block.next())
        start += block.text() + QLatin1Char('\n');
    return QSyntaxTextEditor::detectLanguage(start) == sptLua;
}

} // namespace

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
    const bool lua = document && isLua(document);
    m_hierarchy.reset(document && !lua ? new QMugenSyntaxHierarchy(document) : nullptr);
    m_lua.reset(lua ? new QLuaSyntaxHierarchy(document) : nullptr);
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
    if (m_document && (m_hierarchy || m_lua)) {
        if (m_hierarchy)
            m_hierarchy->update();
        else
            m_lua->update();
        QList<QTreeWidgetItem*> top;
        QTreeWidgetItem* parent = nullptr;
        for (const QMugenSyntaxHierarchy::Item& entry : m_hierarchy ? m_hierarchy->outline() : m_lua->outline()) {
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
