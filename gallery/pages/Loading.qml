// What comes and goes: loaded items, progress, groups, rows.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property string activity: qsTr("Choose a component, run the work, or click a row.")
    property int created: 0

    readonly property int half: Math.floor((contentWidth - 16) / 2)

    title: qsTr("Loading")
    summary: qsTr("Items that are made when they are needed, and what to show until then.")

    footer: StatusLine {
        text: root.activity
    }

    Component {
        id: swatch

        Rectangle {
            property string caption: ""
            property int corner: 0

            implicitWidth: 200
            implicitHeight: 96
            color: UiColors.getColor(UiColors.ButtonNormalBlue)
            radius: corner

            Component.onCompleted: ++root.created

            UiText {
                anchors.centerIn: parent
                color: UiColors.getColor(UiColors.White)
                text: parent.caption
            }
        }
    }

    Component {
        id: form

        Column {
            property string caption: ""
            property int corner: 0

            spacing: 8

            Component.onCompleted: ++root.created

            UiCheckBox {
                checked: true
                text: parent.caption
            }

            UiCheckBox {
                text: qsTr("Rounded by %1").arg(parent.corner)
            }

            UiPushButton {
                text: qsTr("Apply")
            }
        }
    }

    Row {
        spacing: 16

        Card {
            id: loaderCard

            width: root.half
            height: Math.max(contentHeight, progress.contentHeight)
            title: qsTr("Loader")
            summary: qsTr("A new component or new properties make a new item. The loader takes over its size.")

            Row {
                spacing: 16

                Choice {
                    id: which

                    width: Math.floor((root.half - 64) / 2)
                    boxName: "componentCombo"
                    caption: qsTr("Component")
                    currentIndex: 0
                    model: [qsTr("Swatch"), qsTr("Form"), qsTr("None")]
                }

                Choice {
                    id: corner

                    width: Math.floor((root.half - 64) / 2)
                    caption: qsTr("Property \"corner\"")
                    currentIndex: 1
                    model: ["0", "8", "24"]
                }
            }

            Item {
                width: parent.width
                height: 112

                UiLoader {
                    id: loader

                    objectName: "loader"
                    properties: ({ caption: qsTr("Item %1").arg(which.model[which.currentIndex]), corner: Number(corner.model[corner.currentIndex]) })
                    sourceComponent: which.currentIndex === 0 ? swatch : which.currentIndex === 1 ? form : null
                }
            }

            UiText {
                color: UiColors.getColor(UiColors.MediumGrey45)
                font: UiFonts.getFont(UiFonts.Regular, 12)
                text: qsTr("Implicit size %1 \u00d7 %2, items made so far: %3").arg(loader.implicitWidth).arg(loader.implicitHeight).arg(root.created)
            }
        }

        Card {
            id: progress

            property bool running: false

            width: root.half
            height: loaderCard.height
            title: qsTr("Progress")
            summary: qsTr("Nothing moves while there is nothing to wait for.")

            Row {
                spacing: 16

                UiPushButton {
                    width: 120
                    objectName: "runButton"
                    text: progress.running ? qsTr("Stop") : qsTr("Run")

                    onClicked: progress.running = !progress.running
                }

                UiLoadIndicator {
                    loading: progress.running
                }
            }

            UiSlider {
                id: done

                width: parent.width
                maximumValue: 100
                text: qsTr("Done")
                value: 60
                valueText: qsTr("%1 %").arg(Math.round(value))
            }

            Repeater {
                model: [
                    { caption: qsTr("As far as the slider"), indeterminate: false, enabled: true },
                    { caption: qsTr("Nobody knows how far"), indeterminate: true, enabled: true },
                    { caption: qsTr("Disabled"), indeterminate: false, enabled: false }
                ]

                Item {
                    width: parent.width
                    height: 20

                    UiText {
                        width: 160
                        height: parent.height
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        font: UiFonts.getFont(UiFonts.Regular, 12)
                        text: modelData.caption
                    }

                    UiProgressBar {
                        x: 160
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width - x
                        busy: progress.running
                        enabled: modelData.enabled
                        indeterminate: modelData.indeterminate && progress.running
                        value: modelData.indeterminate ? 0 : done.value
                    }
                }
            }
        }
    }

    Row {
        spacing: 16

        Card {
            id: rowsCard

            width: root.half
            height: Math.max(contentHeight, groupsCard.contentHeight)
            title: qsTr("Rows")
            summary: qsTr("Their grounds share one draw call for each colour. After a double click the list counts as one without the focus.")

            Rectangle {
                width: parent.width
                height: rows.height + 2
                border.color: UiColors.getColor(UiColors.SeparatorLineGrey17)
                border.width: 1

                Column {
                    id: rows

                    property int current: 1
                    property bool defocused: false

                    x: 1
                    y: 1
                    width: parent.width - 2

                    Repeater {
                        model: [
                            { icon: "shared", text: qsTr("Spring campaign") },
                            { icon: "date-modified", text: qsTr("Opening hours") },
                            { icon: "view", text: qsTr("Menu of the week") },
                            { icon: "okay", text: qsTr("Welcome") },
                            { icon: "info", text: qsTr("House rules") },
                            { icon: "edit", text: qsTr("Events in June") },
                            { icon: "readonly", text: qsTr("Archive, which nobody may change") }
                        ]

                        UiListDelegate {
                            width: rows.width
                            active: rows.current === index
                            defocused: rows.defocused
                            enabled: index < 6
                            iconName: modelData.icon
                            objectName: "row" + index
                            text: modelData.text

                            onClicked: {
                                rows.current = index
                                rows.defocused = false
                                root.activity = qsTr("%1 clicked at %2, %3").arg(text).arg(position.x).arg(position.y)
                            }
                            onDoubleClicked: {
                                rows.defocused = true
                                root.activity = qsTr("%1 clicked twice").arg(text)
                            }
                        }
                    }
                }
            }
        }

        Card {
            id: groupsCard

            width: root.half
            height: rowsCard.height
            title: qsTr("Groups")
            summary: qsTr("A title folds away what belongs to it; so do the arrow keys.")

            Column {
                width: parent.width
                spacing: 4

                UiGroup {
                    width: parent.width
                    objectName: "firstGroup"
                    title: qsTr("Appearance")

                    onToggled: root.activity = collapsed ? qsTr("Appearance folded") : qsTr("Appearance unfolded")

                    UiCheckBox {
                        checked: true
                        text: qsTr("Show a frame")
                    }

                    UiCheckBox {
                        text: qsTr("Round the corners")
                    }
                }

                UiGroup {
                    width: parent.width
                    collapsed: true
                    title: qsTr("Schedule")

                    UiCheckBox {
                        text: qsTr("Every day")
                    }
                }

                UiGroup {
                    width: parent.width
                    collapsible: false
                    title: qsTr("Always there")

                    UiText {
                        width: parent.width
                        text: qsTr("A group that cannot be folded has no arrow.")
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }
}
