#pragma once

#include <functional>

namespace ta::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kHeapTells = false; ///< a sanitizer's allocator does not say how much is in use
#else
constexpr bool kHeapTells = true;
#endif

/*!
    Whether the heap's bytes in use are within 1 % of what they were, or fewer, once \a work has
    run. What fills a cache runs before. Where the heap does not tell, \a work only runs.
*/
bool keepsHeap(const std::function<void()> &work);

} // namespace ta::test
