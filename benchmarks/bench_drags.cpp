#include "measures.h"
#include "rows.h"

#include <TamberUi/DragHandle>
#include <TamberUi/DragZone>
#include <TamberUi/JsonMimeData>
#include <TamberUi/MimeData>

#include <QtQml/qqml.h>

namespace bench {

Rows dragRows()
{
    qmlRegisterType<ta::ui::DragHandle>("bench.Drags", 1, 0, "UiDragHandle");
    qmlRegisterType<ta::ui::DragZone>("bench.Drags", 1, 0, "UiDragZone");
    qmlRegisterType<ta::ui::JsonMimeData>("bench.Drags", 1, 0, "UiJsonMimeData");
    qmlRegisterUncreatableType<ta::ui::MimeData>("bench.Drags", 1, 0, "UiMimeData", QString());
    const QByteArray handle = "import bench.Drags 1.0; UiDragHandle {}";
    const QByteArray mouseArea = "import QtQuick 2.15; MouseArea { cursorShape: Qt.SizeHorCursor;"
                                 "hoverEnabled: true; preventStealing: true }";
    const QByteArray zone = "import bench.Drags 1.0; UiDragZone {}";
    const QByteArray dragged = "import QtQuick 2.15; Item { Drag.active: handler.active;"
                               "Drag.dragType: Drag.Automatic\n"
                               "DragHandler { id: handler; target: null } }";
    const QByteArray fullZone = "import bench.Drags 1.0; UiDragZone { mimeData: UiJsonMimeData {"
                                "mimeType: 'application/x-card'; value: ({ id: 7 }) } }";
    const QByteArray fullDragged = "import QtQuick 2.15; Item { Drag.active: handler.active;"
                                   "Drag.dragType: Drag.Automatic\n"
                                   "Drag.mimeData: ({ 'application/x-card': '{ \"id\": 7 }' })\n"
                                   "DragHandler { id: handler; target: null } }";
    return {
        { "create a drag handle", "µs", 1.0, creationTime(handle), creationTime(mouseArea) },
        { "heap of a drag handle", "bytes", 1.0, creationHeap(handle), creationHeap(mouseArea) },
        { "create a drag zone", "µs", 1.0, creationTime(zone), creationTime(dragged) },
        { "heap of a drag zone", "bytes", 1.0, creationHeap(zone), creationHeap(dragged) },
        { "create a drag zone with payload", "µs", 1.0, creationTime(fullZone),
          creationTime(fullDragged) },
        { "heap of a drag zone with payload", "bytes", 1.0, creationHeap(fullZone),
          creationHeap(fullDragged) },
    };
}

} // namespace bench
