#include "filedrophandler.h"

#include "foundation/assign.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>

#include <algorithm>

namespace ta::ui {

class FileDropHandlerPrivate
{
public:
    explicit FileDropHandlerPrivate(FileDropHandler *q) : q(q) {}

    QString suffix(const QUrl &url) const
    {
        const QString name = url.fileName(QUrl::FullyDecoded);
        return name.mid(name.lastIndexOf(QLatin1Char('.')) + 1).toLower();
    }

    bool matches(const QUrl &url) const
    {
        return suffixes.isEmpty() || suffixes.contains(suffix(url));
    }

    FileDropHandler *const q;
    QStringList suffixes; // in lower case
};

FileDropHandler::FileDropHandler(QObject *parent)
    : DropHandler(parent), d(std::make_unique<FileDropHandlerPrivate>(this))
{
}

FileDropHandler::~FileDropHandler() = default;

QStringList FileDropHandler::suffixes() const
{
    return d->suffixes;
}

void FileDropHandler::setSuffixes(const QStringList &suffixes)
{
    QStringList lowered;
    lowered.reserve(suffixes.count());
    for (const QString &suffix : suffixes)
        lowered.append(suffix.toLower());
    if (assign(d->suffixes, lowered))
        Q_EMIT suffixesChanged();
}

bool FileDropHandler::acceptsMimeData(const QMimeData *data) const
{
    if (!data->hasUrls())
        return false;
    if (d->suffixes.isEmpty())
        return true;
    const QList<QUrl> urls = data->urls();
    return std::any_of(urls.begin(), urls.end(),
                       [this](const QUrl &url) { return d->matches(url); });
}

QVariant FileDropHandler::extractMimeData(const QMimeData *data) const
{
    QList<QUrl> urls = data->urls();
    const auto misfits = std::remove_if(urls.begin(), urls.end(),
                                        [this](const QUrl &url) { return !d->matches(url); });
    urls.erase(misfits, urls.end());
    return QVariant::fromValue(urls);
}

} // namespace ta::ui
