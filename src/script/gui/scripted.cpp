#include "scripted.h"

#include "qluahighlighter.h"
#include "managers/qiconmanager.h"
#include "model/qproject.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qluawrappers.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "util/qmessages.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

enum Category { Common = 0, Project = 1, Snippet = 2, Tool = 3 };
const char* const folders[] = {"common", "project", "snippet", "tool"};

// debugOutput(text): the editor is the closure's light user data.
int luaDebugOutput(lua_State* state)
{
    auto* editor = static_cast<ScriptEd*>(lua_touserdata(state, lua_upvalueindex(1)));
    size_t length = 0;
    const char* text = luaL_tolstring(state, 1, &length);
    editor->debugOutput(QString::fromUtf8(text, int(length)));
    return 0;
}

QString xmlEscaped(const QString& text)
{
    return text.toHtmlEscaped();
}

} // namespace

ScriptEd::ScriptEd(QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_category(new QComboBox(this))
    , m_list(new QListView(this))
    , m_editor(new QPlainTextEdit(this))
    , m_debug(new QPlainTextEdit(this))
{
    setWindowTitle(tr("Script Editor"));
    setObjectName(QStringLiteral("ScriptEd"));
    resize(960, 640);

    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const struct { const char* name; const char* text; void (ScriptEd::*slot)(); QKeySequence keys; } actions[] = {
        {"script_new", QT_TR_NOOP("New"), &ScriptEd::sNew, QKeySequence::New},
        {"script_open", QT_TR_NOOP("Open..."), &ScriptEd::sOpen, QKeySequence::Open},
        {"script_save", QT_TR_NOOP("Save"), &ScriptEd::sSave, QKeySequence::Save},
        {"script_saveas", QT_TR_NOOP("Save as..."), &ScriptEd::sSaveAs, QKeySequence::SaveAs},
        {"script_run", QT_TR_NOOP("Run"), &ScriptEd::sRun, QKeySequence(Qt::Key_F5)},
        {"script_translate", QT_TR_NOOP("Export for translation..."), &ScriptEd::sTrans, QKeySequence()},
    };
    for (const auto& entry : actions) {
        QAction* action = bar->addAction(tr(entry.text), this, entry.slot);
        action->setObjectName(QLatin1String(entry.name));
        action->setShortcut(entry.keys);
        if (iconMan)
            action->setIcon(iconMan->icon(QLatin1String(entry.name)));
    }

    m_category->addItems({tr("Common"), tr("Project"), tr("Code snippet"), tr("Tool")});
    m_list->setObjectName(QStringLiteral("scriptList"));
    m_list->setModel(&m_names);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* side = new QWidget(this);
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    sideLayout->addWidget(new QLabel(tr("Category"), side));
    sideLayout->addWidget(m_category);
    sideLayout->addWidget(m_list);

    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    m_editor->setFont(mono);
    m_editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    new QLuaHighlighter(m_editor->document());
    m_debug->setReadOnly(true);
    m_debug->setFont(mono);

    auto* messages = new QListView(this);
    messages->setModel(&QScriptManager::scriptMsgs());
    auto* outputs = new QTabWidget(this);
    outputs->addTab(messages, tr("Message output"));
    outputs->addTab(m_debug, tr("Text output (debug)"));
    outputs->setCurrentIndex(1);

    auto* right = new QSplitter(Qt::Vertical, this);
    right->addWidget(m_editor);
    right->addWidget(outputs);
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 1);
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->addWidget(side);
    split->addWidget(right);
    split->setStretchFactor(1, 1);
    split->setSizes({220, 740});

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(bar);
    layout->addWidget(split);

    connect(m_category, qOverload<int>(&QComboBox::currentIndexChanged), this, &ScriptEd::categChanged);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &ScriptEd::currChanged);
    categChanged(0);
}

QTextDocument* ScriptEd::debugDocument() const
{
    return m_debug->document();
}

int ScriptEd::category() const
{
    return m_category->currentIndex();
}

void ScriptEd::categChanged(int index)
{
    const QString folder = QLatin1String(folders[qBound(0, index, 3)]);
    if (scriptMan)
        scriptMan->update();
    m_names.setStringList(scriptMan ? scriptMan->scriptList(folder) : QStringList());
}

void ScriptEd::currChanged(const QModelIndex& current, const QModelIndex&)
{
    if (!current.isValid() || !scriptMan)
        return;
    const QString name = scriptMan->directory() + QLatin1Char('/') + QLatin1String(folders[category()]) + QLatin1Char('/')
                         + current.data().toString() + QStringLiteral(".lua");
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return;
    m_editor->setPlainText(QString::fromUtf8(file.readAll()));
    setFileName(name);
}

void ScriptEd::setFileName(const QString& fileName)
{
    m_fileName = fileName;
    setWindowTitle(fileName.isEmpty() ? tr("Script Editor")
                                      : tr("Script Editor") + QStringLiteral(" - ") + QFileInfo(fileName).fileName());
}

void ScriptEd::sNew()
{
    m_editor->clear();
    m_debug->clear();
    setFileName(QString());
}

void ScriptEd::sOpen()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("Open script"), scriptMan ? scriptMan->directory() : QString(),
                                                      tr("Lua Script (*.lua)"));
    QFile file(name);
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    m_editor->setPlainText(QString::fromUtf8(file.readAll()));
    setFileName(name);
}

bool ScriptEd::writeScript(const QString& fileName)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(m_editor->toPlainText().toUtf8()) < 0 || !file.commit()) {
        QMessageBox::critical(this, tr("Save script"), tr("The script could not be saved as %1.").arg(fileName));
        return false;
    }
    setFileName(fileName);
    return true;
}

void ScriptEd::sSave()
{
    if (m_fileName.isEmpty())
        sSaveAs();
    else
        writeScript(m_fileName);
}

void ScriptEd::sSaveAs()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save script"), scriptMan ? scriptMan->directory() : QString(),
                                                      tr("Lua Script (*.lua)"));
    if (!name.isEmpty() && writeScript(name))
        categChanged(category());
}

void ScriptEd::registerLib(QScript* script)
{
    lua_pushlightuserdata(script->state(), this);
    lua_pushcclosure(script->state(), &luaDebugOutput, 1);
    lua_setglobal(script->state(), "debugOutput");
}

void ScriptEd::debugOutput(const QString& text)
{
    m_debug->appendPlainText(text);
}

void ScriptEd::runCategory(QScript& script)
{
    lua_State* state = script.state();
    script.resetCount();
    switch (category()) {
    case Snippet:
        debugOutput(QString::fromStdString(luabind::call_function<std::string>(state, "codeSnippet")));
        break;
    case Tool: {
        luabind::call_function<void>(state, "main");
        break;
    }
    case Project: {
        // A scratch project the template fills and that goes with the run.
        QProject project(ctHardDisk, true);
        const bool made = luabind::call_function<bool>(state, "template", LProject(&project));
        debugOutput(tr("template() answered %1: %2 sprites, %3 actions, %4 state files")
                        .arg(made ? QStringLiteral("true") : QStringLiteral("false"))
                        .arg(project.sprites()->count())
                        .arg(project.animations()->count())
                        .arg(project.statesCount()));
        break;
    }
    default:
        break;
    }
}

void ScriptEd::sRun()
{
    QScriptManager::scriptMsgs().clear();
    QScript script;
    registerLib(&script);
    try {
        script.fromString(m_editor->toPlainText());
        runCategory(script);
    } catch (const std::exception& error) {
        QMessageBox::critical(this, tr("Script error"), script.describe(error));
    }
}

void ScriptEd::sTrans()
{
    if (m_fileName.isEmpty()) {
        QMessageBox::critical(this, tr("Error!"), tr("You must save the script before use this function."));
        return;
    }
    const QString target = QFileDialog::getSaveFileName(this, tr("Save for translation"), QString(),
                                                        tr("Qt translation sources (*.ts)"));
    if (target.isEmpty())
        return;
    const QString relative = scriptMan ? QDir(scriptMan->directory()).relativeFilePath(m_fileName) : m_fileName;
    const QString comment = xmlEscaped(relative.endsWith(QStringLiteral(".lua")) ? relative.chopped(4) : relative);
    // A QString, not the string builder an auto lambda would hand out over dead temporaries.
    auto message = [&comment](const QString& source) -> QString {
        return QStringLiteral("\t<message>\n\t\t<source>") + source
               + QStringLiteral("</source>\n\t\t<translation type=\"unfinished\"></translation>\n\t\t<comment>") + comment
               + QStringLiteral("</comment>\n\t</message>\n");
    };
    QString ts = QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.0\">\n<context>\n\t<name>")
                 + QStringLiteral("QScriptManager</name>\n");
    ts += message(xmlEscaped(QFileInfo(m_fileName).completeBaseName()));
    static const QRegularExpression call(QStringLiteral("translate\\(\"((?:\\\\\"|[^\"])+)"));
    auto matches = call.globalMatch(m_editor->toPlainText());
    while (matches.hasNext())
        ts += message(xmlEscaped(matches.next().captured(1)));
    ts += QStringLiteral("</context>\n</TS>");
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(ts.toUtf8()) < 0 || !file.commit())
        QMessageBox::critical(this, tr("Save for translation"), tr("%1 could not be written.").arg(target));
}
