// Project: the open project as a script sees it, and the global functions
// that find one.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "model/qanimations.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"

#include <QDir>
#include <QFileInfo>

namespace {

int projectType(const LProject& p) { return p.project()->type(); }
void setProjectType(const LProject& p, int type) { p.project()->setType(QProjectType(type)); }
LDefinitions definitions(const LProject& p) { return LDefinitions(p.project()->definitions()); }
LCommands commands(const LProject& p) { return LCommands(p.project()->commands()); }
LSprites sprites(const LProject& p) { return LSprites(p.project()->sprites()); }
LAnimations animations(const LProject& p) { return LAnimations(p.project()->animations()); }
LSounds sounds(const LProject& p) { return LSounds(p.project()->sounds()); }
int statesCount(const LProject& p) { return p.project()->statesCount(); }

LTextDocument states(const LProject& p, int index)
{
    checkIndex(index, p.project()->statesCount());
    return LTextDocument(p.project()->states(index));
}

LTextDocument addStates(const LProject& p, const std::string& title)
{
    return LTextDocument(p.project()->addStates(lua::str(title)));
}

bool fromFile(const LProject& p, const std::string& fileName)
{
    return p.project()->open(lua::str(fileName), 0, false, false);
}

// Writes the DEF as `fileName` and every model beside it under the name the
// DEF gives it, the state files in the DEF's order: a project a template
// made has no file names of its own yet.
bool toFile(const LProject& p, const std::string& fileName)
{
    QProject* project = p.project();
    // The DEF's facts follow its text after a delay; a script saves at once.
    project->definitions()->updateHierarchy();
    bool saved = project->definitions()->toFile(lua::str(fileName), false, false);
    const QProjectFiles files = project->definitions()->files();
    // A DEF that was never read has no folder of its own yet: the files go beside the new one.
    const QDir base = QFileInfo(lua::str(fileName)).absoluteDir();
    if (!files.sprites.isEmpty() && project->sprites()->count() > 0)
        saved = project->sprites()->toFile(base.filePath(files.sprites)) && saved;
    if (!files.animations.isEmpty() && !project->animations()->isEmpty())
        saved = project->animations()->toFile(base.filePath(files.animations), false, false) && saved;
    if (!files.commands.isEmpty() && !project->commands()->isEmpty())
        saved = project->commands()->toFile(base.filePath(files.commands), false, false) && saved;
    if (!files.sounds.isEmpty() && project->sounds()->count() > 0)
        saved = project->sounds()->toFile(base.filePath(files.sounds)) && saved;
    QStringList names = files.states;
    names.removeDuplicates();
    for (int i = 0; i < names.size() && i < project->statesCount(); ++i)
        saved = project->states(i)->toFile(base.filePath(names.at(i)), false, false) && saved;
    return saved;
}

int projectCount()
{
    const QLuaProjects& projects = QLuaProjects::installed();
    return projects.all ? int(projects.all().size()) : 0;
}

luabind::object projectAt(lua_State* state, int index)
{
    const QLuaProjects& projects = QLuaProjects::installed();
    const QList<QProject*> all = projects.all ? projects.all() : QList<QProject*>();
    checkIndex(index, int(all.size()));
    return luabind::object(state, LProject(all.at(index)));
}

luabind::object currentProject(lua_State* state)
{
    const QLuaProjects& projects = QLuaProjects::installed();
    QProject* project = projects.current ? projects.current() : nullptr;
    return project ? luabind::object(state, LProject(project)) : luabind::object();
}

} // namespace

void checkIndex(int index, int count)
{
    if (index < 0 || index >= count)
        throw lua::fault(QStringLiteral("index %1 out of range (0 to %2)").arg(index).arg(count - 1));
}

void registerLuaProject(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LProject, LObject>("Project")
            .enum_("type")[value("Character", ptCharacter), value("Stage", ptStage), value("Font", ptFont),
                           value("Storyboard", ptStoryboard), value("SystemScreen", ptMotif),
                           value("FightFX", ptFightFx)]
            .property("type", &projectType, &setProjectType)
            .property("definitions", &definitions)
            .property("commands", &commands)
            .property("sprites", &sprites)
            .property("animations", &animations)
            .property("sounds", &sounds)
            .property("statesCount", &statesCount)
            .def("states", &states)
            .def("addStates", &addStates)
            .def("fromFile", &fromFile)
            .def("toFile", &toFile),
        def("projectCount", &projectCount),
        def("project", &projectAt),
        def("project", &currentProject)
    ];
}
