#pragma once

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <functional>
#include <memory>

namespace bench {

/// Microseconds that the calling thread has had a processor so far. Unlike the wall clock it does
/// not count what other processes do meanwhile.
double threadTime();

/// Keeps the process on the processor that it is on: moving to another one in the middle of a
/// measurement costs it the caches.
void stayOnOneProcessor();

/// Lets all threads of the process use all processors that it was started with, as long as it
/// lives.
class AllProcessors
{
public:
    AllProcessors();
    ~AllProcessors();
};

/*!
    The engine and the shown window that all measurements share.

    Rendering is made to happen at once and on the calling thread, so that the time to a frame is
    the work that it takes: no wait for the screen, no pause before an update, no second thread.
*/
class Stage
{
public:
    /// Sets what has to be set before there is an application object.
    static void prepare();

    Stage();

    QQmlEngine &engine() { return m_engine; }
    QQuickWindow &window() { return m_window; }
    QString renderer() const { return m_renderer; }

    /// Ends the program with the component's errors where it has any.
    std::unique_ptr<QQmlComponent> compile(const QByteArray &qml);

    /// An object of \a component in \a parent, as if it had been declared there.
    QObject *create(QQmlComponent &component, QQuickItem *parent);

    /// Returns when everything that was going on has come to an end.
    void settle();

    using EndOfFrame = void (QQuickWindow::*)();
    /// Time of this thread from the call of \a action to the end of the first frame after it, or to
    /// an earlier signal of that frame. It never sleeps in between, so a pause before the frame
    /// counts.
    double untilFrame(const std::function<void()> &action,
                      EndOfFrame last = &QQuickWindow::frameSwapped);

    /// The colour of the window at \a position in the frame that is being rendered; for use in
    /// handlers of QQuickWindow::afterRendering.
    QColor pixel(QPoint position) const;

    /// For its lifetime the window has another size.
    class Enlarged
    {
    public:
        Enlarged(Stage &stage, const QSize &size);
        ~Enlarged();
        Q_DISABLE_COPY_MOVE(Enlarged)

    private:
        Stage &m_stage;
    };

private:
    void resize(const QSize &size);

    QQmlEngine m_engine;
    QQuickWindow m_window;
    QString m_renderer;
};

} // namespace bench
