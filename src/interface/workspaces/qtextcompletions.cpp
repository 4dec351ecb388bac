#include "qtextcompletions.h"

#include "syntax/qmugensyntaxproperties.h"
#include "syntax/qsyntaxprocessor.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

QHash<QString, QString>& spellings()
{
    static QHash<QString, QString> map;
    return map;
}

enum class Section { Other, State, Statedef };

/// The section the line stands in, and for a [State] its header line.
Section sectionOf(QTextBlock block, QTextBlock* header)
{
    static const QRegularExpression name(QStringLiteral("^\\s*\\[\\s*(statedef|state)\\b"),
                                         QRegularExpression::CaseInsensitiveOption);
    for (block = block.previous(); block.isValid(); block = block.previous()) {
        const QString text = block.text().trimmed();
        if (!text.startsWith(QLatin1Char('[')))
            continue;
        *header = block;
        const QRegularExpressionMatch match = name.match(text);
        if (!match.hasMatch())
            return Section::Other;
        return match.captured(1).compare(QLatin1String("statedef"), Qt::CaseInsensitive) == 0 ? Section::Statedef
                                                                                              : Section::State;
    }
    return Section::Other;
}

/// The controller a [State] section names with its "type" line, or -1.
int controllerOf(const QMugenSyntaxProperties& vocabulary, QTextBlock header)
{
    static const QRegularExpression type(QStringLiteral("^\\s*type\\s*=\\s*(\\w+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    for (QTextBlock block = header.next(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        if (text.trimmed().startsWith(QLatin1Char('[')))
            break;
        const QRegularExpressionMatch match = type.match(text);
        if (match.hasMatch())
            return vocabulary.findController(QMugenSyntaxProperties::StateController, match.captured(1));
    }
    return -1;
}

bool holds(const QSynInfo& info, unsigned int version)
{
    return info.minVersion <= version && info.format != QSynInfo::fmtRegExp;
}

void addKeys(QStringList& words, const QSynTable& table, unsigned int version)
{
    for (auto it = table.entries.cbegin(); it != table.entries.cend(); ++it) {
        if (holds(it.value(), version))
            words.append(it.key());
    }
}

const QSyntaxProcessor* checkerOf(const QTextCursor& cursor)
{
    return cursor.document() ? cursor.document()->findChild<QSyntaxProcessor*>() : nullptr;
}

/// The text before the cursor, or a null string inside a comment.
QString lineBefore(const QTextCursor& cursor)
{
    const QString before = cursor.block().text().left(cursor.positionInBlock());
    return before.contains(QLatin1Char(';')) ? QString() : before;
}

} // namespace

void QTextCompletions::setSpelling(const QHash<QString, QString>& spelling)
{
    spellings() = spelling;
}

QString QTextCompletions::spelled(const QString& lowered)
{
    return spellings().value(lowered, lowered);
}

int QTextCompletions::typedLength(const QTextCursor& cursor)
{
    const QString text = cursor.block().text();
    int start = cursor.positionInBlock();
    while (start > 0 && (text.at(start - 1).isLetterOrNumber() || text.at(start - 1) == QLatin1Char('_')))
        --start;
    return cursor.positionInBlock() - start;
}

bool QTextCompletions::wantsListAfter(const QTextCursor& cursor) const
{
    static const QRegularExpression assign(QStringLiteral("^\\s*type\\s*=\\s*$"),
                                           QRegularExpression::CaseInsensitiveOption);
    QTextBlock header;
    return checkerOf(cursor) && sectionOf(cursor.block(), &header) == Section::State
           && assign.match(lineBefore(cursor)).hasMatch();
}

QStringList QTextCompletions::candidates(const QTextCursor& cursor, QString* prefix) const
{
    static const QRegularExpression word(QStringLiteral("[A-Za-z0-9_.]*$"));
    static const QRegularExpression typeValue(QStringLiteral("^\\s*type\\s*=\\s*$"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression keyStart(QStringLiteral("^\\s*$"));
    const QSyntaxProcessor* checker = checkerOf(cursor);
    const QMugenSyntaxProperties* vocabulary = QSyntaxTextEditor::mugenProperties();
    const QString before = lineBefore(cursor);
    if (!checker || !vocabulary || before.isNull())
        return {};
    const unsigned int version = checker->version();
    const QString typed = word.match(before).captured(0);
    const QString lead = before.left(before.size() - typed.size());
    *prefix = typed;

    QTextBlock header;
    const Section section = sectionOf(cursor.block(), &header);
    QStringList words;
    if (section == Section::State && typeValue.match(lead).hasMatch()) {
        for (int i = 0; i < vocabulary->controllerCount(QMugenSyntaxProperties::StateController); ++i) {
            const QSynController& controller = vocabulary->controller(QMugenSyntaxProperties::StateController, i);
            if (holds(controller.info, version))
                words.append(controller.name);
        }
    } else if (section == Section::State && keyStart.match(lead).hasMatch()) {
        words << QStringLiteral("type") << QStringLiteral("triggerall") << QStringLiteral("trigger1");
        addKeys(words, vocabulary->commonParams(QMugenSyntaxProperties::StateController), version);
        const int controller = controllerOf(*vocabulary, header);
        if (controller >= 0)
            addKeys(words, vocabulary->controller(QMugenSyntaxProperties::StateController, controller).params, version);
    } else if (section == Section::Statedef && keyStart.match(lead).hasMatch()) {
        words << QStringLiteral("type") << QStringLiteral("movetype") << QStringLiteral("physics")
              << QStringLiteral("anim") << QStringLiteral("velset") << QStringLiteral("ctrl")
              << QStringLiteral("poweradd") << QStringLiteral("juggle") << QStringLiteral("facep2")
              << QStringLiteral("hitdefpersist") << QStringLiteral("movehitpersist")
              << QStringLiteral("hitcountpersist") << QStringLiteral("sprpriority");
    } else if (section != Section::Other && lead.contains(QLatin1Char('='))) { // an expression
        const QSynTable& triggers = vocabulary->section(QStringLiteral("trigger"));
        for (auto it = triggers.entries.cbegin(); it != triggers.entries.cend(); ++it) {
            if (holds(it.value(), version))
                words.append(spelled(it.key()));
        }
        words << QStringLiteral("root") << QStringLiteral("parent") << QStringLiteral("partner")
              << QStringLiteral("enemy") << QStringLiteral("enemynear") << QStringLiteral("playerid")
              << QStringLiteral("helper") << QStringLiteral("target");
    }
    words.removeDuplicates();
    words.sort(Qt::CaseInsensitive);
    return words;
}
