// pugilforge-cli as authors start it: a launcher that links nothing but the C
// and C++ libraries. Every command reads or draws pictures and so needs Qt's
// GUI library, which loads some thirty more shared libraries and binds all
// their symbols at start; that is most of a command's start-up time. Scripts
// asking only for the version should not pay it, so the launcher answers
// --version itself and hands everything else, arguments untouched, to the
// commands program beside it (pugilforge-cli-commands), replacing itself
// with it so that exit codes, output and signals stay the commands' own.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

constexpr char commandsName[] = "pugilforge-cli-commands";

/// The commands program beside this executable, symbolic links resolved (an
/// installed copy is started through one); false when the path does not fit.
bool commandsPath(char (&path)[PATH_MAX])
{
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length <= 0)
        return false;
    path[length] = '\0';
    char* slash = std::strrchr(path, '/');
    if (!slash || size_t(slash + 1 - path) + sizeof commandsName > sizeof path)
        return false;
    std::memcpy(slash + 1, commandsName, sizeof commandsName);
    return true;
}

/// Whether the command the arguments name (the first that is not --json) is --version.
bool asksVersion(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--json") != 0)
            return std::strcmp(argv[i], "--version") == 0;
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (asksVersion(argc, argv)) {
        std::puts("pugilforge-cli " PF_VERSION);
        return 0;
    }
    char path[PATH_MAX];
    if (!commandsPath(path)) {
        std::fprintf(stderr, "pugilforge-cli: cannot find %s beside this program\n", commandsName);
        return 1;
    }
    execv(path, argv);
    std::fprintf(stderr, "pugilforge-cli: cannot start %s: %s\n", path, std::strerror(errno));
    return 1;
}
