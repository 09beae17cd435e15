#include "measures.h"
#include "rows.h"

namespace bench {

Rows tooltipRows()
{
    // Both sides have an item to be the tooltip's; ours has found its agent when the time is up.
    const QByteArray around = "import QtQuick 2.15; import tamber.Ui 1.0; UiTooltipAgent {}";
    const QByteArray ours =
        "import QtQuick 2.15; import tamber.Ui 1.0; Item { UiTooltip { text: 'Rename' } }";
    const QByteArray theirs =
        "import QtQuick 2.15; import QtQuick.Controls 2.15; Item { ToolTip.text: 'Rename' }";
    return {
        { "create an item with a tooltip", "µs", 0.5, creationTimeInside(around, ours),
          creationTimeInside(around, theirs) },
        { "heap of an item with a tooltip", "bytes", 0.5, creationHeapInside(around, ours),
          creationHeapInside(around, theirs) },
    };
}

} // namespace bench
