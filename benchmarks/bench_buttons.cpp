#include "measures.h"
#include "rows.h"

namespace bench {

Rows buttonRows()
{
    const QByteArray ours = "import tamber.Ui.Private 1.0; UiButtonBase {}";
    const QByteArray theirs = "import QtQuick.Templates 2.15; AbstractButton {}";
    return {
        { "create a button base", "µs", 0.7, creationTime(ours), creationTime(theirs) },
        { "heap of a button base", "bytes", 0.7, creationHeap(ours), creationHeap(theirs) },
    };
}

} // namespace bench
