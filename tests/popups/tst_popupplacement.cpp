#include "support/testcase.h"

#include "popups/popupplacement_p.h"

#include <random>

using namespace ta::ui;

class tst_PopupPlacement : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void table_data();
    void table();
    void randomGeometries();
};

void tst_PopupPlacement::table_data()
{
    QTest::addColumn<QPoint>("anchor");
    QTest::addColumn<QSize>("popup");
    QTest::addColumn<QSizeF>("window");
    QTest::addColumn<QPoint>("layer");
    QTest::addColumn<QPoint>("position"); // of the popup in the layer
    QTest::addColumn<qreal>("height");
    QSizeF window(800, 600);
    QSize popup(200, 300);
    const auto row = [&](const char *name, const QPoint &anchor, const QPoint &layer,
                         const QPoint &position, qreal height) {
        QTest::newRow(name) << anchor << popup << window << layer << position << height;
    };
    row("fits", { 100, 100 }, { 100, 100 }, { 0, 0 }, 300);
    row("flips left", { 700, 100 }, { 780, 100 }, { -200, 0 }, 300);
    row("flips up", { 100, 500 }, { 100, 524 }, { 0, -347 }, 300);
    row("both", { 700, 500 }, { 780, 524 }, { -200, -347 }, 300);
    // One pixel on either side of each limit.
    row("just fits right", { 590, 100 }, { 590, 100 }, { 0, 0 }, 300);
    row("just not right", { 591, 100 }, { 671, 100 }, { -200, 0 }, 300);
    row("just fits below", { 100, 290 }, { 100, 290 }, { 0, 0 }, 300);
    row("just not below", { 100, 291 }, { 100, 291 }, { 0, 0 }, 299);
    popup = QSize(200, 500);
    row("cut below", { 100, 300 }, { 100, 300 }, { 0, 0 }, 290);
    row("cut above", { 100, 400 }, { 100, 424 }, { 0, -366 - 48 + 1 }, 366);
    row("equal room goes up", { 100, 312 }, { 100, 336 }, { 0, -278 - 48 + 1 }, 278);
    window = QSizeF(800, 600.5);
    row("fractional window", { 100, 300 }, { 100, 300 }, { 0, 0 }, 290.5);
    popup = QSize(0, 0);
    row("empty popup", { 100, 100 }, { 100, 100 }, { 0, 0 }, 0);
}

void tst_PopupPlacement::table()
{
    QFETCH(QPoint, anchor);
    QFETCH(QSize, popup);
    QFETCH(QSizeF, window);
    const PopupPlacement placement = placePopup(anchor, QSize(80, 24), popup, window);
    QTEST(placement.layer, "layer");
    QTEST(QPoint(placement.popupX, int(placement.popupY)), "position");
    QTEST(placement.popupHeight, "height");
}

// What a person may rely on, whatever the numbers.
void tst_PopupPlacement::randomGeometries()
{
    std::mt19937 random(20);
    const auto pick = [&](int from, int to) {
        return std::uniform_int_distribution(from, to)(random);
    };
    for (int round = 0; round < 5000; ++round) {
        const QSizeF window(pick(200, 2000), pick(200, 1500));
        const QSize trigger(pick(0, 150), pick(0, 60));
        const QSize popup(pick(0, 700), pick(0, 1200));
        // The anchor hangs at the lower left corner of a control that lies inside the window.
        const QPoint anchor(pick(0, int(window.width()) - trigger.width()),
                            pick(trigger.height(), int(window.height())));
        const PopupPlacement placement = placePopup(anchor, trigger, popup, window);
        const QRectF area(placement.layer.x() + placement.popupX,
                          placement.layer.y() + placement.popupY, popup.width(),
                          placement.popupHeight);
        const QRectF control(anchor.x(), anchor.y() - trigger.height(), trigger.width(),
                             trigger.height());

        // Sideways: inside where either side has the room.
        const bool fitsRight = anchor.x() + popup.width() + 10 <= window.width();
        const bool fitsLeft = control.right() >= popup.width();
        QCOMPARE(area.left(), fitsRight ? control.left() : control.right() - popup.width());
        if (fitsRight || fitsLeft)
            QVERIFY(area.left() >= 0 && area.right() <= window.width());

        // Up and down: whole where either side has the room, never larger than wanted, and always
        // at the control: below it, or above it with a pixel of overlap.
        const qreal below = window.height() - 10 - control.bottom();
        const qreal above = control.top() - 10;
        const bool down = popup.height() <= below || below > above;
        if (popup.height() <= qMax(below, above))
            QCOMPARE(area.height(), qreal(popup.height()));
        else
            QCOMPARE(area.height(), qMax(below, above));
        QCOMPARE(down ? area.top() : area.bottom(), down ? control.bottom() : control.top() + 1);
        if (qMax(below, above) >= 0)
            QVERIFY(area.top() >= 0 && area.bottom() <= window.height());
    }
}

TAMBER_TEST_MAIN(tst_PopupPlacement)
#include "tst_popupplacement.moc"
