#include "qactionmanager.h"

#include "qxmlfile.h"
#include "util/qprompt.h"
#include "util/qxmlparser.h"

#include <QAction>
#include <QCoreApplication>

namespace {

const char* const context = "QActionManager";

bool scopesMeet(unsigned int a, unsigned int b)
{
    const unsigned int everywhere = 1u << QActionManager::global;
    return (a & everywhere) || (b & everywhere) || (a & b);
}

} // namespace

QActionManager::QActionManager(QObject* parent)
    : QAbstractTableModel(parent)
{
}

QActionManager::~QActionManager() = default;

QAction* QActionManager::add(std::initializer_list<int> scopes, const QString& name, const char* text,
                             bool checkable, const QObject* target, const char* slot, const char* signal)
{
    Record record;
    record.name = name;
    record.text = text;
    for (int scope : scopes)
        record.scopes |= 1u << scope;

    auto* action = new QAction(this);
    action->setObjectName(name);
    action->setCheckable(checkable);
    action->setText(QCoreApplication::translate(context, text));
    if (target && slot) {
        if (checkable)
            connect(action, SIGNAL(toggled(bool)), target, slot);
        else
            connect(action, SIGNAL(triggered()), target, slot);
    }
    if (target && signal)
        connect(target, signal, action, SLOT(setEnabled(bool)));

    const int row = int(m_actions.size());
    beginInsertRows(QModelIndex(), row, row);
    m_actions.append(action);
    m_records.insert(action, record);
    m_byName.insert(name, action);
    endInsertRows();
    trAction(action);
    return action;
}

QAction* QActionManager::fromName(const QString& name) const
{
    return m_byName.value(name);
}

QString QActionManager::name(const QAction* action) const
{
    return m_records.value(action).name;
}

bool QActionManager::inScope(const QAction* action, int editor) const
{
    const unsigned int scopes = m_records.value(action).scopes;
    return (scopes & (1u << global)) || (editor < noEditor && (scopes & (1u << editor)));
}

bool QActionManager::setShortcut(QAction* action, const QKeySequence& keys)
{
    auto found = m_records.find(action);
    if (found == m_records.end())
        return false;
    if (!keys.isEmpty()) {
        for (auto other = m_records.cbegin(); other != m_records.cend(); ++other) {
            if (other.key() == action || !other->shortcut || other->shortcut->shortcut() != keys)
                continue;
            if (scopesMeet(other->scopes, found->scopes)) {
                prompt().warning(QCoreApplication::translate(context, "Conflict!"),
                                 QCoreApplication::translate(
                                     context, "This shortcut conflict with another that resides in the same scope."));
                return false;
            }
        }
    }
    found->shortcut = keys.isEmpty() ? nullptr : shortcutFor(keys);
    trAction(action);
    const int row = int(m_actions.indexOf(action));
    emit dataChanged(index(row, 1), index(row, 1));
    return true;
}

QKeySequence QActionManager::shortcut(const QAction* action) const
{
    const QAction* carrier = m_records.value(action).shortcut;
    return carrier ? carrier->shortcut() : QKeySequence();
}

QList<QAction*> QActionManager::shortcutActions() const
{
    return m_shortcuts.values();
}

QAction* QActionManager::shortcutFor(const QKeySequence& keys)
{
    QAction*& carrier = m_shortcuts[keys];
    if (!carrier) {
        carrier = new QAction(this);
        carrier->setShortcut(keys);
        carrier->setShortcutContext(Qt::WindowShortcut);
        connect(carrier, &QAction::triggered, this, &QActionManager::shortcutTriggered);
        emit shortcutActionAdded(carrier);
    }
    return carrier;
}

void QActionManager::shortcutTriggered()
{
    const auto* carrier = qobject_cast<QAction*>(sender());
    for (QAction* action : std::as_const(m_actions)) {
        if (m_records.value(action).shortcut == carrier && action->isEnabled() && action->isVisible()
            && inScope(action, m_editor)) {
            action->trigger();
            return;
        }
    }
}

bool QActionManager::shortcutsFromFile(const QString& fileName)
{
    return readXmlEntries(fileName, QStringLiteral("shortcuts"), [this](QXmlParser& xml) {
        if (xml.name() != QLatin1String("shortcut"))
            return;
        const auto attributes = xml.attributes();
        if (QAction* action = fromName(attributes.value(QLatin1String("action")).toString()))
            setShortcut(action, QKeySequence(attributes.value(QLatin1String("keys")).toString()));
    });
}

bool QActionManager::shortcutsToFile(const QString& fileName) const
{
    QXmlFileWriter file(fileName, QStringLiteral("shortcuts"));
    for (const QAction* action : m_actions) {
        const QKeySequence keys = shortcut(action);
        if (!keys.isEmpty())
            file.writeEntry(QStringLiteral("shortcut"),
                            {{QStringLiteral("action"), name(action)}, {QStringLiteral("keys"), keys.toString()}});
    }
    return file.commit();
}

void QActionManager::editorSwitched(int editor)
{
    m_editor = editor;
}

void QActionManager::retranslate()
{
    for (QAction* action : std::as_const(m_actions)) {
        action->setText(QCoreApplication::translate(context, m_records.value(action).text));
        trAction(action);
    }
    if (!m_actions.isEmpty())
        emit dataChanged(index(0, 0), index(int(m_actions.size()) - 1, 1));
}

void QActionManager::trAction(QAction* action)
{
    QString tip = action->text().remove(QLatin1Char('&'));
    const QKeySequence keys = shortcut(action);
    if (!keys.isEmpty())
        tip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
    action->setToolTip(tip);
}

int QActionManager::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_actions.size());
}

int QActionManager::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant QActionManager::data(const QModelIndex& index, int role) const
{
    const QAction* action = m_actions.value(index.row());
    if (!action)
        return QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        if (index.column() == 0)
            return action->text().remove(QLatin1Char('&'));
        return shortcut(action).toString(QKeySequence::NativeText);
    }
    if (role == Qt::DecorationRole && index.column() == 0)
        return action->icon();
    return QVariant();
}

QVariant QActionManager::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return section == 0 ? QCoreApplication::translate(context, "Function")
                        : QCoreApplication::translate(context, "Shortcut");
}
