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

bool toFile(const LProject& p, const std::string& fileName)
{
    return p.project()->saveAs(lua::str(fileName), false);
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
