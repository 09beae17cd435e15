#include "measures.h"
#include "rows.h"
#include "stage.h"

#include <TamberUi/DropZone>
#include <TamberUi/MimeDropHandler>

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QMimeDatabase>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtQml/qqml.h>

namespace bench {

namespace {

// A drag of 1,000 text files, with a picture as the last one.
class ManyFiles
{
public:
    ManyFiles()
    {
        for (int number = 0; number < 999; ++number)
            add(QStringLiteral("%1.txt").arg(number));
        add(QStringLiteral("picture.png"));
        m_data.setUrls(m_urls);
    }

    const QMimeData &data() const { return m_data; }

private:
    void add(const QString &name)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("Cannot write %s", qPrintable(file.fileName()));
        m_urls.append(QUrl::fromLocalFile(file.fileName()));
    }

    const QTemporaryDir m_folder;
    QList<QUrl> m_urls;
    QMimeData m_data;
};

// Whether the handler finds the picture, and what that takes.
double timeHandler(const QMimeData &data)
{
    ta::ui::MimeDropHandler handler;
    handler.setAcceptedMimeTypes({ QStringLiteral("image/*"), QStringLiteral("video/*"),
                                   QStringLiteral("application/x-card") });
    const double before = threadTime();
    const bool accepted = handler.acceptsMimeData(&data);
    const double time = threadTime() - before;
    if (!accepted)
        qFatal("The handler did not find the picture");
    return time;
}

// The same with Qt's database of types alone.
double timeDatabase(const QMimeData &data)
{
    const QMimeDatabase database;
    const QString wanted = QStringLiteral("image/png");
    const double before = threadTime();
    bool accepted = false;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls)
        accepted = database.mimeTypeForFile(QFileInfo(url.toLocalFile())).name() == wanted;
    const double time = threadTime() - before;
    if (!accepted)
        qFatal("Qt did not find the picture");
    return time;
}

Measure overManyFiles(double (*measure)(const QMimeData &))
{
    return [measure](Stage &) {
        static const ManyFiles files;
        measure(files.data()); // Qt reads its database, and the system the files
        return measure(files.data());
    };
}

} // namespace

Rows dropRows()
{
    qmlRegisterType<ta::ui::DropZone>("bench.Drops", 1, 0, "UiDropZone");
    const QByteArray ours = "import bench.Drops 1.0; UiDropZone {}";
    const QByteArray theirs = "import QtQuick 2.15; DropArea {}";
    return {
        { "create a drop zone", "µs", 1.0, creationTime(ours), creationTime(theirs) },
        { "heap of a drop zone", "bytes", 1.0, creationHeap(ours), creationHeap(theirs) },
        { "1,000 files enter", "µs", 1.0, overManyFiles(timeHandler), overManyFiles(timeDatabase) },
    };
}

} // namespace bench
