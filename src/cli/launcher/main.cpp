// pugilforge-cli as authors start it: a launcher that links nothing but the C
// and C++ libraries. Most commands read or draw pictures or text documents and
// so need Qt's GUI library, which loads some thirty more shared libraries and
// binds all their symbols at start; that is most of a command's start-up time.
// Scripts asking only for the version should not pay it, so the launcher
// answers --version itself. The commands whose code needs only Qt Core run in
// pugilforge-cli-core, which loads none of it; everything else goes to
// pugilforge-cli-commands. Either is found beside this executable and started
// with the arguments untouched, replacing the launcher so that exit codes,
// output and signals stay the commands' own.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

constexpr char commandsName[] = "pugilforge-cli-commands";
constexpr char coreName[] = "pugilforge-cli-core";
/// The commands pugilforge-cli-core has, as the build lists them.
const char* const coreCommands[] = { PF_CLI_CORE_COMMANDS };

/// The program `name` beside this executable, symbolic links resolved (an
/// installed copy is started through one); false when the path does not fit.
bool programPath(const char* name, char (&path)[PATH_MAX])
{
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length <= 0)
        return false;
    path[length] = '\0';
    char* slash = std::strrchr(path, '/');
    const size_t size = std::strlen(name) + 1;
    if (!slash || size_t(slash + 1 - path) + size > sizeof path)
        return false;
    std::memcpy(slash + 1, name, size);
    return true;
}

/// The command the arguments name (the first that is not --json), or null.
const char* namedCommand(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--json") != 0)
            return argv[i];
    return nullptr;
}

bool needsOnlyCore(const char* command)
{
    for (const char* core : coreCommands)
        if (command && std::strcmp(command, core) == 0)
            return true;
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    const char* command = namedCommand(argc, argv);
    if (command && std::strcmp(command, "--version") == 0) {
        std::puts("pugilforge-cli " PF_VERSION);
        return 0;
    }
    const char* program = needsOnlyCore(command) ? coreName : commandsName;
    char path[PATH_MAX];
    if (!programPath(program, path)) {
        std::fprintf(stderr, "pugilforge-cli: cannot find %s beside this program\n", program);
        return 1;
    }
    execv(path, argv);
    std::fprintf(stderr, "pugilforge-cli: cannot start %s: %s\n", path, std::strerror(errno));
    return 1;
}
