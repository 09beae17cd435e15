#include "dragzoneattachedobject.h"

#include "dragzone.h"

#include "foundation/assign.h"

#include <QtCore/QPointer>

namespace ta::ui {

class DragZoneAttachedObjectPrivate
{
public:
    QPointF hotspot;
    QPointer<DragZone> zone;
    Qt::KeyboardModifiers modifiers;
    QPointer<MimeData> mimeData;
};

DragZoneAttachedObject::DragZoneAttachedObject(QObject *parent)
    : QObject(parent), d(std::make_unique<DragZoneAttachedObjectPrivate>())
{
}

DragZoneAttachedObject::~DragZoneAttachedObject() = default;

DragZone *DragZoneAttachedObject::zone() const
{
    return d->zone;
}

void DragZoneAttachedObject::setZone(DragZone *zone)
{
    d->zone = zone;
}

QPointF DragZoneAttachedObject::hotspot() const
{
    return d->hotspot;
}

void DragZoneAttachedObject::setHotspot(const QPointF &hotspot)
{
    if (assign(d->hotspot, hotspot))
        Q_EMIT hotspotChanged();
}

Qt::KeyboardModifiers DragZoneAttachedObject::modifiers() const
{
    return d->modifiers;
}

void DragZoneAttachedObject::setModifiers(Qt::KeyboardModifiers modifiers)
{
    if (assign(d->modifiers, modifiers))
        Q_EMIT modifiersChanged();
}

MimeData *DragZoneAttachedObject::mimeData() const
{
    return d->mimeData;
}

void DragZoneAttachedObject::setMimeData(MimeData *mimeData)
{
    d->mimeData = mimeData;
}

} // namespace ta::ui
