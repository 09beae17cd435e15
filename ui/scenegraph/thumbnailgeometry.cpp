#include "thumbnailgeometry_p.h"

#include "foundation/rounding.h"

namespace ta::ui {

namespace {

qint64 area(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

// A strip that is thinner than a pixel when scaled stays one pixel thick: decoders take a size
// without pixels for none, and would decode everything.
QSize scaledInto(const QSize &size, const QSize &target)
{
    return size.scaled(target, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

} // namespace

QSize thumbnailTarget(int width, int height, double devicePixelRatio)
{
    const QSize target(truncated(width * devicePixelRatio), truncated(height * devicePixelRatio));
    return target.width() > 0 && target.height() > 0 ? target : QSize(0, 0);
}

ThumbnailDecoding thumbnailDecoding(const QSize &full, const QRect &region, const QSize &target)
{
    ThumbnailDecoding decoding;
    decoding.empty = target.isEmpty();
    QSize size = full;
    if (!region.isEmpty()) {
        // Some decoders read beyond the picture where the clip does.
        decoding.clip = full.isValid() ? region.intersected(QRect(QPoint(), full)) : region;
        decoding.empty |= decoding.clip.isEmpty();
        size = decoding.clip.size();
    }
    if (!decoding.empty && size.isValid() && area(target) < area(size))
        decoding.scaledSize = scaledInto(size, target);
    return decoding;
}

QRect thumbnailRect(const QSize &texture, const QSizeF &item)
{
    const QSize room(truncated(item.width()), truncated(item.height()));
    if (texture.isEmpty() || room.isEmpty())
        return {};
    const QSize fitted = texture.scaled(room, Qt::KeepAspectRatio);
    return QRect(QPoint(truncated((item.width() - fitted.width()) * 0.5),
                        truncated((item.height() - fitted.height()) * 0.5)),
                 fitted);
}

} // namespace ta::ui
