#include "screenshots.h"

#include "pages.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickWindow>

namespace {

constexpr int kPatience = 10000; // ms until a frame must have been shown

bool waitForFrame(QQuickWindow *window)
{
    QEventLoop loop;
    QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop] { loop.exit(0); });
    QTimer::singleShot(kPatience, &loop, [&loop] { loop.exit(1); });
    window->update();
    return loop.exec() == 0;
}

bool takeScreenshot(QQuickWindow *window, const QString &page, const QDir &folder)
{
    window->setProperty("currentPage", page);
    if (!waitForFrame(window)) {
        qWarning("gallery: the page %s was not rendered", qUtf8Printable(page));
        return false;
    }
    // What the page has asked for in the background arrives with the frame after it is done.
    QThreadPool::globalInstance()->waitForDone(kPatience);
    if (!waitForFrame(window))
        return false;
    const QImage picture = window->grabWindow();
    const qreal scale = window->effectiveDevicePixelRatio();
    const QString suffix = qFuzzyCompare(scale, 1.0)
                               ? QString()
                               : QLatin1Char('@') + QString::number(scale) + QLatin1Char('x');
    const QString path = folder.filePath(page + suffix + QLatin1String(".png"));
    if (picture.isNull() || !picture.save(path)) {
        qWarning("gallery: cannot write %s", qUtf8Printable(path));
        return false;
    }
    return true;
}

} // namespace

bool takeScreenshots(QQuickWindow *window, const QString &folder)
{
    if (!QDir().mkpath(folder)) {
        qWarning("gallery: cannot make the folder %s", qUtf8Printable(folder));
        return false;
    }
    bool complete = true;
    const QStringList names = pages::names();
    for (const QString &name : names)
        complete = takeScreenshot(window, name, QDir(folder)) && complete;
    return complete;
}
