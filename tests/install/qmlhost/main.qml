// A host without a line of C++: the installed QML module is all it has.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    width: 300
    height: 200
    color: UiColors.getColor(UiColors.HeaderGrey4)

    UiPushButton {
        id: button

        text: "OK"
        style: Ui.SecondaryPushButtonStyle
    }

    Component.onCompleted: {
        console.info(button.implicitWidth > 0 && UiFonts.getFont(UiFonts.Light, 18).pixelSize === 18
                     ? "works" : "fails")
        Qt.callLater(Qt.quit)
    }
}
