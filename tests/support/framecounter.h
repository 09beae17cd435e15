#pragma once

#include <QtQuick/QQuickWindow>

#include <atomic>
#include <memory>

namespace ta::test {

/// Counts the frames that a window shows from now on. A threaded render loop tells of them on its
/// own thread, which is no place for a signal spy.
class FrameCounter
{
public:
    explicit FrameCounter(QQuickWindow *window)
        : m_connection(QObject::connect(
            window, &QQuickWindow::frameSwapped, window, [count = m_count] { ++*count; },
            Qt::DirectConnection))
    {
    }
    ~FrameCounter() { QObject::disconnect(m_connection); }
    Q_DISABLE_COPY(FrameCounter)

    int count() const { return *m_count; }

private:
    // Shared with the connection, which may be in use while it is cut.
    const std::shared_ptr<std::atomic_int> m_count = std::make_shared<std::atomic_int>(0);
    const QMetaObject::Connection m_connection;
};

} // namespace ta::test
