#include "faults/each_allocation.h"

#include <QtGlobal>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>

#include <execinfo.h>
#include <link.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The addresses of a library's code.
struct CodeRange
{
    const char *name;
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};

int findLibrary(dl_phdr_info *info, size_t, void *found)
{
    auto *range = static_cast<CodeRange *>(found);
    if (!std::strstr(info->dlpi_name, range->name))
        return 0;
    range->begin = info->dlpi_addr;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto &header = info->dlpi_phdr[i];
        range->end =
            std::max<std::uintptr_t>(range->end, info->dlpi_addr + header.p_vaddr + header.p_memsz);
    }
    return 1;
}

CodeRange rangeOf(const char *library)
{
    CodeRange range{library};
    dl_iterate_phdr(findLibrary, &range);
    return range;
}

const CodeRange pictureReaders = rangeOf("libQt6Gui");

bool isInPictureReader()
{
    std::array<void *, 64> frames{};
    const int count = backtrace(frames.data(), int(frames.size()));
    return std::any_of(frames.begin(), frames.begin() + count, [](void *frame) {
        const auto address = reinterpret_cast<std::uintptr_t>(frame);
        return address >= pictureReaders.begin && address < pictureReaders.end;
    });
}

thread_local long counted = 0;
thread_local long failing = 0; ///< the number of the allocation that fails; 0: none

bool shouldFail()
{
    return !isInPictureReader() && ++counted == failing;
}

constexpr std::time_t Now = 1'800'000'000;
std::time_t runs = 0;

struct Run
{
    bool isDone = false;
    long lost = 0; ///< blocks
};

Run run(Work &work, long failingAllocation)
{
    ++runs;
    counted = 0;
    failing = failingAllocation;
    const CountedAllocations allocations(shouldFail);
    const bool isDone = work.go();
    return {isDone, allocations.balance()};
}

/// A run in a process of its own.
struct FirstRun
{
    bool isDone = false;
    long allocations = 0;
    std::string output = {};
    int status = 0; ///< of the process; -1 when it wrote nothing
};

FirstRun firstRun(const NewWork &newWork, long failingAllocation)
{
    std::FILE *file = std::tmpfile();
    if (!file)
        return {.status = -1};
    const pid_t process = fork();
    if (process == 0) {
        const auto work = newWork();
        const bool isDone = run(*work, failingAllocation).isDone;
        const std::string text =
            std::to_string(isDone) + ' ' + std::to_string(counted) + ' ' + work->output();
        std::fwrite(text.data(), 1, text.size(), file);
        std::fflush(file);
        _exit(0);
    }
    FirstRun result;
    waitpid(process, &result.status, 0);
    std::rewind(file);
    int isDone = 0;
    if (std::fscanf(file, "%d %ld ", &isDone, &result.allocations) != 2)
        result.status = -1;
    result.isDone = isDone != 0;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        result.output += char(c);
    std::fclose(file);
    return result;
}

} // namespace

// The date is the same in every run, so that outputs are comparable. The other clocks proceed with
// each run, so that every run reads the time zone.
extern "C" {
Q_DECL_EXPORT int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    *time = {clock == CLOCK_REALTIME ? Now : runs, 0};
    return 0;
}

Q_DECL_EXPORT int gettimeofday(timeval *time, void *) noexcept
{
    *time = {Now, 0};
    return 0;
}
}

Outcome failEachAllocation(const NewWork &newWork, const Accepts &accepts)
{
    std::array<void *, 4> frames{};
    backtrace(frames.data(), int(frames.size())); // loads what it needs
    std::string undisturbed;
    for (int i = 0; i < 3; ++i) { // the first runs create what is created only once
        const auto work = newWork();
        EXPECT_TRUE(run(*work, 0).isDone);
        undisturbed = work->output();
    }
    Outcome outcome{.allocations = counted};
    for (long n = 1; n <= outcome.allocations; ++n) {
        SCOPED_TRACE(testing::Message() << "allocation " << n);
        const auto work = newWork();
        try {
            const Run result = run(*work, n);
            // The C library drops its time zone before it takes memory for the next one.
            EXPECT_LE(result.lost, 0) << "blocks lost";
            tzset();
            outcome.reported += !result.isDone;
            EXPECT_TRUE(!result.isDone || work->output() == undisturbed
                        || (accepts && accepts(work->output(), undisturbed)))
                << work->output() << "instead of\n"
                << undisturbed;
        } catch (const std::bad_alloc &) {
            ADD_FAILURE() << "an exception left the library";
        }
    }
    return outcome;
}

Outcome failEachAllocationOfTheFirstRun(const NewWork &newWork)
{
    const FirstRun undisturbed = firstRun(newWork, 0);
    EXPECT_EQ(undisturbed.status, 0);
    EXPECT_TRUE(undisturbed.isDone);
    Outcome outcome{.allocations = undisturbed.allocations};
    for (long n = 1; n <= outcome.allocations; ++n) {
        SCOPED_TRACE(testing::Message() << "allocation " << n);
        const FirstRun result = firstRun(newWork, n);
        EXPECT_EQ(result.status, 0);
        outcome.reported += !result.isDone;
        EXPECT_TRUE(!result.isDone || result.output == undisturbed.output)
            << result.output << "instead of\n"
            << undisturbed.output;
    }
    return outcome;
}
