/** @file
 * Turns running out of memory into a result code. Applications of handsets are built without
 * exceptions, so no exception leaves a library.
 *
 * Operations call one another. Only the outermost one, which the application called, turns the
 * exception into its result; inner ones let it pass, so that none continues with incomplete data.
 * Each shared library counts its own depth: the player engine catches for itself even when the
 * other library calls it.
 */
#pragma once

#include <new>
#include <tuple>
#include <type_traits>

/// Marks that an operation of this shared library runs on this thread.
class QvlOperationScope
{
public:
    /// The operation runs as long as this object exists.
    QvlOperationScope() { ++depth; }
    QvlOperationScope(const QvlOperationScope &) = delete;
    QvlOperationScope &operator=(const QvlOperationScope &) = delete;
    ~QvlOperationScope() { --depth; }

    /// True while an operation of this shared library runs on this thread.
    static bool isActive() { return depth > 0; }

private:
    static inline thread_local int depth = 0;
};

/**
 * Returns the result of @p operation, or @p failure when memory runs out. Within another operation
 * it does not catch the exception.
 */
template <typename Operation>
[[nodiscard]] std::invoke_result_t<Operation> unlessOutOfMemory(
    std::invoke_result_t<Operation> failure, Operation operation)
{
    if (QvlOperationScope::isActive())
        return operation();
    try {
        const QvlOperationScope scope;
        return operation();
    } catch (const std::bad_alloc &) {
        return failure;
    }
}

/// Carries @p operation out; ignores that memory ran out unless within another operation.
template <typename Operation>
void asFarAsMemoryGoes(Operation operation)
{
    std::ignore = unlessOutOfMemory(false, [&operation] {
        operation();
        return true;
    });
}
