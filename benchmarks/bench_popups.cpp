#include "measures.h"
#include "rows.h"

namespace bench {

namespace {

// The same rectangle and the same texts, each where that kind of popup expects them.
const char kTexts[] = R"(
    Column {
        Text { text: "Duplicate" }
        Text { text: "Rename" }
        Text { text: "Move to another folder" }
        Text { text: "Properties" }
        Text { text: "Delete" }
    }
)";

Popup anchor(const QByteArray &policy)
{
    return { "import QtQuick 2.15; import tamber.Ui.Private 1.0\n"
             "UiPopupAnchor { popupCreationPolicy: UiPopupAnchor."
                 + policy
                 + "; Rectangle { objectName: 'content'; visible: enabled; width: 200; height: 300;"
                   "  color: '"
                 + kPopupColor + "';" + kTexts + "} }",
             "show", "hide" };
}

QByteArray popupQml(const QByteArray &properties = QByteArray())
{
    return "Popup {" + properties + "width: 200; height: 300; contentItem: " + kTexts
           + "background: Rectangle { objectName: 'content'; color: '" + kPopupColor + "' } }";
}

// Its content exists from the beginning, as with InstantCreation.
Popup popup()
{
    return { "import QtQuick 2.15; import QtQuick.Templates 2.15\n" + popupQml(), "open", "close" };
}

// What takes the place of OnDemandCreation without this library.
Popup loadedPopup()
{
    return { "import QtQuick 2.15; import QtQuick.Templates 2.15\n"
             "Loader { id: loader; active: false; sourceComponent: "
                 + popupQml("parent: loader; visible: true;")
                 + "function open() { active = true }"
                   "function close() { active = false } }",
             "open", "close" };
}

} // namespace

Rows popupRows()
{
    const QByteArray ours = "import tamber.Ui.Private 1.0; UiPopupAnchor {}";
    const QByteArray theirs = "import QtQuick.Templates 2.15; Popup {}";
    const auto first = [](const Popup &kind) { return openingTime(kind, Opening::First); };
    const auto later = [](const Popup &kind) { return openingTime(kind, Opening::Later); };
    const Popup instant = anchor("InstantCreation");
    const Popup onDemand = anchor("OnDemandCreation");
    const Popup loaded = loadedPopup();
    return {
        { "create a closed popup", "µs", 0.4, creationTime(ours), creationTime(theirs) },
        { "heap of a closed popup", "bytes", 0.4, creationHeap(ours), creationHeap(theirs) },
        { "open first, instant", "µs", 1.0, first(instant), first(popup()) },
        { "open again, instant", "µs", 1.0, later(instant), later(popup()) },
        { "open first, on demand", "µs", 1.0, first(onDemand), first(popup()) },
        { "open again, on demand", "µs", 1.0, later(onDemand), later(popup()) },
        { "open first, on demand, theirs by a Loader", "µs", 1.0, first(onDemand), first(loaded) },
        { "open again, on demand, theirs by a Loader", "µs", 1.0, later(onDemand), later(loaded) },
    };
}

} // namespace bench
