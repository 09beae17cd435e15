// variants: x11
#include "e2e/gallery.h"
#include "support/testcase.h"

using namespace ta::test;

class tst_GalleryTooltips : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tooltips();
};

// They come where the pointer rests, and go with the next movement or press.
void tst_GalleryTooltips::tooltips()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("tooltips") });
    QVERIFY(gallery.says(QStringLiteral("ready tooltips")));
    const QString tip = QStringLiteral("tooltip");
    const QString gone = QStringLiteral("gone tooltip");

    const QPoint first = gallery.place(QStringLiteral("toolTip0"));
    gallery.move(QStringLiteral("toolTip0"));
    QCOMPARE(gallery.area(tip).topLeft(), first + QPoint(0, 20));
    const QPoint second = gallery.place(QStringLiteral("toolTip2"));
    gallery.move(QStringLiteral("toolTip2"));
    QVERIFY(gallery.says(gone));
    QCOMPARE(gallery.area(tip).topLeft(), second + QPoint(0, 20));
    gallery.click(QStringLiteral("toolTip2"));
    QVERIFY(gallery.says(QStringLiteral("clicked toolTip2")));
    QVERIFY(gallery.says(gone));

    // At the lower edge it stands above the pointer.
    const QPoint last = gallery.place(QStringLiteral("bottomTip"));
    gallery.move(QStringLiteral("bottomTip"));
    QCOMPARE(gallery.area(tip).bottom() + 1, last.y() - 2);
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_GalleryTooltips)
#include "tst_gallerytooltips.moc"
