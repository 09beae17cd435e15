#include "screenshots.h"

#include "pages.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickView>

namespace {

constexpr int kPatience = 10000; // ms until a frame must have been shown
constexpr int kSettlingTime = 400; // ms until what fades in on a new page is there

bool waitForFrame(QQuickWindow *window)
{
    QEventLoop loop;
    QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    QTimer::singleShot(kPatience, &loop, [&loop] { loop.exit(1); });
    window->update();
    return loop.exec() == 0;
}

// Waits for the next frame of the window and writes it.
bool takePicture(QQuickWindow *window, const QString &name, const QDir &folder)
{
    if (!waitForFrame(window)) {
        qWarning("gallery: %s was not rendered", qUtf8Printable(name));
        return false;
    }
    // What the page has asked for in the background arrives with the frame after it is done.
    QThreadPool::globalInstance()->waitForDone(kPatience);
    QEventLoop loop;
    QTimer::singleShot(kSettlingTime, &loop, &QEventLoop::quit);
    loop.exec();
    if (!waitForFrame(window))
        return false;
    const QImage picture = window->grabWindow();
    const qreal scale = window->effectiveDevicePixelRatio();
    const QString suffix = qFuzzyCompare(scale, 1.0)
                               ? QString()
                               : QLatin1Char('@') + QString::number(scale) + QLatin1Char('x');
    const QString path = folder.filePath(name + suffix + QLatin1String(".png"));
    if (picture.isNull() || !picture.save(path)) {
        qWarning("gallery: cannot write %s", qUtf8Printable(path));
        return false;
    }
    return true;
}

bool makeFolder(const QString &folder)
{
    if (QDir().mkpath(folder))
        return true;
    qWarning("gallery: cannot make the folder %s", qUtf8Printable(folder));
    return false;
}

} // namespace

bool takeScreenshots(QQuickWindow *window, const QString &folder)
{
    if (!makeFolder(folder))
        return false;
    // What happens to lie under the pointer is to look like the rest.
    window->setFlag(Qt::WindowTransparentForInput);
    bool complete = true;
    const QStringList names = pages::names();
    for (const QString &name : names) {
        window->setProperty("currentPage", name);
        complete = takePicture(window, name, QDir(folder)) && complete;
    }
    return complete;
}

bool takeContactSheets(QQmlEngine *engine, const QString &folder)
{
    if (!makeFolder(folder))
        return false;
    bool complete = true;
    for (int size : { 16, 24, 32 }) {
        for (const char *look : { "light", "dark", "disabled", "highlighted" }) {
            QQuickView view(engine, nullptr);
            view.setInitialProperties({ { QStringLiteral("size"), size },
                                        { QStringLiteral("look"), QLatin1String(look) } });
            view.setSource(QUrl(QStringLiteral("qrc:/gallery/ContactSheet.qml")));
            view.show();
            const QString name = QStringLiteral("icons-%1-%2").arg(size).arg(QLatin1String(look));
            complete = takePicture(&view, name, QDir(folder)) && complete;
        }
    }
    return complete;
}
