#pragma once

#include <QAbstractListModel>
#include <QList>

class QAction;
class QActionManager;

/**
 * The actions the action dock offers now: those in scope of the current
 * editor, each with its tooltip (label and keys) and icon.
 */
class QActionList : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QActionList(QActionManager* actions, QObject* parent = nullptr);

    /// Shows the actions of that editor and the global ones; none for 9.
    void setFilter(int editor);
    QAction* at(int row) const { return m_rows.value(row); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    QActionManager* m_actions;
    QList<QAction*> m_rows;
};
