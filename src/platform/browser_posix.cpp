#include "platform/browser.h"
#include "platform/paths.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace brindle {

namespace {

constexpr int Success = GreatestProgramFault + 1;

/// Programs that open an address in the browser that the user has set, the usual one first.
constexpr std::array<const char*, 3> Openers{"xdg-open", "sensible-browser", "x-www-browser"};

std::string FindOnPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path);
    std::string folder;
    while (std::getline(folders, folder, ':')) {
        // An empty entry means the current folder, in which a stranger's program may lie.
        std::string program = JoinPath(folder, name);
        if (!folder.empty() && ::access(program.c_str(), X_OK) == 0) {
            return program;
        }
    }
    return {};
}

int FindExecutable(const std::string& /*path*/, std::string& program) {
    for (const char* opener : Openers) {
        program = FindOnPath(opener);
        if (!program.empty()) {
            return Success;
        }
    }
    return ProgramNotFoundFault;
}

int FaultOf(int systemError) {
    switch (systemError) {
    case ENOMEM:
    case EAGAIN:
        return OutOfMemoryFault;
    case ENOENT:
        return ProgramNotFoundFault;
    case ENOTDIR:
        return ProgramPathNotFoundFault;
    case ENOEXEC:
        return CorruptProgramFault;
    default:
        return UnknownProgramFault;
    }
}

/// Becomes the program in a session of its own, so that it outlives us and gets none of our signals. Returns
/// only when that failed. Runs in a fork: nothing here may allocate.
void BecomeProgram(char* const* arguments, int failures) {
    ::setsid();
    ::execv(arguments[0], arguments);
    const int systemError = errno;
    [[maybe_unused]] const auto written = ::write(failures, &systemError, sizeof systemError);
}

/// The child's child becomes the program; the child ends at once, so that no dead process is left to us.
pid_t ForkTwice(char* const* arguments, int failures) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::fork() == 0) {
            BecomeProgram(arguments, failures);
        }
        ::_exit(0);
    }
    return child;
}

int StartProgram(const std::string& program, const std::string& argument) {
    std::string name = program;
    std::string address = argument;
    const std::array<char*, 3> arguments{name.data(), address.data(), nullptr};
    // Closed by the program's start: nothing to be read from it is success.
    std::array<int, 2> failures{};
    if (::pipe2(failures.data(), O_CLOEXEC) != 0) {
        return FaultOf(errno);
    }
    const pid_t child = ForkTwice(arguments.data(), failures[1]);
    int systemError = child < 0 ? errno : 0;
    ::close(failures[1]);
    if (child > 0) {
        ::waitpid(child, nullptr, 0);
        int told = 0;
        if (::read(failures[0], &told, sizeof told) == static_cast<ssize_t>(sizeof told)) {
            systemError = told;
        }
    }
    ::close(failures[0]);
    return systemError == 0 ? Success : FaultOf(systemError);
}

} // namespace

BrowserFunctions RealBrowser() {
    return {FindExecutable, StartProgram};
}

} // namespace brindle
