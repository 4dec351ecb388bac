#pragma once

#include "model/qprojecttypes.h"

#include <QDialog>

class QLabel;
class QListView;
class QMessageList;
class QModelIndex;

/**
 * Every fault of the current project in one list. Double-clicking a row
 * asks the window to show the place: the file's editor, the file, the line
 * and the column.
 */
class ErrorDlg : public QDialog
{
    Q_OBJECT
public:
    explicit ErrorDlg(QWidget* parent = nullptr);

    void setMessages(QMessageList* messages);
    QListView* view() const { return m_view; }
    void retranslate();

signals:
    void navigateTo(QProjectFileType file, int fileIndex, int index, int line);

private:
    void activated(const QModelIndex& index);
    void updateTotals();

    QMessageList* m_messages = nullptr;
    QListView* m_view;
    QLabel* m_totals;
    QLabel* m_empty; ///< stands in for the list when there is nothing in it
};
