#pragma once

#include "interface/qinterfaceworkspace.h"

#include <QPointer>

class QIdentityProxyModel;
class QLabel;
class QListView;
class QOrganizableObject;
class QProject;

/**
 * The items of the current editor on the right panel, in file order: the
 * sprites, actions, commands or sounds. The author drags an item to another
 * place, or has the whole list sorted as the engine expects it
 * ("Auto-organize"). Both are undoable edits of the file.
 */
class QOrganizerEditor : public QInterfaceExtraEditor
{
    Q_OBJECT
public:
    using QInterfaceExtraEditor::QInterfaceExtraEditor;

    int id() const override { return 0; }
    QString name() const override { return QStringLiteral("organizer"); }
    QString title() const override { return tr("Organizer"); }
    bool serves(int editor) const override;
    void initialized(QWidget* rightPage) override;
    void setProject(QProject* project) override;
    void showFor(int editor) override;

    /// The list shown; null beside an editor without one.
    QOrganizableObject* items() const { return m_items; }
    QListView* view() const { return m_view; }
    /// Moves the item at `from` to `to`, as a drop does.
    void moveItem(int from, int to);
    void autoOrganize();

private:
    void showItems();

    QPointer<QProject> m_project;
    int m_editor = -1;
    QOrganizableObject* m_items = nullptr;
    QIdentityProxyModel* m_proxy = nullptr;
    QListView* m_view = nullptr;
    QLabel* m_empty = nullptr;
};
