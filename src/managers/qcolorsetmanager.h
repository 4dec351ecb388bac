#pragma once

#include "qresourcedirectory.h"

#include <QAbstractListModel>
#include <QColor>
#include <QList>

/**
 * The colour sets: each XML file of the directory names the colours of the
 * views (backgrounds, collision boxes, the syntax of the text editors):
 *
 *     <colorset><color name="keyword" value="0,0,255" italic="false"/>...</colorset>
 *
 * The current colours are also a list model, one row per item, for the
 * options dialog. Items a file leaves out, or gives in a wrong form, keep
 * their built-in colour.
 */
class QColorsetManager : public QAbstractListModel, public QResourceDirectory
{
    Q_OBJECT
public:
    struct Item
    {
        QString name;
        const char* label; ///< untranslated, context "QColorsetManager"
        QColor color;
        bool italic = false;
    };

    explicit QColorsetManager(const QString& directory, QObject* parent = nullptr);

    /// Back to the built-in colours.
    void loadDefaults();
    /**
     * The colours of the named set (or of a file, with `isFile`), over the
     * built-in ones. A bad file is reported and keeps what was read before
     * the fault. False for an unknown set or an unreadable file.
     */
    bool load(const QString& name, bool isFile = false);
    bool save(const QString& name, bool isFile = false) const;

    QColor color(const QString& item) const;
    bool italic(const QString& item) const;
    QString name(int row) const { return m_items.value(row).name; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

signals:
    void changed();

private:
    QString fileOf(const QString& name) const { return path() + QLatin1Char('/') + name + QStringLiteral(".xml"); }
    Item* find(const QString& item);

    QList<Item> m_items;
};

extern QColorsetManager* colorMan;
