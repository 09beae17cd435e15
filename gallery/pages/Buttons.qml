// Everything that is clicked.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property string activity: qsTr("Click something, with Shift, Ctrl or Alt if you like.")
    property bool followed: true

    function report(what, modifiers) {
        const keys = [
            modifiers & Qt.ControlModifier ? qsTr("Ctrl") : "",
            modifiers & Qt.AltModifier ? qsTr("Alt") : "",
            modifiers & Qt.ShiftModifier ? qsTr("Shift") : ""
        ].filter(key => key !== "")
        activity = keys.length === 0 ? qsTr("%1 clicked").arg(what)
                                     : qsTr("%1 clicked with %2").arg(what).arg(keys.join(" + "))
    }

    title: qsTr("Buttons")
    summary: qsTr("They react to the left mouse button and to Return, Enter and Space; Tab moves between them.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("Push and tool buttons")
        summary: qsTr("The first row is live. The others are held in their state.")

        StateTable {
            id: buttons

            columns: [qsTr("Primary"), qsTr("Secondary"), qsTr("Icon and text"), qsTr("Icon only")]
            rows: [qsTr("Normal"), qsTr("Down"), qsTr("Disabled")]

            Repeater {
                model: 12

                ButtonSample {
                    width: buttons.columnWidth
                    height: buttons.rowHeight
                    kind: index % 4
                    held: index >= 4 && index < 8
                    available: index < 8

                    onClicked: root.report(text, modifiers)
                }
            }
        }
    }

    Card {
        title: qsTr("Check boxes")
        summary: qsTr("A click leaves a bindable one to its host, which may agree or not.")

        StateTable {
            id: checkBoxes

            columns: [qsTr("Unchecked"), qsTr("Checked"), qsTr("Partially checked")]
            rows: [qsTr("Normal"), qsTr("Down"), qsTr("Disabled"), qsTr("Read-only"), qsTr("Bindable")]

            Repeater {
                model: 12

                Item {
                    width: checkBoxes.columnWidth
                    height: checkBoxes.rowHeight

                    UiCheckBox {
                        readonly property int row: Math.floor(index / 3)

                        anchors.verticalCenter: parent.verticalCenter
                        checkState: [Qt.Unchecked, Qt.Checked, Qt.PartiallyChecked][index % 3]
                        down: row === 1
                        enabled: row !== 2
                        readOnly: row === 3
                        text: [qsTr("Notify me"), qsTr("Keep a copy"), qsTr("All channels")][index % 3]

                        onClicked: root.report(text, modifiers)
                    }
                }
            }

            Item {
                width: checkBoxes.columnWidth
                height: checkBoxes.rowHeight

                UiCheckBox {
                    anchors.verticalCenter: parent.verticalCenter
                    bindable: true
                    text: qsTr("The host declines")

                    onClicked: root.report(text, modifiers)
                }
            }

            Item {
                width: checkBoxes.columnWidth
                height: checkBoxes.rowHeight

                UiCheckBox {
                    anchors.verticalCenter: parent.verticalCenter
                    bindable: true
                    checked: root.followed
                    text: qsTr("The host agrees")

                    onClicked: {
                        root.followed = !root.followed
                        root.report(text, modifiers)
                    }
                }
            }
        }
    }

    Row {
        spacing: 16

        Card {
            width: Math.floor((root.contentWidth - 16) / 2)
            title: qsTr("Load indicator")

            Row {
                height: 40
                spacing: 24

                UiCheckBox {
                    id: busy

                    anchors.verticalCenter: parent.verticalCenter
                    checked: true
                    objectName: "busyCheckBox"
                    text: qsTr("Busy")
                }

                UiLoadIndicator {
                    anchors.verticalCenter: parent.verticalCenter
                    loading: busy.checked
                }
            }
        }

        Card {
            width: Math.floor((root.contentWidth - 16) / 2)
            title: qsTr("Separator")

            Item {
                width: parent.width
                height: 40

                UiHorizontalSeparator {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                }
            }
        }
    }
}
