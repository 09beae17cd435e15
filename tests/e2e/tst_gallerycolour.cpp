// variants: x11
#include "e2e/gallery.h"

#include "support/testcase.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

using namespace ta::test;

class tst_GalleryColour : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsColours();
    void keepsNothingUnasked();
};

namespace {

// Picks from the picture \a number, and adds what it got to the user's own colours.
void pickAndKeep(Gallery &gallery, int number)
{
    const QString picture = QStringLiteral("dropperPicture%1").arg(number);
    QVERIFY(gallery.says(QStringLiteral("ready colour")));
    QVERIFY(gallery.paints(picture)); // white would be a colour of a palette
    gallery.click(QStringLiteral("dropperButton"));
    QVERIFY(gallery.says(QStringLiteral("clicked dropperButton")));
    gallery.click(picture);
    gallery.click(QStringLiteral("keepButton"));
    QVERIFY(gallery.says(QStringLiteral("clicked keepButton")));
    QVERIFY(gallery.closes());
}

QStringList pageColour()
{
    return { QStringLiteral("--page"), QStringLiteral("colour") };
}

} // namespace

// What one run adds to the palette is there in the next one.
void tst_GalleryColour::keepsColours()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("gallery.ini"));
    QStringList before;
    for (int run = 0; run < 2; ++run) {
        Gallery gallery(pageColour() + QStringList { QStringLiteral("--settings"), file });
        pickAndKeep(gallery, run);
        const QStringList colors = QSettings(file, QSettings::IniFormat)
                                       .value(QStringLiteral("palette/colors"))
                                       .toStringList();
        QCOMPARE(colors.count(), 6 + run);
        QCOMPARE(colors.mid(0, before.count()), before);
        before = colors;
    }
    QVERIFY(before.at(5) != before.at(6));
}

void tst_GalleryColour::keepsNothingUnasked()
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    Gallery gallery(pageColour());
    pickAndKeep(gallery, 2);
    QVERIFY(!QFileInfo::exists(folder.filePath(QStringLiteral("tamberui"))));
}

TAMBER_TEST_MAIN(tst_GalleryColour)
#include "tst_gallerycolour.moc"
