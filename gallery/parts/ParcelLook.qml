// How a parcel looks, at rest and on its way.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    property bool highlighted: false
    property alias text: label.text

    width: label.implicitWidth + 32
    height: 32
    color: UiColors.getColor(highlighted ? UiColors.ButtonHoverBlue : UiColors.ButtonNormalBlue)
    radius: 16

    UiText {
        id: label

        anchors.centerIn: parent
        color: UiColors.getColor(UiColors.White)
    }
}
