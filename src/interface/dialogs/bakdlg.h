#pragma once

#include <QDialog>
#include <QString>

class QBakManager;
class QListView;

/// Lists the backups of a project, newest first, and gives the DEF of the one chosen.
class BakDlg : public QDialog
{
    Q_OBJECT
public:
    BakDlg(QWidget* parent, const QString& defFile);

    /// The DEF inside the chosen backup; empty when none is chosen.
    QString fileName() const;

private:
    QBakManager* m_backups;
    QListView* m_list;
};
