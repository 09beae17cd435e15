#include "support/heap.h"

#include <QtCore/QtGlobal>

#include <malloc.h>

namespace ta::test {

bool keepsHeap(const std::function<void()> &work)
{
    const auto before = mallinfo2().uordblks;
    work();
    const auto after = mallinfo2().uordblks;
    if (!kHeapTells || after <= before + before / 100)
        return true;
    qWarning("The heap has grown from %zu to %zu bytes", before, after);
    return false;
}

} // namespace ta::test
