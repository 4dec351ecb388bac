#pragma once

#include "interface/qinterfaceworkspace.h"

class QListWidget;

/**
 * The palettes of the project on the right panel: the twelve palette files
 * a character's DEF may name, each with whether it is there, so the author
 * sees beside the sprites which colours the engine will offer.
 */
class QPalettesEditor : public QInterfaceExtraEditor
{
    Q_OBJECT
public:
    using QInterfaceExtraEditor::QInterfaceExtraEditor;

    int id() const override { return 1; }
    QString name() const override { return QStringLiteral("palettes"); }
    QString title() const override { return tr("Palettes"); }
    void initialized(QWidget* rightPage) override;
    void setProject(QProject* project) override;

private:
    QListWidget* m_list = nullptr;
};
