#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>

class QDrag;
class QMimeData;

namespace ta::ui {

/*!
    One drag of the platform, with its nested event loop. It lives on the stack and outlives its
    source where that is destroyed inside the loop.
*/
class DragLoop
{
public:
    explicit DragLoop(QObject *source);
    ~DragLoop();
    Q_DISABLE_COPY_MOVE(DragLoop)

    void setPayload(std::unique_ptr<QMimeData> payload);

    /// The drag is cancelled once \a object, which may be null, is destroyed.
    void endWith(const QObject *object);

    /// Returns when the drag is over.
    void exec();

    /// Ends the drag without a drop as soon as the events in progress are over, or before it
    /// begins.
    void cancel();
    bool isCancelled() const { return m_cancelled; }

    /// The source is about to be destroyed: cancels the drag, which is nobody's from now on.
    void abandon();

private:
    QPointer<QDrag> m_drag;
    QObject m_context; // what it has been told to do goes with the loop
    bool m_cancelled = false;
};

} // namespace ta::ui
