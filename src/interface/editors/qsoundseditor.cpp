#include "qsoundseditor.h"

#include "qsoundstablemodel.h"
#include "qwaveformview.h"

#include "model/qproject.h"
#include "managers/qiconmanager.h"
#include "model/qsounds.h"

#include <QAction>
#include <QSet>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

QSoundsEditor::QSoundsEditor(QViewWorkspace* workspace, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_header(new QLabel(view()))
    , m_toolBar(new QToolBar(view()))
    , m_table(new QTableView)
    , m_model(new QSoundsTableModel(this))
    , m_waveform(new QWaveformView)
{
    view()->setObjectName(QStringLiteral("soundsView"));
    m_header->setObjectName(QStringLiteral("viewHeader"));
    m_header->setWordWrap(true);
    m_toolBar->setObjectName(QStringLiteral("soundsToolBar"));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    m_table->setObjectName(QStringLiteral("soundsTable"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    // Compact rows: a character has dozens of sounds, and more of them should fit beside the waveform.
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_waveform->setObjectName(QStringLiteral("soundsWaveform"));

    auto* splitter = new QSplitter(Qt::Vertical, view());
    splitter->addWidget(m_table);
    splitter->addWidget(m_waveform);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(view());
    layout->addWidget(m_header);
    layout->addWidget(m_toolBar);
    layout->addWidget(splitter, 1);
    buildToolBar();

    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this]() {
        updateWaveform();
        updateActions();
    });
    // Any change of the sounds may change what the summary and the waveform show.
    for (auto signal : { &QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved })
        connect(m_model, signal, this, [this]() {
            updateSummary();
            updateWaveform();
            updateActions();
        });
    connect(m_model, &QAbstractItemModel::rowsMoved, this, &QSoundsEditor::updateActions);
    connect(m_model, &QAbstractItemModel::dataChanged, this, [this]() {
        updateSummary();
        updateWaveform();
    });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this]() {
        updateSummary();
        updateWaveform();
        updateActions();
    });
}

void QSoundsEditor::buildToolBar()
{
    m_needCurrent << addAction(QStringLiteral("sound_play"), tr("Play"), [this] { play(false); });
    m_needCurrent << addAction(QStringLiteral("sound_loop"), tr("Play in a loop"), [this] { play(true); });
    addAction(QStringLiteral("sound_stop"), tr("Stop"), [this] { stop(); });
    m_toolBar->addSeparator();
    addAction(QStringLiteral("sound_add"), tr("Add WAV files..."), [this] { askAddFiles(); });
    addAction(QStringLiteral("sound_add_batch"), tr("Add WAV files as a numbered group..."),
        [this] { askAddBatch(); });
    m_needCurrent << addAction(
        QStringLiteral("sound_replace"), tr("Replace with a WAV file..."), [this] { askReplace(); });
    m_needCurrent << addAction(QStringLiteral("sound_delete"), tr("Delete"), [this] { removeSelected(); });
    m_needCurrent << addAction(QStringLiteral("sound_up"), tr("Move up"), [this] { moveCurrent(-1); });
    m_needCurrent << addAction(QStringLiteral("sound_down"), tr("Move down"), [this] { moveCurrent(1); });
    m_needCurrent << addAction(QStringLiteral("sound_rename_group"),
        tr("Move the group to another number..."), [this] { askRenameGroup(); });
    m_needCurrent << addAction(
        QStringLiteral("sound_remove_group"), tr("Delete the whole group"), [this] { removeCurrentGroup(); });
    m_toolBar->addSeparator();
    m_needCurrent << addAction(QStringLiteral("sound_export_selection"), tr("Export the selected sounds..."),
        [this] { askExportSelection(); });
    m_needCurrent << addAction(
        QStringLiteral("sound_export_group"), tr("Export the group..."), [this] { askExportGroup(); });
    addAction(QStringLiteral("sound_import"), tr("Import an export of sounds..."), [this] { askImport(); });
    reconfig();
    updateActions();
}

QAction* QSoundsEditor::addAction(
    const QString& objectName, const QString& text, const std::function<void()>& run)
{
    QAction* action = m_toolBar->addAction(text);
    action->setObjectName(objectName);
    action->setToolTip(text);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void QSoundsEditor::reconfig()
{
    // The icons follow the window's icon set, by the actions' names.
    for (QAction* action : m_toolBar->actions()) {
        if (!action->isSeparator() && iconMan)
            action->setIcon(iconMan->icon(action->objectName()));
    }
}

void QSoundsEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    updateSummary();
}

void QSoundsEditor::setProject(QProject* project)
{
    if (sounds())
        sounds()->stop();
    m_project = project;
    m_model->setSounds(sounds());
    if (m_model->rowCount() > 0)
        setCurrentPosition(0);
    updateSummary();
    updateWaveform();
    updateActions();
}

void QSoundsEditor::deactivate()
{
    // A sound that loops would go on behind another editor with no way to stop it.
    if (sounds())
        sounds()->stop();
    QViewEditor::deactivate();
}

QSounds* QSoundsEditor::sounds() const
{
    return m_project ? m_project->sounds() : nullptr;
}

QUndoStack* QSoundsEditor::undoStack() const
{
    return sounds() ? sounds()->undoStack() : nullptr;
}

void QSoundsEditor::navigateTo(int, int index, int)
{
    setCurrentPosition(index);
}

int QSoundsEditor::currentPosition() const
{
    const QModelIndex current = m_table->currentIndex();
    return current.isValid() ? current.row() : -1;
}

void QSoundsEditor::setCurrentPosition(int position)
{
    if (position < 0 || position >= m_model->rowCount())
        return;
    m_table->selectionModel()->setCurrentIndex(
        m_model->index(position, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QList<int> QSoundsEditor::selectedPositions() const
{
    QList<int> positions;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        positions.append(index.row());
    std::sort(positions.begin(), positions.end());
    return positions;
}

void QSoundsEditor::removeSelected()
{
    const QList<int> positions = selectedPositions();
    if (!sounds() || positions.isEmpty())
        return;
    sounds()->stop();
    sounds()->beginChange();
    for (auto it = positions.crbegin(); it != positions.crend(); ++it)
        sounds()->remove(unsigned(*it));
    sounds()->endChange();
    setCurrentPosition(qMin(positions.first(), m_model->rowCount() - 1));
}

void QSoundsEditor::moveCurrent(int step)
{
    const int from = currentPosition();
    const int to = from + step;
    if (!sounds() || from < 0 || to < 0 || to >= sounds()->count())
        return;
    sounds()->move(unsigned(from), unsigned(to));
    setCurrentPosition(to);
}

void QSoundsEditor::play(bool loop)
{
    if (sounds() && currentPosition() >= 0)
        sounds()->play(currentPosition(), loop);
}

void QSoundsEditor::stop()
{
    if (sounds())
        sounds()->stop();
}

void QSoundsEditor::renameCurrentGroup(qint32 newGroup)
{
    const int position = currentPosition();
    if (!sounds() || position < 0)
        return;
    const qint32 group = sounds()->info(position).group;
    if (group != newGroup)
        sounds()->renameGroup(group, newGroup, true, 0, 0);
}

void QSoundsEditor::removeCurrentGroup()
{
    const int position = currentPosition();
    if (!sounds() || position < 0)
        return;
    sounds()->stop();
    sounds()->removeGroup(sounds()->info(position).group, true, 0, 0);
    setCurrentPosition(qMin(position, m_model->rowCount() - 1));
}

void QSoundsEditor::updateSummary()
{
    const QSounds* model = sounds();
    const int count = model ? model->count() : 0;
    const QString file = model && !model->fileName().isEmpty() ? QFileInfo(model->fileName()).fileName()
                                                               : tr("no sound file");
    double seconds = 0;
    QSet<qint32> groups;
    for (int i = 0; i < count; ++i) {
        seconds += model->at(i)->information.duration;
        groups.insert(model->at(i)->group);
    }
    m_header->setText(count > 0
            ? tr("%n sound(s) in %1. Double-click a group or number to change it.", nullptr, count).arg(file)
            : tr("This project has no sounds yet (%1). Add WAV files with the tool bar.").arg(file));
    if (summary())
        summary()->setText(
            tr("<b>File:</b> %1<br><b>Sounds:</b> %2<br><b>Groups:</b> %3<br><b>Length:</b> %4 s")
                .arg(file.toHtmlEscaped())
                .arg(count)
                .arg(groups.size())
                .arg(seconds, 0, 'f', 2));
}

void QSoundsEditor::updateWaveform()
{
    const int position = currentPosition();
    if (!sounds() || position < 0) {
        m_waveform->setSound(QByteArray(), tr("No sound selected."));
        return;
    }
    const QSample* sample = sounds()->at(position);
    const QWAVInfo& wav = sample->information;
    QString caption = tr("Sound %1, %2").arg(sample->group).arg(sample->sample);
    if (!sample->item)
        caption += tr(": empty");
    else if (wav.channels == 0)
        caption += tr(": not PCM, no waveform");
    else
        caption += tr(": %n channel(s), %1 Hz, %2 bits, %3 s", nullptr, wav.channels)
                       .arg(wav.rate)
                       .arg(wav.bits)
                       .arg(double(wav.duration), 0, 'f', 3);
    m_waveform->setSound(sounds()->sampleData(position), caption);
}

void QSoundsEditor::updateActions()
{
    const bool current = sounds() && currentPosition() >= 0;
    for (QAction* action : std::as_const(m_needCurrent))
        action->setEnabled(current);
}
