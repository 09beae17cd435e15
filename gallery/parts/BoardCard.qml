// How a card of a board looks.
//
// card: an object with title, note and ink, the name of a colour.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property var card: ({})

    implicitHeight: 56
    border.color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    border.width: 1
    color: UiColors.getColor(UiColors.White)
    radius: 3

    Accessible.role: Accessible.StaticText
    Accessible.name: root.card.title

    Rectangle {
        x: 8
        y: 8
        width: 4
        height: parent.height - 16
        color: UiColors.getColor(UiColors[root.card.ink])
        radius: 2
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 22
        width: parent.width - 34
        spacing: 2

        UiText {
            width: parent.width
            elide: Text.ElideRight
            text: root.card.title
        }

        UiText {
            width: parent.width
            color: UiColors.getColor(UiColors.MediumGrey45)
            elide: Text.ElideRight
            font: UiFonts.getFont(UiFonts.Regular, 12)
            text: root.card.note
        }
    }
}
