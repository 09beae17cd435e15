#include "measures.h"
#include "rows.h"

namespace bench {

Rows delegateRows()
{
    const QByteArray delegate = "import tamber.Ui.Private 1.0; UiDelegateBase {}";
    const QByteArray itemDelegate = "import QtQuick.Templates 2.15; ItemDelegate {}";
    const auto loader = [](const char *type, const char *content) -> QByteArray {
        return QByteArray("import QtQuick 2.15; import tamber.Ui 1.0; ") + type + " {" + content
               + "}";
    };
    const char item[] = "sourceComponent: Component { Item { implicitWidth: 40 } }";
    return {
        { "create a delegate base", "µs", 0.7, creationTime(delegate), creationTime(itemDelegate) },
        { "heap of a delegate base", "bytes", 0.7, creationHeap(delegate),
          creationHeap(itemDelegate) },
        { "create an empty loader", "µs", 0.7, creationTime(loader("UiLoader", "")),
          creationTime(loader("Loader", "")) },
        { "heap of an empty loader", "bytes", 0.7, creationHeap(loader("UiLoader", "")),
          creationHeap(loader("Loader", "")) },
        { "create a loader and its item", "µs", 0.7, creationTime(loader("UiLoader", item)),
          creationTime(loader("Loader", item)) },
        { "heap of a loader and its item", "bytes", 0.7, creationHeap(loader("UiLoader", item)),
          creationHeap(loader("Loader", item)) },
    };
}

} // namespace bench
