// The drop-down calendar of a UiDateField. Part of the kit's own controls.
import QtQuick 2.15
import tamber.Ui 1.0

FocusScope {
    id: root

    property Item field

    implicitWidth: calendar.width + 2
    implicitHeight: calendar.height + 2
    width: implicitWidth
    opacity: enabled ? 1 : 0

    Keys.onPressed: {
        event.accepted = event.modifiers === Qt.AltModifier ? event.key === Qt.Key_Up
                                                            : event.modifiers === Qt.NoModifier && event.key === Qt.Key_F4
        if (event.accepted)
            field.hide()
    }

    onEnabledChanged: {
        if (!enabled)
            return
        calendar.date = field.date
        calendar.highlightedDate = field.empty ? new Date() : field.date
        calendar.forceActiveFocus()
    }

    Behavior on opacity {
        NumberAnimation {
            duration: 80
        }
    }

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(UiColors.MediumLightGrey27)
        border.width: 1
        color: UiColors.getColor(UiColors.White)
        radius: 3
    }

    UiCalendar {
        id: calendar

        x: 1
        y: 1
        width: implicitWidth
        height: implicitHeight
        focus: true
        objectName: root.field.objectName === "" ? "" : root.field.objectName + "Calendar"

        onActivated: root.field.choose(day)
    }
}
