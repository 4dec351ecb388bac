#include "qmugensyntaxhierarchy.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

/// The line without its comment: from the first ";" outside double quotes.
QString withoutComment(const QString& line)
{
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (c == QLatin1Char(';') && !quoted)
            return line.left(i);
    }
    return line;
}

} // namespace

QMugenSyntaxHierarchy::QMugenSyntaxHierarchy(const QTextDocument* document)
    : m_document(document)
{
}

QString QMugenSyntaxHierarchy::groupName(const QString& line)
{
    int start = 0;
    while (start < line.size() && line.at(start).isSpace())
        ++start;
    if (start >= line.size() || line.at(start) != QLatin1Char('['))
        return QString();
    const int end = int(line.indexOf(QLatin1Char(']'), start + 1));
    if (end < 0)
        return QString();
    return line.mid(start + 1, end - start - 1).trimmed();
}

void QMugenSyntaxHierarchy::update()
{
    m_groups.clear();
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const QString name = groupName(block.text());
        if (!name.isNull())
            m_groups.append(Group{name, block.blockNumber()});
    }
}

int QMugenSyntaxHierarchy::findGroup(const QString& name) const
{
    for (int i = 0; i < m_groups.size(); ++i) {
        if (m_groups.at(i).name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

QString QMugenSyntaxHierarchy::findValue(const QString& section, const QString& key) const
{
    const int group = findGroup(section);
    if (group < 0)
        return QString();
    const int end = group + 1 < m_groups.size() ? m_groups.at(group + 1).line : m_document->blockCount();
    for (int line = m_groups.at(group).line + 1; line < end; ++line) {
        const QString text = withoutComment(m_document->findBlockByNumber(line).text());
        const int assign = int(text.indexOf(QLatin1Char('=')));
        if (assign > 0 && text.left(assign).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return text.mid(assign + 1).trimmed();
    }
    return QString();
}
