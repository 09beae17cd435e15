// variants: x11
#include "gallery.h"
#include "support/testcase.h"

using namespace ta::test;

class tst_GalleryText : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lineEdit();
    void spinBox();
};

void tst_GalleryText::lineEdit()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("text-and-numbers") });
    QVERIFY(gallery.says(QStringLiteral("ready text-and-numbers")));
    gallery.click(QStringLiteral("nameEdit"));
    QVERIFY(gallery.focuses("nameEdit"));
    gallery.type("Ada");
    gallery.key("Tab");
    QVERIFY(gallery.says(QStringLiteral("text nameEdit Ada")));
    QVERIFY(gallery.focuses("titleEdit"));

    // Back again, all of it is selected; Escape leaves what was committed.
    gallery.key("shift+Tab");
    QVERIFY(gallery.focuses("nameEdit"));
    gallery.type("Eve");
    gallery.key("Escape");
    gallery.click(QStringLiteral("nameEdit"));
    gallery.key("End");
    gallery.type(" L.");
    gallery.key("Return");
    QVERIFY(gallery.says(QStringLiteral("text nameEdit Ada L.")));
    QCOMPARE(gallery.count(QStringLiteral("text nameEdit Eve")), 0);

    // The host has its own mind.
    gallery.click(QStringLiteral("capitalsEdit"));
    gallery.key("ctrl+a");
    gallery.type("tin drum");
    gallery.key("Return");
    QVERIFY(gallery.says(QStringLiteral("text capitalsEdit TIN DRUM")));
    QVERIFY(gallery.closes());
}

void tst_GalleryText::spinBox()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("text-and-numbers") });
    QVERIFY(gallery.says(QStringLiteral("ready text-and-numbers")));
    gallery.click(QStringLiteral("copiesSpinField"));
    QVERIFY(gallery.focuses("copiesSpinField"));
    gallery.key("ctrl+a");
    gallery.type("12");
    gallery.key("Return");
    QVERIFY(gallery.says(QStringLiteral("text copiesSpinField 12")));
    gallery.click(QStringLiteral("copiesSpinUp"));
    QVERIFY(gallery.says(QStringLiteral("text copiesSpinField 13")));
    gallery.key("Up");
    QVERIFY(gallery.says(QStringLiteral("text copiesSpinField 14")));
    gallery.type("500"); // instead of all of it, and more than there may be
    gallery.key("Tab");
    QVERIFY(gallery.says(QStringLiteral("text copiesSpinField 99")));
    QVERIFY(gallery.focuses("gainSpinField"));
    gallery.type("1.25");
    gallery.key("Return");
    QVERIFY(gallery.says(QStringLiteral("text gainSpinField 1.3")));
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_GalleryText)
#include "tst_gallerytext.moc"
