// File and TemporaryFile: Qt's files for scripts that read and write their
// own data. A file opened only to be written is written through a save
// file, committed when the script closes it: a script that fails halfway
// never leaves a half-written file in place of the author's.
#include "qluabindings.h"
#include "qluaobject.h"
#include "qluaqt.h"
#include "qluatableinit.h"

#include <luabind/adopt_policy.hpp>

#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>

namespace {

class LFile : public LObject
{
public:
    LFile() : LObject(new QFile, Owned()) {}
    explicit LFile(const QString& name) : LObject(new QFile(name), Owned()) {}
    /// A file dropped while open for writing is committed, as closing it would.
    ~LFile() override
    {
        if (ownsObject())
            close();
    }

    QFile* file() const { return live<QFile>(); }
    /// The save file while the file is open for writing, else null.
    QSaveFile* saving() const { return file()->findChild<QSaveFile*>(QString(), Qt::FindDirectChildrenOnly); }
    QIODevice* device() const
    {
        QSaveFile* save = saving();
        return save ? static_cast<QIODevice*>(save) : file();
    }

    bool open(int mode)
    {
        const auto flags = QIODevice::OpenMode(mode);
        const bool whole = (flags & QIODevice::WriteOnly) && !(flags & (QIODevice::ReadOnly | QIODevice::Append));
        if (!whole || qobject_cast<QTemporaryFile*>(file()) || device()->isOpen())
            return file()->open(flags);
        auto* save = new QSaveFile(file()->fileName(), file());
        if (save->open(flags))
            return true;
        m_error = save->errorString();
        delete save;
        return false;
    }

    /// False when the written file could not take the place of the old one.
    bool close()
    {
        if (!isAlive())
            return false;
        QSaveFile* save = saving();
        if (!save) {
            file()->close();
            return true;
        }
        const bool committed = save->commit();
        m_error = committed ? QString() : save->errorString();
        delete save;
        return committed;
    }

    QString errorString() const { return m_error.isEmpty() ? device()->errorString() : m_error; }

protected:
    LFile(QFile* file, Owned owned) : LObject(file, owned) {}

private:
    QString m_error;
};

class LTemporaryFile : public LFile
{
public:
    LTemporaryFile() : LFile(new QTemporaryFile, Owned()) {}
    explicit LTemporaryFile(const QString& fileTemplate) : LFile(new QTemporaryFile(fileTemplate), Owned()) {}
    /// A copy createLocalFile made: the Lua value owns it like one the script made.
    explicit LTemporaryFile(QTemporaryFile* file) : LFile(file, Owned()) {}
    QTemporaryFile* temporary() const { return live<QTemporaryFile>(); }
};

QString fileFileName(const LFile& f) { return f.file()->fileName(); }
void fileSetFileName(LFile& f, const QString& name) { f.file()->setFileName(name); }
bool fileOpen(LFile& f, int mode) { return f.open(mode); }
bool fileClose(LFile& f) { return f.close(); }
bool fileIsOpen(const LFile& f) { return f.device()->isOpen(); }
bool fileIsReadable(const LFile& f) { return f.device()->isReadable(); }
bool fileIsWritable(const LFile& f) { return f.device()->isWritable(); }
bool fileAtEnd(const LFile& f) { return f.device()->atEnd(); }
double fileSize(const LFile& f) { return double(f.device()->size()); }
double filePos(const LFile& f) { return double(f.device()->pos()); }
bool fileSeek(LFile& f, double position) { return f.device()->seek(qint64(position)); }
QString fileErrorString(const LFile& f) { return f.errorString(); }
QByteArray fileRead(LFile& f, double count) { return f.device()->read(qint64(count)); }
QByteArray fileReadAll(LFile& f) { return f.device()->readAll(); }
QByteArray fileReadLine(LFile& f) { return f.device()->readLine(); }
QByteArray filePeek(LFile& f, double count) { return f.device()->peek(qint64(count)); }
double fileWrite(LFile& f, const QByteArray& bytes) { return double(f.device()->write(bytes)); }
bool fileExists(const LFile& f) { return f.file()->exists(); }
bool fileRemove(LFile& f) { return f.file()->remove(); }
bool fileRename(LFile& f, const QString& name) { return f.file()->rename(name); }
bool fileCopy(LFile& f, const QString& name) { return f.file()->copy(name); }
bool fileResize(LFile& f, double size) { return f.file()->resize(qint64(size)); }

bool openTemporary(LTemporaryFile& f) { return f.temporary()->open(); }
bool autoRemove(const LTemporaryFile& f) { return f.temporary()->autoRemove(); }
void setAutoRemove(LTemporaryFile& f, bool on) { f.temporary()->setAutoRemove(on); }
QString fileTemplate(const LTemporaryFile& f) { return f.temporary()->fileTemplate(); }
void setFileTemplate(LTemporaryFile& f, const QString& text) { f.temporary()->setFileTemplate(text); }

// TemporaryFile.createLocalFile(name): a local copy of a file Qt reads from
// elsewhere (a resource); nil for a file that is already local.
LTemporaryFile* createLocalFile(const QString& name)
{
    QTemporaryFile* copy = QTemporaryFile::createNativeFile(name);
    return copy ? new LTemporaryFile(copy) : nullptr;
}

} // namespace

void registerLuaFile(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LFile, LObject>("File")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def("__init", &lua::initFromTable<LFile>)
            .enum_("constants")[
                value("ReadOnly", QIODevice::ReadOnly), value("WriteOnly", QIODevice::WriteOnly),
                value("ReadWrite", QIODevice::ReadWrite), value("Append", QIODevice::Append),
                value("Truncate", QIODevice::Truncate), value("Text", QIODevice::Text)
            ]
            .property("fileName", &fileFileName, &fileSetFileName)
            .property("size", &fileSize)
            .property("pos", &filePos)
            .property("isOpen", &fileIsOpen)
            .property("isReadable", &fileIsReadable)
            .property("isWritable", &fileIsWritable)
            .property("errorString", &fileErrorString)
            .def("open", &fileOpen)
            .def("close", &fileClose)
            .def("atEnd", &fileAtEnd)
            .def("seek", &fileSeek)
            .def("read", &fileRead)
            .def("readAll", &fileReadAll)
            .def("readLine", &fileReadLine)
            .def("peek", &filePeek)
            .def("write", &fileWrite)
            .def("exists", &fileExists)
            .def("remove", &fileRemove)
            .def("rename", &fileRename)
            .def("copy", &fileCopy)
            .def("resize", &fileResize),
        class_<LTemporaryFile, LFile>("TemporaryFile")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def("__init", &lua::initFromTable<LTemporaryFile>)
            .property("autoRemove", &autoRemove, &setAutoRemove)
            .property("fileTemplate", &fileTemplate, &setFileTemplate)
            .def("open", &openTemporary)
            .def("open", &fileOpen)
            .scope[def("createLocalFile", &createLocalFile, adopt(result))]
    ];
}
