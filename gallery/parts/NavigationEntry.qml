// The name of a page in the navigation.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property string text: ""
    property bool current: false
    property bool pointed: false // a press of the pointer brought the focus

    activeFocusOnPress: true
    implicitHeight: 40

    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Accessible.focusable: true
    Accessible.selected: current
    Accessible.onPressAction: root.clicked(Qt.NoModifier)

    onActiveFocusChanged: if (activeFocus) pointed = pressed

    Rectangle {
        anchors.fill: parent
        color: UiColors.getColor(UiColors.White, root.current || root.pressed ? 0.16
                                                : root.hovered ? 0.08 : 0)
    }

    Rectangle {
        width: 4
        height: parent.height
        color: UiColors.getColor(UiColors.FocusColor)
        visible: root.current
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        border.color: UiColors.getColor(UiColors.FocusColor)
        border.width: 2
        color: "transparent"
        radius: 4
        visible: root.activeFocus && !root.pointed
    }

    UiText {
        x: 24
        width: root.width - x - 8
        height: root.height
        color: UiColors.getColor(UiColors.White)
        elide: Text.ElideRight
        font: UiFonts.getFont(root.current ? UiFonts.SemiBold : UiFonts.Regular, 14)
        text: root.text

        Accessible.ignored: true
    }
}
