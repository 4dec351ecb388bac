#include "enginekit.h"

#include "projectkit.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

const char* const launcherScript = R"sh(#!/bin/sh
{
  for a in "$@"; do printf 'arg:%s\n' "$a"; done
  printf 'cwd:%s\n' "$(pwd)"
  find chars/pf3_0 stages data -type f 2>/dev/null | LC_ALL=C sort | while read -r f; do
    printf 'file:%s %s\n' "$(md5sum < "$f" | cut -d' ' -f1)" "$f"
  done
} > "$STANDIN_RECORD"
[ -n "$STANDIN_KEEP" ] && cp -r chars/pf3_0 "$STANDIN_KEEP"
[ -n "$STANDIN_LOG" ] && printf '%s\n' "$STANDIN_LOG" > mugen.log
[ -n "$STANDIN_SLEEP" ] && exec sleep "$STANDIN_SLEEP"
[ -n "$STANDIN_CRASH" ] && kill -SEGV $$
[ -n "$STANDIN_EXIT" ] && echo "the stand-in refuses $1" >&2
exit ${STANDIN_EXIT:-0}
)sh";

} // namespace

void enginekit::installLauncher(const QString& binDir, const QString& recordFile)
{
    const QString script = binDir + QStringLiteral("/wine");
    kit::writeBytes(script, launcherScript);
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", (binDir + QLatin1Char(':') + qEnvironmentVariable("PATH")).toLocal8Bit());
    qputenv("STANDIN_RECORD", recordFile.toLocal8Bit());
}

enginekit::Record enginekit::readRecord(const QString& recordFile)
{
    Record record;
    for (const QByteArray& line : kit::readBytes(recordFile).split('\n')) {
        if (line.startsWith("arg:"))
            record.arguments << QString::fromLocal8Bit(line.mid(4));
        else if (line.startsWith("cwd:"))
            record.workingDirectory = QString::fromLocal8Bit(line.mid(4));
        else if (line.startsWith("file:"))
            record.files.insert(QString::fromLocal8Bit(line.mid(5 + 33)), line.mid(5, 32));
    }
    return record;
}

QMap<QString, QByteArray> enginekit::snapshot(const QString& dir)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(
        dir, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(
            QDir(dir).relativeFilePath(path), QFileInfo(path).isDir() ? QByteArray() : kit::readBytes(path));
    }
    return files;
}

QMap<QString, QByteArray> enginekit::checksums(const QString& dir)
{
    QMap<QString, QByteArray> sums;
    QDirIterator it(dir, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        sums.insert(QDir(dir).relativeFilePath(path),
            QCryptographicHash::hash(kit::readBytes(path), QCryptographicHash::Md5).toHex());
    }
    return sums;
}
