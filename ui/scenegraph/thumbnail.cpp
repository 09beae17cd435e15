#include "thumbnail.h"

#include "pacedupdate_p.h"
#include "thumbnailgeometry_p.h"
#include "thumbnailloader_p.h"
#include "thumbnailnode_p.h"

#include "foundation/assign.h"
#include "foundation/rounding.h"

#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

class ThumbnailPrivate
{
public:
    enum DirtyFlag { DirtyGeometry = 1, DirtyTexture = 2, DirtyEnabled = 4, DirtyAll = ~0 };

    explicit ThumbnailPrivate(Thumbnail *q) : q(q) {}

    void markDirty(int bits)
    {
        dirty |= bits;
        q->update();
    }

    void loadTexture();
    void reloadTexture();
    bool isImageLost() const { return isImageUsed && image.isNull() && !watcher; }

    // Stores, signals and then loads; the handler may destroy the item.
    template <typename Value>
    void set(Value &field, const Value &value, void (Thumbnail::*changed)())
    {
        if (!assign(field, value))
            return;
        const QPointer<Thumbnail> guard(q);
        Q_EMIT(q->*changed)();
        if (guard)
            loadTexture();
    }

    Thumbnail *const q;
    int dirty = DirtyAll;
    QUrl source;
    double devicePixelRatio = 1.0;
    QImage image; // the latest that was decoded, until it is in the node's texture
    bool isImageUsed = false; // a node had the image that the last load brought
    QRect region;
    std::unique_ptr<QFutureWatcher<QImage>> watcher; // of the load that runs
};

void ThumbnailPrivate::loadTexture()
{
    if (!q->isComponentComplete())
        return;
    // A load that has been superseded runs to its end and fills the cache, but never gets here.
    watcher.reset();
    isImageUsed = false;

    ThumbnailLoadJob job;
    job.source = source;
    job.width = truncated(q->width());
    job.height = truncated(q->height());
    job.devicePixelRatio = devicePixelRatio;
    job.region = region;
    if (!source.isLocalFile()
        || thumbnailTarget(job.width, job.height, devicePixelRatio).isEmpty()) {
        image = QImage();
        markDirty(DirtyTexture);
        return;
    }
    // What has been decoded already is there for the next frame, without a way through a thread.
    if (job.findCached(&image)) {
        markDirty(DirtyTexture);
        return;
    }
    watcher = std::make_unique<QFutureWatcher<QImage>>();
    QObject::connect(watcher.get(), &QFutureWatcherBase::finished, q, &Thumbnail::loadFinished);
    watcher->setFuture(ThumbnailLoadJob::start(job));
}

// For a node that came after the image had gone into the texture of another one.
void ThumbnailPrivate::reloadTexture()
{
    if (isImageLost())
        loadTexture();
}

Thumbnail::Thumbnail(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<ThumbnailPrivate>(this))
{
    setFlag(ItemHasContents);
    if (window()) // entered by the base, which told nobody yet
        d->devicePixelRatio = window()->effectiveDevicePixelRatio();
}

Thumbnail::~Thumbnail() = default;

QUrl Thumbnail::source() const
{
    return d->source;
}

void Thumbnail::setSource(const QUrl &source)
{
    d->set(d->source, source, &Thumbnail::sourceChanged);
}

QRect Thumbnail::region() const
{
    return d->region;
}

void Thumbnail::setRegion(const QRect &region)
{
    d->set(d->region, region, &Thumbnail::regionChanged);
}

void Thumbnail::componentComplete()
{
    QQuickItem::componentComplete();
    d->loadTexture();
}

void Thumbnail::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    const QPointer<Thumbnail> guard(this); // handlers of widthChanged() run in here
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (guard
        && (rounded(newGeometry.width()) != rounded(oldGeometry.width())
            || rounded(newGeometry.height()) != rounded(oldGeometry.height()))) {
        d->loadTexture();
    }
}

void Thumbnail::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged) {
        d->devicePixelRatio = data.realValue;
        d->loadTexture();
    } else if (change == ItemSceneChange && data.window) {
        // A texture of the window before is of no use in this one.
        if (assign(d->devicePixelRatio, data.window->effectiveDevicePixelRatio())
            || d->isImageLost()) {
            d->loadTexture();
        }
    } else if (change == ItemEnabledHasChanged) {
        // Not by the signal: that comes in the middle of the destruction, too, when the item leaves
        // a parent that is disabled.
        d->markDirty(ThumbnailPrivate::DirtyEnabled);
    }
    QQuickItem::itemChange(change, data);
}

void Thumbnail::loadFinished()
{
    if (!d->watcher)
        return;
    d->image = d->watcher->result();
    d->watcher.release()->deleteLater(); // it is still emitting
    d->dirty |= ThumbnailPrivate::DirtyTexture;
    updatePaced(this); // dozens may arrive at once
}

// Runs on the render thread while the GUI thread waits.
QSGNode *Thumbnail::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<ThumbnailNode *>(oldNode);
    if (!node) {
        node = new ThumbnailNode;
        d->dirty = ThumbnailPrivate::DirtyAll;
        if (d->isImageLost()) {
            QMetaObject::invokeMethod(
                this, [this] { d->reloadTexture(); }, Qt::QueuedConnection);
        }
    }
    if (d->dirty & ThumbnailPrivate::DirtyTexture) {
        d->isImageUsed = d->isImageUsed || !d->image.isNull();
        node->setImage(window(), d->image);
        d->image = QImage(); // the cache has its own
        d->dirty |= ThumbnailPrivate::DirtyGeometry;
    }
    if (d->dirty & ThumbnailPrivate::DirtyEnabled)
        node->setEnabled(isEnabled());
    if (d->dirty & ThumbnailPrivate::DirtyGeometry)
        node->setRect(thumbnailRect(node->textureSize(), size()));
    d->dirty = 0;
    return node;
}

} // namespace ta::ui
