// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

class tst_GalleryScrolling : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void wheelAndBar();
    void dragOverTheEdges();
    void popupThatForbids();
};

namespace {

const QStringList kPage = { QStringLiteral("--page"), QStringLiteral("lists-and-scrolling") };
const QString kReady = QStringLiteral("ready lists-and-scrolling");
constexpr QRect kWindow(0, 0, 1180, 1100); // high enough for the whole page
const QString kView = QStringLiteral("shelvesView");

// Where a drag makes a list scroll; the popup leaves this part of what is behind it free.
QPoint nearTop(const QRect &view)
{
    return view.topLeft() + QPoint(20, 20);
}

QPoint nearBottom(const QRect &view)
{
    return view.bottomLeft() + QPoint(20, -20);
}

bool isArranged(Gallery &gallery)
{
    return gallery.says(kReady) && gallery.arrange(kWindow);
}

} // namespace

// Nothing stays pressed for the next test where one has failed.
void tst_GalleryScrolling::cleanup()
{
    Gallery::release();
    TestCase::cleanup();
}

void tst_GalleryScrolling::wheelAndBar()
{
    Gallery gallery(kPage);
    QVERIFY(gallery.says(kReady));
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

// From the first row to the last, and back, and dropped there.
void tst_GalleryScrolling::dragOverTheEdges()
{
    Gallery gallery(kPage);
    QVERIFY(isArranged(gallery));
    const QRect view = gallery.area(kView);
    QVERIFY(gallery.drag(QStringLiteral("parcel")));
    QVERIFY(gallery.dragTo(nearBottom(view), QStringLiteral("drag over shelves60")));
    QVERIFY(gallery.dragTo(nearTop(view), QStringLiteral("drag over shelves1")));
    Gallery::release();
    QVERIFY(gallery.says(QStringLiteral("dropped shelves1 0 {\"text\":\"Parcel\"}")));
    QVERIFY(gallery.closes());
}

// What is in the popup scrolls, and what is behind it only once the popup lets it.
void tst_GalleryScrolling::popupThatForbids()
{
    Gallery gallery(kPage);
    QVERIFY(isArranged(gallery));
    gallery.click(QStringLiteral("shelvesButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open shelvesAnchor")));
    const QPoint behind = nearBottom(gallery.area(kView));
    const QRect popupView = gallery.area(QStringLiteral("popupShelvesView"));
    QVERIFY(!popupView.contains(behind));
    const QRect first = gallery.area(QStringLiteral("shelves1"));
    const int row = (behind.y() - first.y()) / first.height() + 1;

    QVERIFY(gallery.drag(QStringLiteral("parcel")));
    QVERIFY(gallery.dragTo(behind, QStringLiteral("drag over shelves%1").arg(row)));
    QVERIFY(gallery.dragTo(nearBottom(popupView), QStringLiteral("drag over popupShelves60")));
    QCOMPARE(gallery.area(QStringLiteral("shelves1")), first);
    Gallery::release();
    QVERIFY(gallery.says(QStringLiteral("dropped popupShelves60 0 {\"text\":\"Parcel\"}")));
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_GalleryScrolling)
#include "tst_galleryscrolling.moc"
