#include "mimedrophandler.h"

#include "foundation/assign.h"

#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMimeData>
#include <QtCore/QMimeDatabase>
#include <QtCore/QRegExp>
#include <QtCore/QUrl>

#include <algorithm>

namespace ta::ui {

namespace {

bool matchesName(const QString &name, const QString &pattern)
{
    return name == pattern
           || QRegExp(pattern, Qt::CaseInsensitive, QRegExp::Wildcard).exactMatch(name);
}

// Tells the files of the accepted types from the others. The files of one drag are mostly of a few
// types, each of which is matched once.
class FileFilter
{
public:
    FileFilter(const QStringList &accepted, const QMimeDatabase &database)
        : m_accepted(accepted), m_database(database)
    {
    }

    bool passes(const QUrl &url)
    {
        if (!url.isLocalFile())
            return false;
        const QFileInfo file(url.toLocalFile());
        // Asked last: it takes the system another call, which all the files of other types save.
        return isAccepted(file) && file.exists();
    }

private:
    bool isAccepted(const QFileInfo &file)
    {
        if (m_accepted.isEmpty())
            return true;
        const QMimeType type = m_database.mimeTypeForFile(file, QMimeDatabase::MatchDefault);
        auto known = m_known.find(type.name());
        if (known == m_known.end())
            known = m_known.insert(type.name(), matches(type));
        return known.value();
    }

    bool matches(const QMimeType &type) const
    {
        return std::any_of(m_accepted.begin(), m_accepted.end(), [&](const QString &pattern) {
            return _ta_matchesMimeString(type, pattern);
        });
    }

    const QStringList m_accepted;
    const QMimeDatabase &m_database;
    QHash<QString, bool> m_known;
};

} // namespace

class MimeDropHandlerPrivate
{
public:
    explicit MimeDropHandlerPrivate(MimeDropHandler *q) : q(q) {}

    bool acceptsFormat(const QString &format) const
    {
        return std::any_of(acceptedMimeTypes.begin(), acceptedMimeTypes.end(),
                           [&](const QString &pattern) { return matchesName(format, pattern); });
    }

    MimeDropHandler *const q;
    QStringList acceptedMimeTypes;
    QMimeDatabase mimeDatabase;
    QString matchedFormat; // what the last drag was accepted for; empty where it was for its files
};

bool _ta_matchesMimeString(const QMimeType &type, const QString &pattern)
{
    return matchesName(type.name(), pattern);
}

MimeDropHandler::MimeDropHandler(QObject *parent)
    : DropHandler(parent), d(std::make_unique<MimeDropHandlerPrivate>(this))
{
}

MimeDropHandler::~MimeDropHandler() = default;

QStringList MimeDropHandler::acceptedMimeTypes() const
{
    return d->acceptedMimeTypes;
}

void MimeDropHandler::setAcceptedMimeTypes(const QStringList &types)
{
    if (assign(d->acceptedMimeTypes, types))
        Q_EMIT acceptedMimeTypesChanged();
}

bool MimeDropHandler::acceptsMimeData(const QMimeData *data) const
{
    d->matchedFormat.clear();
    if (data->hasUrls()) {
        if (d->acceptedMimeTypes.isEmpty())
            return true;
        // Looking into files takes its time: it ends with the first one that passes.
        FileFilter filter(d->acceptedMimeTypes, d->mimeDatabase);
        const QList<QUrl> urls = data->urls();
        return std::any_of(urls.begin(), urls.end(),
                           [&](const QUrl &url) { return filter.passes(url); });
    }
    const QStringList formats = data->formats();
    const auto match = std::find_if(formats.begin(), formats.end(), [this](const QString &format) {
        return d->acceptsFormat(format);
    });
    if (match == formats.end())
        return false;
    d->matchedFormat = *match;
    return true;
}

QVariant MimeDropHandler::extractMimeData(const QMimeData *data) const
{
    if (!data->hasUrls()) {
        if (d->matchedFormat.isEmpty())
            return QVariant();
        return QJsonDocument::fromJson(data->data(d->matchedFormat)).object();
    }
    QVariantList passed;
    FileFilter filter(d->acceptedMimeTypes, d->mimeDatabase);
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (filter.passes(url))
            passed.append(url);
    }
    return passed;
}

} // namespace ta::ui
