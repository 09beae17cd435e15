// Calendars, and fields that drop one down.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import "../parts"

Page {
    id: root

    property string activity: qsTr("Choose a day, or walk through the days with the arrow keys.")

    readonly property var locale: Qt.locale()
    readonly property int columns: contentWidth < 720 ? 2 : 3
    readonly property int fieldWidth: Math.floor((contentWidth - 48 - 24 * (columns - 1)) / columns)

    function told(day) {
        activity = qsTr("Chosen: %1").arg(day.toLocaleDateString(locale, Locale.LongFormat))
    }

    title: qsTr("Dates")
    summary: qsTr("Weeks begin on Monday and are numbered as in ISO 8601, wherever you are; names and digits are those of your language.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("Date field")
        summary: qsTr("Space, Return, Down and F4 open the calendar, Escape closes it.")

        Grid {
            columnSpacing: 24
            columns: root.columns
            rowSpacing: 20

            Labelled {
                text: qsTr("Departure")

                UiDateField {
                    width: root.fieldWidth
                    date: new Date(2026, 10, 23)
                    objectName: "departureField"

                    onActivated: root.told(day)
                }
            }

            Labelled {
                text: qsTr("Return, in full")

                UiDateField {
                    width: root.fieldWidth
                    format: Locale.LongFormat
                    objectName: "returnField"
                    placeholder: qsTr("Choose a day")

                    onActivated: root.told(day)
                }
            }

            Labelled {
                text: qsTr("Disabled")

                UiDateField {
                    width: root.fieldWidth
                    date: new Date(2026, 10, 23)
                    enabled: false
                }
            }
        }
    }

    Card {
        title: qsTr("Calendar")
        summary: qsTr("Page Up and Page Down turn the month, with Shift the year. Home and End go to its ends.")

        Row {
            id: calendars

            readonly property int count: root.columns - 1 // one that is disabled where there is room

            width: parent.width
            spacing: 24

            CalendarBox {
                id: box

                name: "calendar"

                onActivated: root.told(day)
            }

            Column {
                width: parent.width - calendars.count * (box.width + parent.spacing)
                spacing: 16

                Repeater {
                    model: [
                        { caption: qsTr("Chosen"), day: box.calendar.date },
                        { caption: qsTr("Reached by the keys"), day: box.calendar.highlightedDate }
                    ]

                    Labelled {
                        width: parent.width
                        text: modelData.caption

                        UiText {
                            width: parent.width
                            text: modelData.day.toLocaleDateString(root.locale, Locale.LongFormat)
                            wrapMode: Text.Wrap
                        }
                    }
                }

                Labelled {
                    text: qsTr("Weeks in view")

                    UiText {
                        readonly property var weeks: box.calendar.weeks

                        text: qsTr("%1 to %2").arg(shown(weeks[0])).arg(shown(weeks[5]))

                        function shown(week) {
                            return Number(week).toLocaleString(root.locale, "f", 0)
                        }
                    }
                }
            }

            CalendarBox {
                enabled: false
                visible: calendars.count === 2
            }
        }
    }

    Card {
        title: qsTr("A look of your own")
        summary: qsTr("The days come from the calendar information alone; what is drawn here is a year of them.")

        Grid {
            columns: Math.min(4, Math.floor((parent.width + 20) / (154 + 20)))
            columnSpacing: Math.floor((parent.width - columns * 154) / (columns - 1))
            rowSpacing: 20

            Repeater {
                model: 12

                Column {
                    id: month

                    readonly property int number: index
                    readonly property var days: info.days

                    spacing: 4

                    UiCalendarInfo {
                        id: info

                        date: new Date(2026, month.number, 1)
                    }

                    UiText {
                        font: UiFonts.getFont(UiFonts.SemiBold, 12)
                        text: root.locale.standaloneMonthName(month.number)
                    }

                    Grid {
                        columns: 7

                        Repeater {
                            model: 42

                            UiText {
                                readonly property date day: month.days[index]

                                width: 22
                                height: 16
                                color: UiColors.getColor(index % 7 > 4 ? UiColors.WarningRed : UiColors.DarkGrey80)
                                font: UiFonts.getFont(UiFonts.Regular, 11)
                                horizontalAlignment: Text.AlignHCenter
                                text: day.getUTCMonth() === month.number ? day.getUTCDate().toLocaleString(root.locale, "f", 0) : ""
                            }
                        }
                    }
                }
            }
        }
    }
}
