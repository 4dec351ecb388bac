// Definitions: the project's DEF, a text document with the facts it states.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "model/qdefinitions.h"

QDefinitions* LDefinitions::definitions() const
{
    return static_cast<QDefinitions*>(text());
}

namespace {

int defType(const LDefinitions& d) { return d.definitions()->type(); }
void setDefType(const LDefinitions& d, int type) { d.definitions()->setType(QProjectType(type)); }
std::string name(const LDefinitions& d) { return lua::std(d.definitions()->name()); }
void setName(const LDefinitions& d, const std::string& name) { d.definitions()->setName(lua::str(name)); }
int localWidth(const LDefinitions& d) { return d.definitions()->localCoord().width(); }
int localHeight(const LDefinitions& d) { return d.definitions()->localCoord().height(); }
std::string baseDirectory(const LDefinitions& d) { return lua::std(d.definitions()->baseDirectory()); }
unsigned int version(const LDefinitions& d) { return d.definitions()->version(); }

} // namespace

void registerLuaDefinitions(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LDefinitions, LTextDocument>("Definitions")
            .property("type", &defType, &setDefType)
            .property("name", &name, &setName)
            .property("localWidth", &localWidth)
            .property("localHeight", &localHeight)
            .property("baseDirectory", &baseDirectory)
            .property("version", &version)
    ];
}
