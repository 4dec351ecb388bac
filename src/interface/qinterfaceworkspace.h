#pragma once

#include <QObject>
#include <QString>

class QProject;
class QWidget;

/// The workspaces of the window, shared by the editors that show in them.
enum QInterfaceWorkspaces {
    iwText = 0,
    iwAnimSprites = 1,
    iwNone = 4,
};

/**
 * The central view that editors of one kind share: the text view of every
 * text file, or the view of sprites and animations. Editors put what they
 * show into it; the window shows the workspace of the current editor.
 */
class QInterfaceWorkspace : public QObject
{
    Q_OBJECT
public:
    explicit QInterfaceWorkspace(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    virtual QInterfaceWorkspaces id() const = 0;
    virtual QString name() const = 0;
    virtual QWidget* widget() const = 0;
    virtual void activate() {}
    virtual void deactivate() {}
    virtual void setProject(QProject*) {}
    /// The author clicked the workspace's status label.
    virtual void statusClicked() {}
    /// Reads its colours and fonts from the configuration again.
    virtual void reconfig() {}
};

/// An editor of the right panel (organizer, palettes, thumbnails).
class QInterfaceExtraEditor : public QObject
{
    Q_OBJECT
public:
    explicit QInterfaceExtraEditor(QObject* parent = nullptr)
        : QObject(parent)
    {
    }

    virtual int id() const = 0;
    virtual QString name() const = 0;
    virtual QString title() const = 0;
    virtual void initialized(QWidget* rightPage) = 0;
    virtual void setProject(QProject*) {}
    virtual void activate(bool) {}
    virtual void deactivate() {}
    /// Whether it has anything to show beside the editor `editor` (a QInterfaceEditors id).
    virtual bool serves(int editor) const { return editor >= 0; }
    /// The panel shows it beside the editor `editor` now.
    virtual void showFor(int editor) {}
};
