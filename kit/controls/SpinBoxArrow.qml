// One of the two arrows of a UiSpinBox. Part of the kit's own controls.
//
// source: the picture. offset: pixels that it lies below the middle.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property int offset: 0
    property alias source: picture.source

    width: 23
    activeFocusOnTab: false

    Image {
        id: picture

        x: Math.floor((root.width - width) / 2)
        y: Math.floor((root.height - height) / 2) + root.offset
        opacity: root.enabled ? 1 : 0.4
        smooth: false
    }
}
