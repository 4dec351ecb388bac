#pragma once

#include "managers/qmugenmodel.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;

/**
 * "M.U.G.E.N.": edits one engine installation, its name, executable and
 * command line, with the ready-made command lines in a combo box beside the
 * field: choosing one overwrites the field. A new engine starts with the
 * current character against itself.
 *
 * The icon field is offered but not kept: getInfo() always gives an empty
 * icon, so every engine shows the stock icon once it has passed through here.
 */
class MugenDlg : public QDialog
{
    Q_OBJECT
public:
    /// `info` null for a new engine.
    MugenDlg(QWidget* parent, const QMugenInfo* info);

    /// Name, executable and parameters as the fields hold them; the icon empty.
    QMugenInfo getInfo() const;

public slots:
    /// Picks the executable.
    void on_pushButton_clicked();
    /// Picks an icon.
    void on_pushButton_2_clicked();

private:
    void choosePreset(int index);
    void updateOk();

    QLineEdit* m_name;
    QLineEdit* m_executable;
    QLineEdit* m_icon;
    QLineEdit* m_parameters;
    QComboBox* m_presets;
    QPushButton* m_ok = nullptr;
};
