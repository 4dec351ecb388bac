#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/**
 * The find bar under the text: it finds as the author types (incremental),
 * with regular expressions, letter case and whole words as chosen, and
 * replaces the current match or all of them in the shown text. Escape hides
 * it and gives the focus back to the text.
 */
class QQuickFind : public QWidget
{
    Q_OBJECT
public:
    explicit QQuickFind(QPlainTextEdit* editor, QWidget* parent = nullptr);

    /// Shows the bar with the editor's selection (or the last text) to find.
    void start();
    bool findNext(bool backward = false);
    void replaceCurrent();
    int replaceAll();

    QLineEdit* findField() const { return m_find; }
    QLineEdit* replaceField() const { return m_replace; }
    QCheckBox* regexBox() const { return m_regex; }
    QCheckBox* caseBox() const { return m_case; }
    QCheckBox* wordBox() const { return m_word; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void incremental();
    void showResult(bool found);

    QPlainTextEdit* m_editor;
    QLineEdit* m_find;
    QLineEdit* m_replace;
    QCheckBox* m_regex;
    QCheckBox* m_case;
    QCheckBox* m_word;
    QLabel* m_status;
    int m_start = 0; ///< where the incremental search began
};
