#include "qdefinitionseditor.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"

#include "util/qpathresolver.h"

#include "interface/qinterface.h"
#include "syntax/qmugensyntaxhierarchy.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>

namespace {

/// A "key = file" line of [Files] that names one of the editors' files.
const QRegularExpression& fileLine()
{
    static const QRegularExpression line(
        QStringLiteral("^\\s*(sprite|anim|cmd|sound|cns|st\\d*|stcommon)\\s*=\\s*([^;\\s][^;]*?)\\s*(;|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return line;
}

} // namespace

int QDefinitionsEditor::documentCount() const
{
    return project() ? 1 : 0;
}

QTextDocument* QDefinitionsEditor::documentAt(int index) const
{
    return index == 0 && project() ? project()->definitions()->document() : nullptr;
}

QString QDefinitionsEditor::documentTitle(int) const
{
    const QString file = project()->definitions()->fileName();
    return file.isEmpty() ? tr("(new definitions)") : QFileInfo(file).fileName();
}

QProjectFile* QDefinitionsEditor::projectFileAt(int index) const
{
    return index == 0 && project() ? project()->definitions() : nullptr;
}

QString QDefinitionsEditor::panelNote() const
{
    if (!project())
        return QString();
    const QProjectFiles files = project()->definitions()->files();
    QString rows;
    // A state file not beside the DEF may still be found: the engine also
    // looks in its own data folder (common1.cns lives there).
    auto row = [&rows, &files](const QString& label, const QString& name, bool engineMayHaveIt = false) {
        if (name.isEmpty())
            return;
        const bool found = resolvePath(files.baseDir, name).exists;
        const QString state = found ? QStringLiteral("&#10003;") : engineMayHaveIt ? tr("not here") : tr("missing");
        const QString colour = found ? QStringLiteral("#2e7d32") : engineMayHaveIt ? QStringLiteral("#8a6d00")
                                                                                   : QStringLiteral("#c62828");
        rows += QStringLiteral("<tr><td>%1</td><td>%2</td><td style='color:%3'>%4</td></tr>")
                    .arg(label.toHtmlEscaped(), name.toHtmlEscaped(), colour, state);
    };
    row(tr("Sprites"), files.sprites);
    row(tr("Animations"), files.animations);
    row(tr("Commands"), files.commands);
    for (const QString& states : files.states)
        row(tr("States"), states, true);
    row(tr("Sounds"), files.sounds);
    int palettes = 0;
    for (const QString& palette : files.palettes)
        palettes += palette.isEmpty() ? 0 : 1;
    QString note = QStringLiteral("<p><b>%1</b></p>").arg(tr("Files this project names"));
    note += rows.isEmpty() ? QStringLiteral("<p>%1</p>").arg(tr("None yet: name them in [Files]."))
                           : QStringLiteral("<table cellspacing='4'>%1</table>").arg(rows);
    if (palettes > 0)
        note += QStringLiteral("<p>%1</p>").arg(tr("%n palette(s)", nullptr, palettes));
    if (!rows.isEmpty())
        note += QStringLiteral("<p>%1</p>").arg(tr("Ctrl+click a file's name in the text to open its editor."));
    if (note.contains(tr("not here")))
        note += QStringLiteral("<p><i>%1</i></p>").arg(tr("\"not here\": the engine also looks in its data folder."));
    return note;
}

QString QDefinitionsEditor::linkAt(const QTextCursor& cursor) const
{
    const QRegularExpressionMatch match = fileLine().match(cursor.block().text());
    const int column = cursor.positionInBlock();
    if (!match.hasMatch() || column < match.capturedStart(2) || column > match.capturedEnd(2))
        return QString();
    // Only the lines of [Files] name the project's files.
    for (QTextBlock block = cursor.block().previous(); block.isValid(); block = block.previous()) {
        const QString group = QMugenSyntaxHierarchy::groupName(block.text());
        if (!group.isNull())
            return group.compare(QLatin1String("files"), Qt::CaseInsensitive) == 0 ? match.captured(1).toLower()
                                                                                  : QString();
    }
    return QString();
}

void QDefinitionsEditor::openLink(const QString& key)
{
    if (!intf || !project())
        return;
    if (key == QLatin1String("sprite")) {
        intf->switchEditor(ieSprites);
    } else if (key == QLatin1String("anim")) {
        intf->switchEditor(ieAnimations);
    } else if (key == QLatin1String("cmd")) {
        intf->switchEditor(ieCommands);
    } else if (key == QLatin1String("sound")) {
        intf->switchEditor(ieSounds);
    } else if (key.startsWith(QLatin1String("st")) || key == QLatin1String("cns")) {
        // The state file the line names, by where it lies; the common one follows the project's own.
        const QString named = project()->definitions()->findValue(QStringLiteral("Files"), key);
        const QString path = resolvePath(project()->definitions()->baseDirectory(), QString(named).remove(QLatin1Char('"'))).path;
        int index = project()->statesCount();
        for (int i = 0; i < project()->statesCount(); ++i) {
            if (QFileInfo(project()->states(i)->fileName()) == QFileInfo(path))
                index = i;
        }
        intf->navigateTo(pftStates, index, 0, 0);
    }
}
