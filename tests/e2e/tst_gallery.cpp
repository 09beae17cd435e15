// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

class tst_Gallery : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void popup();
    void slider();
    void navigation();
    void resizing();
};

void tst_Gallery::popup()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));
    const QString button = QStringLiteral("openMenuButton");
    const QString outside = QStringLiteral("outsideButton");
    const QString open = QStringLiteral("popup open menuAnchor");
    const QString closed = QStringLiteral("popup closed menuAnchor");
    const QString clickedOutside = QStringLiteral("clicked outsideButton");

    // Open, cycle with Tab and Backtab, close with Escape: the focus returns.
    gallery.click(button);
    QVERIFY(gallery.says(open));
    QVERIFY(gallery.focuses("menuFirst"));
    for (const char *next : { "menuSecond", "menuThird", "menuFirst" }) {
        gallery.key("Tab");
        QVERIFY(gallery.focuses(next));
    }
    gallery.key("shift+Tab");
    QVERIFY(gallery.focuses("menuThird"));
    gallery.key("Escape");
    QVERIFY(gallery.says(closed));
    QVERIFY(gallery.focuses("openMenuButton"));

    // An outside press closes it and still reaches what it hit.
    gallery.click(button);
    QVERIFY(gallery.says(open));
    gallery.click(outside);
    QVERIFY(gallery.says(closed));
    QVERIFY(gallery.says(clickedOutside));

    // A press on the button that opens it closes it, and no more.
    gallery.click(button);
    QVERIFY(gallery.says(open));
    gallery.place(QStringLiteral("menuThird"));
    gallery.click(button);
    QVERIFY(gallery.says(closed));
    const int openings = gallery.count(open);
    gallery.click(outside);
    QVERIFY(gallery.says(clickedOutside));
    QCOMPARE(gallery.count(open), openings);

    // One that is open is no obstacle to the end of the program.
    gallery.click(button);
    QVERIFY(gallery.says(open));
    gallery.click(QStringLiteral("menuSecond"));
    QVERIFY(gallery.says(QStringLiteral("clicked menuSecond")));
    QVERIFY(gallery.closes());
}

void tst_Gallery::slider()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("sliders") });
    QVERIFY(gallery.says(QStringLiteral("ready sliders")));
    const QRect area = gallery.area(QStringLiteral("volumeSlider"));
    const int y = area.center().y();
    gallery.drag(QPoint(area.left() + 1, y), QPoint(area.right() + 100, y));
    QVERIFY(gallery.says(QStringLiteral("value volumeSlider 0")));
    QVERIFY(gallery.says(QStringLiteral("value volumeSlider 100")));
    gallery.clickAt(QPoint(area.left() + 1, y), Gallery::Middle);
    QVERIFY(gallery.says(QStringLiteral("value volumeSlider 70")));
    QVERIFY(gallery.closes());
}

void tst_Gallery::navigation()
{
    const QStringList pages = Gallery::pages();
    QVERIFY(pages.count() > 1);
    Gallery gallery({});
    QVERIFY(gallery.says(QStringLiteral("ready ") + pages.first()));
    for (const QString &page : pages.mid(1) + pages.mid(0, 1)) {
        gallery.click(QStringLiteral("nav-") + page);
        QVERIFY(gallery.says(QStringLiteral("ready ") + page));
    }
    QVERIFY(gallery.closes());
}

void tst_Gallery::resizing()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.resize(QSize(1000, 700), QStringLiteral("persistentButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed menuAnchor")));

    // Not even a persistent popup outlives a change of its window's size.
    gallery.click(QStringLiteral("persistentButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open persistentAnchor")));
    gallery.key("Escape");
    gallery.click(QStringLiteral("outsideButton"));
    QVERIFY(gallery.says(QStringLiteral("clicked outsideButton")));
    QCOMPARE(gallery.count(QStringLiteral("popup closed persistentAnchor")), 0);
    gallery.resize(QSize(1100, 750), QStringLiteral("topRightButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed persistentAnchor")));
    QVERIFY(gallery.closes());
}

TAMBER_TEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
