#pragma once

#include "mimedata.h"

#include <QtCore/QPointF>

#include <memory>

namespace ta::ui {

class DragZone;
class DragZoneAttachedObject;
class DragZoneAttachedObjectPrivate;

/*!
    What the root of a drag delegate knows of the drag, and what the drag asks of it.

    QML reaches it as \c UiDragZone on the root object of the delegate:
    \code
    Component {
        Rectangle {
            UiDragZone.hotspot: Qt.point(width / 2, height / 2)
            color: UiDragZone.modifiers & Qt.ControlModifier ? "green" : "grey"
        }
    }
    \endcode
*/
class TAMBERUI_EXPORT DragZoneAttachedObject : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ta::ui::DragZone *zone READ zone CONSTANT)
    Q_PROPERTY(QPointF hotspot READ hotspot WRITE setHotspot NOTIFY hotspotChanged)
    Q_PROPERTY(Qt::KeyboardModifiers modifiers READ modifiers NOTIFY modifiersChanged)
    Q_PROPERTY(ta::ui::MimeData *mimeData READ mimeData CONSTANT)

public:
    explicit DragZoneAttachedObject(QObject *parent = nullptr);
    ~DragZoneAttachedObject() override;

    /// The zone that the drag started in; null once it is destroyed, and on any object but the
    /// root of a drag item.
    DragZone *zone() const;
    void setZone(DragZone *zone);

    /// The point of the drag item that is under the pointer, in the item's coordinates. (0, 0) by
    /// default.
    QPointF hotspot() const;
    void setHotspot(const QPointF &hotspot);

    /// The modifier keys that are held, as of the last time that the pointer moved over the source
    /// window.
    Qt::KeyboardModifiers modifiers() const;
    void setModifiers(Qt::KeyboardModifiers modifiers);

    /// What is dragged; null once it is destroyed.
    MimeData *mimeData() const;
    void setMimeData(MimeData *mimeData);

Q_SIGNALS:
    void hotspotChanged();
    void modifiersChanged();

private:
    friend class DragZoneAttachedObjectPrivate;
    const std::unique_ptr<DragZoneAttachedObjectPrivate> d;
};

} // namespace ta::ui
