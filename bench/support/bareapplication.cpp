// The floor of a command-line start: a QCoreApplication that prints a line
// and ends, as `pugilforge-cli --version` does. bench_startup times both.
#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    std::puts("bare 1.0");
    return 0;
}
