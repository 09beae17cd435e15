// The column on the left: one entry for each page.
//
// chosen(name): the user wants to see the page.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property var pages: []
    property string currentPage: ""

    signal chosen(string name)

    width: 232
    color: UiColors.getColor(UiColors.DarkerBlueGrey)

    UiText {
        id: title

        x: 24
        y: 32
        color: UiColors.getColor(UiColors.White)
        font: UiFonts.getFont(UiFonts.Light, 28)
        text: "TamberUi"
    }

    UiText {
        id: subtitle

        anchors.left: title.left
        anchors.top: title.bottom
        anchors.topMargin: 2
        color: UiColors.getColor(UiColors.White, 0.85)
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: qsTr("Building blocks for Qt Quick")
    }

    Column {
        id: entries

        anchors.top: subtitle.bottom
        anchors.topMargin: 32
        width: root.width

        Repeater {
            model: root.pages

            NavigationEntry {
                width: root.width
                // In a low window they move together: all of them stay in reach.
                height: Math.min(40, Math.floor((root.height - entries.y - 8) / root.pages.length))
                current: modelData.name === root.currentPage
                objectName: "nav-" + modelData.name
                text: modelData.title

                onClicked: root.chosen(modelData.name)
            }
        }
    }
}
