// Runs a fuzz target without libFuzzer: every file under the folders given on
// the command line, then each of them cut short at several lengths and with
// single bits flipped. It proves the target builds and survives its seeds;
// real fuzzing runs under clang with PF_FUZZ (see README).
#include <QByteArray>
#include <QDirIterator>
#include <QFile>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void runOne(const QByteArray& bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
}

int replay(const QByteArray& seed)
{
    int runs = 1;
    runOne(seed);
    for (int cut = 1; cut < 64 && cut < seed.size(); cut *= 2) {
        runOne(seed.left(seed.size() - cut));
        runOne(seed.left(cut));
        runs += 2;
    }
    // A handful of bit flips spread over the input, deterministic.
    for (int i = 0; i < 32 && !seed.isEmpty(); ++i) {
        QByteArray flipped = seed;
        const int at = int((quint64(i) * 2654435761u) % quint64(seed.size()));
        flipped[at] = char(flipped[at] ^ (1 << (i % 8)));
        runOne(flipped);
        ++runs;
    }
    return runs;
}

} // namespace

int main(int argc, char** argv)
{
    int runs = 0;
    runOne(QByteArray());
    for (int i = 1; i < argc; ++i) {
        QDirIterator it(QString::fromLocal8Bit(argv[i]), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            if (file.open(QIODevice::ReadOnly))
                runs += replay(file.readAll());
        }
    }
    std::printf("replayed %d inputs\n", runs);
    return 0;
}
