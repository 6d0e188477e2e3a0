#include "limits/steps.h"

namespace {

thread_local long steps = 0;

} // namespace

extern "C" void __sanitizer_cov_trace_pc();

extern "C" void __sanitizer_cov_trace_pc()
{
    ++steps;
}

long Steps::count()
{
    return steps;
}

void Steps::reset()
{
    steps = 0;
}
