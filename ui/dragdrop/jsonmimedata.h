#pragma once

#include "mimedata.h"

#include <QtCore/QJsonObject>

#include <memory>

namespace ta::ui {

class JsonMimeDataPrivate;

/*!
    A JSON object that travels under a MIME type of its author's choice.

    The drag carries that one format, and in it the indented text of the object. What JSON cannot
    say arrives as JSON says it: infinities and NaN as null, and an object that is nested deeper
    than Qt reads (1,024 levels) as an empty one.

    QML: \c UiJsonMimeData.
*/
class TAMBERUI_EXPORT JsonMimeData : public MimeData
{
    Q_OBJECT
    Q_PROPERTY(QString mimeType READ mimeType WRITE setMimeType NOTIFY mimeTypeChanged)
    Q_PROPERTY(QJsonObject value READ value WRITE setValue NOTIFY valueChanged)

public:
    explicit JsonMimeData(QObject *parent = nullptr);
    ~JsonMimeData() override;

    /// The name of the format, for instance "application/x-card". Empty by default.
    QString mimeType() const;
    void setMimeType(const QString &type);

    /// The payload. Empty by default.
    QJsonObject value() const;
    void setValue(const QJsonObject &value);

    QMimeData *createMimeData() const override;

    /// Whether there are both a type and at least one key.
    bool isValid() const override;

Q_SIGNALS:
    void mimeTypeChanged();
    void valueChanged();

private:
    friend class JsonMimeDataPrivate;
    const std::unique_ptr<JsonMimeDataPrivate> d;
};

} // namespace ta::ui
