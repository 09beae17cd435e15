// A calendar in a frame.
//
// calendar: the calendar itself; name: what it is called.
// activated(day): as that of the calendar.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property alias name: calendar.objectName

    readonly property alias calendar: calendar

    signal activated(date day)

    width: calendar.width + 2
    height: calendar.height + 2
    border.color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    border.width: 1
    radius: 3

    UiCalendar {
        id: calendar

        x: 1
        y: 1
        width: implicitWidth
        height: implicitHeight
        date: new Date(2026, 10, 23)

        onActivated: root.activated(day)
    }
}
