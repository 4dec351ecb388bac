// The checks of a DEF beyond its text: the files it names.
#include "qdefinitions.h"

#include "syntax/qsynmessagekind.h"
#include "text/qfileparam.h"
#include "text/qgroupparam.h"
#include "util/qpathresolver.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

QStringList QDefinitions::missingFiles() const
{
    const QProjectFiles files = this->files();
    QStringList names = files.states;
    names << files.sprites << files.animations << files.sounds << files.commands;
    for (const QString& palette : files.palettes)
        names << palette;
    // A character sits in chars/NAME: the engine also takes its files from
    // its own data and main folders, as stcommon = common1.cns does.
    const QString base = files.baseDir;
    const QString data = QDir(base).filePath(QStringLiteral("../../data"));
    const QStringList folders = {base, data, QDir(base).filePath(QStringLiteral("../.."))};
    // Outside the engine's folders (told by its settings file), the common
    // states it brings can't be looked for: every engine has its own.
    QStringList common;
    if (!QFileInfo::exists(QDir(data).filePath(QStringLiteral("mugen.cfg")))) {
        for (QTextElement* element = head(); element; element = element->chainNext()) {
            if (element->groupType() == QGroupParam::paramGroupType && element->subType() == QFileParam::paramSubType
                && static_cast<const QFileParam*>(element)->id() == idCommonStates)
                common.append(QString(static_cast<const QFileParam*>(element)->fileName())
                                  .replace(QLatin1Char('\\'), QLatin1Char('/')));
        }
    }
    // A TrueType font is taken from the system's fonts, not from beside the DEF.
    static const QRegularExpression systemFont(QStringLiteral("\\.(ttf|ttc|otf)$"),
                                               QRegularExpression::CaseInsensitiveOption);
    QStringList missing;
    for (const QString& name : std::as_const(names)) {
        if (name.isEmpty() || base.isEmpty() || missing.contains(name) || common.contains(name)
            || systemFont.match(name).hasMatch())
            continue;
        const bool found = std::any_of(folders.cbegin(), folders.cend(), [&name](const QString& folder) {
            return resolvePath(folder, name).exists;
        });
        if (!found)
            missing.append(name);
    }
    return missing;
}

int QDefinitions::lineNaming(const QString& name) const
{
    for (QTextElement* element = head(); element; element = element->chainNext()) {
        if (element->groupType() != QGroupParam::paramGroupType || element->subType() != QFileParam::paramSubType)
            continue;
        QString value = static_cast<const QFileParam*>(element)->fileName();
        value.replace(QLatin1Char('\\'), QLatin1Char('/'));
        if (value.endsWith(name, Qt::CaseSensitive))
            return element->line();
    }
    return 0;
}

void QDefinitions::checkErrors()
{
    QSyntaxTextEditor::checkErrors();
    QMessages* list = messages();
    list->beginChange();
    for (const QString& name : missingFiles())
        list->add(mtError, synMessageText(QSynMessageKind::MissingFile, {name}), 0, lineNaming(name));
    list->endChange();
}
