#pragma once

#include "interface/qinterfaceworkspace.h"

class QTextView;

/// The workspace of every text file: one text view that the text editors fill.
class QTextWorkspace : public QInterfaceWorkspace
{
    Q_OBJECT
public:
    explicit QTextWorkspace(QObject* parent = nullptr);
    ~QTextWorkspace() override;

    QInterfaceWorkspaces id() const override { return iwText; }
    QString name() const override { return QStringLiteral("text"); }
    QWidget* widget() const override;
    void reconfig() override;

    QTextView* view() const { return m_view; }

private:
    QTextView* m_view;
};
