#include "qactionlistpanel.h"

#include "model/qanimation.h"
#include "model/qanimationedit.h"
#include "model/qanimations.h"
#include "qeditorpage.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QSet>
#include <QSortFilterProxyModel>
#include <QToolBar>

QActionListPanel::QActionListPanel(QObject* parent)
    : QObject(parent)
    , m_filter(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit)
    , m_list(new QListView)
{
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_search->setObjectName(QStringLiteral("actionsSearch"));
    m_search->setPlaceholderText(tr("Search number or name"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, m_filter, &QSortFilterProxyModel::setFilterFixedString);
    // Enter in the search field shows the first action found.
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        if (m_filter->rowCount() > 0) {
            m_list->setCurrentIndex(m_filter->index(0, 0));
            m_list->setFocus();
        }
    });
    m_list->setObjectName(QStringLiteral("actionsList"));
    m_list->setModel(m_filter);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this] { emit currentChanged(currentAction()); });
    connect(m_list, &QListView::doubleClicked, this, &QActionListPanel::askRename);
}

void QActionListPanel::setAnimations(QAnimations* animations)
{
    m_animations = animations;
    m_filter->setSourceModel(animations);
    if (m_filter->rowCount() > 0)
        m_list->setCurrentIndex(m_filter->index(0, 0));
    else
        emit currentChanged(-1);
}

void QActionListPanel::addActions(QWidget* page, QToolBar* toolBar)
{
    auto add = [&](const QString& name, const QString& text, const QKeySequence& keys, auto slot) {
        QAction* action = QEditorPage::addAction(page, toolBar, name, text, keys);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add(QStringLiteral("anim_new"), tr("New action"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N),
        &QActionListPanel::newAction);
    add(QStringLiteral("anim_duplicate"), tr("Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
        &QActionListPanel::duplicateAction);
    QAction* rename = add(
        QStringLiteral("anim_rename"), tr("Rename"), QKeySequence(Qt::Key_F2), &QActionListPanel::askRename);
    // F2 renames in the list only: elsewhere on the page it edits a cell of the frames.
    page->removeAction(rename);
    rename->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(rename);
    add(QStringLiteral("anim_delete"), tr("Delete action"), QKeySequence(Qt::CTRL | Qt::Key_Delete),
        &QActionListPanel::removeAction);
    toolBar->addSeparator();
    add(QStringLiteral("anim_move_up"), tr("Move up"), QKeySequence(Qt::ALT | Qt::Key_Up),
        [this] { moveAction(true); });
    add(QStringLiteral("anim_move_down"), tr("Move down"), QKeySequence(Qt::ALT | Qt::Key_Down),
        [this] { moveAction(false); });
    add(QStringLiteral("anim_sort"), tr("Sort by number"), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S),
        &QActionListPanel::sortActions);
}

int QActionListPanel::currentAction() const
{
    const QModelIndex index = m_filter->mapToSource(m_list->currentIndex());
    return index.isValid() ? index.row() : -1;
}

void QActionListPanel::setCurrentAction(int position)
{
    if (!m_animations)
        return;
    const QModelIndex source = m_animations->index(position, 0);
    // An action the search hides is still shown: the search gives way.
    if (source.isValid() && !m_filter->mapFromSource(source).isValid())
        m_search->clear();
    m_list->setCurrentIndex(m_filter->mapFromSource(source));
    m_list->scrollTo(m_list->currentIndex());
}

int QActionListPanel::freeNumber(int from) const
{
    QSet<int> used;
    for (const QAnimation* animation : m_animations->animations())
        used.insert(animation->number());
    int number = qMax(0, from);
    while (used.contains(number))
        ++number;
    return number;
}

void QActionListPanel::newAction()
{
    if (!m_animations)
        return;
    int number = 0;
    for (const QAnimation* animation : m_animations->animations())
        number = qMax(number, animation->number() + 1);
    m_animations->add(number);
    setCurrentAction(m_animations->count() - 1);
}

void QActionListPanel::duplicateAction()
{
    const int position = currentAction();
    if (!m_animations || position < 0)
        return;
    const int number = freeNumber(m_animations->at(position)->number() + 1);
    m_animations->duplicate(uint(position), number);
    setCurrentAction(m_animations->find(0, number));
}

void QActionListPanel::askRename()
{
    const int position = currentAction();
    if (position < 0)
        return;
    const QAnimation* action = m_animations->at(position);
    const QString name = action->nameText();
    const QString now = name.isEmpty() ? QString::number(action->number())
                                       : QStringLiteral("%1 - %2").arg(action->number()).arg(name);
    bool ok = false;
    const QString text = QInputDialog::getText(
        m_list, tr("Rename action"), tr("Number and name of the action:"), QLineEdit::Normal, now, &ok);
    if (ok && text != now)
        renameAction(text);
}

bool QActionListPanel::renameAction(const QString& text)
{
    const int position = currentAction();
    if (!m_animations || position < 0)
        return false;
    static const QRegularExpression numbered(QStringLiteral("^\\s*(-?\\d+)\\s*(?:-\\s*(.*))?$"));
    const QRegularExpressionMatch match = numbered.match(text);
    int number = m_animations->at(position)->number();
    QString name = text.trimmed();
    if (match.hasMatch()) {
        bool ok = false;
        number = match.captured(1).toInt(&ok);
        if (!ok)
            return false;
        name = match.captured(2).trimmed();
    }
    {
        QAnimationEdit edit(m_animations->textEditor());
        QAnimation* action = m_animations->at(position);
        if (action->number() != number)
            action->setNumber(number);
        m_animations->at(position)->setNameText(name);
    }
    setCurrentAction(position);
    return true;
}

void QActionListPanel::removeAction()
{
    const int position = currentAction();
    if (!m_animations || position < 0)
        return;
    m_animations->remove(uint(position));
    setCurrentAction(qMin(position, m_animations->count() - 1));
}

void QActionListPanel::moveAction(bool up)
{
    const int position = currentAction();
    if (!m_animations || position < 0 || (up && position == 0)
        || (!up && position + 1 >= m_animations->count()))
        return;
    // The action goes before the one at the target: two down is behind the next one.
    m_animations->move(uint(position), uint(up ? position - 1 : position + 2));
    setCurrentAction(up ? position - 1 : position + 1);
}

void QActionListPanel::sortActions()
{
    if (!m_animations)
        return;
    const QAnimation* current = m_animations->at(currentAction());
    const int number = current ? current->number() : -1;
    m_animations->autoOrganize();
    if (number >= 0)
        setCurrentAction(m_animations->find(0, number));
}
