// A button that explains itself.
//
// tip: the explanation.
import QtQuick 2.15
import tamber.Ui 1.0

UiToolButton {
    property alias tip: infoTip.text

    down: infoTip.popupVisible
    iconName: "info"

    onClicked: infoTip.popupVisible = !infoTip.popupVisible

    UiInfoTip {
        id: infoTip

        objectName: parent.objectName + "Tip"
    }
}
