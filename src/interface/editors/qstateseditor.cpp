#include "qstateseditor.h"

#include "interface/qinterface.h"
#include "managers/qconfigmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "syntax/qmugensyntaxhierarchy.h"
#include "syntax/qsyntaxtexteditor.h"
#include "util/qpathresolver.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>

namespace {

/// The key and value of a "key = value" line; empty key for other lines.
QPair<QString, QString> keyValue(const QString& line)
{
    static const QRegularExpression pair(QStringLiteral("^\\s*([A-Za-z0-9_.]+)\\s*=\\s*([^;]*)"));
    const QRegularExpressionMatch match = pair.match(line);
    return match.hasMatch() ? qMakePair(match.captured(1).toLower(), match.captured(2).trimmed()) : QPair<QString, QString>();
}

} // namespace

QStatesEditor::QStatesEditor(QTextWorkspace* workspace, QObject* parent)
    : QTextDocumentEditor(workspace, parent)
{
}

QStatesEditor::~QStatesEditor() = default;

void QStatesEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    if (intf && items) {
        connect(addToolAction(items, QStringLiteral("states_add"), QT_TRANSLATE_NOOP("QActionManager", "New state file...")),
                &QAction::triggered, this, [this] {
                    bool ok = false;
                    const QString name = QInputDialog::getText(nullptr, tr("New state file"), tr("File name beside the DEF:"),
                                                               QLineEdit::Normal, QStringLiteral("new.st"), &ok);
                    if (ok && !name.trimmed().isEmpty())
                        addStateFile(name.trimmed());
                });
        connect(addToolAction(items, QStringLiteral("states_open"), QT_TRANSLATE_NOOP("QActionManager", "Add state file...")),
                &QAction::triggered, this, [this] {
                    const QString path = QFileDialog::getOpenFileName(nullptr, tr("Add state file"),
                                                                      project() ? project()->definitions()->baseDirectory() : QString(),
                                                                      tr("States (*.cns *.st);;All files (*)"));
                    if (!path.isEmpty())
                        openStateFile(path);
                });
        connect(addToolAction(items, QStringLiteral("states_remove"), QT_TRANSLATE_NOOP("QActionManager", "Remove state file")),
                &QAction::triggered, this, [this] { removeStateFile(currentDocument()); });
        connect(addToolAction(items, QStringLiteral("states_throw"), QT_TRANSLATE_NOOP("QActionManager", "New throw...")),
                &QAction::triggered, this, &QStatesEditor::throwCreator);
    }
    QTextDocumentEditor::initialized(items, leftPage);
}

void QStatesEditor::setProject(QProject* project)
{
    // The view lets go of the shown document (the common one, maybe) before it goes.
    QTextDocumentEditor::setProject(project);
    m_common.reset();
    loadCommon();
    refreshList();
}

void QStatesEditor::loadCommon()
{
    if (!project() || !(project()->type() & ptCharacter))
        return;
    // A character in chars/NAME: the engine takes what isn't beside the DEF
    // from its data folder, as "stcommon = common1.cns" does.
    const QProjectFiles files = project()->definitions()->files();
    const QString data = QDir(files.baseDir).filePath(QStringLiteral("../../data"));
    for (const QString& name : files.states) {
        if (resolvePath(files.baseDir, name).exists)
            continue;
        const QResolvedPath common = resolvePath(data, name);
        if (!common.exists)
            continue;
        m_common = std::make_unique<QSyntaxTextEditor>(nullptr, pftStates, false, project()->definitions()->version(), true);
        if (!m_common->fromFile(common.path, (*configMan)[QStringLiteral("default_codepage")].toUInt(), false))
            m_common.reset();
        return;
    }
}

bool QStatesEditor::addStateFile(const QString& fileName)
{
    if (!project())
        return false;
    const QString base = project()->definitions()->baseDirectory();
    if (base.isEmpty()) { // a project never saved: the file gets its name when the project does
        project()->addStates(fileName);
        nameInDefinitions(fileName);
        refreshList();
        showDocument(project()->statesCount() - 1);
        return true;
    }
    // The file is made on disk at once (an existing one is taken as it is),
    // so the DEF names a file that is there.
    const QString path = QDir(base).filePath(fileName);
    if (!QFileInfo::exists(path)) {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return false;
        file.write(QStringLiteral("; %1\r\n").arg(QFileInfo(fileName).fileName()).toUtf8());
        if (!file.commit())
            return false;
    }
    return openStateFile(path);
}

bool QStatesEditor::openStateFile(const QString& path)
{
    if (!project())
        return false;
    QSyntaxTextEditor* states = project()->addStates(QFileInfo(path).fileName());
    if (!states->fromFile(path, (*configMan)[QStringLiteral("default_codepage")].toUInt(), false)) {
        project()->removeStates(project()->statesCount() - 1);
        return false;
    }
    const QString base = project()->definitions()->baseDirectory();
    nameInDefinitions(base.isEmpty() ? QFileInfo(path).fileName() : QDir(base).relativeFilePath(path));
    refreshList();
    showDocument(project()->statesCount() - 1);
    return true;
}

bool QStatesEditor::removeStateFile(int index)
{
    if (!project() || index < 0 || index >= project()->statesCount())
        return false;
    QSyntaxTextEditor* states = project()->states(index);
    if (!states->canDiscard())
        return false;
    const QString base = project()->definitions()->baseDirectory();
    const QString name = base.isEmpty() || states->fileName().isEmpty()
                             ? QFileInfo(states->fileName()).fileName()
                             : QDir(base).relativeFilePath(states->fileName());
    // Its line in [Files] goes with it, as one undo step of the DEF.
    QTextDocument* definitions = project()->definitions()->document();
    for (QTextBlock block = definitions->begin(); block.isValid() && !name.isEmpty(); block = block.next()) {
        const auto pair = keyValue(block.text());
        if (pair.first.startsWith(QLatin1String("st")) && pair.first != QLatin1String("stcommon")
            && QString(pair.second).replace(QLatin1Char('\\'), QLatin1Char('/')).compare(name, Qt::CaseInsensitive) == 0) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
            break;
        }
    }
    showDocument(-1); // the view lets go of the document before it goes
    project()->removeStates(index);
    refreshList();
    showDocument(qMin(index, project()->statesCount() - 1));
    return true;
}

void QStatesEditor::nameInDefinitions(const QString& name)
{
    QTextDocument* definitions = project()->definitions()->document();
    QTextBlock files;
    QTextBlock last; // the last line of the [Files] group
    QSet<QString> keys;
    for (QTextBlock block = definitions->begin(); block.isValid(); block = block.next()) {
        const QString group = QMugenSyntaxHierarchy::groupName(block.text());
        if (!group.isNull()) {
            if (files.isValid())
                break;
            if (group.compare(QLatin1String("files"), Qt::CaseInsensitive) == 0)
                files = last = block;
            continue;
        }
        if (!files.isValid())
            continue;
        const auto pair = keyValue(block.text());
        if (!pair.first.isEmpty()) {
            keys.insert(pair.first);
            last = block;
        }
    }
    QString key = QStringLiteral("st");
    for (int n = 1; keys.contains(key); ++n)
        key = QStringLiteral("st%1").arg(n);
    QTextCursor cursor(definitions);
    if (files.isValid()) {
        cursor = QTextCursor(last);
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText(QStringLiteral("\n%1 = %2").arg(key, name));
    } else {
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(QStringLiteral("\n[Files]\n%1 = %2\n").arg(key, name));
    }
}

int QStatesEditor::documentCount() const
{
    return project() ? project()->statesCount() + (m_common ? 1 : 0) : 0;
}

QTextDocument* QStatesEditor::documentAt(int index) const
{
    if (!project())
        return nullptr;
    if (index == project()->statesCount() && m_common)
        return m_common->document();
    QSyntaxTextEditor* states = project()->states(index);
    return states ? states->document() : nullptr;
}

QString QStatesEditor::documentTitle(int index) const
{
    if (index == project()->statesCount() && m_common)
        return tr("%1 (engine's, read-only)").arg(QFileInfo(m_common->fileName()).fileName());
    const QSyntaxTextEditor* states = project()->states(index);
    if (!states->fileName().isEmpty())
        return QFileInfo(states->fileName()).fileName();
    return states->title().isEmpty() ? tr("States %1").arg(index + 1) : states->title();
}

QProjectFile* QStatesEditor::projectFileAt(int index) const
{
    return project() ? project()->states(index) : nullptr;
}

QString QStatesEditor::panelNote() const
{
    if (!project() || project()->statesCount() == 0)
        return tr("This project has no state files: add one from the tool bar.");
    QString note = tr("Faults are checked as you type; the error icon in the status bar counts them.");
    if (m_common)
        note += QStringLiteral("<p><i>%1</i></p>").arg(tr("The common states come from the engine's data folder and are shown read-only."));
    return note;
}
