#pragma once

#include "drophandler.h"

#include <QtQml/QQmlListProperty>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class DropZonePrivate;

/*!
    An area that takes what is dropped on it, from this application and from others.

    It asks its handlers in their order. The first enabled one that accepts a drag becomes the
    active handler, and stays it until the drag leaves or drops; what nobody accepts goes on to the
    items behind the zone. Handlers are its default property: they are declared inside.

    A drag also leaves when the active handler is destroyed or the zone goes to another window.

    A signal of the zone may destroy anything but, in C++, the zone itself and what it lies in: Qt
    Quick goes on with the items of the window after it has told one of them of a drag. They go by
    deleteLater(), as they do by QML's destroy().

    QML: \c UiDropZone.
*/
class TAMBERUI_EXPORT DropZone : public QQuickItem
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "dropHandlers")

    Q_PROPERTY(bool containsDrag READ containsDrag NOTIFY containsDragChanged)
    Q_PROPERTY(double dragX READ dragX NOTIFY dragXChanged)
    Q_PROPERTY(double dragY READ dragY NOTIFY dragYChanged)
    Q_PROPERTY(QObject *dragSource READ dragSource NOTIFY dragSourceChanged)
    Q_PROPERTY(QQmlListProperty<ta::ui::DropHandler> dropHandlers READ dropHandlers NOTIFY
                   dropHandlersChanged)
    Q_PROPERTY(ta::ui::DropHandler *activeDropHandler READ activeDropHandler NOTIFY
                   activeDropHandlerChanged)

public:
    explicit DropZone(QQuickItem *parent = nullptr);
    ~DropZone() override;

    /// Whether a drag that a handler accepted is over the zone.
    bool containsDrag() const;

    /// Where that drag is, in logical pixels of the zone; 0 while there is none.
    double dragX() const;
    double dragY() const;

    /// Where that drag comes from, if from this application: the source of its QDrag, for instance
    /// a DragZone. Null otherwise, and while there is no drag.
    QObject *dragSource() const;

    /// The handlers, the most important one first. Not owned; one that is destroyed keeps its place
    /// and reads as null. A change does not touch the drag that is over the zone.
    QQmlListProperty<DropHandler> dropHandlers();

    /// The handler that accepted the drag over the zone, or null.
    DropHandler *activeDropHandler() const;

Q_SIGNALS:
    void containsDragChanged();
    void dragXChanged();
    void dragYChanged();
    void dragSourceChanged();
    void dropHandlersChanged();
    void activeDropHandlerChanged();
    /// Something was dropped: the value that the active handler made of it, and the keys that were
    /// held. The handler's own signal follows.
    void drop(QVariant data, Qt::KeyboardModifiers modifiers);
    void dragEnter();
    /// The drag has left without a drop.
    void dragExit();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    friend class DropZonePrivate;
    const std::unique_ptr<DropZonePrivate> d;
};

} // namespace ta::ui
