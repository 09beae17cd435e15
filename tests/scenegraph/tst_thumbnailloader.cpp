#include "support/colors.h"
#include "support/probeimage.h"
#include "support/testcase.h"

#include "foundation/rounding.h"
#include "scenegraph/thumbnailgeometry_p.h"
#include "scenegraph/thumbnailloader_p.h"

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThreadPool>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>

#include <limits>
#include <sys/stat.h>

using namespace ta::ui;
using namespace ta::test;

class tst_ThumbnailLoader : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void target();
    void decoding();
    void rect();
    void decodedPixels_data();
    void decodedPixels();
    void badFiles_data();
    void badFiles();
    void keyTellsApart();
    void cacheKeepsWhatWasUsedLast();
    void cacheBoundsSmallPictures();
    void onceForAllThatAskMeanwhile();
    void hugePictures();
    void clearedPool();

private:
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &content)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_folder;
};

namespace {

ThumbnailLoadJob job(const QUrl &source, const QSize &size, const QRect &region = QRect())
{
    ThumbnailLoadJob job;
    job.source = source;
    job.width = size.width();
    job.height = size.height();
    job.region = region;
    return job;
}

// In bytes, of addresses.
qint64 peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmPeak:") + 7).simplified().split(' ').first().toLongLong() << 10;
}

// 80 x 40: red, green, blue and white columns of 20.
QImage columns()
{
    QImage image(80, 40, QImage::Format_RGB32);
    const QRgb colors[] = { 0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, colors[x / 20]);
    }
    return image;
}

} // namespace

void tst_ThumbnailLoader::initTestCase()
{
    QThreadPool::globalInstance()->setMaxThreadCount(4); // while one of them waits
    QVERIFY(columns().save(path("columns.png")));
    QVERIFY(columns().save(path("columns.jpg"), nullptr, 100));
    QVERIFY(columns().save(path("columns.bmp")));
}

void tst_ThumbnailLoader::target()
{
    const int most = std::numeric_limits<int>::max();
    const struct
    {
        int width;
        int height;
        double ratio;
        QSize expected;
    } rows[] = {
        { 200, 100, 2, { 400, 200 } }, { 33, 11, 1.5, { 49, 16 } },
        { 0, 100, 2, { 0, 0 } },       { -5, -5, 1, { 0, 0 } },
        { 10, 10, qQNaN(), { 0, 0 } }, { most, most, 4, { truncated(1e300), truncated(1e300) } },
    };
    for (const auto &row : rows)
        QCOMPARE(thumbnailTarget(row.width, row.height, row.ratio), row.expected);
}

void tst_ThumbnailLoader::decoding()
{
    const QSize natural; // as it is
    const QRect all;
    const QRect region(10, 10, 50, 40);
    const struct
    {
        const char *name;
        QSize full;
        QRect region;
        QSize target;
        bool empty;
        QRect clip;
        QSize scaled;
    } rows[] = {
        { "smaller", { 4000, 3000 }, all, { 400, 200 }, false, all, { 266, 200 } },
        { "never larger", { 100, 50 }, all, { 400, 400 }, false, all, natural },
        { "equal area", { 100, 50 }, all, { 50, 100 }, false, all, natural },
        { "beyond 32 bits", { 70000, 70000 }, all, { 30000, 30000 }, false, all, { 30000, 30000 } },
        { "thin", { 30000, 1 }, all, { 96, 96 }, false, all, { 96, 1 } },
        { "unknown size", QSize(), all, { 96, 96 }, false, all, natural },
        { "nothing to fill", { 100, 50 }, all, { 0, 0 }, true, all, natural },
        { "region", { 100, 50 }, region, { 25, 25 }, false, region, { 25, 20 } },
        { "small region", { 4000, 3000 }, region, { 200, 200 }, false, region, natural },
        { "at the edge",
          { 100, 50 },
          { 80, 30, 50, 40 },
          { 400, 400 },
          false,
          { 80, 30, 20, 20 },
          natural },
        { "outside", { 100, 50 }, { 100, 0, 50, 40 }, { 400, 400 }, true, all, natural },
        { "left of it", { 100, 50 }, { -60, 0, 50, 40 }, { 400, 400 }, true, all, natural },
        { "region of unknown", QSize(), region, { 25, 25 }, false, region, { 25, 20 } },
    };
    for (const auto &row : rows) {
        const ThumbnailDecoding decoding = thumbnailDecoding(row.full, row.region, row.target);
        QVERIFY2(decoding.empty == row.empty, row.name);
        if (row.empty)
            continue;
        QVERIFY2(decoding.clip == row.clip, row.name);
        QVERIFY2(decoding.scaledSize == row.scaled, row.name);
    }
}

void tst_ThumbnailLoader::rect()
{
    const struct
    {
        QSize texture;
        QSizeF item;
        QRect expected;
    } rows[] = {
        { { 266, 200 }, { 200, 100 }, { 33, 0, 133, 100 } },
        { { 100, 50 }, { 400, 400 }, { 0, 100, 400, 200 } },
        { { 10, 10 }, { 21.9, 10.9 }, { 5, 0, 10, 10 } },
        { { 10, 10 }, { 0.9, 100 }, {} },
        { { 10, 10 }, { -50, -50 }, {} },
        { QSize(), { 50, 50 }, {} },
        { { 10, 10 }, { qQNaN(), 50 }, {} },
    };
    for (const auto &row : rows)
        QCOMPARE(thumbnailRect(row.texture, row.item), row.expected);
}

void tst_ThumbnailLoader::decodedPixels_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : { "columns.png", "columns.jpg", "columns.bmp" })
        QTest::newRow(file) << QString::fromLatin1(file);
}

// Decoders differ in what they do with clips and sizes; what comes out does not.
void tst_ThumbnailLoader::decodedPixels()
{
    QFETCH(QString, file);
    const QUrl source = QUrl::fromLocalFile(m_folder.filePath(file));
    const auto check = [](const QImage &image, const QSize &size, const QVector<QColor> &colors) {
        QCOMPARE(image.size(), size);
        for (int i = 0; i < colors.count(); ++i) {
            const QColor color = image.pixelColor((2 * i + 1) * size.width() / (2 * colors.count()),
                                                  size.height() / 2);
            const QColor expected = colors.at(i);
            QVERIFY2(isNear(color, expected, 7),
                     qPrintable(color.name() + QStringLiteral(" is not ") + expected.name()));
        }
    };
    check(job(source, QSize(400, 400))(), QSize(80, 40),
          { Qt::red, Qt::green, Qt::blue, Qt::white });
    check(job(source, QSize(20, 20))(), QSize(20, 10), { Qt::red, Qt::green, Qt::blue, Qt::white });
    check(job(source, QSize(400, 400), QRect(20, 10, 40, 10))(), QSize(40, 10),
          { Qt::green, Qt::blue });
    check(job(source, QSize(10, 10), QRect(20, 0, 40, 40))(), QSize(10, 10),
          { Qt::green, Qt::blue });
    check(job(source, QSize(99, 99), QRect(40, 20, 1000, 1000))(), QSize(40, 20),
          { Qt::blue, Qt::white });
    QVERIFY(job(source, QSize(99, 99), QRect(80, 0, 10, 10))().isNull());
}

void tst_ThumbnailLoader::badFiles_data()
{
    QTest::addColumn<QString>("file");
    write("text.png", "This is no picture.");
    write("empty.jpg", QByteArray());
    write("unknown.xyz", "\x01\x02\x03\x04");
    // 900 million pixels in a few bytes of header.
    write("huge.ppm", "P6 30000 30000 255\n");
    QFile whole(path("columns.png"));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    write("truncated.png", whole.read(whole.size() / 2));
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("folder.png")));
    QCOMPARE(mkfifo(qPrintable(path("pipe.png")), 0600), 0);
    QVERIFY(QFile::copy(path("columns.png"), path("locked.png")));
    QVERIFY(QFile::setPermissions(path("locked.png"), {}));

    for (const char *file : { "text.png", "empty.jpg", "unknown.xyz", "huge.ppm", "truncated.png",
                              "folder.png", "pipe.png", "locked.png", "nowhere.png" })
        QTest::newRow(file) << path(file);
    QTest::newRow("no name") << QString();
}

void tst_ThumbnailLoader::badFiles()
{
    QFETCH(QString, file);
    if (file.endsWith(QLatin1String("locked.png")) && QFileInfo(file).isReadable())
        QSKIP("This user may read every file");
    const ThumbnailLoadJob load = job(QUrl::fromLocalFile(file), QSize(96, 96));
    for (int i = 0; i < 2; ++i) // what was read and is no picture is in the cache by then
        QVERIFY(load().isNull());
    if (!file.endsWith(QLatin1String("nowhere.png")))
        return;
    QVERIFY(columns().save(file)); // but not what was not there
    QCOMPARE(load().size(), QSize(80, 40));
}

void tst_ThumbnailLoader::keyTellsApart()
{
    const QUrl source = QUrl::fromLocalFile(path("columns.png"));
    ThumbnailLoadJob doubled = job(source, QSize(10, 20));
    doubled.devicePixelRatio = 2;
    const QSet<QByteArray> keys = {
        job(source, QSize(10, 20)).cacheKey(),
        job(source, QSize(20, 10)).cacheKey(),
        job(source, QSize(10, 20), QRect(0, 0, 1, 2)).cacheKey(),
        job(source, QSize(10, 20), QRect(0, 0, 2, 1)).cacheKey(),
        job(QUrl::fromLocalFile(path("columns.jpg")), QSize(10, 20)).cacheKey(),
        doubled.cacheKey(),
    };
    QCOMPARE(keys.count(), 6);
    QCOMPARE(doubled.cacheKey(), job(source, QSize(20, 40)).cacheKey()); // the same pixels
}

void tst_ThumbnailLoader::cacheKeepsWhatWasUsedLast()
{
    const QDir folder(m_folder.path());
    const QSize third(2048, 1024); // of what the cache holds
    const ProbeImage a(folder, QStringLiteral("a"), third);
    const ProbeImage b(folder, QStringLiteral("b"), third);
    const ProbeImage c(folder, QStringLiteral("c"), third);
    const ProbeImage d(folder, QStringLiteral("d"), third);
    const ProbeImage all(folder, QStringLiteral("all"), QSize(2048, 3072));
    const ProbeImage beyond(folder, QStringLiteral("beyond"), QSize(2048, 3073));
    const auto reads = [](const ProbeImage &probe) {
        const int before = probe.readCount();
        job(probe.url(), QSize(5000, 5000))();
        return probe.readCount() - before;
    };
    for (const ProbeImage *probe : { &a, &b, &c })
        QCOMPARE(reads(*probe), 1);
    QCOMPARE(reads(a), 0);
    QCOMPARE(reads(d), 1); // in the place of b
    QCOMPARE(reads(c) + reads(a) + reads(d), 0);
    QCOMPARE(reads(beyond), 1);
    QCOMPARE(reads(beyond), 1); // too large to keep, and no reason to drop anything
    QCOMPARE(reads(c) + reads(a) + reads(d), 0);
    QCOMPARE(reads(all), 1); // in the place of all others
    QCOMPARE(reads(all), 0);
    QCOMPARE(reads(a), 1);
    QCOMPARE(reads(all), 1);
}

// Nothing is in the cache for free, or many small or broken pictures would fill the memory.
void tst_ThumbnailLoader::cacheBoundsSmallPictures()
{
    const QDir folder(m_folder.path());
    const ProbeImage large(folder, QStringLiteral("large"), QSize(2048, 3071)); // leaves room for 8
    const ProbeImage dots(folder, QStringLiteral("dots"), QSize(9, 1));
    const auto loadLarge = [&] {
        job(large.url(), QSize(5000, 5000))();
        return large.readCount();
    };
    const auto loadDots = [&](int count) {
        for (int i = 0; i < count; ++i)
            job(dots.url(), QSize(9, 9), QRect(i, 0, 1, 1))();
        return dots.readCount();
    };
    QCOMPARE(loadLarge(), 1);
    QCOMPARE(loadDots(8), 8);
    QCOMPARE(loadDots(8), 8);
    QCOMPARE(loadDots(9), 9); // the last one takes the place of what was used first
    QCOMPARE(loadLarge(), 2);
}

void tst_ThumbnailLoader::onceForAllThatAskMeanwhile()
{
    const QDir folder(m_folder.path());
    ProbeImage slow(folder, QStringLiteral("slow"), QSize(64, 64));
    const ProbeImage fast(folder, QStringLiteral("fast"), QSize(64, 64));
    slow.hold();
    QVector<QFuture<QImage>> loads;
    for (int i = 0; i < 50; ++i)
        loads.append(ThumbnailLoadJob::start(job(slow.url(), QSize(32, 32))));
    QTRY_VERIFY(slow.isBeingRead());
    // Neither the lock nor the pool is taken by those that wait.
    QCOMPARE(ThumbnailLoadJob::start(job(fast.url(), QSize(32, 32))).result().size(),
             QSize(32, 32));
    QVERIFY(!loads.first().isFinished());
    slow.release();
    for (const QFuture<QImage> &load : qAsConst(loads))
        QCOMPARE(load.result().cacheKey(), loads.first().result().cacheKey());
    QCOMPARE(slow.readCount(), 1);
    ThumbnailLoadJob::start(job(slow.url(), QSize(32, 32))).waitForFinished();
    QCOMPARE(slow.readCount(), 1);
}

// Files of a few kilobytes that claim to be 20,000 x 20,000. Only what the decoder can make without
// the whole picture is made.
void tst_ThumbnailLoader::hugePictures()
{
    const auto patched = [](QByteArray file, const QByteArray &marker, const QByteArray &end) {
        const int at = file.indexOf(marker) + 5; // a length and a depth lie between
        return file.replace(at, end.size(), end);
    };
    const auto encoded = [](bool progressive) {
        QBuffer buffer;
        QImageWriter writer(&buffer, "jpeg");
        writer.setProgressiveScanWrite(progressive);
        writer.write(columns());
        return buffer.data();
    };
    const QByteArray size("\x4e\x20\x4e\x20", 4);
    write("sequential.jpg", patched(encoded(false), "\xff\xc0", size));
    write("progressive.jpg", patched(encoded(true), "\xff\xc2", size));
    const auto png = [](const QByteArray &interlaceAndSum) {
        return QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200004e2000004e2008060000"
                                   + interlaceAndSum + "0000010049444154789c");
    };
    write("sequential.png", png("00e3704639"));
    write("interlaced.png", png("01947776af"));

    const QRect part(0, 0, 30, 20);
    const struct
    {
        const char *file;
        QRect region;
        QSize decoded;
    } rows[] = {
        { "sequential.jpg", QRect(), { 90, 90 } },
        { "sequential.jpg", part, part.size() },
        { "progressive.jpg", QRect(), { 0, 0 } },
        { "progressive.jpg", part, { 0, 0 } },
        { "sequential.png", QRect(0, 0, 2000, 2000), { 0, 0 } },
        { "interlaced.png", QRect(), { 0, 0 } },
    };
    expectWarning(QStringLiteral("^Corrupt JPEG data: premature end")); // the decoder's own
    const qint64 before = peakMemory();
    for (const auto &row : rows) {
        const QUrl source = QUrl::fromLocalFile(path(row.file));
        QVERIFY2(QImageReader(path(row.file)).size() == QSize(20000, 20000), row.file);
        QVERIFY2(job(source, QSize(90, 90), row.region)().size() == row.decoded, row.file);
    }
    QVERIFY(peakMemory() - before < 800 << 20);
}

// The host may clear the pool that it shares with the library.
void tst_ThumbnailLoader::clearedPool()
{
    const QDir folder(m_folder.path());
    ProbeImage first(folder, QStringLiteral("running"), QSize(64, 64));
    const ProbeImage second(folder, QStringLiteral("waiting"), QSize(64, 64));
    QThreadPool *pool = QThreadPool::globalInstance();
    const int threads = pool->maxThreadCount();
    pool->setMaxThreadCount(1);
    first.hold();
    ThumbnailLoadJob::start(job(first.url(), QSize(32, 32)));
    QTRY_VERIFY(first.isBeingRead());
    ThumbnailLoadJob::start(job(second.url(), QSize(32, 32)));
    pool->clear();
    first.release();
    QFuture<QImage> again = ThumbnailLoadJob::start(job(second.url(), QSize(32, 32)));
    QTRY_VERIFY(again.isFinished());
    QCOMPARE(again.result().size(), QSize(32, 32));
    pool->setMaxThreadCount(threads);
}

TAMBER_TEST_MAIN(tst_ThumbnailLoader)
#include "tst_thumbnailloader.moc"
