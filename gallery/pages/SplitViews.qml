// Panes whose borders move, and the handle underneath them.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property string activity: qsTr("Drag a border, or give it the focus with Tab and press an arrow key.")

    title: qsTr("Split views")
    summary: qsTr("Borders move with the left button. A double click puts them back; so does Delete. The arrow keys move the one that has the focus.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("Navigation, content, inspector")
        summary: qsTr("Splitters inside each other. The navigation and the inspector keep their width when the window changes, the log its height.")

        Rectangle {
            width: parent.width
            height: 400
            border.color: UiColors.getColor(UiColors.SeparatorLineGrey17)
            border.width: 1
            color: UiColors.getColor(UiColors.White)

            UiSplitter {
                id: navigation

                anchors.fill: parent
                anchors.margins: 1
                minimumRest: 360
                minimumSize: 120
                objectName: "navigationSplitter"
                size: 184
                text: qsTr("Width of the navigation")

                onMoved: root.activity = qsTr("The navigation is %1 wide").arg(paneSize)

                first: Pane {
                    color: UiColors.getColor(UiColors.HeaderGrey4)
                    lines: [qsTr("Inbox"), qsTr("Drafts"), qsTr("Scheduled"), qsTr("Published"), qsTr("Archive")]
                    title: qsTr("Folders")
                }

                second: UiSplitter {
                    anchors.fill: parent
                    minimumRest: 200
                    minimumSize: 140
                    objectName: "inspectorSplitter"
                    size: 208
                    sizesSecond: true
                    text: qsTr("Width of the inspector")

                    onMoved: root.activity = qsTr("The inspector is %1 wide").arg(paneSize)

                    first: UiSplitter {
                        anchors.fill: parent
                        minimumRest: 96
                        minimumSize: 64
                        objectName: "logSplitter"
                        orientation: Qt.Vertical
                        size: 120
                        sizesSecond: true
                        text: qsTr("Height of the log")

                        onMoved: root.activity = qsTr("The log is %1 high").arg(paneSize)

                        first: Pane {
                            lines: [
                                qsTr("Everything in this pane takes what the others leave."),
                                qsTr("It never gets narrower than 200 pixels, nor lower than 96.")
                            ]
                            title: qsTr("Draft")
                        }

                        second: Pane {
                            color: UiColors.getColor(UiColors.TimeTableHover)
                            lines: [qsTr("10:02  saved"), qsTr("10:04  picture added"), qsTr("10:09  saved")]
                            title: qsTr("Log")
                        }
                    }

                    second: Pane {
                        color: UiColors.getColor(UiColors.HeaderGrey4)
                        lines: [qsTr("Size: 1280 \u00d7 720"), qsTr("Format: PNG"), qsTr("Colours: sRGB")]
                        title: qsTr("Inspector")
                    }
                }
            }
        }
    }

    Card {
        title: qsTr("Disabled")
        summary: qsTr("A border that stays where it is.")

        Rectangle {
            width: parent.width
            height: 96
            border.color: UiColors.getColor(UiColors.SeparatorLineGrey17)
            border.width: 1

            UiSplitter {
                anchors.fill: parent
                anchors.margins: 1
                enabled: false
                objectName: "disabledSplitter"
                size: 240

                first: Pane {
                    title: qsTr("240 pixels")
                }

                second: Pane {
                    title: qsTr("The rest")
                }
            }
        }
    }

    Card {
        title: qsTr("Drag handle")
        summary: qsTr("It tells how far it is dragged and moves nothing by itself. Here each one sets the width of a column.")

        ColumnsTable {
            width: parent.width
            columns: [qsTr("Name"), qsTr("Changed"), qsTr("Owner"), qsTr("State")]
            rows: [
                [qsTr("Summer opening"), qsTr("Yesterday"), qsTr("Maria Lindqvist"), qsTr("Published")],
                [qsTr("Night at the museum"), qsTr("Monday"), qsTr("Jonas Ek"), qsTr("Draft")],
                [qsTr("Members' breakfast"), qsTr("12 May"), qsTr("Maria Lindqvist"), qsTr("Scheduled")]
            ]
            shares: [0.3, 0.19, 0.25, 0.19]

            onResized: root.activity = qsTr("Column %1 is %2 wide").arg(column + 1).arg(size)
        }
    }
}
