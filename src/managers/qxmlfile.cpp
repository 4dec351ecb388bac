#include "qxmlfile.h"

#include "util/qxmlparser.h"

#include <QFile>

bool readXmlEntries(const QString& fileName, const QString& root, const std::function<void(QXmlParser&)>& entry)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlParser xml(&file);
    if (xml.start(root)) {
        while (xml.readNextStartElement()) {
            entry(xml);
            xml.skipCurrentElement();
        }
    }
    return !xml.notifyError();
}

QXmlFileWriter::QXmlFileWriter(const QString& fileName, const QString& root)
    : m_file(fileName)
{
    if (!m_file.open(QIODevice::WriteOnly))
        return;
    m_xml.setDevice(&m_file);
    m_xml.setAutoFormatting(true);
    m_xml.writeStartDocument();
    m_xml.writeStartElement(root);
}

void QXmlFileWriter::writeEntry(const QString& element, std::initializer_list<std::pair<QString, QString>> attributes)
{
    m_xml.writeEmptyElement(element);
    for (const auto& [name, value] : attributes)
        m_xml.writeAttribute(name, value);
}

bool QXmlFileWriter::commit()
{
    if (!m_file.isOpen())
        return false;
    m_xml.writeEndDocument();
    return !m_xml.hasError() && m_file.commit();
}
