// Directory and FileInfo: Qt's folders and facts about files, for scripts
// that look through a project's folder or make their own.
#include "qluabindings.h"
#include "qluaqt.h"
#include "qluatableinit.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

QString separator() { return QString(QDir::separator()); }
QString currentPath() { return QDir::currentPath(); }
QString homePath() { return QDir::homePath(); }
QString tempPath() { return QDir::tempPath(); }
QString rootPath() { return QDir::rootPath(); }
QString cleanPath(const QString& path) { return QDir::cleanPath(path); }
QString toNativeSeparators(const QString& path) { return QDir::toNativeSeparators(path); }
QString fromNativeSeparators(const QString& path) { return QDir::fromNativeSeparators(path); }

QString path(const QDir& d) { return d.path(); }
void setPath(QDir& d, const QString& path) { d.setPath(path); }
bool exists(const QDir& d) { return d.exists(); }
bool existsNamed(const QDir& d, const QString& name) { return d.exists(name); }
bool mkdir(const QDir& d, const QString& name) { return d.mkdir(name); }
int count(const QDir& d) { return int(d.count()); }
bool isEmpty(const QDir& d) { return d.isEmpty(); }
QStringList entries(const QDir& d) { return d.entryList(); }
QStringList entriesOf(const QDir& d, int filters) { return d.entryList(QDir::Filters(filters)); }
QStringList entriesNamed(const QDir& d, const QStringList& names, int filters)
{
    return d.entryList(names, QDir::Filters(filters));
}
QStringList entriesSorted(const QDir& d, const QStringList& names, int filters, int sort)
{
    return d.entryList(names, QDir::Filters(filters), QDir::SortFlags(sort));
}
QString dirText(const QDir& d) { return QStringLiteral("Directory(%1)").arg(d.path()); }
bool dirEqual(const QDir& a, const QDir& b) { return a == b; }

void fileInfoIn(const luabind::argument& self, const QDir& dir, const QString& name)
{
    lua::initAs(self, QFileInfo(dir, name));
}
QString filePath(const QFileInfo& f) { return f.filePath(); }
void setFile(QFileInfo& f, const QString& name) { f.setFile(name); }
double fileSize(const QFileInfo& f) { return double(f.size()); }
QString fileInfoText(const QFileInfo& f) { return QStringLiteral("FileInfo(%1)").arg(f.filePath()); }

void registerDirectory(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QDir>("Directory")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def(constructor<const QDir&>())
            .def("__init", &lua::initFromTable<QDir>)
            .enum_("constants")[
                value("Dirs", QDir::Dirs), value("Files", QDir::Files), value("Drives", QDir::Drives),
                value("AllEntries", QDir::AllEntries), value("NoDotAndDotDot", QDir::NoDotAndDotDot),
                value("Hidden", QDir::Hidden), value("Readable", QDir::Readable), value("Writable", QDir::Writable),
                value("AllDirs", QDir::AllDirs), value("NoFilter", QDir::NoFilter),
                value("Name", QDir::Name), value("Time", QDir::Time), value("Size", QDir::Size),
                value("Type", QDir::Type), value("NoSort", QDir::NoSort), value("DirsFirst", QDir::DirsFirst),
                value("Reversed", QDir::Reversed), value("IgnoreCase", QDir::IgnoreCase)
            ]
            .property("path", &path, &setPath)
            .property("nameFilters", lua::bare<&QDir::nameFilters>, lua::bare<&QDir::setNameFilters>)
            .property("absolutePath", lua::bare<&QDir::absolutePath>)
            .property("canonicalPath", lua::bare<&QDir::canonicalPath>)
            .property("dirName", lua::bare<&QDir::dirName>)
            .property("count", &count)
            .def("exists", &exists)
            .def("exists", &existsNamed)
            .def("isRoot", lua::bare<&QDir::isRoot>)
            .def("isAbsolute", lua::bare<&QDir::isAbsolute>)
            .def("isRelative", lua::bare<&QDir::isRelative>)
            .def("isEmpty", &isEmpty)
            .def("makeAbsolute", lua::bare<&QDir::makeAbsolute>)
            .def("filePath", lua::bare<&QDir::filePath>)
            .def("absoluteFilePath", lua::bare<&QDir::absoluteFilePath>)
            .def("relativeFilePath", lua::bare<&QDir::relativeFilePath>)
            .def("cd", lua::bare<&QDir::cd>)
            .def("cdUp", lua::bare<&QDir::cdUp>)
            .def("entryList", &entries)
            .def("entryList", &entriesOf)
            .def("entryList", &entriesNamed)
            .def("entryList", &entriesSorted)
            .def("mkdir", &mkdir)
            .def("mkpath", lua::bare<&QDir::mkpath>)
            .def("rmdir", lua::bare<&QDir::rmdir>)
            .def("rmpath", lua::bare<&QDir::rmpath>)
            .def("remove", lua::bare<&QDir::remove>)
            .def("rename", lua::bare<&QDir::rename>)
            .def("removeRecursively", lua::bare<&QDir::removeRecursively>)
            .def("__eq", &dirEqual)
            .def("__tostring", &dirText)
            .scope[
                def("separator", &separator), def("currentPath", &currentPath), def("homePath", &homePath),
                def("tempPath", &tempPath), def("rootPath", &rootPath), def("cleanPath", &cleanPath),
                def("toNativeSeparators", &toNativeSeparators), def("fromNativeSeparators", &fromNativeSeparators)
            ]
    ];
}

void registerFileInfo(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QFileInfo>("FileInfo")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def(constructor<const QFileInfo&>())
            .def("__init", &fileInfoIn)
            .def("__init", &lua::initFromTable<QFileInfo>)
            .property("filePath", &filePath, &setFile)
            .property("fileName", lua::bare<&QFileInfo::fileName>)
            .property("absoluteFilePath", lua::bare<&QFileInfo::absoluteFilePath>)
            .property("canonicalFilePath", lua::bare<&QFileInfo::canonicalFilePath>)
            .property("absolutePath", lua::bare<&QFileInfo::absolutePath>)
            .property("path", lua::bare<&QFileInfo::path>)
            .property("baseName", lua::bare<&QFileInfo::baseName>)
            .property("completeBaseName", lua::bare<&QFileInfo::completeBaseName>)
            .property("suffix", lua::bare<&QFileInfo::suffix>)
            .property("completeSuffix", lua::bare<&QFileInfo::completeSuffix>)
            .property("size", &fileSize)
            .property("lastModified", lua::bare<&QFileInfo::lastModified>)
            .property("dir", lua::bare<&QFileInfo::dir>)
            .property("absoluteDir", lua::bare<&QFileInfo::absoluteDir>)
            .def("exists", lua::bare<static_cast<bool (QFileInfo::*)() const>(&QFileInfo::exists)>)
            .def("isFile", lua::bare<&QFileInfo::isFile>)
            .def("isDir", lua::bare<&QFileInfo::isDir>)
            .def("isReadable", lua::bare<&QFileInfo::isReadable>)
            .def("isWritable", lua::bare<&QFileInfo::isWritable>)
            .def("isHidden", lua::bare<&QFileInfo::isHidden>)
            .def("isRelative", lua::bare<&QFileInfo::isRelative>)
            .def("isAbsolute", lua::bare<&QFileInfo::isAbsolute>)
            .def("isSymLink", lua::bare<&QFileInfo::isSymLink>)
            .def("setFile", &setFile)
            .def("refresh", lua::bare<&QFileInfo::refresh>)
            .def("makeAbsolute", lua::bare<&QFileInfo::makeAbsolute>)
            .def("__tostring", &fileInfoText)
    ];
}

} // namespace

void registerLuaFileInfo(lua_State* state)
{
    registerDirectory(state);
    registerFileInfo(state);
}
