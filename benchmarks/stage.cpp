#include "stage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtGui/QSurfaceFormat>
#include <QtQuick/QQuickItem>

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <sched.h>

namespace bench {

namespace {

constexpr int kQuiet = 2; // ms without a frame after which none is expected any more
constexpr int kTimeout = 10000; // ms
constexpr QSize kSize(220, 320); // little more than a popup: the rest costs both sides the same

// Outside of exec() nothing else deletes what is to be deleted later.
void processEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The processors that the process was started with, and the one it stays on.
cpu_set_t s_allProcessors;
cpu_set_t s_oneProcessor;

void moveThreads(const cpu_set_t &processors)
{
    const QStringList threads = QDir(QStringLiteral("/proc/self/task"))
                                    .entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &thread : threads) {
        // A thread may have ended since.
        if (sched_setaffinity(thread.toInt(), sizeof processors, &processors) != 0
            && errno != ESRCH) {
            std::perror("tamberui-bench: cannot choose the processors");
        }
    }
}

} // namespace

void stayOnOneProcessor()
{
    sched_getaffinity(0, sizeof s_allProcessors, &s_allProcessors);
    CPU_ZERO(&s_oneProcessor);
    CPU_SET(sched_getcpu(), &s_oneProcessor);
    moveThreads(s_oneProcessor);
}

AllProcessors::AllProcessors()
{
    moveThreads(s_allProcessors);
}

AllProcessors::~AllProcessors()
{
    moveThreads(s_oneProcessor);
}

double threadTime()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1e6 + now.tv_nsec / 1e3;
}

void Stage::prepare()
{
    qputenv("QSG_RENDER_LOOP", "basic"); // render on the GUI thread
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0"); // or each frame waits for 5 ms before it begins
    qputenv("vblank_mode", "0"); // Mesa; the swap interval below is a wish only
    qputenv("LP_NUM_THREADS", "0"); // software rendering takes place on the calling thread

    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setSwapInterval(0);
    QSurfaceFormat::setDefaultFormat(format);
}

Stage::Stage()
{
    m_engine.addImportPath(QStringLiteral(TAMBERUI_QML_DIR));
    m_window.resize(kSize);
    m_window.show();
    QElapsedTimer timer;
    timer.start();
    while (!m_window.isExposed() && timer.elapsed() < kTimeout)
        processEvents();
    untilFrame([this] { m_window.update(); });

    QOpenGLContext *context = m_window.openglContext();
    if (!context || !context->makeCurrent(&m_window))
        qFatal("There is no OpenGL to render with");
    const GLubyte *name = context->functions()->glGetString(GL_RENDERER);
    m_renderer = QString::fromLatin1(reinterpret_cast<const char *>(name));
}

std::unique_ptr<QQmlComponent> Stage::compile(const QByteArray &qml)
{
    auto component = std::make_unique<QQmlComponent>(&m_engine);
    component->setData(qml, QUrl());
    if (!component->isReady())
        qFatal("%s", qPrintable(component->errorString()));
    return component;
}

QObject *Stage::create(QQmlComponent &component, QQuickItem *parent)
{
    QObject *object = component.beginCreate(m_engine.rootContext());
    if (!object)
        qFatal("%s", qPrintable(component.errorString()));
    object->setParent(parent);
    if (auto *item = qobject_cast<QQuickItem *>(object))
        item->setParentItem(parent);
    component.completeCreate();
    return object;
}

void Stage::settle()
{
    QElapsedTimer quiet;
    quiet.start();
    const auto connection = QObject::connect(&m_window, &QQuickWindow::frameSwapped,
                                             [&quiet] { quiet.restart(); });
    while (quiet.elapsed() < kQuiet)
        processEvents();
    QObject::disconnect(connection);
    m_engine.collectGarbage();
}

double Stage::untilFrame(const std::function<void()> &action, EndOfFrame last)
{
    double end = 0;
    const auto connection = QObject::connect(&m_window, last, [&end] {
        if (end == 0)
            end = threadTime();
    });
    QElapsedTimer timer;
    timer.start();
    const double begin = threadTime();
    action();
    while (end == 0) {
        processEvents();
        if (end == 0 && timer.elapsed() > kTimeout)
            qFatal("The window does not render");
    }
    QObject::disconnect(connection);
    return end - begin;
}

Stage::Enlarged::Enlarged(Stage &stage, const QSize &size) : m_stage(stage)
{
    m_stage.resize(size);
}

Stage::Enlarged::~Enlarged()
{
    m_stage.resize(kSize);
}

void Stage::resize(const QSize &size)
{
    m_window.resize(size);
    settle();
    untilFrame([this] { m_window.update(); });
    if (m_window.size() != size)
        qFatal("The window manager does not let the window have %d x %d pixels", size.width(),
               size.height());
}

QColor Stage::pixel(QPoint position) const
{
    const QPointF fromBottom(position.x(), m_window.height() - 1 - position.y());
    const QPoint texel = (fromBottom * m_window.effectiveDevicePixelRatio()).toPoint();
    GLubyte rgba[4] = {};
    QOpenGLContext::currentContext()->functions()->glReadPixels(texel.x(), texel.y(), 1, 1, GL_RGBA,
                                                                GL_UNSIGNED_BYTE, rgba);
    return QColor(rgba[0], rgba[1], rgba[2]);
}

} // namespace bench
