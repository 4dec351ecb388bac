#pragma once

#include "qtextdocumenteditor.h"

#include <memory>

class QSyntaxTextEditor;

/**
 * A text file of the project that has no model of its own yet (the
 * animations and the commands): read from disk as the DEF names it and
 * shown read-only, coloured like the editable files, so the author sees the
 * whole project. The file is read again whenever the project is shown.
 */
class QTextFileViewer : public QTextDocumentEditor
{
    Q_OBJECT
public:
    struct Kind
    {
        QInterfaceEditors id;
        const char* name;
        const char* iconName;
        const char* title; ///< untranslated, context "QTextFileViewer"
        unsigned int projectTypes;
        int areas;
    };

    QTextFileViewer(const Kind& kind, QTextWorkspace* workspace, QObject* parent = nullptr);
    ~QTextFileViewer() override;

    QInterfaceEditors id() const override { return m_kind.id; }
    QString iconName() const override { return QString::fromLatin1(m_kind.iconName); }
    QString name() const override { return QString::fromLatin1(m_kind.name); }
    QString title() const override;
    int areas() const override { return m_kind.areas; }
    int file() const override { return int(m_kind.id); }
    unsigned int projectTypes() const override { return m_kind.projectTypes; }
    void setProject(QProject* project) override;

protected:
    int documentCount() const override;
    QTextDocument* documentAt(int index) const override;
    QString documentTitle(int index) const override;
    QString panelNote() const override;

private:
    Kind m_kind;
    std::unique_ptr<QSyntaxTextEditor> m_text;
    bool m_loaded = false;
};
