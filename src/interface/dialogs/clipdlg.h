#pragma once

#include <QDialog>

class QListWidget;

/**
 * The texts the author copied or cut while the program runs
 * ("view_clipboard"), newest first. Pasting one puts it back on the
 * clipboard and asks the window to paste it into the current editor.
 */
class ClipDlg : public QDialog
{
    Q_OBJECT
public:
    static constexpr int maxEntries = 20;

    explicit ClipDlg(QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }

public slots:
    /// Puts the chosen text on the clipboard and sends execAction("edit_paste").
    void pasteCurrent();

signals:
    void execAction(const QString& action);

private:
    void clipboardChanged();

    QListWidget* m_list;
};
