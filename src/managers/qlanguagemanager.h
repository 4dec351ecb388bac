#pragma once

#include "qresourcedirectory.h"

#include <QCoreApplication>
#include <QList>
#include <QObject>

class QTranslator;

/**
 * The translations: each folder of the directory with an "info.xml" is a
 * language, named by its folder ("en-us", "de-de"), and holds the ".qm"
 * files of it. English is the program's own text, so its folder may hold no
 * ".qm" at all.
 *
 *     <language><name value="Deutsch"/><author value="..."/><contact value="..."/></language>
 */
class QLanguageManager : public QObject, public QResourceDirectory
{
    Q_OBJECT
public:
    struct Info
    {
        QString id;
        QString name;
        QString author;
        QString contact;
    };

    QLanguageManager(QCoreApplication* application, const QString& directory);
    ~QLanguageManager() override;

    /// Rescans the folder and reads each language's info.
    void update();
    /// Installs the translators of the language and sends langChanged(); an
    /// unknown id removes every translation (the program's English).
    void setActive(const QString& id);
    QString active() const { return m_active; }
    /// The row of a language, -1 when unknown.
    int find(const QString& id) const;
    QString id(int row) const { return m_infos.value(row).id; }
    const QList<Info>& languages() const { return m_infos; }

signals:
    /// Sent after another language was made active.
    void langChanged();

private:
    void removeTranslators();

    QCoreApplication* m_application;
    QString m_active;
    QList<Info> m_infos;
    QList<QTranslator*> m_translators;
};

extern QLanguageManager* langMan;
