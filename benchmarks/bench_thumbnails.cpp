#include "measures.h"
#include "rows.h"
#include "stage.h"

#include <TamberUi/Thumbnail>

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtGui/QGuiApplication>
#include <QtGui/QOpenGLFunctions>
#include <QtQuick/QQuickItem>

#include <algorithm>

namespace bench {

namespace {

constexpr int kPictures = 60;
constexpr int kDifferentPictures = 6;
constexpr int kColumns = 10;
constexpr int kSide = 96;
constexpr QSize kPictureSize(4000, 3000);
constexpr int kTimeout = 120000; // ms
constexpr int kWallFiles = 40;
constexpr QSize kWallPictureSize(600, 400);
constexpr QSize kWallWindow(960, 720);
constexpr int kWallFrames = 120;
constexpr int kWallStep = 35; // logical pixels a frame: a new row every third

// Bright everywhere, with as much detail as a photograph has.
QImage picture(uint seed, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            seed = seed * 1664525 + 1013904223;
            const int noise = int(seed >> 28);
            line[x] = qRgb(128 + x * 96 / image.width() + noise, 160 + noise,
                           128 + y * 96 / image.height() + noise);
        }
    }
    return image;
}

// Made at the first use; each call gives the same files under new names.
class Pictures
{
public:
    QVector<QUrl> links()
    {
        const QDir folder(m_folder.path());
        for (int i = m_made; i < kDifferentPictures; i = ++m_made) {
            if (!picture(uint(i), kPictureSize)
                     .save(folder.filePath(QStringLiteral("%1.jpg").arg(i)), nullptr, 85))
                qFatal("Cannot write to %s", qPrintable(m_folder.path()));
        }
        QVector<QUrl> urls;
        ++m_round;
        for (int i = 0; i < kPictures; ++i) {
            const QString link = folder.filePath(QStringLiteral("%1-%2.jpg").arg(m_round).arg(i));
            if (!QFile::link(folder.filePath(QStringLiteral("%1.jpg").arg(i % kDifferentPictures)),
                             link))
                qFatal("Cannot link in %s", qPrintable(m_folder.path()));
            urls.append(QUrl::fromLocalFile(link));
        }
        return urls;
    }

private:
    QTemporaryDir m_folder;
    int m_made = 0;
    int m_round = 0;
};

// Milliseconds of the wall clock until all items of \a qml show the picture of their source.
double timeToShow(Stage &stage, const QByteArray &qml)
{
    static Pictures pictures;
    stage.settle();
    const QVector<QUrl> sources = pictures.links();
    const auto component = stage.compile(qml);

    QQuickWindow window;
    window.setColor(Qt::black);
    window.resize(kColumns * kSide, kPictures / kColumns * kSide);
    window.show();
    while (!window.isExposed())
        QCoreApplication::processEvents();

    // Looked at in each frame up to the first that is missing: reading a pixel takes time that the
    // decoders could use. What is shown stays so.
    QVector<QPoint> missing;
    for (int i = 0; i < kPictures; ++i)
        missing.append(QPoint(i % kColumns, i / kColumns) * kSide + QPoint(kSide, kSide) / 2);
    QObject::connect(&window, &QQuickWindow::afterRendering, &window, [&] {
        QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
        const auto isShown = [&](const QPoint &center) {
            GLubyte rgba[4] = {};
            gl->glReadPixels(center.x(), window.height() - 1 - center.y(), 1, 1, GL_RGBA,
                             GL_UNSIGNED_BYTE, rgba);
            return rgba[1] > 64;
        };
        missing.erase(missing.begin(), std::find_if_not(missing.begin(), missing.end(), isShown));
    });

    const AllProcessors all;
    std::vector<std::unique_ptr<QQuickItem>> items;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < kPictures; ++i) {
        auto *item = qobject_cast<QQuickItem *>(stage.create(*component, window.contentItem()));
        items.emplace_back(item);
        item->setPosition(QPointF(i % kColumns, i / kColumns) * kSide);
        item->setProperty("source", sources.at(i));
    }
    while (!missing.isEmpty()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (timer.elapsed() > kTimeout)
            qFatal("%d pictures were not shown", missing.count());
    }
    const double time = timer.nsecsElapsed() / 1e6;
    items.clear();
    for (const QUrl &source : sources)
        QFile::remove(source.toLocalFile());
    return time;
}

// Files "0.jpg" and so on, made at the first use.
QUrl wallFolder()
{
    static const QTemporaryDir folder;
    static const bool made = [] {
        for (int i = 0; i < kWallFiles; ++i) {
            const QString file = folder.filePath(QStringLiteral("%1.jpg").arg(i));
            if (!picture(uint(i), kWallPictureSize).save(file, nullptr, 85))
                qFatal("Cannot write to %s", qPrintable(folder.path()));
        }
        return true;
    }();
    Q_UNUSED(made)
    return QUrl::fromLocalFile(folder.path() + QLatin1Char('/'));
}

// Microseconds of the GUI thread for a frame of a scrolling wall of 2,000 pictures, each of which
// is a \a picture with a source relative to the wall's folder.
double timeToScroll(Stage &stage, const QByteArray &imports, const QByteArray &picture)
{
    const Stage::Enlarged enlarged(stage, kWallWindow);
    const auto component = stage.compile(
        "import QtQuick 2.15; " + imports
        + "\nGridView { property url folder; anchors.fill: parent; cellWidth: 104; cellHeight: 104;"
          "cacheBuffer: 208; model: 2000; delegate: Item { width: 104; height: 104;"
        + picture + "} }");
    QQuickItem parent(stage.window().contentItem());
    parent.setSize(kWallWindow);
    const std::unique_ptr<QObject> wall(stage.create(*component, &parent));
    wall->setProperty("folder", wallFolder());
    stage.settle();

    const AllProcessors all; // for those that decode
    double time = 0;
    for (int frame = 1; frame <= kWallFrames; ++frame)
        time += stage.untilFrame([&] { wall->setProperty("contentY", frame * kWallStep); },
                                 &QQuickWindow::afterRendering);
    return time / kWallFrames;
}

} // namespace

Rows thumbnailRows()
{
    qmlRegisterType<ta::ui::Thumbnail>("Bench", 1, 0, "Thumbnail");
    const auto shows = [](const QByteArray &qml) {
        return [qml](Stage &stage) { return timeToShow(stage, qml); };
    };
    const auto scrolls = [](const QByteArray &imports, const QByteArray &picture) {
        return [=](Stage &stage) { return timeToScroll(stage, imports, picture); };
    };
    const QByteArray source = "source: parent.GridView.view.folder + (index % 40 + '.jpg')";
    return {
        { "show 60 pictures of 12 megapixels", "ms", 0.56,
          shows("import QtQuick 2.15; import Bench 1.0; Thumbnail { width: 96; height: 96 }"),
          shows("import QtQuick 2.15; Image { width: 96; height: 96; asynchronous: true;"
                "fillMode: Image.PreserveAspectFit; sourceSize: Qt.size(96, 96) }") },
        { "scroll a wall of 2,000 pictures, a frame", "µs", 1.0,
          scrolls("import Bench 1.0", "Thumbnail { width: 96; height: 96;" + source + "}"),
          scrolls("", "Image { width: 96; height: 96; asynchronous: true; fillMode:"
                      "Image.PreserveAspectFit; sourceSize: Qt.size(96, 96);"
                          + source + "}") },
    };
}

} // namespace bench
