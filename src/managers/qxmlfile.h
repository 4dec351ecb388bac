#pragma once

#include <QSaveFile>
#include <QString>
#include <QXmlStreamWriter>

#include <functional>

class QXmlParser;

/**
 * The managers' XML files: a root element holding one element per entry.
 *
 * readXmlEntries() calls `entry` for each child element of the root (its
 * children are skipped after) and reports a fault the program's one way,
 * keeping what was read before it. False for a missing file or a fault.
 *
 * QXmlFileWriter writes through a temporary file that replaces the target
 * only when commit() succeeds, so a failed write keeps the previous file.
 */
bool readXmlEntries(const QString& fileName, const QString& root, const std::function<void(QXmlParser&)>& entry);

class QXmlFileWriter
{
public:
    /// Opens the file and starts the document with the root element.
    QXmlFileWriter(const QString& fileName, const QString& root);

    bool isOpen() const { return m_file.isOpen(); }
    QXmlStreamWriter& xml() { return m_xml; }
    /// An empty element with its attributes, given as name and value pairs.
    void writeEntry(const QString& element, std::initializer_list<std::pair<QString, QString>> attributes);
    /// Ends the document and replaces the file; false when anything failed.
    bool commit();

private:
    QSaveFile m_file;
    QXmlStreamWriter m_xml;
};
