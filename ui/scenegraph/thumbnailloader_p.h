#pragma once

#include "../foundation/export.h"

#include <QtCore/QFuture>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QUrl>
#include <QtGui/QImage>

namespace ta::ui {

/*!
    Decodes a picture, or a region of it, no larger than it is shown.

    A plain value; calling it does the work, on any thread. All jobs of the process share a cache of
    decoded pictures, bounded by their pixels.
*/
class TAMBERUI_PRIVATE_EXPORT ThumbnailLoadJob
{
public:
    QUrl source;
    int width = 0; ///< of the item, in logical pixels
    int height = 0;
    double devicePixelRatio = 1;
    QRect region; ///< in pixels of the picture; empty for all of it

    /// The decoded picture; null where there is none. Failures are not told otherwise.
    QImage operator()() const;

    /// Gives what the job would, where the cache has it; returns whether it has.
    bool findCached(QImage *image) const;

    /// Identifies the outcome: jobs of equal keys decode the same pixels.
    QByteArray cacheKey() const;

    /// Runs \a job on the global thread pool. Whoever asks for what another one has asked for
    /// before gets the outcome of that load as long as it has not ended.
    static QFuture<QImage> start(const ThumbnailLoadJob &job);

private:
    static bool findCached(const QByteArray &key, QImage *image);

    /// False where there is no file to read.
    bool decode(QImage *image) const;
};

} // namespace ta::ui
