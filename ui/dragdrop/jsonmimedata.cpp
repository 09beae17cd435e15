#include "jsonmimedata.h"

#include "foundation/assign.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QMimeData>

namespace ta::ui {

class JsonMimeDataPrivate
{
public:
    explicit JsonMimeDataPrivate(JsonMimeData *q) : q(q) {}

    JsonMimeData *const q;
    QString mimeType;
    QJsonObject value;
};

JsonMimeData::JsonMimeData(QObject *parent)
    : MimeData(parent), d(std::make_unique<JsonMimeDataPrivate>(this))
{
}

JsonMimeData::~JsonMimeData() = default;

QString JsonMimeData::mimeType() const
{
    return d->mimeType;
}

void JsonMimeData::setMimeType(const QString &type)
{
    if (assign(d->mimeType, type))
        Q_EMIT mimeTypeChanged();
}

QJsonObject JsonMimeData::value() const
{
    return d->value;
}

void JsonMimeData::setValue(const QJsonObject &value)
{
    if (assign(d->value, value))
        Q_EMIT valueChanged();
}

QMimeData *JsonMimeData::createMimeData() const
{
    auto data = std::make_unique<QMimeData>();
    data->setData(d->mimeType, QJsonDocument(d->value).toJson());
    return data.release();
}

bool JsonMimeData::isValid() const
{
    return !d->mimeType.isEmpty() && !d->value.isEmpty();
}

} // namespace ta::ui
