#include "commands/out_of_memory.h"

#include "commands/command_line.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>
#include <tuple>

#include <unistd.h>

namespace {

[[noreturn]] void endOutOfMemory() noexcept
{
    static std::atomic_flag isEnding;
    while (isEnding.test_and_set())
        ::pause(); // another thread ends the program
    constexpr char sentence[] = "qvlmms: there is not enough memory\n";
    std::ignore = ::write(STDERR_FILENO, sentence, sizeof sentence - 1);
    ::_exit(CommandLine::CannotDo); // destructors may need memory
}

// Qt's containers throw, or terminate the program if Qt is built without exceptions.
[[noreturn]] void terminate() noexcept
{
    try {
        if (const std::exception_ptr thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::bad_alloc &) {
        endOutOfMemory();
    } catch (...) {
        std::abort();
    }
    endOutOfMemory();
}

// Fontconfig and others do not check every allocation, and crash. errno is still that of malloc().
void endIfOutOfMemory(int)
{
    if (errno == ENOMEM)
        endOutOfMemory();
}

} // namespace

void endWhenOutOfMemory()
{
    std::set_new_handler(endOutOfMemory);
    std::set_terminate(terminate);
    struct sigaction action = {};
    action.sa_handler = endIfOutOfMemory;
    action.sa_flags = int(SA_RESETHAND); // another crash, or the same one again, ends the program
    for (const int signal : {SIGSEGV, SIGABRT}) {
        struct sigaction before;
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            std::ignore = ::sigaction(signal, &action, nullptr); // else a sanitizer reports it
    }
}
