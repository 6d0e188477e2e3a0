/** @file
 * What happens when memory runs out within the library: a result code. Applications of handsets are
 * built without exceptions, so none leaves the library.
 *
 * Operations use one another. Only the one that the application called turns the exception into a
 * result; those below let it pass, so that none goes on with what it did not get.
 */
#pragma once

#include <new>
#include <tuple>
#include <type_traits>

/// Marks that an operation of the library runs on this thread.
class QvlOperationScope
{
public:
    /// The operation runs as long as the object lives.
    QvlOperationScope() { ++depth; }
    QvlOperationScope(const QvlOperationScope &) = delete;
    QvlOperationScope &operator=(const QvlOperationScope &) = delete;
    ~QvlOperationScope() { --depth; }

    /// True while an operation of the library runs on this thread.
    static bool isActive() { return depth > 0; }

private:
    static inline thread_local int depth = 0;
};

/**
 * What @p operation gives, or @p failure when there is no memory for it. Within another operation
 * the exception passes instead.
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

/// Carries @p operation out, as far as there is memory for it.
template <typename Operation>
void asFarAsMemoryGoes(Operation operation)
{
    std::ignore = unlessOutOfMemory(false, [&operation] {
        operation();
        return true;
    });
}
