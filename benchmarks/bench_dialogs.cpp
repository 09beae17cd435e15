#include "measures.h"
#include "rows.h"

namespace bench {

// Both sides are closed and bare: no button, no text. One of ours stays alive all the time, as a
// screen with several dialogs has it: they share what they are drawn with.
Rows dialogRows()
{
    const QByteArray ours = "import tamber.Ui 1.0; UiDialog {}";
    const QByteArray theirs = "import QtQuick.Controls 2.15; Dialog {}";
    return {
        { "create a closed dialog", "µs", 0.4, creationTime(ours), creationTime(theirs) },
        { "heap of a closed dialog", "bytes", 0.4, creationHeap(ours), creationHeap(theirs) },
    };
}

} // namespace bench
