// A button at an edge of the page, whose popup has to find its place.
//
// opened: the popup is about to show.
import QtQuick 2.15
import tamber.Ui 1.0

PopupButton {
    id: root

    signal opened

    anchor.onAboutToShow: opened()

    popup: Component {
        PopupPanel {
            implicitWidth: 248

            UiText {
                width: parent.width
                lineHeight: 1.2
                text: qsTr("I hang below my button. Where there is no room I go to its other side.")
                wrapMode: Text.Wrap
            }
        }
    }
}
