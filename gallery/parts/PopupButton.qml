// A button that opens a popup below itself.
//
// popup: the component of the popup; it sees this button as what it was declared in.
// anchor: the anchor, to set it up.
// The focus comes back from the popup when it closes.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiPushButton {
    id: root

    property alias anchor: anchor
    property alias popup: anchor.popup

    down: anchor.popupVisible
    style: Ui.SecondaryPushButtonStyle

    onClicked: anchor.popupVisible = !anchor.popupVisible

    UiPopupAnchor {
        id: anchor

        y: root.height
        autoLayout: true
        triggerItem: root
    }
}
