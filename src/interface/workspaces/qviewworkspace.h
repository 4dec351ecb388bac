#pragma once

#include "interface/qinterfaceworkspace.h"

class QStackedWidget;

/**
 * The workspace of sprites, animations and sounds: a host in which each of
 * these editors shows its own view.
 */
class QViewWorkspace : public QInterfaceWorkspace
{
    Q_OBJECT
public:
    explicit QViewWorkspace(QObject* parent = nullptr);
    ~QViewWorkspace() override;

    QInterfaceWorkspaces id() const override { return iwAnimSprites; }
    QString name() const override { return QStringLiteral("animsprites"); }
    QWidget* widget() const override;

    /// Shows the view, adding it to the host on first use.
    void showView(QWidget* view);

private:
    QStackedWidget* m_host;
};
