#include "measures.h"
#include "rows.h"
#include "stage.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickItem>

namespace bench {

namespace {

constexpr QSize kWindow(480, 480);
constexpr QPoint kPlace(20, 20); // of the right click
constexpr QPoint kMenuPixel(22, 22); // inside of the frame, where nothing is drawn upon it
constexpr int kOpenings = 10;
constexpr int kTimeout = 10000; // ms
constexpr double kLead = 2000; // microseconds

const char kPage[] = "#3366cc";

// What a screen writes for a menu of its own.
struct Menu
{
    const char *imports;
    const char *page; // %1: the entries
    const char *entry; // %1: the text
};
constexpr Menu kOurs = {
    "import QtQuick 2.15; import tamber.Ui 1.0\n",
    "Rectangle { width: 480; height: 480; color: '#3366cc'\n"
    "UiIcon { x: 400; y: 400; iconName: 'edit' } // as any screen has one\n"
    "UiContextMenu { id: menu; %1 } function close() { menu.close() } }",
    "UiMenuItem { text: '%1'; iconName: 'edit' }\n",
};
// Its items exist from the beginning.
constexpr Menu kTheirs = {
    "import QtQuick 2.15; import QtQuick.Controls 2.15\n",
    "Rectangle { width: 480; height: 480; color: '#3366cc'\n"
    "MouseArea { anchors.fill: parent; acceptedButtons: Qt.RightButton\n"
    "onReleased: { menu.x = mouse.x; menu.y = mouse.y; menu.open() } }\n"
    "Menu { id: menu; %1 } function close() { menu.close() } }",
    "MenuItem { text: '%1'; icon.source: 'qrc:/ui/images/checkmark.png' }\n",
};

// They are made when it opens for the first time, as ours are each time.
constexpr Menu kTheirsOnDemand = {
    "import QtQuick 2.15; import QtQuick.Controls 2.15\n",
    "Rectangle { width: 480; height: 480; color: '#3366cc'\n"
    "MouseArea { anchors.fill: parent; acceptedButtons: Qt.RightButton\n"
    "onReleased: { loader.active = true; loader.item.x = mouse.x; loader.item.y = mouse.y\n"
    "loader.item.open() } }\n"
    "Loader { id: loader; active: false; sourceComponent: Menu { %1 } }\n"
    "function close() { loader.item.close() } }",
    "MenuItem { text: '%1'; icon.source: 'qrc:/ui/images/checkmark.png' }\n",
};

QByteArray qmlOf(const Menu &menu)
{
    QString entries;
    for (const char *text : { "Open", "Rename", "Duplicate", "Cut", "Copy", "Paste",
                              "Move to another folder", "Share", "Properties", "Delete" })
        entries += QString::fromLatin1(menu.entry).arg(QLatin1String(text));
    return menu.imports + QString::fromLatin1(menu.page).arg(entries).toUtf8();
}

void send(Stage &stage, QEvent::Type type)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::RightButton : Qt::NoButton;
    QMouseEvent event(type, kPlace, kPlace, stage.window().mapToGlobal(kPlace), Qt::RightButton,
                      held, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.window(), &event);
}

// Time of this thread until the first frame in which the menu's pixel has (or, where the menu
// closes, has no longer) another colour than the page. The thread sleeps where there is nothing to
// do, as between two steps of an animation.
double untilPixel(Stage &stage, bool ofPage, const std::function<void()> &action)
{
    double end = 0;
    bool seen = false;
    const auto rendered = QObject::connect(&stage.window(), &QQuickWindow::afterRendering, [&] {
        const bool isPage = stage.pixel(kMenuPixel) == QColor(QLatin1String(kPage));
        seen = seen || isPage == ofPage;
    });
    const auto shown = QObject::connect(&stage.window(), &QQuickWindow::frameSwapped, [&] {
        if (seen && end == 0)
            end = threadTime();
    });
    QTimer alarm; // wakes the thread where no frame would
    alarm.start(kTimeout);
    QElapsedTimer timer;
    timer.start();
    const double begin = threadTime();
    action();
    while (end == 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (timer.elapsed() > kTimeout)
            qFatal("The menu does not %s", ofPage ? "close" : "open");
    }
    QObject::disconnect(rendered);
    QObject::disconnect(shown);
    return end - begin;
}

// From the release of the right button on; the press is before it.
double timeMenu(Stage &stage, const Menu &menu, Opening which)
{
    const Stage::Enlarged enlarged(stage, kWindow);
    const auto component = stage.compile(qmlOf(menu));
    std::unique_ptr<QObject> page;
    QVector<double> times;
    for (int i = 0; i <= kOpenings; ++i) {
        if (!page || which == Opening::First) {
            page.reset();
            page.reset(stage.create(*component, stage.window().contentItem()));
        }
        stage.settle();
        send(stage, QEvent::MouseButtonPress);
        const double time = untilPixel(stage, false,
                                       [&] { send(stage, QEvent::MouseButtonRelease); });
        if (i > 0) // the first one fills caches
            times.append(time);
        untilPixel(stage, true, [&] { QMetaObject::invokeMethod(page.get(), "close"); });
    }
    page.reset();
    stage.settle();
    return median(times);
}

Measure menuTime(const Menu &menu, Opening which, double lead = 0)
{
    return [=](Stage &stage) { return timeMenu(stage, menu, which) + lead; };
}

} // namespace

Rows menuRows()
{
    const QByteArray ours = "import QtQuick 2.15; import tamber.Ui 1.0; Item { UiContextMenu {} }";
    const QByteArray theirs =
        "import QtQuick 2.15; import QtQuick.Templates 2.15; Item { Menu {} }";
    const Measure open = menuTime(kOurs, Opening::Later);
    return {
        { "create a closed menu", "µs", 0.4, creationTime(ours), creationTime(theirs) },
        { "heap of a closed menu", "bytes", 0.4, creationHeap(ours), creationHeap(theirs) },
        { "menu, theirs first", "µs", 0.5, open, menuTime(kTheirs, Opening::First) },
        { "menu, theirs first by a Loader", "µs", 0.5, open,
          menuTime(kTheirsOnDemand, Opening::First) },
        { "menu, theirs again + 2 ms", "µs", 1.0, open, menuTime(kTheirs, Opening::Later, kLead) },
    };
}

} // namespace bench
