#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProject;
class QSyntaxTextEditor;
class QTextDocument;
class QTreeWidget;
class QTreeWidgetItem;

/**
 * Find and replace across every text file of the project: the DEF and each
 * state file. The results list a file, line and text per match, and a
 * double-click opens the file's editor at the match. Replace all changes
 * each file in one undo step of its own document; "Undo replace" takes the
 * last replace back in every file it touched.
 */
class FindDlgMlt : public QDialog
{
    Q_OBJECT
public:
    explicit FindDlgMlt(QWidget* parent = nullptr);

    void setProject(QProject* project);

    /// Lists the matches; returns how many there are.
    int findAll();
    /// Replaces in every file; returns how many matches were replaced.
    int replaceAll();
    /// Undoes the last replaceAll() in every file it changed.
    void undoReplace();

    QLineEdit* findField() const { return m_find; }
    QLineEdit* replaceField() const { return m_replace; }
    QCheckBox* regexBox() const { return m_regex; }
    QCheckBox* caseBox() const { return m_case; }
    QCheckBox* wordBox() const { return m_word; }
    QTreeWidget* results() const { return m_results; }

signals:
    /// The author chose a result: the file (type and index), column and line.
    void navigate(int fileType, int fileIndex, int column, int line);

private:
    struct File
    {
        int type;
        int index;
        QSyntaxTextEditor* text;
    };
    QList<File> files() const;

    QPointer<QProject> m_project;
    QLineEdit* m_find;
    QLineEdit* m_replace;
    QCheckBox* m_regex;
    QCheckBox* m_case;
    QCheckBox* m_word;
    QTreeWidget* m_results;
    QLabel* m_status;
    QList<QPointer<QTextDocument>> m_replaced;
};
