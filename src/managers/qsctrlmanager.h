#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/**
 * The controller templates and the words' descriptions of the folder
 * "sctrls": "controllers.txt" lists each state controller with a one-line
 * description and the parameters a new one starts with, "triggers.txt" each
 * trigger as the engine's documents spell it, with a description where one
 * is written. Lines are "name | description | parameters"; ";" starts a
 * comment line. The editor inserts templates at the cursor and shows the
 * descriptions over the words.
 */
class QSCtrlManager
{
public:
    explicit QSCtrlManager(const QString& dir);

    /// Reads the folder again; false when it has no controllers.
    bool load(const QString& dir);

    /// The controllers, as spelled, in the file's order.
    QStringList controllers() const { return m_controllers; }
    /// The description of a controller or a trigger (any letter case); empty when none.
    QString description(const QString& word) const;
    /// The text of a new controller of that name for state `state`; empty for an unknown name.
    QString templateFor(const QString& controller, const QString& state) const;
    /// The spelling of each trigger by its lowered name.
    QHash<QString, QString> triggerSpellings() const { return m_spellings; }

private:
    QStringList m_controllers;
    QHash<QString, QString> m_descriptions; ///< by lowered name
    QHash<QString, QStringList> m_params;   ///< by lowered controller name
    QHash<QString, QString> m_spellings;
};

/// The process's controller templates (made by the window).
extern QSCtrlManager* sctrlsMan;
