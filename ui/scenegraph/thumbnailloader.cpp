#include "thumbnailloader_p.h"

#include "thumbnailgeometry_p.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QBuffer>
#include <QtCore/QCache>
#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtGui/QImageReader>

#include <memory>

namespace ta::ui {

namespace {

constexpr int kPixelsPerCost = 256;
constexpr int kMostCost = 24576; // with the above, 6.3 million pixels or 24 MiB

// Larger pictures are left to the decoders that make no more of them than they are asked for. All
// others make the whole picture first, and some of them a copy of it; a few kilobytes of file can
// ask for gigabytes.
constexpr qint64 kMostPixels = qint64(1) << 28;

// Files up to this size are read as a whole where that helps.
constexpr qint64 kMostBytesAtOnce = 1 << 26;

// The three below are used by the GUI thread and by all threads of the pool, under the lock.
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

// A part of the job, and gone with it, be it that the host has cleared the pool and it never runs.
class Load
{
public:
    explicit Load(const QByteArray &key) : m_key(key) {}
    ~Load()
    {
        const QMutexLocker locker(&cacheLock());
        loads().remove(m_key);
    }
    Q_DISABLE_COPY_MOVE(Load)

private:
    const QByteArray m_key;
};

qint64 area(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

// Rounded up, and one for a picture that could not be decoded: nothing is in the cache for free, so
// that its bound is one for small pictures as well.
int costOf(const QImage &image)
{
    return int(qBound(qint64(1), (area(image.size()) + kPixelsPerCost - 1) / kPixelsPerCost,
                      qint64(kMostCost) + 1));
}

// Whether the rows of a PNG or JPEG file come in several turns: then its decoder keeps them all.
bool isInterlaced(const QString &path, const QByteArray &format)
{
    constexpr qint64 kMostHeaders = 1 << 20;
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(kMostHeaders) : QByteArray();
    const auto byteAt = [&head](int at) { return at < head.size() ? uchar(head.at(at)) : 0; };
    if (format == "png")
        return byteAt(28) != 0; // the method, in the first chunk

    // Segments of a marker and a length follow each other up to the first scan.
    int components = 0;
    for (int at = 2; byteAt(at) == 0xFF;) {
        const int marker = byteAt(at + 1);
        if (marker == 0xC0 || marker == 0xC1) // the frames that are not progressive
            components = byteAt(at + 9);
        else if (marker == 0xDA)
            return byteAt(at + 4) != components; // of which the first scan has all
        at += 2 + (byteAt(at + 2) << 8 | byteAt(at + 3));
    }
    return true;
}

// Whether the decoder of \a reader gets along without the whole picture.
bool decodesSparingly(const QString &path, const QImageReader &reader,
                      const ThumbnailDecoding &decoding)
{
    const QByteArray format = reader.format();
    const bool scales = decoding.scaledSize.isValid();
    const bool clips = !decoding.clip.isNull();
    if (format == "png") {
        const QImage::Format pixels = reader.imageFormat();
        return scales && !clips
               && (pixels == QImage::Format_RGB32 || pixels == QImage::Format_ARGB32)
               && !isInterlaced(path, format);
    }
    if (!scales && !(clips && area(decoding.clip.size()) <= kMostPixels))
        return false;
    if (format == "jpeg" || format == "jpg")
        return !isInterlaced(path, format);
    return format == "svg" || format == "svgz";
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
    std::shared_ptr<const Load> load; // which takes the lock where it goes, if it is the last one
    const QMutexLocker locker(&cacheLock());
    const auto running = loads().constFind(key);
    if (running != loads().constEnd())
        return *running;
    load = std::make_shared<const Load>(key);
    const QFuture<QImage> future = QtConcurrent::run([job, load] { return job(); });
    loads().insert(key, future);
    return future;
}

bool ThumbnailLoadJob::decode(QImage *image) const
{
    const QString path = source.toLocalFile();
    if (!QFileInfo(path).isFile()) // reading a pipe could take forever
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;

    QBuffer whole; // of a JPEG: without it libjpeg asks for more in the middle of each block
    QImageReader reader(&file);
    if (file.size() <= kMostBytesAtOnce && reader.format() == "jpeg" && file.seek(0)) {
        whole.setData(file.readAll());
        whole.open(QIODevice::ReadOnly);
        reader.setDevice(&whole);
    }
    const QSize full = reader.size();
    const ThumbnailDecoding decoding = thumbnailDecoding(full, region,
                                                         thumbnailTarget(width, height,
                                                                         devicePixelRatio));
    if (decoding.empty)
        return true;
    if (area(full) > kMostPixels && !decodesSparingly(path, reader, decoding))
        return true;
    if (!decoding.clip.isNull())
        reader.setClipRect(decoding.clip);
    if (decoding.scaledSize.isValid())
        reader.setScaledSize(decoding.scaledSize);
    *image = forTexture(reader.read());
    return true;
}

} // namespace ta::ui
