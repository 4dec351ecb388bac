#pragma once

#include "util/qprojecttypes.h"

#include <QAbstractListModel>
#include <QList>
#include <QString>

class QMessageList;

enum QMsgType {
    mtError = 0,
    mtWarning = 1,
    mtInformation = 2,
};

/// One fault or note about one file of a project.
struct QMsg
{
    /// In sprite and sound files, `line` tells what `index` counts.
    enum ItemKind { SpriteItem = 0, PaletteItem = 1 };

    QMsgType type = mtError;
    QProjectFileType file = pftDefinitions;
    int fileIndex = 0; ///< which state file, for pftStates
    int index = 0;     ///< the item (sprite, palette, sound), or the column in text files
    int line = 0;      ///< block number in text files (0-based); ItemKind in sprite files
    QString text;
};

/**
 * The messages of one file. Each add() refreshes the project's totals unless
 * a batch is open between beginChange() and endChange(), so a check that adds
 * hundreds of messages recounts once.
 */
class QMessages : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QMessages(QProjectFileType file, QObject* parent = nullptr);

    QProjectFileType fileType() const { return m_file; }
    int fileIndex() const { return m_fileIndex; }
    void setFileIndex(int index) { m_fileIndex = index; }

    void add(QMsgType type, const QString& text, int index, int line);
    void clear();
    void beginChange();
    void endChange();

    int count() const { return m_messages.size(); }
    int count(QMsgType type) const { return m_counts[type]; }
    const QMsg& at(int row) const { return m_messages.at(row); }

    /// The list whose totals this file feeds; set by the list on registration.
    void setOwner(QMessageList* owner) { m_owner = owner; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// The row as the messages panel shows it, e.g. "DEF(12): Unknown key".
    static QString format(const QMsg& msg);
    static QString iconName(QMsgType type);

private:
    void notifyOwner();

    QProjectFileType m_file;
    int m_fileIndex = 0;
    int m_counts[3] = {0, 0, 0};
    QList<QMsg> m_messages;
    int m_batch = 0;
    QMessageList* m_owner = nullptr;
};

/// The messages of all files of a project, in the order the files registered.
class QMessageList : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QMessageList(QObject* parent = nullptr);
    ~QMessageList() override;

    void add(QMessages* messages);
    void remove(QMessages* messages);

    /// Recounts the totals and tells the views everything changed.
    void update();

    int errors() const { return m_errors; }
    int warnings() const { return m_warnings; }
    /// The message at a row counted over all files; fileIndex receives the
    /// position of its file in registration order. Null past the end.
    const QMsg* messageAt(int row, int& fileIndex) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

signals:
    void updated();

private:
    QList<QMessages*> m_files;
    int m_errors = 0;
    int m_warnings = 0;
    int m_rows = 0;
};
