// Opening the largest character of the real files whole (DEF, palettes,
// sprites, sounds, commands, state files), beside reading the bytes of all
// its files in the same run: the cost of making models of what is read.

#include "benchutil.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

/// The files a character's DEF leads to on disk, the DEF first.
QStringList characterFiles(const QString& def)
{
    QProject project;
    if (!project.open(def, 0, false, false) || project.type() != ptCharacter)
        return {};
    const QProjectFiles files = project.definitions()->files();
    QStringList names { files.sprites, files.animations, files.sounds, files.commands };
    names += files.states;
    for (const QString& palette : files.palettes)
        names << palette;
    QStringList paths { def };
    for (const QString& name : std::as_const(names)) {
        const QResolvedPath path = resolvePath(files.baseDir, name);
        if (path.exists && !name.isEmpty())
            paths << path.path;
    }
    return paths;
}

qint64 totalSize(const QStringList& paths)
{
    qint64 size = 0;
    for (const QString& path : paths)
        size += QFileInfo(path).size();
    return size;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    initCodecs();
    QProject::init();
    const QString root = bench::realData();
    if (!QFileInfo(root).isDir()) {
        std::printf("real engine files not found: nothing to measure\n");
        return 0;
    }
    QString largest;
    QStringList largestFiles;
    QDirIterator it(root, { QStringLiteral("*.def") }, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString def = it.next();
        const QStringList files = characterFiles(def);
        if (files.size() > 1 && totalSize(files) > totalSize(largestFiles)) {
            largest = def;
            largestFiles = files;
        }
    }
    if (largest.isEmpty()) {
        std::printf("no character found\n");
        return 0;
    }
    std::printf("%s: %lld files, %.2f MB\n", qPrintable(QDir(root).relativeFilePath(largest)),
        static_cast<long long>(largestFiles.size()), totalSize(largestFiles) / 1e6);

    const double reading = bench::bestMs(10, [&] {
        for (const QString& path : std::as_const(largestFiles)) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly))
                bench::keep(file.readAll());
        }
    });
    bench::report("read the bytes of every file (baseline)", reading, reading);
    bench::report("open whole, no checker",
        bench::bestMs(5,
            [&] {
                QProject project;
                bench::keep(project.open(largest, 0, false, false));
            }),
        reading);
    // With the vocabulary loaded, as in the window, every text file is also checked as it loads.
    if (QSyntaxTextEditor::initProperties(QCoreApplication::applicationDirPath() + QStringLiteral("/../bin")))
        bench::report("open whole, text files checked",
            bench::bestMs(5,
                [&] {
                    QProject project;
                    bench::keep(project.open(largest, 0, false, false));
                }),
            reading);
    return 0;
}
