#pragma once

#include <functional>

namespace ta::test {

/*!
    Whether the heap's bytes in use are within 1 % of what they were, or fewer, once \a work has
   run. What fills a cache runs before. A sanitizer's allocator does not tell; there, \a work only
   runs.
*/
bool keepsHeap(const std::function<void()> &work);

} // namespace ta::test
