// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

class tst_GalleryScrolling : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wheelAndBar();
};

void tst_GalleryScrolling::wheelAndBar()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("lists-and-scrolling") });
    QVERIFY(gallery.says(QStringLiteral("ready lists-and-scrolling")));
    const QString content = QStringLiteral("articleContent");
    const QRect view = gallery.area(QStringLiteral("articleView"));
    const QRect top = gallery.area(content);
    QCOMPARE(top.y(), view.y());
    QVERIFY(top.height() > view.height());
    const int page = gallery.area(QStringLiteral("article")).y();

    gallery.wheel(QStringLiteral("articleView"), -1);
    QTRY_VERIFY(gallery.area(content).y() < top.y());
    gallery.wheel(QStringLiteral("articleView"), 3);
    QTRY_COMPARE(gallery.area(content), top);

    // The handle, by some point of it, down beyond the end of the bar, and back.
    const QPoint handle(view.right() - 7, view.y() + 20);
    gallery.drag(handle, handle + QPoint(0, view.height()));
    QTRY_COMPARE(gallery.area(content).bottom(), view.bottom());
    const QPoint end(handle.x(), view.bottom() - 20);
    gallery.drag(end, end - QPoint(0, view.height()));
    QTRY_COMPARE(gallery.area(content), top);
    QCOMPARE(gallery.area(QStringLiteral("article")).y(), page); // nothing else has moved
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_GalleryScrolling)
#include "tst_galleryscrolling.moc"
