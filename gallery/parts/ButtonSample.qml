// One button of one of four kinds, in the middle of the row at the left edge.
//
// kind: 0 primary, 1 secondary, 2 tool with text, 3 tool without.
// held: shown as pressed; available: enabled.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property int kind: 0
    property bool held: false
    property bool available: true

    signal clicked(string text, int modifiers)

    Loader {
        anchors.verticalCenter: parent.verticalCenter
        enabled: root.available
        sourceComponent: root.kind < 2 ? push : tool
    }

    Component {
        id: push

        UiPushButton {
            down: root.held
            style: root.kind === 0 ? Ui.PrimaryPushButtonStyle : Ui.SecondaryPushButtonStyle
            text: root.kind === 0 ? qsTr("Publish") : qsTr("Discard")

            onClicked: root.clicked(text, modifiers)
        }
    }

    Component {
        id: tool

        UiToolButton {
            down: root.held
            iconName: root.kind === 2 ? "add" : "edit"
            style: root.kind === 2 ? Ui.IconAndText : Ui.IconOnly
            text: root.kind === 2 ? qsTr("Add") : qsTr("Edit")

            onClicked: root.clicked(text, modifiers)
        }
    }
}
