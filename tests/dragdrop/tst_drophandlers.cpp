#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ImageDropHandler>
#include <TamberUi/MimeDropHandler>
#include <TamberUi/VideoDropHandler>

#include <QtCore/QJsonObject>
#include <QtCore/QMimeData>
#include <QtGui/QImageReader>

#include <sys/stat.h>

using namespace ta::ui;
using namespace ta::test;

namespace {

const QString kCard = QStringLiteral("application/x-card");

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QList<QUrl> toUrls(const QStringList &texts)
{
    QList<QUrl> urls;
    for (const QString &text : texts)
        urls.append(QUrl(text));
    return urls;
}

// The names of the files that a handler made of a drag, or "-" where it refused the drag.
QString dropped(const DropHandler &handler, const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    if (!handler.acceptsMimeData(&data))
        return QStringLiteral("-");
    QStringList result;
    const QVariantList values = handler.extractMimeData(&data).value<QVariantList>();
    for (const QVariant &value : values)
        result.append(value.toUrl().fileName());
    return result.join(QLatin1Char(' '));
}

} // namespace

class tst_DropHandlers : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void suffixes_data();
    void suffixes();
    void suffixesAsStored();
    void builtInSuffixes();
    void patterns_data();
    void patterns();
    void formats();
    void files_data();
    void files();
    void filesAreRead();
    void json_data();
    void json();
};

void tst_DropHandlers::suffixes_data()
{
    QTest::addColumn<QString>("suffixes");
    QTest::addColumn<QString>("urls");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *suffixes, const char *urls, const char *expected) {
        QTest::addRow("%s of %s", suffixes, urls)
            << QString::fromUtf8(suffixes) << QString::fromUtf8(urls)
            << QString::fromUtf8(expected);
    };
    row("PDF", "file:///a/Report.Pdf", "Report.Pdf");
    row("pdf", "file:///a/Report.pdf.txt file:///a/b.PDF file:///a/c", "b.PDF");
    row("pdf", "file:///a/pdf", "pdf"); // a whole name counts where it has no dot
    row("pdf", "file:///a.pdf/b file:///a.pdf/", "-"); // the folder's name does not
    row("gz", "file:///a/archive.tar.gz", "archive.tar.gz");
    row("tar.gz", "file:///a/archive.tar.gz", "-");
    row("png", "https://x.org/a.png?size=2#top file:///gone.png", "a.png gone.png");
    row("p\xc3\x84g", "file:///a.p%C3%A4G", "a.p\xc3\xa4G");
    row("png", "file:///a%2Epng", "a.png");
    row("", "file:///a.b https://x.org/", "a.b "); // no suffixes: everything, nameless ones, too
}

void tst_DropHandlers::suffixes()
{
    QFETCH(QString, suffixes);
    QFETCH(QString, urls);
    FileDropHandler handler;
    handler.setSuffixes(suffixes.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QTEST(dropped(handler, toUrls(words(urls.toUtf8()))), "expected");
}

void tst_DropHandlers::suffixesAsStored()
{
    FileDropHandler handler;
    SignalLog log;
    log.watch(&handler);
    handler.setSuffixes(words("PDF Txt"));
    QCOMPARE(handler.suffixes(), words("pdf txt"));
    handler.setSuffixes(words("pdf TXT"));
    QCOMPARE(log.take(), names({ "suffixesChanged" }));

    // A name that ends in a dot has an empty suffix, which a list may name.
    QCOMPARE(dropped(handler, toUrls(words("file:///a."))), QStringLiteral("-"));
    handler.setSuffixes({ QString() });
    QCOMPARE(dropped(handler, toUrls(words("file:///a. file:///b"))), QStringLiteral("a."));

    // The URLs as they came.
    handler.setSuffixes(words("pdf"));
    const QList<QUrl> urls = toUrls(words("https://x.org/B.PDF?q=1 file:///a.pdf file:///a.pdf"));
    QMimeData data;
    data.setUrls(urls);
    const QVariant value = handler.extractMimeData(&data);
    QCOMPARE(value.userType(), qMetaTypeId<QList<QUrl>>());
    QCOMPARE(value.value<QList<QUrl>>(), urls);

    QMimeData text;
    text.setText(QStringLiteral("file:///a.pdf"));
    handler.setSuffixes({});
    QVERIFY(!handler.acceptsMimeData(&text));
}

void tst_DropHandlers::builtInSuffixes()
{
    ImageDropHandler images;
    QStringList formats;
    const QList<QByteArray> supported = QImageReader::supportedImageFormats();
    for (const QByteArray &format : supported)
        formats.append(QString::fromLatin1(format).toLower());
    QVERIFY(formats.contains(QStringLiteral("png")));
    QCOMPARE(images.suffixes(), formats);
    QVERIFY(!images.setProperty("suffixes", words("txt")));
    QCOMPARE(dropped(images, toUrls(words("file:///a.PNG file:///b.txt file:///c.jpeg"))),
             QStringLiteral("a.PNG c.jpeg"));

    VideoDropHandler videos;
    QCOMPARE(videos.suffixes(), words("avi flv mkv mp4 webm mov"));
    QVERIFY(!videos.setProperty("suffixes", words("txt")));
    QCOMPARE(dropped(videos, toUrls(words("file:///a.mp4 file:///b.txt file:///c.MOV"))),
             QStringLiteral("a.mp4 c.MOV"));
}

void tst_DropHandlers::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char *pattern, const char *name, bool matches) {
        QTest::addRow("%s of %s", pattern, name)
            << QString::fromLatin1(pattern) << QString::fromLatin1(name) << matches;
    };
    row("image/*", "image/png", true);
    row("image/*", "IMAGE/PNG", true);
    row("image/*", "x-image/png", false); // the whole name or nothing
    row("image/?ng", "image/png", true);
    row("image/[a-p]ng", "image/png", true);
    row("image/p.g", "image/png", false);
    row("image/svg+xml", "image/svg+xml", true);
    row("*", "anything", true);
    row("", "anything", false);
    row("[", "[", true); // no valid pattern, but the same text
}

// Of the format of a drag without URLs.
void tst_DropHandlers::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, name);
    MimeDropHandler handler;
    handler.setAcceptedMimeTypes({ pattern });
    QMimeData data;
    data.setData(name, "{}");
    QTEST(handler.acceptsMimeData(&data), "matches");
}

// The first format that matches anything is the one that is read, until the next drag enters.
void tst_DropHandlers::formats()
{
    MimeDropHandler handler;
    SignalLog log;
    log.watch(&handler);
    handler.setAcceptedMimeTypes(words("b/* A/1"));
    handler.setAcceptedMimeTypes(words("b/* A/1"));
    handler.setAcceptedMimeTypes(words("b/* a/1")); // stored as given: another list
    QCOMPARE(log.take(), names({ "acceptedMimeTypesChanged", "acceptedMimeTypesChanged" }));

    QMimeData data;
    data.setData(QStringLiteral("c/1"), R"({"from": "c"})");
    QVERIFY(!handler.acceptsMimeData(&data));
    QVERIFY(!handler.extractMimeData(&data).isValid());
    data.setData(QStringLiteral("a/1"), R"({"from": "a"})");
    data.setData(QStringLiteral("b/1"), R"({"from": "b"})");
    QVERIFY(handler.acceptsMimeData(&data));
    handler.setAcceptedMimeTypes(words("c/1"));
    const QVariant value = handler.extractMimeData(&data);
    QCOMPARE(value.userType(), int(QMetaType::QJsonObject));
    QCOMPARE(value.toJsonObject(),
             QJsonObject({ { QStringLiteral("from"), QStringLiteral("a") } }));

    QMimeData other;
    other.setText(QStringLiteral("text"));
    QVERIFY(!handler.acceptsMimeData(&other));
    QVERIFY(!handler.extractMimeData(&data).isValid()); // nothing is left of the drag before

    handler.setAcceptedMimeTypes({});
    QVERIFY(!handler.acceptsMimeData(&data));
}

void tst_DropHandlers::files_data()
{
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("files");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *types, const char *files, const char *expected) {
        QTest::addRow("%s of %s", types, files)
            << QString::fromLatin1(types) << QString::fromLatin1(files)
            << QString::fromLatin1(expected);
    };
    row("image/*", "picture.png note.txt", "picture.png");
    row("image/png text/*", "note.txt picture.png", "note.txt picture.png");
    row("image/* image/png */*", "picture.png", "picture.png"); // once, however often it matches
    row("image/png", "missing.png", "-");
    row("image/png", "https://x.org/a.png", "-");
    row("image/png", "missing.png https://x.org/a.png picture.png", "picture.png");
    row("text/plain", "page.html", "-"); // its parent
    row("application/x-pdf", "paper.pdf", "-"); // an alias
    row("image/png", "disguised", "disguised"); // known by what is in it
    row("inode/directory", "folder note.txt", "folder");
    row("inode/fifo", "pipe", "pipe"); // and nobody waits for what comes through it
    row("", "note.txt missing.png https://x.org/a.png folder", "note.txt folder");
    row("", "missing.png", ""); // any URL is accepted, only existing files are dropped
}

void tst_DropHandlers::files()
{
    QFETCH(QString, types);
    QFETCH(QString, files);
    const QTemporaryDir folder;
    const auto write = [&folder](const char *name, const QByteArray &content) {
        QFile file(folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    write("picture.png", "\x89PNG\r\n\x1a\n");
    write("disguised", "\x89PNG\r\n\x1a\n");
    write("note.txt", "A note");
    write("page.html", "<html></html>");
    write("paper.pdf", "%PDF-1.4");
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))), 0600), 0);

    QList<QUrl> urls;
    const QStringList fileNames = files.split(QLatin1Char(' '));
    for (const QString &name : fileNames)
        urls.append(name.contains(QLatin1Char(':')) ? QUrl(name)
                                                    : QUrl::fromLocalFile(folder.filePath(name)));
    MimeDropHandler handler;
    handler.setAcceptedMimeTypes(types.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QTEST(dropped(handler, urls), "expected");
}

// Each file is looked into anew when it drops; it may have changed or gone since it entered.
void tst_DropHandlers::filesAreRead()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("note.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(path) });
    MimeDropHandler handler;
    handler.setAcceptedMimeTypes(words("text/*"));
    QVERIFY(handler.acceptsMimeData(&data));
    QCOMPARE(handler.extractMimeData(&data).toList(), QVariantList { QUrl::fromLocalFile(path) });
    QVERIFY(file.remove());
    QVERIFY(handler.extractMimeData(&data).isValid());
    QVERIFY(handler.extractMimeData(&data).toList().isEmpty());
}

void tst_DropHandlers::json_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("keys");
    QTest::newRow("object") << QByteArray(R"({"a": 1, "b": [true, null, {"c": "d"}]})") << 2;
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("array") << QByteArray("[1, 2]") << 0;
    QTest::newRow("truncated") << QByteArray(R"({"a": 1, "b": [tr)") << 0;
    QTest::newRow("invalid UTF-8") << QByteArray("{\"a\": \"\xff\xfe\xc0\x80\"}") << 0;
    QTest::newRow("a megabyte of [") << QByteArray(1 << 20, '[') << 0;
    QTest::newRow("deeper than Qt reads")
        << QByteArray("{\"a\":").repeated(2000) + "1" + QByteArray("}").repeated(2000) << 0;
}

// Whatever another program puts into a drag, an object comes out, and an empty one for want of
// better.
void tst_DropHandlers::json()
{
    QFETCH(QByteArray, bytes);
    QMimeData data;
    data.setData(kCard, bytes);
    MimeDropHandler handler;
    handler.setAcceptedMimeTypes({ kCard });
    QVERIFY(handler.acceptsMimeData(&data));
    const QVariant value = handler.extractMimeData(&data);
    QCOMPARE(value.userType(), int(QMetaType::QJsonObject));
    QTEST(value.toJsonObject().count(), "keys");
}

TAMBER_TEST_MAIN(tst_DropHandlers)
#include "tst_drophandlers.moc"
