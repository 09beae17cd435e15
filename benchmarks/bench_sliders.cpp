#include "measures.h"
#include "rows.h"

#include <TamberUi/DefaultSlider>

#include <QtQml/qqml.h>

namespace bench {

Rows sliderRows()
{
    qmlRegisterType<ta::ui::DefaultSlider>("bench.Sliders", 1, 0, "UiDefaultSlider");
    const QByteArray base = "import tamber.Ui.Private 1.0; UiSliderBase {}";
    const QByteArray ready = "import bench.Sliders 1.0; UiDefaultSlider {}";
    const QByteArray theirs = "import QtQuick.Templates 2.15; Slider {}";
    return {
        { "create a slider base", "µs", 0.7, creationTime(base), creationTime(theirs) },
        { "heap of a slider base", "bytes", 0.7, creationHeap(base), creationHeap(theirs) },
        { "create a default slider", "µs", 0.7, creationTime(ready), creationTime(theirs) },
        { "heap of a default slider", "bytes", 0.7, creationHeap(ready), creationHeap(theirs) },
    };
}

} // namespace bench
