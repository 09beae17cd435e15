#include "measures.h"
#include "rows.h"

namespace bench {

Rows tooltipRows()
{
    // Ours has found its agent when the time is up. An attached ToolTip shows nothing by itself: it
    // has to be told when the pointer rests.
    const QByteArray around = "import QtQuick 2.15; import tamber.Ui 1.0; UiTooltipAgent {}";
    const QByteArray ours =
        "import QtQuick 2.15; import tamber.Ui 1.0; Item { UiTooltip { text: 'Rename' } }";
    const QByteArray controls = "import QtQuick 2.15; import QtQuick.Controls 2.15; Item {";
    const QByteArray theirs =
        controls
        + "ToolTip.text: 'Rename'; ToolTip.delay: 500; ToolTip.visible: hover.hovered\n"
          "HoverHandler { id: hover } }";
    const QByteArray textAlone = controls + "ToolTip.text: 'Rename' }";
    return {
        { "create a tooltip", "µs", 0.5, creationTimeInside(around, ours),
          creationTimeInside(around, theirs) },
        { "heap of a tooltip", "bytes", 0.5, creationHeapInside(around, ours),
          creationHeapInside(around, theirs) },
        { "create a tooltip, theirs without a trigger", "µs", 0.5, creationTimeInside(around, ours),
          creationTimeInside(around, textAlone) },
        { "heap of a tooltip, theirs without a trigger", "bytes", 0.5,
          creationHeapInside(around, ours), creationHeapInside(around, textAlone) },
    };
}

} // namespace bench
