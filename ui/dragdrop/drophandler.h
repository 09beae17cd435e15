#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>
#include <QtCore/QVariant>

#include <memory>

class QMimeData;

namespace ta::ui {

class DropHandlerPrivate;

/*!
    One kind of thing that a DropZone takes: it says which drags it accepts, and makes of the
    dropped data the value that QML gets.

    QML: \c UiDropHandler, which cannot be created there; its kinds can.
*/
class TAMBERUI_EXPORT DropHandler : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)

public:
    explicit DropHandler(QObject *parent = nullptr);
    ~DropHandler() override;

    /// Whether drags that enter are offered to the handler; one that is over the zone already stays
    /// with it. True by default.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// Whether the handler can take a drag of \a data. Asked once, when the drag enters.
    virtual bool acceptsMimeData(const QMimeData *data) const = 0;

    /// The value of \a data, which the handler has accepted before. An invalid one is dropped, too.
    virtual QVariant extractMimeData(const QMimeData *data) const = 0;

Q_SIGNALS:
    /// Something was dropped: its value, and the keys that were held.
    void drop(QVariant data, Qt::KeyboardModifiers modifiers);
    void enabledChanged();

private:
    friend class DropHandlerPrivate;
    const std::unique_ptr<DropHandlerPrivate> d;
};

} // namespace ta::ui
