// Scripts in the window: the Tools menu's script entries, project templates
// and the script editor.
#include "qinterface.h"

#include "managers/qiconmanager.h"
#include "model/qproject.h"
#include "script/gui/projdlg.h"
#include "script/gui/qluawidgets.h"
#include "script/gui/qscriptdialogs.h"
#include "script/gui/scripted.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qluawrappers.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>

void QInterface::initScripts()
{
    QLuaProjects& projects = QLuaProjects::installed();
    projects.all = [this] { return m_projects; };
    projects.current = [this] { return m_project; };
    installScriptDialogs(m_window);
    installLuaWidgets();
    updateToolsMenu();
}

void QInterface::releaseScripts()
{
    QLuaProjects::installed() = QLuaProjects();
}

void QInterface::updateToolsMenu()
{
    qDeleteAll(m_toolScripts);
    m_toolScripts.clear();
    QMenu* tools = menu("menuTools");
    if (!scriptMan || !tools)
        return;
    scriptMan->update();
    const QStringList names = scriptMan->scriptList(QStringLiteral("tool"));
    if (names.isEmpty())
        return;
    m_toolScripts.append(tools->addSeparator());
    QMap<QString, QMenu*> groups;
    for (const QString& name : names) {
        const int slash = int(name.indexOf(QLatin1Char('/')));
        QMenu* target = tools;
        if (slash > 0) {
            const QString group = name.left(slash);
            if (!groups.contains(group)) {
                QMenu* sub = tools->addMenu(QScriptManager::trText(group, QStringLiteral("tool/") + group));
                sub->setIcon(iconMan ? iconMan->icon(QStringLiteral("tools_script")) : QIcon());
                m_toolScripts.append(sub->menuAction());
                groups.insert(group, sub);
            }
            target = groups.value(group);
        }
        const QString script = QStringLiteral("tool/") + name;
        QAction* action = target->addAction(QScriptManager::trText(name.mid(slash + 1), script));
        action->setData(script);
        action->setIcon(iconMan ? iconMan->icon(QStringLiteral("tools_script")) : QIcon());
        connect(action, &QAction::triggered, this, &QInterface::toolActivated);
        if (target == tools)
            m_toolScripts.append(action);
    }
}

void QInterface::toolActivated()
{
    const auto* action = qobject_cast<const QAction*>(sender());
    if (!action)
        return;
    QScriptManager::scriptMsgs().clear();
    {
        QScript script;
        try {
            script.fromFile(action->data().toString());
            script.resetCount();
            luabind::call_function<void>(script.state(), "main");
        } catch (const std::exception& error) {
            QMessageBox::critical(m_window, tr("Tool script error"), script.describe(error));
        }
    }
    // A tool may have changed any model of the project.
    updateCurrentProject();
}

bool QInterface::fillFromTemplate(QProject* project)
{
    if (!scriptMan)
        return true;
    ProjDlg dialog(m_window, scriptMan->scriptList(QStringLiteral("project")));
    if (dialog.exec() != QDialog::Accepted || dialog.selected().isEmpty())
        return false;
    QScript script;
    try {
        script.fromFile(QStringLiteral("project/") + dialog.selected());
        script.resetCount();
        return luabind::call_function<bool>(script.state(), "template", LProject(project));
    } catch (const std::exception& error) {
        QMessageBox::critical(m_window, tr("Template script error"), script.describe(error));
    }
    return false;
}

void QInterface::toolsScript()
{
    if (!m_scriptEd) {
        m_scriptEd = new ScriptEd(m_window);
        m_scriptEd->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_scriptEd->show();
    m_scriptEd->raise();
    m_scriptEd->activateWindow();
}
