#pragma once

#include <QDialog>

class QListWidget;

/// "Project template": the author picks the script that fills a new project.
class ProjDlg : public QDialog
{
    Q_OBJECT
public:
    /// Lists the templates; `templates` are names of the category "project".
    ProjDlg(QWidget* parent, const QStringList& templates);

    /// The chosen template's name, empty when none is selected.
    QString selected() const;

private:
    QListWidget* m_list;
};
