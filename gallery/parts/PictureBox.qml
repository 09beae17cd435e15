// A thumbnail on a quiet ground, with a line about it below.
//
// mark: a colour before the caption; transparent for none.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property alias source: thumbnail.source
    property alias region: thumbnail.region
    property string caption: ""
    property color mark: "transparent"

    height: 152

    Rectangle {
        width: parent.width
        height: parent.height - 24
        color: UiColors.getColor(UiColors.HeaderGrey4)
        radius: 4

        UiThumbnail {
            id: thumbnail

            anchors.fill: parent
            anchors.margins: 8
        }
    }

    Rectangle {
        y: parent.height - 13
        width: 8
        height: 8
        color: root.mark
        visible: color.a > 0
    }

    UiText {
        x: root.mark.a > 0 ? 16 : 0
        y: parent.height - 18
        width: parent.width - x
        height: 18
        color: UiColors.getColor(UiColors.MediumGrey45)
        elide: Text.ElideRight
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.caption
    }
}
