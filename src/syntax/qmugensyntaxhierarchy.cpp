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

/// The comment of a line, trimmed, without its ";".
QString commentOf(const QString& line)
{
    const QString code = withoutComment(line);
    return code.size() < line.size() ? line.mid(code.size() + 1).trimmed() : QString();
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
    return group < 0 ? QString() : valueIn(group, key);
}

QString QMugenSyntaxHierarchy::valueIn(int group, const QString& key) const
{
    const int end = group + 1 < m_groups.size() ? m_groups.at(group + 1).line : m_document->blockCount();
    for (int line = m_groups.at(group).line + 1; line < end; ++line) {
        const QString text = withoutComment(m_document->findBlockByNumber(line).text());
        const int assign = int(text.indexOf(QLatin1Char('=')));
        if (assign > 0 && text.left(assign).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return text.mid(assign + 1).trimmed();
    }
    return QString();
}

QList<QMugenSyntaxHierarchy::Item> QMugenSyntaxHierarchy::outline() const
{
    QList<Item> items;
    bool inStatedef = false;
    for (int i = 0; i < m_groups.size(); ++i) {
        const Group& group = m_groups.at(i);
        const QString lowered = group.name.toLower();
        Item item{group.name, group.line, 0};
        if (lowered.startsWith(QLatin1String("statedef")) || lowered.startsWith(QLatin1String("begin action"))) {
            inStatedef = lowered.startsWith(QLatin1String("statedef"));
            QString name = commentOf(m_document->findBlockByNumber(group.line).text());
            const QTextBlock above = m_document->findBlockByNumber(group.line - 1);
            if (name.isEmpty() && above.isValid() && above.text().trimmed().startsWith(QLatin1Char(';')))
                name = commentOf(above.text());
            if (!name.isEmpty())
                item.label += QStringLiteral("  ") + name;
        } else if (lowered.startsWith(QLatin1String("state "))) {
            item.level = inStatedef ? 1 : 0;
            const QString type = valueIn(i, QStringLiteral("type"));
            if (!type.isEmpty())
                item.label += QStringLiteral("  (") + type + QLatin1Char(')');
        } else {
            inStatedef = false;
            if (lowered == QLatin1String("command")) {
                const QString name = valueIn(i, QStringLiteral("name"));
                if (!name.isEmpty())
                    item.label = QStringLiteral("Command ") + name;
            }
        }
        items.append(item);
    }
    return items;
}
