// A button that shows a colour and opens a picker for it.
//
// color: the colour; the user's choice is written to it.
// bindable: whether the choice is only reported, by updateRequested(newValue), and left to the host
//     to write. False by default.
// indeterminate: whether the button stands for several different colours; the host takes it back.
// mode: the face of the picker; the user's choice of it is kept. See UiColorPickerBase.
// palette, usesAlpha, editable, usesEyedropper: see UiColorPicker.
// popupVisible: whether the picker is open. show(), hide(): open and close it.
// updateRequested(newValue): the user chose a colour, bindable or not.
// Keys: Return, Enter and Space open the picker; Escape closes it.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property color color: UiColors.getColor(UiColors.Black)
    property bool bindable: false
    property bool indeterminate: false
    property int mode: UiColorPickerBase.Swatches
    property var palette: []
    property bool usesAlpha: true
    property bool editable: true
    property bool usesEyedropper: true

    readonly property alias popupVisible: anchor.popupVisible

    signal updateRequested(color newValue)

    function show() {
        anchor.show()
    }

    function hide() {
        anchor.hide()
    }

    function choose(newValue) {
        if (!bindable)
            color = newValue
        updateRequested(newValue)
    }

    activeFocusOnPress: true
    down: popupVisible
    implicitWidth: 64
    implicitHeight: 32

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: qsTr("Colour")
    Accessible.description: indeterminate ? "" : color.toString()
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled) anchor.popupVisible = !anchor.popupVisible

    onClicked: anchor.popupVisible = !anchor.popupVisible
    onEnabledChanged: if (!enabled) hide()
    onVisibleChanged: if (!visible) hide()

    DropDownGround {}

    ColorPreview {
        anchors.left: parent.left
        anchors.right: indicator.left
        anchors.rightMargin: 8
        anchors.margins: 5
        y: 5
        height: parent.height - 10
        indeterminate: root.indeterminate
        opacity: root.enabled ? 1 : 0.4
        value: root.color
    }

    Image {
        id: indicator

        x: root.width - width - 8
        y: Math.floor((root.height - height) / 2)
        opacity: root.enabled ? 1 : 0.4
        source: "qrc:/ui/images/dropdown-indicator.png"
    }

    FocusFrame {}

    UiPopupAnchor {
        id: anchor

        y: root.height
        autoLayout: true
        objectName: root.objectName === "" ? "" : root.objectName + "Popup"
        triggerItem: root

        Component {
            FocusScope {
                width: implicitWidth
                implicitWidth: picker.implicitWidth + 32
                implicitHeight: picker.implicitHeight + 32
                opacity: enabled ? 1 : 0

                onEnabledChanged: if (enabled) forceActiveFocus()

                Behavior on opacity {
                    NumberAnimation {
                        duration: 80
                    }
                }

                Rectangle {
                    anchors.fill: parent
                    anchors.topMargin: 2
                    anchors.bottomMargin: -2
                    color: UiColors.getColor(UiColors.Black, 0.06)
                    radius: 4
                }

                Rectangle {
                    anchors.fill: parent
                    border.color: UiColors.getColor(UiColors.MediumLightGrey27)
                    border.width: 1
                    color: UiColors.getColor(UiColors.White)
                    radius: 4
                }

                UiColorPicker {
                    id: picker

                    x: 16
                    y: 16
                    bindable: true
                    color: root.color
                    editable: root.editable
                    focus: true
                    indeterminate: root.indeterminate
                    mode: root.mode
                    objectName: root.objectName === "" ? "" : root.objectName + "Picker"
                    palette: root.palette
                    usesAlpha: root.usesAlpha
                    usesEyedropper: root.usesEyedropper

                    onModeChanged: root.mode = mode
                    onUpdateRequested: root.choose(newValue)
                }
            }
        }
    }
}
