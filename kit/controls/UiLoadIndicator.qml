// A turning ring that says "busy".
//
// loading: whether it turns and shows. False by default; nothing is animated while it is false or the
// indicator is invisible.
import QtQuick 2.15
import QtQuick.Window 2.15

Item {
    id: root

    property bool loading: false

    implicitWidth: 32
    implicitHeight: 32

    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Busy")
    Accessible.ignored: !loading

    Image {
        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height)
        height: width
        source: "qrc:/ui/images/loadindicator.png"
        mipmap: true
        visible: root.loading

        RotationAnimator on rotation {
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
            running: root.loading && root.visible && root.Window.visibility !== Window.Hidden
        }
    }
}
