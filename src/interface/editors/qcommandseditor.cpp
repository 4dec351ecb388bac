#include "qcommandseditor.h"

#include "qcommandkeys.h"
#include "interface/workspaces/qtextoutline.h"
#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "text/qcommandparam.h"

#include <QFileInfo>
#include <QLayout>
#include <QListWidget>
#include <QPainter>
#include <QResizeEvent>
#include <QStyledItemDelegate>
#include <QTextDocument>

namespace {

enum Role { LineRole = Qt::UserRole, KeysRole };

/// A command: its name on the first row, its keys drawn under it.
class CommandDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize text = QStyledItemDelegate::sizeHint(option, index);
        const QPixmap keys = index.data(KeysRole).value<QPixmap>();
        const int width = qMax(text.width(), int(keys.width() / keys.devicePixelRatio()) + 8);
        return QSize(width, text.height() + int(keys.height() / keys.devicePixelRatio()) + 8);
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QPixmap keys = index.data(KeysRole).value<QPixmap>();
        QStyleOptionViewItem top(option);
        top.rect.setHeight(option.rect.height() - int(keys.height() / keys.devicePixelRatio()) - 6);
        // The selection spans the whole row, keys included.
        QStyleOptionViewItem whole(option);
        initStyleOption(&whole, index);
        whole.text.clear();
        option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &whole, painter, option.widget);
        top.font.setBold(true);
        QStyledItemDelegate::paint(painter, top, index);
        painter->drawPixmap(option.rect.left() + 6, top.rect.bottom() + 2, keys);
        // A faint rule between commands keeps each name with its keys.
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }
};

} // namespace

QCommandsEditor::QCommandsEditor(QTextWorkspace* workspace, QObject* parent)
    : QTextDocumentEditor(workspace, parent)
{
    Q_INIT_RESOURCE(keys);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(QTextOutline::updateDelay);
    connect(&m_refresh, &QTimer::timeout, this, &QCommandsEditor::refreshCommands);
}

void QCommandsEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QTextDocumentEditor::initialized(items, leftPage);
    // The list of commands with their keys says more than the outline would.
    if (auto* outline = leftPage->findChild<QTextOutline*>())
        outline->hide();
    m_commands = new QListWidget(leftPage);
    m_commands->setObjectName(QStringLiteral("commandsList"));
    m_commands->setItemDelegate(new CommandDelegate(m_commands));
    // Long sequences wrap to the list's width rather than scroll.
    m_commands->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_commands->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_commands->setUniformItemSizes(false);
    m_commands->viewport()->installEventFilter(this);
    leftPage->layout()->addWidget(m_commands);
    if (auto* box = qobject_cast<QBoxLayout*>(leftPage->layout())) {
        for (int i = 0; i < box->count(); ++i)
            box->setStretch(i, 0);
        box->setStretchFactor(m_commands, 1);
    }
    connect(m_commands, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        navigateTo(0, 0, item->data(LineRole).toInt());
    });
}

void QCommandsEditor::setProject(QProject* project)
{
    if (this->project() && this->project()->commands())
        disconnect(this->project()->commands()->document(), nullptr, &m_refresh, nullptr);
    QTextDocumentEditor::setProject(project);
    if (project && project->commands())
        connect(project->commands()->document(), &QTextDocument::contentsChanged, &m_refresh,
                qOverload<>(&QTimer::start));
    refreshCommands();
}

void QCommandsEditor::activate(bool switched)
{
    QTextDocumentEditor::activate(switched);
    if (switched)
        refreshCommands();
}

void QCommandsEditor::refreshCommands()
{
    m_refresh.stop();
    if (!m_commands)
        return;
    const int scroll = m_commands->currentRow();
    m_commands->clear();
    QCommands* commands = project() ? project()->commands() : nullptr;
    if (!commands)
        return;
    const int width = qMax(keyHeight * 4, m_commands->viewport()->width() - 14);
    for (int i = 0; i < commands->count(); ++i) {
        const QCommand* command = commands->at(i);
        const auto* sequence = static_cast<const QCommandParam*>(
            command->parameter(QCommand::idCommand, QCommandParam::paramSubType));
        QString name = command->name(false);
        if (name.startsWith(QLatin1Char('"')) && name.endsWith(QLatin1Char('"')) && name.size() >= 2)
            name = name.mid(1, name.size() - 2);
        auto* item = new QListWidgetItem(name.isEmpty() ? tr("(no name)") : name, m_commands);
        item->setData(LineRole, command->line());
        if (sequence) {
            item->setData(KeysRole, QCommandKeys::draw(sequence->elements(), keyHeight, width));
            item->setToolTip(tr("command = %1\nLine %2").arg(sequence->toString()).arg(command->line() + 1));
        }
    }
    m_commands->setCurrentRow(qMin(scroll, m_commands->count() - 1));
}

bool QCommandsEditor::eventFilter(QObject* watched, QEvent* event)
{
    // A wider or narrower list wraps the keys anew.
    if (m_commands && watched == m_commands->viewport() && event->type() == QEvent::Resize
        && static_cast<QResizeEvent*>(event)->oldSize().width() != static_cast<QResizeEvent*>(event)->size().width())
        m_refresh.start();
    return QTextDocumentEditor::eventFilter(watched, event);
}

int QCommandsEditor::documentCount() const
{
    return project() && project()->commands() ? 1 : 0;
}

QTextDocument* QCommandsEditor::documentAt(int index) const
{
    return index == 0 && documentCount() ? project()->commands()->document() : nullptr;
}

QString QCommandsEditor::documentTitle(int) const
{
    const QString file = project()->commands()->fileName();
    return file.isEmpty() ? tr("(new commands)") : QFileInfo(file).fileName();
}

QProjectFile* QCommandsEditor::projectFileAt(int index) const
{
    return index == 0 && documentCount() ? project()->commands() : nullptr;
}

QString QCommandsEditor::panelNote() const
{
    if (!project() || !project()->commands())
        return QString();
    const int count = project()->commands()->count();
    return count == 0 ? tr("No [Command] yet: the snippets on the tool bar start one.")
                      : tr("%n command(s); click one to go to it.", nullptr, count);
}
