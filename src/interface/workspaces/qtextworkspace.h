#pragma once

#include "interface/qinterfaceworkspace.h"

class FindDlgMlt;
class QQuickFind;
class QTabBar;
class QTextView;

/**
 * The workspace of every text file: one text view that the text editors
 * fill, the tabs of the current editor's files above it, the find bar under
 * it and the find and replace across the project's files. The window's Edit
 * menu opens both finds.
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
    /// The files of the current editor, one tab each; hidden for an editor of one file.
    QTabBar* tabs() const { return m_tabs; }
    QQuickFind* quickFind() const { return m_quickFind; }
    FindDlgMlt* findInFiles() const { return m_findInFiles; }

private:
    QWidget* m_widget;
    QTabBar* m_tabs;
    QTextView* m_view;
    QQuickFind* m_quickFind;
    FindDlgMlt* m_findInFiles;
};
