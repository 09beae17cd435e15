#pragma once

#include "drophandler.h"

#include <QtCore/QStringList>

class QMimeType;

namespace ta::ui {

class MimeDropHandlerPrivate;

/*!
    Takes typed JSON objects and local files, by their MIME types.

    A drag without URLs is accepted for the first of its formats that matches, and drops the JSON
    object that this format holds; an empty one where it holds none. A drag with URLs is accepted
    when one of them is a local file of a type that matches, and drops the list of those that are.
    Remote URLs and files that do not exist are left out.

    QML: \c UiMimeDropHandler.
*/
class TAMBERUI_EXPORT MimeDropHandler : public DropHandler
{
    Q_OBJECT
    Q_PROPERTY(QStringList acceptedMimeTypes READ acceptedMimeTypes WRITE setAcceptedMimeTypes
                   NOTIFY acceptedMimeTypesChanged)

public:
    explicit MimeDropHandler(QObject *parent = nullptr);
    ~MimeDropHandler() override;

    /// Names of types, or patterns of them with the wildcards ?, * and [...], for instance
    /// "image/*". Case does not matter; neither aliases nor parents of a file's type count. Empty
    /// by default: every existing local file passes, and nothing without URLs.
    QStringList acceptedMimeTypes() const;
    void setAcceptedMimeTypes(const QStringList &types);

    bool acceptsMimeData(const QMimeData *data) const override;
    QVariant extractMimeData(const QMimeData *data) const override;

Q_SIGNALS:
    void acceptedMimeTypesChanged();

private:
    friend class MimeDropHandlerPrivate;
    const std::unique_ptr<MimeDropHandlerPrivate> d;
};

/// Whether the name of \a type is \a pattern or matches it as a whole, as an entry of
/// MimeDropHandler::acceptedMimeTypes does.
TAMBERUI_EXPORT bool _ta_matchesMimeString(const QMimeType &type, const QString &pattern);

} // namespace ta::ui
