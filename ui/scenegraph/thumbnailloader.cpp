#include "thumbnailloader_p.h"

#include "thumbnailgeometry_p.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QCache>
#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtGui/QImageReader>

namespace ta::ui {

namespace {

constexpr int kPixelsPerCost = 256;
constexpr int kMostCost = 24576; // with the above, 6.3 million pixels or 24 MiB

// Larger pictures are left to the decoders that scale while they read. All others make the whole
// picture first, and some of them a copy of it; a few kilobytes of file can ask for gigabytes.
constexpr qint64 kMostPixels = qint64(1) << 28;

// The three below are used by the thread of the GUI and by all threads of the pool, under the lock.
// It is not held while a file is read.

QMutex &cacheLock()
{
    static QMutex s_cacheLock;
    return s_cacheLock;
}

QCache<QByteArray, QImage> &cache()
{
    static QCache<QByteArray, QImage> s_cache(kMostCost);
    return s_cache;
}

// What has been asked for and has not ended yet. The futures are not kept any longer, since each
// holds its picture.
QHash<QByteArray, QFuture<QImage>> &loads()
{
    static QHash<QByteArray, QFuture<QImage>> s_loads;
    return s_loads;
}

// Rounded up, and one for a picture that could not be decoded: nothing is in the cache for free, so
// that its bound is one for small pictures as well.
int costOf(const QImage &image)
{
    const qint64 pixels = qint64(image.width()) * image.height();
    return int(
        qBound(qint64(1), (pixels + kPixelsPerCost - 1) / kPixelsPerCost, qint64(kMostCost) + 1));
}

bool scalesWhileReading(const QImageReader &reader)
{
    const QByteArray format = reader.format();
    if (format == "png") {
        const QImage::Format pixels = reader.imageFormat();
        return pixels == QImage::Format_RGB32 || pixels == QImage::Format_ARGB32;
    }
    return format == "jpeg" || format == "jpg" || format == "svg" || format == "svgz";
}

// What a texture is made of; done here, the render thread need not do it.
QImage forTexture(const QImage &image)
{
    if (image.isNull())
        return image;
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

} // namespace

QImage ThumbnailLoadJob::operator()() const
{
    const QByteArray key = cacheKey();
    QImage image;
    if (findCached(key, &image) || !decode(&image))
        return image;
    const QMutexLocker locker(&cacheLock());
    cache().insert(key, new QImage(image), costOf(image)); // the cache owns it
    return image;
}

bool ThumbnailLoadJob::findCached(QImage *image) const
{
    return findCached(cacheKey(), image);
}

bool ThumbnailLoadJob::findCached(const QByteArray &key, QImage *image)
{
    const QMutexLocker locker(&cacheLock());
    const QImage *cached = cache().object(key); // which is now the one used last
    if (cached)
        *image = *cached;
    return cached;
}

QByteArray ThumbnailLoadJob::cacheKey() const
{
    const QSize target = thumbnailTarget(width, height, devicePixelRatio);
    const qint32 numbers[] = { target.width(), target.height(), region.left(),
                               region.top(),   region.right(),  region.bottom() };
    QCryptographicHash hash(QCryptographicHash::Md4);
    hash.addData(source.toLocalFile().toUtf8());
    hash.addData(reinterpret_cast<const char *>(numbers), sizeof numbers);
    return hash.result();
}

QFuture<QImage> ThumbnailLoadJob::start(const ThumbnailLoadJob &job)
{
    const QByteArray key = job.cacheKey();
    const QMutexLocker locker(&cacheLock());
    const auto running = loads().constFind(key);
    if (running != loads().constEnd())
        return *running;
    const QFuture<QImage> load = QtConcurrent::run([job, key] {
        const QImage image = job();
        const QMutexLocker jobLocker(&cacheLock());
        loads().remove(key); // from now on, the cache has it
        return image;
    });
    loads().insert(key, load);
    return load;
}

bool ThumbnailLoadJob::decode(QImage *image) const
{
    const QString path = source.toLocalFile();
    if (!QFileInfo(path).isFile()) // reading a pipe could take forever
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;

    QImageReader reader(&file);
    const QSize full = reader.size();
    const ThumbnailDecoding decoding = thumbnailDecoding(full, region,
                                                         thumbnailTarget(width, height,
                                                                         devicePixelRatio));
    if (decoding.empty)
        return true;
    const bool isHuge = qint64(full.width()) * full.height() > kMostPixels;
    if (isHuge && !(decoding.scaledSize.isValid() && scalesWhileReading(reader)))
        return true;
    if (!decoding.clip.isNull())
        reader.setClipRect(decoding.clip);
    if (decoding.scaledSize.isValid())
        reader.setScaledSize(decoding.scaledSize);
    *image = forTexture(reader.read());
    return true;
}

} // namespace ta::ui
