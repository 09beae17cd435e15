#include "support/testcase.h"

#include "popups/popupplacement_p.h"

using namespace ta::ui;

class tst_PopupPlacement : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void table_data();
    void table();
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

TAMBER_TEST_MAIN(tst_PopupPlacement)
#include "tst_popupplacement.moc"
