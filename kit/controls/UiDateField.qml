// A field that shows a day and drops down a calendar to choose it from.
//
// date: the day; an invalid date (the default) for none. A choice writes it.
// placeholder: what the field says while there is no day.
// empty: whether there is none. text: the day as it is written.
// format: how the day is written, see Date.toLocaleDateString(). Locale.ShortFormat by default.
// popupVisible: whether the calendar is open. show(), hide(): open and close it.
// activated(day): the user chose a day, be it the one that was chosen before.
// Keys: Space, Return, Enter, F4, Down and Alt+Down open the calendar, whose keys are those of
//     UiCalendar; Escape, F4 and Alt+Up close it.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property date date: new Date(NaN)
    property var format: Locale.ShortFormat
    property string placeholder: ""

    readonly property bool empty: isNaN(date)
    readonly property alias popupVisible: anchor.popupVisible
    readonly property string text: empty ? "" : date.toLocaleDateString(Qt.locale(), format)

    signal activated(date day)

    function show() {
        anchor.show()
    }

    function hide() {
        anchor.hide()
    }

    function choose(day) {
        anchor.hide()
        date = day
        activated(day)
    }

    // Returns whether the key was one of the field's.
    function handleKey(event) {
        switch (event.key) {
        case Qt.Key_F4:
            if (event.modifiers & Qt.AltModifier) // closes the window
                return false
            show()
            return true
        case Qt.Key_Space:
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Down:
            if (!event.isAutoRepeat)
                show()
            return true
        }
        return false
    }

    activeFocusOnPress: true
    down: popupVisible
    implicitWidth: 160
    implicitHeight: 32

    Accessible.role: Accessible.ComboBox
    Accessible.name: empty ? placeholder : text
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled) popupVisible ? hide() : show()

    Keys.onPressed: event.accepted = handleKey(event)
    // The press did it all: the button's own click on release would open the calendar again.
    Keys.onReleased: event.accepted = event.key === Qt.Key_Space || event.key === Qt.Key_Return
                     || event.key === Qt.Key_Enter

    onClicked: popupVisible ? hide() : show()
    onEnabledChanged: if (!enabled) hide()
    onVisibleChanged: if (!visible) hide()

    DropDownGround {}

    UiText {
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: indicator.left
        anchors.rightMargin: 8
        height: parent.height
        color: UiColors.getColor(!root.enabled ? UiColors.MediumGrey33
                                : root.empty ? UiColors.MediumGrey45
                                : UiColors.DarkGrey80)
        elide: Text.ElideRight
        text: root.empty ? root.placeholder : root.text

        Accessible.ignored: true
    }

    UiIcon {
        id: indicator

        x: root.width - width - 6
        y: Math.floor((root.height - height) / 2)
        disabled: root.enabled ? 0 : 1
        iconName: "calendar"
    }

    FocusFrame {}

    UiPopupAnchor {
        id: anchor

        y: root.height
        autoLayout: true
        objectName: root.objectName === "" ? "" : root.objectName + "Popup"
        triggerItem: root

        Component {
            DateFieldPopup {
                field: root
            }
        }
    }
}
