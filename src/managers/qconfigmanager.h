#pragma once

#include "qmugenmodel.h"

#include <QMap>
#include <QString>
#include <QVariant>

/**
 * All the program's settings: one flat map from key to value, and the list of
 * engine installations. Every part reads and writes the map by key; values
 * read from a file are strings, so readers convert with toBool(), toInt() or
 * toString() and never test a variant's type.
 *
 * The file is XML, root "configuration", one "config" element per key with
 * the attributes "name" and "value". Engines are flattened into the map as
 * "mugen_%1_name", "mugen_%1_exe", "mugen_%1_icon" and "mugen_%1_params".
 */
class QConfigManager : public QMugenModel
{
    Q_OBJECT
public:
    explicit QConfigManager(QObject* parent = nullptr);
    ~QConfigManager() override;

    /// Replaces the whole map with the built-in defaults.
    void loadDefaults();

    /// Defaults first, then every key of the file, unknown ones included;
    /// engines are appended while their rows follow without a gap. A missing
    /// file leaves the defaults and returns false; an XML fault is reported
    /// through the prompt, keeps the values read before it and returns false.
    bool fromFile(const QString& fileName);
    /// Writes the map, engines flattened, alphabetically; false on failure,
    /// leaving any previous file untouched.
    bool toFile(const QString& fileName);

    /// Export and import of the whole configuration as "*.pfc3".
    bool exportConfiguration(const QString& fileName) { return toFile(fileName); }
    bool importConfiguration(const QString& fileName);
    static QString exportFilter();

    /// Index access inserts a missing key, so it is written out at the end.
    QVariant& operator[](const QString& key) { return m_values[key]; }
    QVariant value(const QString& key) const { return m_values.value(key); }
    const QMap<QString, QVariant>& values() const { return m_values; }

    /// How many keys have a built-in default.
    static int defaultCount();

private:
    void flattenMugens();
    void readMugens();

    QMap<QString, QVariant> m_values;
};

/// The program's configuration, created early in start-up.
extern QConfigManager* configMan;
