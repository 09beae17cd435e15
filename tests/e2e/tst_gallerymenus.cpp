// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

// Context menus as a person uses them.
class tst_GalleryMenus : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void choosing();
    void leaving();
    void closedWithOpenMenu();
};

void tst_GalleryMenus::choosing()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("menus") });
    QVERIFY(gallery.says(QStringLiteral("ready menus")));
    gallery.click(QStringLiteral("file0"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("entryCut"));
    QVERIFY(gallery.says(QStringLiteral("triggered entryCut")));
    QVERIFY(gallery.says(QStringLiteral("menu closed fileMenu")));

    // What cannot be done is greyed out, and the menu closes without it.
    gallery.click(QStringLiteral("file3"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("entryDelete"));
    QVERIFY(gallery.says(QStringLiteral("menu closed fileMenu")));
    QCOMPARE(gallery.count(QStringLiteral("triggered entryDelete")), 0);

    // The shelf has entries of its own, and something to paste by now.
    const QRect shelf = gallery.area(QStringLiteral("shelf"));
    gallery.clickAt(QPoint(shelf.right() - 20, shelf.center().y()), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("entryPaste"));
    QVERIFY(gallery.says(QStringLiteral("triggered entryPaste")));
    QVERIFY(gallery.closes());
}

void tst_GalleryMenus::leaving()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("menus") });
    QVERIFY(gallery.says(QStringLiteral("ready menus")));
    gallery.click(QStringLiteral("file1"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("entrySeparator"));
    gallery.key("Tab");
    gallery.place(QStringLiteral("entryOpen"));
    QCOMPARE(gallery.count(QStringLiteral("menu closed fileMenu")), 0);
    gallery.key("Escape");
    QVERIFY(gallery.says(QStringLiteral("menu closed fileMenu")));

    // An outside press reaches what lies under it.
    gallery.click(QStringLiteral("file1"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("plugInCheckBox"));
    QVERIFY(gallery.says(QStringLiteral("menu closed fileMenu")));
    QVERIFY(gallery.says(QStringLiteral("clicked plugInCheckBox")));

    // A right press elsewhere opens the other menu at once.
    gallery.click(QStringLiteral("file1"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open fileMenu")));
    gallery.click(QStringLiteral("rankedTarget"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu closed fileMenu")));
    QVERIFY(gallery.says(QStringLiteral("menu open rankedMenu")));
    gallery.key("Escape");
    QVERIFY(gallery.says(QStringLiteral("menu closed rankedMenu")));
    QVERIFY(gallery.closes());
}

void tst_GalleryMenus::closedWithOpenMenu()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("menus") });
    QVERIFY(gallery.says(QStringLiteral("ready menus")));
    gallery.click(QStringLiteral("rankedTarget"), Gallery::Right);
    QVERIFY(gallery.says(QStringLiteral("menu open rankedMenu")));
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_GalleryMenus)
#include "tst_gallerymenus.moc"
