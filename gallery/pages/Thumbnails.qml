// Files of several formats, regions, the disabled state, and a wall of 2,000.
import QtQuick 2.15
import Gallery 1.0
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    title: qsTr("Thumbnails")
    summary: qsTr("Pictures from files, decoded in the background at the size that they are shown.")

    Card {
        id: folder

        title: qsTr("A folder")
        summary: qsTr("Whatever the format and the proportions, a picture fits its box. What is no picture stays empty.")

        Grid {
            id: samples

            columns: Math.min(5, Math.floor(folder.bodyWidth / 120))
            columnSpacing: 16
            rowSpacing: 16

            Repeater {
                model: Pictures.samples

                PictureBox {
                    width: Math.floor((folder.bodyWidth - (samples.columns - 1) * 16) / samples.columns)
                    caption: modelData.format
                             ? qsTr("%1, %2 \u00d7 %3").arg(modelData.format).arg(modelData.width).arg(modelData.height)
                             : qsTr("No picture")
                    objectName: "sample" + index
                    source: modelData.url
                }
            }
        }
    }

    Card {
        id: regions

        readonly property var parts: [
            { name: qsTr("Sun"), x: 400, y: 260, width: 600, height: 480, ink: "WarningYellow" },
            { name: qsTr("Strip"), x: 1200, y: 700, width: 1500, height: 400, ink: "WarningRed" },
            { name: qsTr("Column"), x: 1150, y: 1150, width: 450, height: 800, ink: "SelectionGreen" }
        ]
        readonly property int columnWidth: Math.floor((bodyWidth - 48) / 5)

        title: qsTr("Regions")
        summary: qsTr("A thumbnail can show a part of its picture; only that part is decoded.")

        Row {
            spacing: 16

            UiThumbnail {
                id: whole

                readonly property real scaleToFile: width / Pictures.samples[0].width

                width: 2 * regions.columnWidth
                height: Math.round(width * 2 / 3)
                objectName: "wholePicture"
                source: Pictures.samples[0].url

                Repeater {
                    model: regions.parts

                    Rectangle {
                        x: Math.round(modelData.x * whole.scaleToFile)
                        y: Math.round(modelData.y * whole.scaleToFile)
                        width: Math.round(modelData.width * whole.scaleToFile)
                        height: Math.round(modelData.height * whole.scaleToFile)
                        border.color: UiColors.getColor(UiColors[modelData.ink])
                        border.width: 2
                        color: "transparent"
                    }
                }
            }

            Repeater {
                model: regions.parts

                PictureBox {
                    width: regions.columnWidth
                    height: whole.height
                    caption: modelData.name
                    mark: UiColors.getColor(UiColors[modelData.ink])
                    objectName: "region" + index
                    region: Qt.rect(modelData.x, modelData.y, modelData.width, modelData.height)
                    source: whole.source
                }
            }
        }
    }

    Card {
        id: disabledCard

        title: qsTr("Disabled")
        summary: qsTr("Grey and at half strength, on any ground.")

        UiCheckBox {
            id: enabledBox

            objectName: "thumbnailsEnabled"
            text: qsTr("Enable the pictures on the right")
        }

        Row {
            spacing: 16

            Repeater {
                model: ["White", "DialogPreviewGrey", "DarkGrey80"]

                Rectangle {
                    width: Math.floor((disabledCard.bodyWidth - 32) / 3)
                    height: 120
                    border.color: UiColors.getColor(UiColors.ProgressbarBGGrey)
                    border.width: modelData === "White" ? 1 : 0
                    color: UiColors.getColor(UiColors[modelData])
                    radius: 4

                    UiThumbnail {
                        x: 16
                        y: 16
                        width: Math.floor((parent.width - 48) / 2)
                        height: 88
                        source: Pictures.samples[6].url
                    }

                    UiThumbnail {
                        anchors.right: parent.right
                        anchors.rightMargin: 16
                        y: 16
                        width: Math.floor((parent.width - 48) / 2)
                        height: 88
                        enabled: enabledBox.checked
                        source: Pictures.samples[6].url
                    }
                }
            }
        }
    }

    Card {
        id: wall

        title: qsTr("A wall of 2,000")
        summary: qsTr("Each shows a region of its own. Those in view are decoded while you scroll, several at a time.")

        GridView {
            id: grid

            readonly property int columns: Math.floor(wall.bodyWidth / 104)
            readonly property size picture: Pictures.wallSize
            readonly property int side: 400

            x: -4
            width: wall.bodyWidth + 8
            height: 4 * cellHeight
            boundsBehavior: Flickable.StopAtBounds
            cacheBuffer: 2 * cellHeight
            cellHeight: cellWidth
            cellWidth: Math.floor(width / columns)
            clip: true
            model: 2000
            objectName: "wall"

            delegate: Item {
                readonly property int round: Math.floor(index / Pictures.wall.length)

                width: grid.cellWidth
                height: grid.cellHeight

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: 4
                    color: UiColors.getColor(UiColors.EmptyImageBox)

                    UiThumbnail {
                        anchors.fill: parent
                        region: Qt.rect(round * 37 % (grid.picture.width - grid.side),
                                        grid.picture.height - grid.side - round * 53 % 160,
                                        grid.side, grid.side)
                        source: Pictures.wall[(index + round) % Pictures.wall.length]
                    }
                }
            }
        }
    }
}
