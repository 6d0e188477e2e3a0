/*
 * Work of the library in steps: the basic blocks of its code that were passed. The compiler adds a
 * call to each of them in the copy of the library that these tests are made with, so that the same
 * input always gives the same number.
 */
#pragma once

namespace Steps {

/// Steps of this thread since reset().
long count();
void reset();

} // namespace Steps
