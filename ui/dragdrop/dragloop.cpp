#include "dragloop_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtGui/QDrag>

namespace ta::ui {

DragLoop::DragLoop(QObject *source) : m_drag(new QDrag(source)) {}

DragLoop::~DragLoop()
{
    if (m_drag)
        m_drag->deleteLater();
}

void DragLoop::setPayload(std::unique_ptr<QMimeData> payload)
{
    if (m_drag)
        m_drag->setMimeData(payload.release());
}

void DragLoop::endWith(const QObject *object)
{
    if (object)
        QObject::connect(object, &QObject::destroyed, &m_context, [this] { cancel(); });
}

void DragLoop::exec()
{
    if (!m_drag || m_cancelled)
        return;
    const Qt::DropAction action = m_drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction,
                                               Qt::MoveAction);
    // A target in another process asks for the payload only now. The platform deletes the drag once
    // it has been told that the target is done, and the source may be gone before that.
    if (m_drag && action != Qt::IgnoreAction) {
        m_drag->setParent(QCoreApplication::instance());
        m_drag.clear();
    }
}

// Not at once: in the middle of a move the platform would set its cursor once more afterwards, and
// before its loop runs it would not hear of it.
void DragLoop::cancel()
{
    m_cancelled = true;
    QMetaObject::invokeMethod(
        &m_context, [] { QDrag::cancel(); }, Qt::QueuedConnection);
}

void DragLoop::abandon()
{
    if (m_drag)
        m_drag->setParent(nullptr);
    cancel();
}

} // namespace ta::ui
