/*
 * Lets the first, second, third ... allocation of some work fail. Each time no exception leaves the
 * library, no memory is leaked or deleted twice, and the work reports the failure or has the same
 * output as without it.
 */
#pragma once

#include "support/allocations.h"

#include <functional>
#include <memory>
#include <string>

/// One run of some work.
class Work
{
public:
    Work() = default;
    Work(const Work &) = delete;
    Work &operator=(const Work &) = delete;
    virtual ~Work() = default;

    /// Runs. True if every step reports that it did all of its work.
    virtual bool go() = 0;
    /// What the run produced, as text.
    const std::string &output() const { return m_output; }

protected:
    /// Keeps what @p output returns, without counting allocations.
    template <typename Output>
    void keep(Output output)
    {
        const UncountedAllocations pause;
        m_output = output();
    }

private:
    std::string m_output;
};

struct Outcome
{
    long allocations = 0;
    long reported = 0; ///< how many of their failures the work reports
};

/// Creates a new run of the work, before anything fails.
using NewWork = std::function<std::unique_ptr<Work>()>;
/// True if the output may differ from the undisturbed one, in a case that SECURITY.md names.
using Accepts = std::function<bool(const std::string &output, const std::string &undisturbed)>;

/// Runs the work once for each of its allocations, and lets that allocation fail. Allocations of
/// Qt's picture readers succeed: these readers end the process, or wait for ever, without memory.
Outcome failEachAllocation(const NewWork &newWork, const Accepts &accepts = nullptr);

/// The same for the first run of the work in its process, where the library and Qt create what
/// lasts as long as the process. Lost blocks are not noticed.
Outcome failEachAllocationOfTheFirstRun(const NewWork &newWork);
