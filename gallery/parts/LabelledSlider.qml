import QtQuick 2.15
import tamber.Ui 1.0
Item { property string label; property double value: 0; width: 100; height: 32 }
