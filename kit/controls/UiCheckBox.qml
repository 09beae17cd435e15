// A box that is checked, unchecked or partially checked, with a text beside it.
//
// text: what the box is about.
// checked, checkState, bindable, readOnly: see UiCheckButtonBase.
// Keys: Return, Enter and Space toggle it.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiCheckButtonBase {
    id: root

    property string text: ""

    readonly property bool sunken: pressed || down

    activeFocusOnPress: true
    implicitWidth: label.visible ? label.x + Math.ceil(label.implicitWidth) : box.width
    implicitHeight: 24

    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.checkStateMixed: checkState === Qt.PartiallyChecked
    Accessible.focusable: true
    Accessible.readOnly: readOnly
    Accessible.onPressAction: if (enabled && !readOnly) root.clicked(Qt.NoModifier)
    Accessible.onToggleAction: if (enabled && !readOnly) root.clicked(Qt.NoModifier)

    Rectangle {
        id: box

        y: Math.floor((root.height - height) / 2)
        width: 18
        height: 18
        border.color: UiColors.getColor(!root.enabled ? UiColors.DisabledLightGrey13
                                       : root.readOnly ? UiColors.ControlGrey20
                                       : root.hovered || root.sunken ? UiColors.DarkerBlueGrey
                                       : UiColors.DarkBlueGrey)
        border.width: 1
        color: UiColors.getColor(!root.enabled || root.readOnly ? UiColors.HeaderGrey4
                                : root.sunken ? UiColors.SelectionGreen
                                : root.hovered ? UiColors.HoverGreen
                                : UiColors.White)
        radius: 2

        Image {
            opacity: root.enabled ? 1 : 0.4
            source: "qrc:/ui/images/checkmark.png"
            visible: root.checkState === Qt.Checked
        }

        Rectangle {
            anchors.centerIn: parent
            width: 10
            height: 2
            color: UiColors.getColor(root.enabled ? UiColors.DarkGrey80 : UiColors.MediumGrey33)
            visible: root.checkState === Qt.PartiallyChecked
        }

        FocusFrame {
            control: root
        }
    }

    UiText {
        id: label

        x: box.width + 8
        width: root.width - x
        height: root.height
        elide: Text.ElideRight
        text: root.text
        visible: text !== ""

        Accessible.ignored: true
    }
}
