#pragma once

#include "qtextdocumenteditor.h"

#include <QVariantMap>

#include <memory>

class QSyntaxTextEditor;

/**
 * The state files of a character (CNS and ST), in the DEF's order, one tab
 * each, and after them the common states the engine brings (common1.cns
 * from its data folder), shown read-only when the project has no copy of
 * its own. A state file added or opened here is named in the DEF's [Files]
 * group, and a removed one loses its line there, so the DEF stays the truth
 * about the project.
 */
class QStatesEditor : public QTextDocumentEditor
{
    Q_OBJECT
public:
    explicit QStatesEditor(QTextWorkspace* workspace, QObject* parent = nullptr);
    ~QStatesEditor() override;

    QInterfaceEditors id() const override { return ieStates; }
    QString iconName() const override { return QStringLiteral("editor_st"); }
    QString name() const override { return QStringLiteral("states"); }
    QString title() const override { return tr("States"); }
    int areas() const override { return ExtraToolBar | LeftPanel | TextBar; }
    int file() const override { return 4; }
    unsigned int projectTypes() const override { return 2; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void setProject(QProject* project) override;

    /// A new state file at the end, made as `fileName` beside the DEF and
    /// named in its [Files]; false when the file can't be written.
    bool addStateFile(const QString& fileName);
    /// Reads a state file into the project; false when it can't be read.
    bool openStateFile(const QString& path);
    /// Takes the state file at `index` out of the project and its DEF, after
    /// asking about unsaved edits; its file on disk stays.
    bool removeStateFile(int index);
    /**
     * Asks for a throw in "New throw" and writes it with insertThrow(). The
     * states go to the shown state file (the first when the engine's common
     * states are shown).
     */
    void throwCreator();
    /**
     * Runs makeThrow and makeThrowCommand of "common/Throw" on `options`
     * (their keys) and writes the result: the states at the end of state
     * file `index`, the command after the CMD's commands and its state -1
     * entry before the first move on a single button (so that button near
     * the opponent throws), each file as one undo step. Then shows the
     * states and tells where each part went. False, after the "Throw script
     * error" box, when the script fails.
     */
    bool insertThrow(const QVariantMap& options, int index);
    /// Where the last throw went, as the status bar told it.
    QString lastThrowReport() const { return m_throwReport; }
    /// Whether a read-only tab shows the engine's common states.
    bool showsCommon() const { return m_common != nullptr; }

protected:
    int documentCount() const override;
    QTextDocument* documentAt(int index) const override;
    QString documentTitle(int index) const override;
    QProjectFile* projectFileAt(int index) const override;
    QString panelNote() const override;
    QString snippetKind() const override { return QStringLiteral("states"); }
    bool alwaysTabs() const override { return true; }

private:
    void loadCommon();
    /// Adds "stN = name" to the DEF's [Files] group, N the first free number.
    void nameInDefinitions(const QString& name);

    std::unique_ptr<QSyntaxTextEditor> m_common;
    QString m_throwReport;
};
