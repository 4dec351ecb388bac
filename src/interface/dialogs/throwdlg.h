#pragma once

#include <QDialog>
#include <QMap>
#include <QSet>
#include <QVariantMap>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QProject;

/**
 * "New throw": what the throw creator of the states editor asks before it
 * writes a throw: the state numbers, the animations of both players, the
 * hold and the release, the flight, the damage and the command that starts
 * it. Each field is named after its key of the throw script's options
 * ("StateNo", "P1Anim", ...). The fields start from the project (the first
 * free state numbers, the throw actions its AIR has, a command its CMD
 * lacks) and are checked as the author changes them: OK stays off while the
 * message under them says what is wrong.
 */
class ThrowDlg : public QDialog
{
    Q_OBJECT
public:
    /// State numbers a throw takes beyond its first: the hold, and the opponent's two.
    static constexpr int holdOffset = 10;
    static constexpr int heldOffset = 20;
    static constexpr int flyingOffset = 21;

    ThrowDlg(QWidget* parent, QProject* project);

    /// The fields under the script's keys: numbers as int or double, texts as strings.
    QVariantMap options() const;
    /// What is wrong with the fields now; empty when they make a throw.
    QString problem() const;

    /// The first number from `from` on, in steps of ten, whose throw states are all free.
    static int firstFreeThrow(const QSet<int>& used, int from);

private:
    /// A field named `key`, checked again at each change.
    QWidget* addNumber(QWidget* page, const QString& key, int minimum, int maximum, int value, const QString& tip);
    QWidget* addDecimal(QWidget* page, const QString& key, double value, const QString& tip);
    QWidget* field(const QString& key) const;
    int number(const QString& key) const;
    QString text(const QString& key) const;
    void refresh();

    QProject* m_project;
    QMap<int, QString> m_states;       ///< state numbers in use, with where they are
    QSet<int> m_actions;               ///< the AIR's action numbers
    QMap<int, int> m_frames;           ///< frames of each action
    QMap<QString, QString> m_commands; ///< the CMD's command names (lower case) and their keys
    QLabel* m_statesNote;
    QLabel* m_message;
    QComboBox* m_command;
    QDialogButtonBox* m_buttons;
};
