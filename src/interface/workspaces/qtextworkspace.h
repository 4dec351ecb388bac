#pragma once

#include "interface/qinterfaceworkspace.h"

#include <memory>

class FindDlgMlt;
class QQuickFind;
class QFileWatcherManager;
class QSCtrlManager;
class QTextView;

/**
 * The workspace of every text file: one text view that the text editors
 * fill, with the find bar under it (Ctrl+F) and the find and replace across
 * the project's files (Ctrl+Shift+F).
 */
class QTextWorkspace : public QInterfaceWorkspace
{
    Q_OBJECT
public:
    explicit QTextWorkspace(QObject* parent = nullptr);
    ~QTextWorkspace() override;

    QInterfaceWorkspaces id() const override { return iwText; }
    QString name() const override { return QStringLiteral("text"); }
    QWidget* widget() const override;
    void setProject(QProject* project) override;
    void reconfig() override;

    QTextView* view() const { return m_view; }
    QQuickFind* quickFind() const { return m_quickFind; }
    FindDlgMlt* findInFiles() const { return m_findInFiles; }

private:
    QWidget* m_widget;
    QTextView* m_view;
    QQuickFind* m_quickFind;
    FindDlgMlt* m_findInFiles;
    std::unique_ptr<QSCtrlManager> m_sctrls; ///< only while the window made none
    std::unique_ptr<QFileWatcherManager> m_watcher; ///< likewise
};
