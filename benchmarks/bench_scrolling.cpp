#include "measures.h"
#include "rows.h"
#include "stage.h"

#include <TamberUi/VerticalScrollView>

#include <QtQuick/QQuickItem>

#include <cmath>
#include <limits>

namespace bench {

namespace {

constexpr QSize kWindow(640, 480);
constexpr int kFrames = 240;
constexpr int kStep = 37; // logical pixels a frame
constexpr int kJump = 20; // every so many frames the scroll bar is dragged instead
constexpr double kRefresh = 1e6 / 60; // µs

// A list of 100,000 rows in a view of either kind. Rows ahead of those in view are created in idle
// time, of which there is none here, so there are no such rows.
QByteArray listIn(const QByteArray &view)
{
    return "import QtQuick 2.15\n" + view + R"( {
        property int created: 0
        id: view
        width: 640; height: 480
        ListView {
            model: 100000
            cacheBuffer: 0
            delegate: Rectangle {
                width: 600; height: 30
                color: index % 2 ? "#f0f0f0" : "white"
                Text { x: 10; text: "Row " + index }
                Rectangle { x: 300; y: 5; width: index % 200; height: 20; color: "steelblue" }
                Component.onCompleted: ++view.created
            }
        }
    })";
}

const QByteArray kOurs = "import tamber.Ui 1.0; UiVerticalScrollView";
const QByteArray kTheirs = "import QtQuick.Controls 2.15; ScrollView";

enum class Count { FrameTime, Refreshes, Delegates };

// Scrolls through a list frame by frame, with a jump now and then, and tells per frame: its
// microseconds of the GUI thread, how often a screen of 60 Hz was refreshed until it was there, or
// how many delegates were created for it.
double scroll(Stage &stage, const QByteArray &qml, Count what)
{
    const Stage::Enlarged enlarged(stage, kWindow);
    const auto component = stage.compile(qml);
    QQuickItem parent(stage.window().contentItem());
    const std::unique_ptr<QObject> view(stage.create(*component, &parent));
    auto *ours = qobject_cast<ta::ui::VerticalScrollView *>(view.get());
    auto *list = view->property("contentItem").value<QQuickItem *>();
    stage.settle();

    const int createdBefore = view->property("created").toInt();
    double time = 0;
    double refreshes = 0;
    double position = 0;
    for (int frame = 1; frame <= kFrames; ++frame) {
        position += frame % kJump ? kStep : 10000;
        const double frameTime = stage.untilFrame([&] {
            if (ours)
                ours->setScrollPosition(position, true);
            else
                list->setProperty("contentY", position);
        });
        time += frameTime;
        refreshes += std::ceil(frameTime / kRefresh);
    }
    if (list->property("contentY").toDouble() != position)
        qFatal("%s does not scroll", view->metaObject()->className());
    const int created = view->property("created").toInt() - createdBefore;
    switch (what) {
    case Count::FrameTime:
        return time / kFrames;
    case Count::Refreshes:
        return refreshes / kFrames;
    case Count::Delegates:
        return double(created) / kFrames;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace

Rows scrollingRows()
{
    const auto scrolls = [](const QByteArray &view, Count what) {
        return [=](Stage &stage) { return scroll(stage, listIn(view), what); };
    };
    const auto bare = [](const QByteArray &view) -> QByteArray {
        return "import QtQuick 2.15; " + view
               + " { width: 100; height: 100; Item { implicitHeight: 1000 } }";
    };
    return {
        { "create a scroll view", "µs", 1.0, creationTime(bare(kOurs)),
          creationTime(bare(kTheirs)) },
        { "heap of a scroll view", "bytes", 1.0, creationHeap(bare(kOurs)),
          creationHeap(bare(kTheirs)) },
        { "scroll 100,000 rows, a frame", "µs", 1.0, scrolls(kOurs, Count::FrameTime),
          scrolls(kTheirs, Count::FrameTime) },
        { "scroll 100,000 rows, refreshes a frame", "", 1.0, scrolls(kOurs, Count::Refreshes),
          scrolls(kTheirs, Count::Refreshes) },
        { "scroll 100,000 rows, delegates a frame", "", 1.0, scrolls(kOurs, Count::Delegates),
          scrolls(kTheirs, Count::Delegates) },
    };
}

} // namespace bench
