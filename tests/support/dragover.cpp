#include "support/dragover.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QDropEvent>

namespace ta::test {

constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

bool DragOver::enter(const QPoint &position)
{
    QDragEnterEvent event(position, kActions, &m_data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_receiver, &event);
    return event.isAccepted();
}

bool DragOver::move(const QPoint &position)
{
    QDragMoveEvent event(position, kActions, &m_data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_receiver, &event);
    return event.isAccepted();
}

void DragOver::leave()
{
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(m_receiver, &event);
}

void DragOver::drop(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    QDropEvent event(position, kActions, &m_data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(m_receiver, &event);
}

} // namespace ta::test
