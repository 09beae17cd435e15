#include "measures.h"
#include "rows.h"

namespace bench {

// Both sides are closed and bare: no button, no text. Ours share the components of the header and
// the footer, which the first one compiles; theirs has no look at all.
Rows dialogRows()
{
    const QByteArray ours = "import tamber.Ui 1.0; UiDialog {}";
    const QByteArray theirs = "import QtQuick.Templates 2.15; Dialog {}";
    return {
        { "create a closed dialog", "µs", 0.4, creationTime(ours), creationTime(theirs) },
        { "heap of a closed dialog", "bytes", 0.4, creationHeap(ours), creationHeap(theirs) },
    };
}

} // namespace bench
