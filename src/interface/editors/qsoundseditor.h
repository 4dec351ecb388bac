#pragma once

#include "qvieweditor.h"

#include <QList>
#include <QStringList>

#include <functional>

class QAction;
class QLabel;
class QSounds;
class QSoundsTableModel;
class QTableView;
class QToolBar;
class QWaveformView;

/**
 * The sounds of a character: the table of its SND file (group, number,
 * format, length) with the waveform of the current sound under it, and the
 * tool bar to play, add, replace, delete, move, export and import sounds.
 * Every change goes through the undoable edits of the sounds, so the
 * window's Undo and Redo take it back. Group and number are edited in the
 * table.
 *
 * The file operations come in two halves: the actions ask for file names,
 * the public calls below take them, so a session can run without dialogs.
 * A WAV file that can't stand as a sound is named in a one-line warning and
 * nothing changes.
 */
class QSoundsEditor : public QViewEditor
{
    Q_OBJECT
public:
    explicit QSoundsEditor(QViewWorkspace* workspace, QObject* parent = nullptr);

    QInterfaceEditors id() const override { return ieSounds; }
    QString iconName() const override { return QStringLiteral("editor_snd"); }
    QString name() const override { return QStringLiteral("sounds"); }
    QString title() const override { return tr("Sounds"); }
    int file() const override { return 5; }
    unsigned int projectTypes() const override { return 2; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void setProject(QProject* project) override;
    void deactivate() override;
    void reconfig() override;
    void retranslate() override { updateSummary(); }
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

    /// The position of the current sound; -1 when there is none.
    int currentPosition() const;
    void setCurrentPosition(int position);
    /// The selected positions, in order.
    QList<int> selectedPositions() const;

    /// Adds the WAV files after the current sound, in its group with the next free numbers.
    bool addFiles(const QStringList& files);
    /// Adds the files as group `group`, numbered from `first` in the order given.
    bool addBatch(const QStringList& files, qint32 group, qint32 first);
    /// Puts the WAV file in place of the current sound's bytes.
    bool replaceCurrent(const QString& file);
    void removeSelected();
    /// Moves the current sound one place up (-1) or down (1).
    void moveCurrent(int step);
    void play(bool loop);
    void stop();
    /// Moves the current sound's whole group to another group number.
    void renameCurrentGroup(qint32 newGroup);
    void removeCurrentGroup();
    /// Writes WAV files and their list ("*.def": the sound compiler's script).
    bool exportSelection(const QString& path);
    bool exportCurrentGroup(const QString& path);
    /// Adds the sounds of this program's export after the current sound.
    bool importExport(const QString& path);

private:
    void buildToolBar();
    QAction* addAction(const QString& objectName, const QString& text, const std::function<void()>& run);
    QSounds* sounds() const;
    /// Reads the WAV files, or warns naming the first bad one; empty list then.
    QList<QByteArray> readWAVs(const QStringList& files) const;
    void insertSounds(int position, const QList<QByteArray>& wavs, qint32 group, qint32 first);
    qint32 nextFreeNumber(qint32 group) const;
    void warn(const QString& text) const;
    void updateSummary();
    void updateWaveform();
    void updateActions();

    // The dialog halves.
    void askAddFiles();
    void askAddBatch();
    void askReplace();
    void askRenameGroup();
    void askExportSelection();
    void askExportGroup();
    void askImport();
    QString askExportName(const QString& title);

    QProject* m_project = nullptr;
    QLabel* m_header;
    QToolBar* m_toolBar;
    QTableView* m_table;
    QSoundsTableModel* m_model;
    QWaveformView* m_waveform;
    QList<QAction*> m_needCurrent; ///< actions that act on the current sound
};
