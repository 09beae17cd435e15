// A month to choose a day from.
//
// date: the chosen day, at the beginning of which it is in local time; an invalid date (the default)
//     for none. A choice writes it.
// highlightedDate: the day that the keys have reached, and whose month is shown. Today by default.
// activated(day): the user chose a day, be it the one that was chosen before.
// Weeks begin on Monday; the small numbers are those of the weeks, as in ISO 8601.
// Keys: the arrows move by a day or a week, Page Up and Page Down by a month, with Shift by a year;
//     Home and End go to the ends of the month; Return, Enter and Space choose.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

FocusScope {
    id: root

    property date date: new Date(NaN)
    property date highlightedDate: new Date()

    readonly property int cellWidth: 34
    readonly property int cellHeight: 28
    readonly property bool pressed: area.pressed

    readonly property var locale: Qt.locale()
    readonly property var days: info.days // read once: each reading makes 42 dates
    readonly property var weeks: info.calendarWeeks
    // From Sunday on. In some languages the short names are too long for the columns; shorter ones are
    // unknown to the locale of the system as such.
    readonly property var dayNames: {
        const namesIn = (locale, format) => [0, 1, 2, 3, 4, 5, 6].map(day => locale.standaloneDayName(day, format))
        const names = namesIn(locale, Locale.ShortFormat)
        const fit = names.every(name => metrics.advanceWidth(name) < cellWidth - 2)
        return fit ? names : namesIn(Qt.locale(locale.name), Locale.NarrowFormat)
    }
    property date today: new Date()

    signal activated(date day)

    // Years below 100 are not those of the last century, and where clocks change at midnight, a day
    // begins at one o'clock.
    function day(year, month, dayOfMonth) {
        const result = new Date(2000, 0, 1, 12)
        result.setFullYear(year, month, dayOfMonth)
        const wanted = result.getDate()
        result.setHours(0)
        if (result.getDate() !== wanted)
            result.setHours(25)
        return result
    }

    // What the grid says is midnight UTC; here, days begin in local time.
    function dayAt(index) {
        const utc = days[index]
        return day(utc.getUTCFullYear(), utc.getUTCMonth(), utc.getUTCDate())
    }

    function same(one, other) {
        return one.getFullYear() === other.getFullYear() && one.getMonth() === other.getMonth()
                && one.getDate() === other.getDate()
    }

    function choose(chosen) {
        date = chosen
        highlightedDate = chosen
        activated(chosen)
    }

    function highlight(target) {
        if (!isNaN(target))
            highlightedDate = target
    }

    function moveByDays(count) {
        const from = highlightedDate
        highlight(day(from.getFullYear(), from.getMonth(), from.getDate() + count))
    }

    // The same day, or the last one of a month that is too short for it.
    function moveByMonths(count) {
        const from = highlightedDate
        const length = day(from.getFullYear(), from.getMonth() + count + 1, 0).getDate()
        highlight(day(from.getFullYear(), from.getMonth() + count, Math.min(from.getDate(), length)))
    }

    // Returns whether the key was one of the calendar's.
    function handleKey(event) {
        if (event.modifiers & (Qt.AltModifier | Qt.ControlModifier | Qt.MetaModifier))
            return false
        const months = event.modifiers & Qt.ShiftModifier ? 12 : 1
        const from = highlightedDate
        switch (event.key) {
        case Qt.Key_Left:
            moveByDays(-1)
            return true
        case Qt.Key_Right:
            moveByDays(1)
            return true
        case Qt.Key_Up:
            moveByDays(-7)
            return true
        case Qt.Key_Down:
            moveByDays(7)
            return true
        case Qt.Key_PageUp:
            moveByMonths(-months)
            return true
        case Qt.Key_PageDown:
            moveByMonths(months)
            return true
        case Qt.Key_Home:
            highlight(day(from.getFullYear(), from.getMonth(), 1))
            return true
        case Qt.Key_End:
            highlight(day(from.getFullYear(), from.getMonth() + 1, 0))
            return true
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            if (!event.isAutoRepeat)
                choose(day(from.getFullYear(), from.getMonth(), from.getDate()))
            return true
        }
        return false
    }

    activeFocusOnTab: true
    implicitWidth: 28 + 7 * cellWidth + 16
    implicitHeight: 40 + 24 + 6 * cellHeight + 8

    Accessible.role: Accessible.Table
    Accessible.name: highlightedDate.toLocaleDateString(locale, Locale.LongFormat)
    Accessible.focusable: true

    Keys.onPressed: event.accepted = handleKey(event)

    onDateChanged: if (!isNaN(date)) highlightedDate = date
    // A highlighted day that is none is a bad idea of the host.
    onHighlightedDateChanged: if (isNaN(highlightedDate)) highlightedDate = new Date()
    onVisibleChanged: if (visible) today = new Date()

    UiCalendarInfo {
        id: info

        date: root.highlightedDate
    }

    FontMetrics {
        id: metrics

        font: UiFonts.getFont(UiFonts.Regular, 12)
    }

    UiToolButton {
        x: 4
        y: 4
        activeFocusOnTab: false
        iconName: "back"
        objectName: root.objectName === "" ? "" : root.objectName + "Previous"
        style: Ui.IconOnly
        text: qsTr("Previous month")

        onClicked: root.moveByMonths(-1)
    }

    UiText {
        id: caption

        x: 44
        y: 4
        width: root.width - 88
        height: 32
        elide: Text.ElideRight
        font: UiFonts.getFont(UiFonts.SemiBold, 14)
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("%1 %2").arg(root.locale.standaloneMonthName(root.highlightedDate.getMonth()))
                           .arg(root.highlightedDate.toLocaleDateString(root.locale, "yyyy"))

        Accessible.ignored: true
    }

    UiToolButton {
        x: root.width - width - 4
        y: 4
        activeFocusOnTab: false
        iconName: "back"
        objectName: root.objectName === "" ? "" : root.objectName + "Next"
        rotation: 180 // there is one chevron for both
        style: Ui.IconOnly
        text: qsTr("Next month")

        onClicked: root.moveByMonths(1)
    }

    Row {
        x: grid.x
        y: 40

        Repeater {
            model: 7

            UiText {
                width: root.cellWidth
                height: 24
                color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                font: metrics.font
                horizontalAlignment: Text.AlignHCenter
                text: root.dayNames[(index + 1) % 7]

                Accessible.ignored: true
            }
        }
    }

    Column {
        x: 8
        y: grid.y

        Repeater {
            model: 6

            UiText {
                width: 24
                height: root.cellHeight
                color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                font: UiFonts.getFont(UiFonts.Regular, 11)
                horizontalAlignment: Text.AlignHCenter
                text: root.weeks.length > index ? Number(root.weeks[index]).toLocaleString(root.locale, "f", 0) : ""

                Accessible.ignored: true
            }
        }
    }

    Rectangle {
        x: grid.x - 3
        y: grid.y
        width: 1
        height: grid.height
        color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    }

    Grid {
        id: grid

        x: 36
        y: 64
        columns: 7

        Repeater {
            model: 42

            Rectangle {
                id: cell

                readonly property var day: root.days.length > index ? root.dayAt(index) : new Date(NaN)
                readonly property bool chosen: root.same(day, root.date)
                readonly property bool hovered: area.index === index
                readonly property bool ofMonth: day.getMonth() === root.highlightedDate.getMonth()
                readonly property bool highlighted: root.activeFocus && root.same(day, root.highlightedDate)

                width: root.cellWidth
                height: root.cellHeight
                border.color: UiColors.getColor(highlighted ? UiColors.FocusColor : UiColors.DarkBlueGrey)
                border.width: highlighted ? 2 : root.same(day, root.today) ? 1 : 0
                color: !root.enabled ? UiColors.getColor(UiColors.DisabledLightGrey13, chosen ? 1 : 0)
                     : chosen || hovered && area.pressed ? UiColors.getColor(UiColors.SelectionGreen)
                     : hovered ? UiColors.getColor(UiColors.HoverGreen)
                     : UiColors.getColor(UiColors.White, 0)
                objectName: root.objectName === "" ? "" : root.objectName + "Day" + index
                radius: 3

                Accessible.role: Accessible.Cell
                Accessible.name: day.toLocaleDateString(root.locale, Locale.LongFormat)
                Accessible.selectable: true
                Accessible.selected: chosen
                Accessible.onPressAction: if (root.enabled) root.choose(day)

                UiText {
                    anchors.fill: parent
                    color: UiColors.getColor(!root.enabled || !cell.ofMonth ? UiColors.MediumGrey33
                                            : cell.chosen || cell.hovered ? UiColors.Black
                                            : UiColors.DarkGrey80)
                    font: UiFonts.getFont(cell.chosen ? UiFonts.SemiBold : UiFonts.Regular, 14)
                    horizontalAlignment: Text.AlignHCenter
                    text: isNaN(cell.day) ? "" : cell.day.getDate().toLocaleString(root.locale, "f", 0)

                    Accessible.ignored: true
                }
            }
        }
    }

    // One area for all the days.
    MouseArea {
        id: area

        readonly property int column: Math.floor(mouseX / root.cellWidth)
        readonly property int row: Math.floor(mouseY / root.cellHeight)
        readonly property int index: containsMouse && column < 7 && row < 6 ? row * 7 + column : -1

        property int pressedIndex: -1

        anchors.fill: grid
        hoverEnabled: root.enabled

        onPressed: {
            pressedIndex = index
            root.forceActiveFocus(Qt.MouseFocusReason)
        }
        onClicked: if (index >= 0 && index === pressedIndex && root.days.length > index) root.choose(root.dayAt(index))
    }
}
