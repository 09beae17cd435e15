#include "colorpickercanvas.h"

#include "foundation/createobject.h"
#include "foundation/positions.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtQml/QQmlComponent>
#include <QtQml/qqml.h>

#include <utility>

namespace ta::ui {

namespace {

constexpr qreal kCanvasZ = 65535; // above all ordinary content, below the popups
constexpr int kRenderDelay = 1000; // ms from the last change of a size to the next snapshot
constexpr QPoint kPreviewOffset(8, 8); // from the pointer

// A window that was made in C++ has no engine of its own, but what lies in it may have.
QQmlEngine *engineOf(const QQuickWindow *window)
{
    if (QQmlEngine *engine = qmlEngine(window))
        return engine;
    const QList<QQuickItem *> items = window->contentItem()->childItems();
    for (const QQuickItem *item : items) {
        if (QQmlEngine *engine = qmlEngine(item))
            return engine;
    }
    return nullptr;
}

} // namespace

class ColorPickerCanvasPrivate
{
public:
    explicit ColorPickerCanvasPrivate(ColorPickerCanvas *q) : q(q)
    {
        timer.setSingleShot(true);
        timer.setInterval(kRenderDelay);
        QObject::connect(&timer, &QTimer::timeout, q, &ColorPickerCanvas::updateRender);
    }

    void startPick(QQuickWindow *window);
    void abort();
    void createPreview(QQuickWindow *window);
    QColor pixelAt(const QPoint &position) const;
    QPoint eventPosition(const QObject *watched, const QMouseEvent *event) const;
    void hover(const QPoint &position);
    void press(const QPoint &position);

    ColorPickerCanvas *const q;
    QImage snapshot;
    QTimer timer;
    QPointer<QQuickItem> preview; // owned by the canvas
    bool picking = false;
};

void ColorPickerCanvasPrivate::startPick(QQuickWindow *window)
{
    q->setParentItem(window->contentItem());
    QCoreApplication::instance()->installEventFilter(q);
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    picking = true;
}

void ColorPickerCanvasPrivate::abort()
{
    if (!picking)
        return;
    q->stop();
    Q_EMIT q->aborted();
}

void ColorPickerCanvasPrivate::createPreview(QQuickWindow *window)
{
    QQmlEngine *engine = engineOf(window);
    if (!engine)
        return;
    QQmlComponent component(engine,
                            QUrl(QStringLiteral("qrc:/ui/components/UiColorPickPreview.qml")));
    createObject(&component, [this](QObject *object) {
        preview = qobject_cast<QQuickItem *>(object);
        object->setParent(q);
        if (!preview)
            return;
        preview->setParentItem(q);
        preview->setVisible(false); // until there is a colour to show
    });
}

QColor ColorPickerCanvasPrivate::pixelAt(const QPoint &position) const
{
    const QQuickWindow *window = q->window();
    const QScreen *screen = window ? window->screen() : nullptr;
    const qreal ratio = screen ? screen->devicePixelRatio() : 1;
    const QPoint pixel = rounded(QPointF(position) * ratio);
    return snapshot.valid(pixel) ? QColor(snapshot.pixel(pixel)) : QColor(Qt::transparent);
}

// The pointer may be over another window of the application, which has coordinates of its own.
QPoint ColorPickerCanvasPrivate::eventPosition(const QObject *watched,
                                               const QMouseEvent *event) const
{
    if (watched->isWindowType() && q->window() && watched != q->window())
        return windowPosition(q->window(), event->screenPos());
    return rounded(event->localPos());
}

void ColorPickerCanvasPrivate::hover(const QPoint &position)
{
    const QPointer<ColorPickerCanvas> guard(q);
    const QColor color = pixelAt(position);
    Q_EMIT q->previewColorChanged(color);
    if (!guard || !preview)
        return;
    preview->setProperty("color", color);
    preview->setPosition(position + kPreviewOffset);
    preview->setVisible(true);
}

void ColorPickerCanvasPrivate::press(const QPoint &position)
{
    const QPointer<ColorPickerCanvas> guard(q);
    if (snapshot.isNull()) // the press came before the event loop was reached
        q->updateRender();
    if (!guard)
        return;
    const QColor color = pixelAt(position);
    if (color.alpha() == 0) // there is nothing to pick, so the pick goes on
        return;
    q->stop();
    Q_EMIT q->colorPicked(color);
}

ColorPickerCanvas::ColorPickerCanvas(QQuickWindow *window)
    : d(std::make_unique<ColorPickerCanvasPrivate>(this))
{
    setAcceptedMouseButtons(Qt::AllButtons);
    setZ(kCanvasZ);
    if (!window)
        return;
    d->startPick(window);
    QMetaObject::invokeMethod(this, &ColorPickerCanvas::updateRender, Qt::QueuedConnection);
}

ColorPickerCanvas::~ColorPickerCanvas()
{
    stop();
}

void ColorPickerCanvas::scheduleRenderUpdate()
{
    d->timer.start();
}

void ColorPickerCanvas::stop()
{
    if (!std::exchange(d->picking, false))
        return;
    d->timer.stop();
    if (d->preview)
        d->preview->setVisible(false);
    if (!QCoreApplication::instance())
        return;
    QGuiApplication::restoreOverrideCursor();
    QCoreApplication::instance()->removeEventFilter(this);
}

void ColorPickerCanvas::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change != ItemSceneChange)
        return;
    if (!data.window)
        d->abort();
    else if (!d->preview)
        d->createPreview(data.window);
}

// Hides the preview meanwhile: it is not part of what can be picked.
void ColorPickerCanvas::updateRender()
{
    if (!d->picking || !window())
        return;
    const QPointer<ColorPickerCanvas> guard(this);
    const bool previewVisible = d->preview && d->preview->isVisible();
    if (previewVisible)
        d->preview->setVisible(false);
    const QImage snapshot = window()->grabWindow();
    if (!guard)
        return;
    d->snapshot = snapshot;
    if (previewVisible && d->preview && d->picking)
        d->preview->setVisible(true);
}

bool ColorPickerCanvas::eventFilter(QObject *watched, QEvent *event)
{
    // What is emitted may run a handler that destroys the receiver, which must not get the event
    // then, or the canvas.
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton)
            d->press(d->eventPosition(watched, mouse));
        return true;
    }
    case QEvent::MouseMove:
        d->hover(d->eventPosition(watched, static_cast<QMouseEvent *>(event)));
        return true;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyRelease:
    case QEvent::Wheel:
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
        return true;
    case QEvent::ShortcutOverride:
        // Comes before the key press, which would become a shortcut of the host instead.
        event->accept();
        return true;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            d->abort();
        return true;
    case QEvent::Leave:
        if (d->preview)
            d->preview->setVisible(false);
        Q_EMIT previewColorChanged(Qt::transparent);
        break;
    case QEvent::Resize:
        scheduleRenderUpdate();
        break;
    case QEvent::Hide:
        if (watched == window())
            d->abort();
        break;
    case QEvent::Close:
        d->abort();
        break;
    default:
        break;
    }
    return !receiver;
}

} // namespace ta::ui
