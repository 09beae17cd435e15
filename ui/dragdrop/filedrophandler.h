#pragma once

#include "drophandler.h"

#include <QtCore/QStringList>

namespace ta::ui {

class FileDropHandlerPrivate;

/*!
    Takes files and links by the ends of their names.

    It accepts a drag when at least one of its URLs matches, and drops those that do, in their
    order, as a list of URLs. Nothing has to be a local file, or to exist.

    QML: \c UiFileDropHandler.
*/
class TAMBERUI_EXPORT FileDropHandler : public DropHandler
{
    Q_OBJECT
    Q_PROPERTY(QStringList suffixes READ suffixes WRITE setSuffixes NOTIFY suffixesChanged)

public:
    explicit FileDropHandler(QObject *parent = nullptr);
    ~FileDropHandler() override;

    /// What may follow the last dot of a file's name, without the dot; kept in lower case, since
    /// case does not matter. A name without a dot counts as a suffix as a whole. Empty by default:
    /// every URL matches.
    QStringList suffixes() const;
    void setSuffixes(const QStringList &suffixes);

    bool acceptsMimeData(const QMimeData *data) const override;
    QVariant extractMimeData(const QMimeData *data) const override;

Q_SIGNALS:
    void suffixesChanged();

private:
    friend class FileDropHandlerPrivate;
    const std::unique_ptr<FileDropHandlerPrivate> d;
};

} // namespace ta::ui
