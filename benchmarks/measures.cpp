#include "measures.h"

#include "stage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

#include <malloc.h>

namespace bench {

namespace {

constexpr int kWarmUps = 50;
constexpr int kTimedObjects = 500;
constexpr int kWeighedObjects = 1000;
constexpr int kOpenings = 10;
constexpr int kFirstFrames = 2; // not timed: the renderer sorts what is new
constexpr int kFrames = 10;
constexpr QSize kLargeWindow(1280, 960);
constexpr int kColumns = 40; // of the objects in the large window
constexpr QPoint kPopupPixel(100, 295);

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

// What \a counter counts while \a count objects are created, for one of them.
double perObject(Stage &stage, const QByteArray &around, const QByteArray &qml, int count,
                 double (*counter)())
{
    stage.settle();
    const auto component = stage.compile(qml);
    const auto outer = stage.compile(around.isEmpty() ? "import QtQuick 2.15; Item {}" : around);
    const std::unique_ptr<QObject> parent(stage.create(*outer, stage.window().contentItem()));
    std::vector<std::unique_ptr<QObject>> objects;
    objects.reserve(count);
    const auto create = [&](int number) {
        for (int i = 0; i < number; ++i)
            objects.emplace_back(
                stage.create(*component, qobject_cast<QQuickItem *>(parent.get())));
        if (!around.isEmpty())
            QCoreApplication::sendPostedEvents();
    };
    create(kWarmUps);
    objects.clear();

    const double before = counter();
    create(count);
    return (counter() - before) / count;
}

// Pixels count, so what they are filled for must lie inside the window.
void verifyInside(const QQuickItem *item)
{
    const QRectF area(item->position(), item->size());
    if (area.isEmpty() || !QRectF(QPointF(), kLargeWindow).contains(area))
        qFatal("%s does not lie inside the window", item->metaObject()->className());
}

double timeFrames(Stage &stage, const Frames &frames, Before before, Until until)
{
    const Stage::Enlarged enlarged(stage, kLargeWindow);
    std::vector<decltype(stage.compile(frames.qml))> components;
    components.push_back(stage.compile(frames.qml));
    for (const QByteArray &other : frames.others)
        components.push_back(stage.compile(other));
    QQuickItem parent(stage.window().contentItem());
    std::vector<std::unique_ptr<QQuickItem>> items;
    for (int i = 0; i < frames.count; ++i) {
        const size_t part = size_t(i) * components.size() / size_t(frames.count);
        items.emplace_back(qobject_cast<QQuickItem *>(stage.create(*components[part], &parent)));
        items.back()->setPosition(QPointF(i % kColumns, i / kColumns) * frames.cell);
        if (until == Until::Shown)
            verifyInside(items.back().get());
    }
    stage.settle();

    QVector<double> times;
    const auto last = until == Until::Shown ? &QQuickWindow::frameSwapped
                                            : &QQuickWindow::afterRendering;
    for (int frame = 0; frame < kFirstFrames + kFrames; ++frame) {
        if (before == Before::Resize) {
            const QSizeF change = frame % 2 ? QSizeF(-1, -1) : QSizeF(1, 1);
            for (const auto &item : items)
                item->setSize(item->size() + change);
        } else if (before == Before::Appear) {
            parent.setParentItem(nullptr);
            stage.settle();
            parent.setParentItem(stage.window().contentItem());
        }
        const double time = stage.untilFrame([&stage] { stage.window().update(); }, last);
        if (frame >= kFirstFrames)
            times.append(time);
    }
    items.clear();
    stage.settle();
    return median(times);
}

QQuickItem *findContent(QQuickItem *item)
{
    if (item->isVisible() && item->objectName() == QLatin1String("content"))
        return item;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *content = findContent(child))
            return content;
    }
    return nullptr;
}

void call(QObject *object, const char *method)
{
    if (!QMetaObject::invokeMethod(object, method))
        qFatal("%s has no method %s", object->metaObject()->className(), method);
}

// A timing of a frame that shows something else would be worthless.
void openVerified(Stage &stage, QObject *popup, const char *method)
{
    QColor seen;
    const auto connection = QObject::connect(&stage.window(), &QQuickWindow::afterRendering,
                                             [&] { seen = stage.pixel(kPopupPixel); });
    stage.untilFrame([&] { call(popup, method); });
    QObject::disconnect(connection);
    if (seen != QColor(QLatin1String(kPopupColor)))
        qFatal("%s: the frame after %s() does not show it", popup->metaObject()->className(),
               method);
}

double timeOpenings(Stage &stage, const Popup &kind, Opening which)
{
    const auto component = stage.compile(kind.qml);
    QQuickItem parent(stage.window().contentItem());
    std::unique_ptr<QObject> popup;
    QVector<QPointer<QQuickItem>> contents;
    QVector<double> times;
    for (int i = 0; i <= kOpenings; ++i) {
        if (!popup || which == Opening::First)
            popup.reset(stage.create(*component, &parent));
        stage.settle();
        if (i == 0)
            openVerified(stage, popup.get(), kind.open);
        else
            times.append(stage.untilFrame([&] { call(popup.get(), kind.open); }));
        contents.append(findContent(stage.window().contentItem()));
        if (!contents.last())
            qFatal("%s has no content", popup->metaObject()->className());
        stage.untilFrame([&] { call(popup.get(), kind.close); });
    }

    // Content may outlive its popup for the time of an animation; no later measurement shall pay
    // for its end.
    popup.reset();
    for (const QPointer<QQuickItem> &content : qAsConst(contents))
        delete content;
    stage.settle();
    return median(times);
}

} // namespace

Measure creationTime(const QByteArray &qml)
{
    return creationTimeInside({}, qml);
}

Measure creationHeap(const QByteArray &qml)
{
    return creationHeapInside({}, qml);
}

Measure creationTimeInside(const QByteArray &around, const QByteArray &qml)
{
    return [=](Stage &stage) { return perObject(stage, around, qml, kTimedObjects, threadTime); };
}

Measure creationHeapInside(const QByteArray &around, const QByteArray &qml)
{
    return [=](Stage &stage) { return perObject(stage, around, qml, kWeighedObjects, heapInUse); };
}

Measure frameTime(const Frames &frames, Before before, Until until)
{
    return [=](Stage &stage) { return timeFrames(stage, frames, before, until); };
}

Measure openingTime(const Popup &popup, Opening which)
{
    return [popup, which](Stage &stage) { return timeOpenings(stage, popup, which); };
}

} // namespace bench
