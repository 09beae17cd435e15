// A turning ring that says "busy".
//
// running: whether it turns and shows. True by default; nothing is animated while it is false or the
// indicator is invisible.
import QtQuick 2.15
import QtQuick.Window 2.15

Item {
    id: root

    property bool running: true

    implicitWidth: 32
    implicitHeight: 32

    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Busy")
    Accessible.ignored: !running

    Image {
        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height)
        height: width
        source: "qrc:/ui/images/loadindicator.png"
        mipmap: true
        visible: root.running

        RotationAnimator on rotation {
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
            running: root.running && root.visible && root.Window.visibility !== Window.Hidden
        }
    }
}
