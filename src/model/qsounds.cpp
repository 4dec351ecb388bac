#include "qsounds.h"

#include "model/qsoundcommands.h"
#include "model/qsoundplayer.h"
#include "util/qprompt.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <cmath>

namespace {

/// Milliseconds a sound is given after its length before stopped() is announced.
constexpr int stopGraceMs = 1000;

bool orgLess(const QSample* a, const QSample* b)
{
    return a->group != b->group ? a->group < b->group : a->sample < b->sample;
}

} // namespace

QSounds::QSounds(QProject* project, QStreamCacheType cacheType, bool compress, int level)
    : QProjectFile(project, pftSounds)
    , m_cache(cacheType, QStringLiteral("mugensnd"), compress, level)
    , m_scratch(QDir::tempPath() + QStringLiteral("/snd-XXXXXX.wav"))
{
    m_header.setSignature();
    m_header.comment = QSNDHeader::ownComment();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QSounds::stopped);
}

QSounds::~QSounds()
{
    stop();
    for (QSample* sample : std::as_const(m_samples)) {
        if (sample->item)
            m_cache.deleteItem(sample->item);
        delete sample;
    }
}

int QSounds::find(int start, qint32 group, qint32 sample) const
{
    for (int i = qMax(start, 0); i < count(); ++i) {
        if (m_samples.at(i)->group == group && m_samples.at(i)->sample == sample)
            return i;
    }
    return -1;
}

QSoundInfo QSounds::info(int position) const
{
    const QSample* sample = at(position);
    return sample ? sample->info() : QSoundInfo();
}

QWAVInfo QSounds::wavInfo(int position) const
{
    const QSample* sample = at(position);
    return sample ? sample->information : QWAVInfo();
}

QByteArray QSounds::sampleData(int position)
{
    const QSample* sample = at(position);
    return sample && sample->item ? m_cache.itemData(sample->item) : QByteArray();
}

int QSounds::previousGroup(int position) const
{
    if (position <= 0 || position >= count())
        return -1;
    const qint32 group = m_samples.at(position)->group;
    int i = position - 1;
    while (i >= 0 && m_samples.at(i)->group == group)
        --i;
    if (i < 0)
        return -1;
    const qint32 previous = m_samples.at(i)->group;
    while (i > 0 && m_samples.at(i - 1)->group == previous)
        --i;
    return i;
}

int QSounds::nextGroup(int position) const
{
    if (position < 0 || position >= count())
        return -1;
    const qint32 group = m_samples.at(position)->group;
    for (int i = position + 1; i < count(); ++i) {
        if (m_samples.at(i)->group != group)
            return i;
    }
    return -1;
}

qint32 QSounds::nextNumber(qint32 group) const
{
    qint32 next = 0;
    for (const QSample* sample : m_samples) {
        if (sample->group == group)
            next = qMax(next, sample->sample + 1);
    }
    return next;
}

const QSample* QSounds::add()
{
    return insert(count());
}

const QSample* QSounds::insert(int position)
{
    if (position < 0 || position > count())
        position = count();
    const qint32 group = position > 0 ? m_samples.at(position - 1)->group : 0;
    QSample* sample = insertSample(position, QSoundInfo(group, nextNumber(group)), QByteArray());
    pushCommand(new SoundInsert(this, position));
    setModified(true);
    return sample;
}

const QSample* QSounds::duplicate(int position)
{
    const QSample* source = at(position);
    if (!source)
        return nullptr;
    const QSoundInfo info(source->group, nextNumber(source->group));
    QSample* copy = insertSample(position + 1, info, sampleData(position));
    pushCommand(new SoundInsert(this, position + 1));
    setModified(true);
    return copy;
}

void QSounds::move(unsigned int from, unsigned int to)
{
    const unsigned int size = unsigned(count());
    if (from >= size || to >= size || from == to)
        return;
    moveSample(int(from), int(to));
    pushCommand(new SoundMove(this, int(from), int(to)));
    setModified(true);
}

void QSounds::remove(unsigned int position)
{
    if (position >= unsigned(count()))
        return;
    if (!isChangeLocked())
        pushCommand(new SoundRemove(this, int(position)));
    deleteSample(int(position));
    setModified(true);
}

void QSounds::clear()
{
    stop();
    m_undoStack.clear();
    beginResetModel();
    for (QSample* sample : std::as_const(m_samples))
        delete sample;
    m_samples.clear();
    m_cache.clear();
    endResetModel();
    setModified(true);
}

QList<int> QSounds::positionsOf(qint32 group, bool wholeGroup, qint32 first, qint32 last) const
{
    QList<int> positions;
    for (int i = 0; i < count(); ++i) {
        const QSample* sample = m_samples.at(i);
        if (sample->group == group && (wholeGroup || (sample->sample >= first && sample->sample <= last)))
            positions.append(i);
    }
    return positions;
}

void QSounds::removeGroup(qint32 group, bool wholeGroup, qint32 first, qint32 last)
{
    const QList<int> positions = positionsOf(group, wholeGroup, first, last);
    if (positions.isEmpty())
        return;
    beginMacro(QStringLiteral("removeGroup"));
    for (auto it = positions.crbegin(); it != positions.crend(); ++it)
        remove(unsigned(*it));
    endMacro();
}

void QSounds::renameGroup(qint32 group, qint32 newGroup, bool wholeGroup, qint32 first, qint32 last)
{
    const QList<int> positions = positionsOf(group, wholeGroup, first, last);
    if (positions.isEmpty() || group == newGroup)
        return;
    beginMacro(QStringLiteral("renameGroup"));
    for (int position : positions)
        setInfo(position, QSoundInfo(newGroup, m_samples.at(position)->sample));
    endMacro();
}

void QSounds::setInfo(int position, const QSoundInfo& info)
{
    const QSample* sample = at(position);
    if (!sample || sample->info() == info)
        return;
    if (!isChangeLocked())
        pushCommand(new SoundChangeInfo(this, position));
    storeInfo(position, info);
    setModified(true);
}

bool QSounds::change(int position, const QString& path)
{
    if (!at(position))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    setSampleData(position, file.readAll());
    return true;
}

void QSounds::setSampleData(int position, const QByteArray& data)
{
    if (!at(position))
        return;
    if (!isChangeLocked())
        pushCommand(new SoundChangeSample(this, position));
    storeData(position, data);
    setModified(true);
}

void QSounds::autoOrganize()
{
    beginMacro(QStringLiteral("autoOrganize"));
    // An insertion sort by moves, so that each step is one undoable move and
    // sounds of equal group and number keep their order.
    for (int i = 1; i < count(); ++i) {
        int j = i;
        while (j > 0 && orgLess(m_samples.at(i), m_samples.at(j - 1)))
            --j;
        if (j != i)
            move(unsigned(i), unsigned(j));
    }
    endMacro();
}

void QSounds::play(int position, bool loop)
{
    stop();
    const QSample* sample = at(position);
    if (!sample)
        return;
    m_playing = sampleData(position);
    if (m_scratch.open()) {
        m_scratch.resize(0);
        m_scratch.write(m_playing);
        m_scratch.close();
    }
    m_player = QSoundPlayer::create();
    const bool started = m_player && m_player->play(m_scratch.fileName(), loop);
    if (loop && started)
        return;
    // A sound that can't be heard ends at once; one that plays, a second after its end.
    const int length = started ? int(std::lround(sample->information.duration * 1000.0)) + stopGraceMs : 0;
    m_timer.start(length);
}

void QSounds::stop()
{
    m_timer.stop();
    if (m_player) {
        m_player->stop();
        delete m_player;
        m_player = nullptr;
    }
}

void QSounds::pushCommand(QUndoCommand* command)
{
    if (isChangeLocked()) {
        delete command;
        return;
    }
    m_undoStack.push(command);
}

void QSounds::beginMacro(const QString& name)
{
    if (!isChangeLocked())
        m_undoStack.beginMacro(name);
}

void QSounds::endMacro()
{
    if (!isChangeLocked())
        m_undoStack.endMacro();
}

bool QSounds::canDiscard()
{
    if (!m_modified)
        return true;
    return prompt().question(tr("Discard changes"),
               tr("Do you really want to discard the changes made in the sounds?"),
               QPrompt::Yes | QPrompt::No, QPrompt::No)
        == QPrompt::Yes;
}

bool QSounds::canSave(unsigned int) const
{
    if (!m_samples.isEmpty())
        return true;
    prompt().warning(tr("Save SND"), tr("You can't save an empty SND because M.U.G.E.N. will not open it."));
    return false;
}

void QSounds::checkErrors()
{
    QMessages* list = messages();
    list->beginChange();
    list->clear();
    QHash<QSoundInfo, int> first;
    for (int i = 0; i < count(); ++i) {
        const QSample* sample = m_samples.at(i);
        if (!sample->item)
            list->add(mtError, tr("Empty sound!"), i, -1);
        const auto found = first.constFind(sample->info());
        if (found != first.constEnd())
            list->add(mtError,
                tr("The group %2, index %3 is already in use by sound #%4!")
                    .arg(sample->group)
                    .arg(sample->sample)
                    .arg(found.value()),
                i, -1);
        else
            first.insert(sample->info(), i);
    }
    list->endChange();
}

void QSounds::setModified(bool modified)
{
    m_modified = modified;
    if (!m_changing)
        emit changed();
}

void QSounds::beginChange()
{
    if (m_changing++ == 0)
        beginMacro(QString());
}

void QSounds::endChange()
{
    if (m_changing == 0 || --m_changing > 0)
        return;
    endMacro();
    emit changed();
}

int QSounds::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant QSounds::data(const QModelIndex& index, int role) const
{
    const QSample* sample = at(index.row());
    if (!sample || role != Qt::DisplayRole)
        return QVariant();
    return QStringLiteral("%1, %2").arg(sample->group).arg(sample->sample);
}

QSample* QSounds::insertSample(int position, const QSoundInfo& info, const QByteArray& data)
{
    position = qBound(0, position, count());
    auto* sample = new QSample;
    sample->group = info.group;
    sample->sample = info.index;
    beginInsertRows(QModelIndex(), position, position);
    m_samples.insert(position, sample);
    endInsertRows();
    storeData(position, data);
    return sample;
}

void QSounds::deleteSample(int position)
{
    if (!at(position))
        return;
    beginRemoveRows(QModelIndex(), position, position);
    QSample* sample = m_samples.takeAt(position);
    endRemoveRows();
    if (sample->item)
        m_cache.deleteItem(sample->item);
    delete sample;
}

void QSounds::moveSample(int from, int to)
{
    if (!at(from) || !at(to) || from == to)
        return;
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    m_samples.move(from, to);
    endMoveRows();
}

void QSounds::storeInfo(int position, const QSoundInfo& info)
{
    QSample* sample = m_samples.value(position);
    if (!sample)
        return;
    sample->group = info.group;
    sample->sample = info.index;
    emit dataChanged(index(position), index(position));
}

void QSounds::storeData(int position, const QByteArray& data)
{
    QSample* sample = m_samples.value(position);
    if (!sample)
        return;
    if (data.isEmpty()) {
        if (sample->item)
            m_cache.deleteItem(sample->item);
        sample->item = nullptr;
    } else if (sample->item) {
        m_cache.setItemData(sample->item, data, cfNone);
    } else {
        sample->item = m_cache.addItem(data, cfNone);
    }
    getWAVInfoFromData(data, sample->information);
    emit dataChanged(index(position), index(position));
}
