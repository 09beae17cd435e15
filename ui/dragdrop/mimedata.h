#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>

class QMimeData;

namespace ta::ui {

/*!
    What a drag carries, as its source describes it.

    QML: \c UiMimeData, which cannot be created there: it is the type of the properties that hold
    one of its kinds.
*/
class TAMBERUI_EXPORT MimeData : public QObject
{
    Q_OBJECT

public:
    explicit MimeData(QObject *parent = nullptr);
    ~MimeData() override;

    /// The payload as the platform carries it, made anew by each call. The caller owns it.
    virtual QMimeData *createMimeData() const = 0;

    /// Whether there is enough to be dragged; no drag starts while it is false.
    virtual bool isValid() const = 0;
};

} // namespace ta::ui
