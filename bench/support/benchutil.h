#pragma once

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <ctime>

/**
 * Timing for the benchmarks. Machines here are noisy, so every figure is
 * printed beside a baseline measured in the same run, and each measurement
 * is the best of several repetitions.
 */
namespace bench {

/// Milliseconds of the fastest of `repetitions` runs of `work`.
template<typename Work>
double bestMs(int repetitions, Work&& work)
{
    double best = 1e300;
    for (int i = 0; i < repetitions; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        const double ms = double(timer.nsecsElapsed()) / 1e6;
        if (ms < best)
            best = ms;
    }
    return best;
}

/**
 * Milliseconds of processor time, user and system, that this thread spent in
 * the fastest of `repetitions` runs of `work`. On a machine shared with other
 * busy processes (and under nice) wall time mostly measures how long the
 * scheduler kept the benchmark waiting; this does not, while page faults and
 * system calls made by the work still count. Only for work done on the
 * calling thread.
 */
template<typename Work>
double bestCpuMs(int repetitions, Work&& work)
{
    auto now = [] {
        timespec time;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    };
    double best = 1e300;
    for (int i = 0; i < repetitions; ++i) {
        const double start = now();
        work();
        best = std::min(best, now() - start);
    }
    return best;
}

/// Keeps the optimiser from removing work whose result is otherwise unused.
template<typename T>
void keep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

/// One result line: label, time, and its ratio to the baseline.
inline void report(const char* label, double ms, double baselineMs, const char* extra = "")
{
    std::printf("%-44s %10.3f ms   x%.2f of baseline %s\n", label, ms,
                baselineMs > 0 ? ms / baselineMs : 0.0, extra);
}

/// Megabytes per second for `bytes` done in `ms`.
inline double mbPerSecond(double bytes, double ms)
{
    return ms > 0 ? bytes / (ms / 1000.0) / 1e6 : 0.0;
}

/// The real engine files, or an empty string (the benchmark then says so).
inline QString realData()
{
    return QString::fromUtf8(PF_REALDATA);
}

/// The largest file below `root` whose name matches one of `patterns`
/// ("*.air"), or an empty string when there is none.
inline QString largestFile(const QString& root, const QStringList& patterns)
{
    QString largest;
    qint64 largestSize = -1;
    QDirIterator it(root, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        if (info.size() > largestSize) {
            largestSize = info.size();
            largest = info.filePath();
        }
    }
    return largest;
}

} // namespace bench
