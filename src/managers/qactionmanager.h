#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QKeySequence>
#include <QList>

#include <initializer_list>

class QAction;

/**
 * Every action the author can trigger, each with a stable name ("file_open",
 * "edit_undo"...), its scopes and its shortcut. A scope is an editor id (0 to
 * 5, the editors of the window) or `global`; an action of editor scopes is
 * offered and triggered only while one of its editors is current.
 *
 * Keys are not set on the actions themselves: each key sequence in use has
 * one hidden shortcut action that the window carries, shared by all actions
 * bound to those keys. When it fires, the manager triggers the bound action
 * that is in scope now. So the same keys may stand for different actions in
 * different editors, while two bindings whose scopes meet are refused.
 *
 * The table (one column, "Function", plus the keys) is what the options
 * dialog edits.
 */
class QActionManager : public QAbstractTableModel
{
    Q_OBJECT
public:
    static constexpr int global = 8;
    static constexpr int noEditor = 9;

    explicit QActionManager(QObject* parent = nullptr);
    ~QActionManager() override;

    /**
     * Makes an action. `text` is its untranslated label in the context
     * "QActionManager". A target with a slot hears triggered() (toggled(bool)
     * for a checkable action); a target with a signal drives setEnabled(bool).
     */
    QAction* add(std::initializer_list<int> scopes, const QString& name, const char* text, bool checkable = false,
                 const QObject* target = nullptr, const char* slot = nullptr, const char* signal = nullptr);

    int count() const { return int(m_actions.size()); }
    QAction* at(int index) const { return m_actions.value(index); }
    QAction* operator[](int index) const { return at(index); }
    QAction* operator[](const QString& name) const { return fromName(name); }
    /// Null for an unknown name.
    QAction* fromName(const QString& name) const;
    QString name(const QAction* action) const;
    bool inScope(const QAction* action, int editor) const;

    /// Binds keys (empty keys unbind); false, after a warning titled
    /// "Conflict!", when another binding of the same keys meets its scope.
    bool setShortcut(QAction* action, const QKeySequence& keys);
    QKeySequence shortcut(const QAction* action) const;
    /// The hidden actions that carry the keys; the window adds them to itself.
    QList<QAction*> shortcutActions() const;

    /// Reads "shortcuts.xml"; unknown actions are skipped, a fault is reported
    /// and keeps what was read before it. False when the file is absent or bad.
    bool shortcutsFromFile(const QString& fileName);
    bool shortcutsToFile(const QString& fileName) const;

    void editorSwitched(int editor);
    int currentEditor() const { return m_editor; }
    /// Translates every label and refreshes the tooltips with their keys.
    void retranslate();
    void trAction(QAction* action);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    /// A new hidden shortcut action exists; the window must carry it.
    void shortcutActionAdded(QAction* shortcut);

private slots:
    void shortcutTriggered();

private:
    struct Record
    {
        QString name;
        const char* text = nullptr;
        unsigned int scopes = 0; ///< bit n for scope n
        QAction* shortcut = nullptr;
    };

    QAction* shortcutFor(const QKeySequence& keys);

    QList<QAction*> m_actions;
    QHash<const QAction*, Record> m_records;
    QHash<QString, QAction*> m_byName;
    QHash<QKeySequence, QAction*> m_shortcuts;
    int m_editor = noEditor;
};
