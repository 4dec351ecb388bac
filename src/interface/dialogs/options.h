#pragma once

#include <QDialog>

class QActionManager;
class QCheckBox;
class QComboBox;
class QKeySequenceEdit;
class QListView;
class QSpinBox;
class QTableView;

/**
 * The options of the program ("tools_options"): language and look, the
 * shortcuts of every action, and the engines to run projects in. The look
 * and the language are written to the configuration on OK and applied by
 * the window; shortcuts and engines take effect as they are edited.
 */
class Options : public QDialog
{
    Q_OBJECT
public:
    Options(QActionManager* actions, QWidget* parent = nullptr);

    /// Shows the configuration's values in the dialog's fields.
    void loadConfig();
    QTableView* shortcutsView() const { return m_shortcuts; }
    QKeySequenceEdit* keysEdit() const { return m_keys; }

public slots:
    void accept() override;
    void on_mugenAdd_clicked();
    void on_mugenEdit_clicked();
    void on_mugenDel_clicked();
    void on_mugenClear_clicked();
    void on_mugenUp_clicked();

private:
    QWidget* generalPage();
    QWidget* shortcutsPage();
    QWidget* enginesPage();
    void assignKeys();

    QActionManager* m_actions;
    QComboBox* m_language = nullptr;
    QComboBox* m_preset = nullptr;
    QComboBox* m_iconset = nullptr;
    QComboBox* m_style = nullptr;
    QComboBox* m_colorset = nullptr;
    QCheckBox* m_confirmClose = nullptr;
    QSpinBox* m_maxHistory = nullptr;
    QTableView* m_shortcuts = nullptr;
    QKeySequenceEdit* m_keys = nullptr;
    QListView* m_mugens = nullptr;
};
