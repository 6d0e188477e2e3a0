/*
 * Work of the library in steps: the basic blocks of its code that were executed. The compiler adds
 * a call to each of them in the copy of the library for these tests. The same input always takes
 * the same number of steps.
 */
#pragma once

namespace Steps {

/// Steps of this thread since reset().
long count();
void reset();

} // namespace Steps
