#pragma once

#include "managers/qmugenmodel.h"

#include <QDialog>

class QLineEdit;

/// Edits one engine installation: its name, executable, parameters and icon.
class MugenDlg : public QDialog
{
    Q_OBJECT
public:
    explicit MugenDlg(const QMugenInfo& info, QWidget* parent = nullptr);

    QMugenInfo info() const;

private:
    QLineEdit* m_name;
    QLineEdit* m_executable;
    QLineEdit* m_parameters;
    QLineEdit* m_icon;
};
