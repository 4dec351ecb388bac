// Sounds: the SND of the project, one entry per sample, with undoable edits.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "model/qsounds.h"

namespace {

QSounds* list(const LSounds& s) { return s.sounds(); }
int count(const LSounds& s) { return list(s)->count(); }

const QSample* sample(const LSounds& s, int position)
{
    checkIndex(position, count(s));
    return list(s)->at(position);
}

int group(const LSounds& s, int position) { return sample(s, position)->group; }
int number(const LSounds& s, int position) { return sample(s, position)->sample; }
int find(const LSounds& s, int group, int number) { return list(s)->find(0, group, number); }

void setNumber(const LSounds& s, int position, int group, int number)
{
    sample(s, position);
    list(s)->setInfo(position, QSoundInfo(group, number));
}

void removeSound(const LSounds& s, int position)
{
    sample(s, position);
    list(s)->remove(unsigned(position));
}

void renameGroup(const LSounds& s, int group, int newGroup) { list(s)->renameGroup(group, newGroup, true, 0, 0); }
void removeGroup(const LSounds& s, int group) { list(s)->removeGroup(group, true, 0, 0); }
void autoOrganize(const LSounds& s) { list(s)->autoOrganize(); }
void undo(const LSounds& s) { list(s)->undoStack()->undo(); }
void redo(const LSounds& s) { list(s)->undoStack()->redo(); }
std::string fileName(const LSounds& s) { return lua::std(list(s)->fileName()); }
bool isModified(const LSounds& s) { return list(s)->isModified(); }

} // namespace

void registerLuaSounds(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LSounds, LObject>("Sounds")
            .property("count", &count)
            .property("fileName", &fileName)
            .property("isModified", &isModified)
            .def("group", &group)
            .def("sample", &number)
            .def("find", &find)
            .def("setNumber", &setNumber)
            .def("remove", &removeSound)
            .def("renameGroup", &renameGroup)
            .def("removeGroup", &removeGroup)
            .def("autoOrganize", &autoOrganize)
            .def("undo", &undo)
            .def("redo", &redo)
    ];
}
