#include "palettes/places.h"

#include "support/testcase.h"

#include "palettes/palettelayout_p.h"

using namespace ta::ui;
using namespace ta::test;

class tst_PaletteLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widths_data();
    void widths();
    void sizes_data();
    void sizes();
    void empty();
};

void tst_PaletteLayout::widths_data()
{
    QTest::addColumn<QVector<int>>("counts");
    QTest::newRow("default") << QVector<int> { 6, 8, 8, 6, 4, 10 };
    QTest::newRow("empty swatches") << QVector<int> { 0, 0, 3, 0, 5, 0 };
    QTest::newRow("single colours") << QVector<int>(40, 1);
    QTest::newRow("long") << QVector<int> { 200 };
}

void tst_PaletteLayout::widths()
{
    QFETCH(QVector<int>, counts);
    for (int width = 0; width < 1100; width += width < 100 ? 1 : 7) {
        PaletteLayout layout(width);
        QVector<QPoint> places;
        for (int count : counts) {
            for (int i = 0; i < count; ++i)
                places.append(layout.place(QSizeF(22, 22)));
            layout.endSwatch();
        }
        const Places expected = placesOfPatches(counts, width);
        QVERIFY2(places == expected.places, qPrintable(QString::number(width)));
        QCOMPARE(layout.height(), expected.height);
    }
}

void tst_PaletteLayout::sizes_data()
{
    QTest::addColumn<qreal>("width");
    QTest::addColumn<QVector<QSizeF>>("patches");
    QTest::addColumn<QVector<QPoint>>("places");
    QTest::addColumn<qreal>("height");
    // Each step leaves out the fraction.
    QTest::newRow("fractions") << 30.0 << QVector<QSizeF>(3, QSizeF(10.7, 7.9))
                               << QVector<QPoint> { { 0, 0 }, { 10, 0 }, { 0, 12 } } << 19.9;
    QTest::newRow("just fits") << 21.4 << QVector<QSizeF>(2, QSizeF(10.7, 8))
                               << QVector<QPoint> { { 0, 0 }, { 10, 0 } } << 8.0;
    QTest::newRow("of several sizes") << 50.0 << QVector<QSizeF> { { 20, 20 }, { 30, 8 }, { 1, 4 } }
                                      << QVector<QPoint> { { 0, 0 }, { 20, 0 }, { 0, 9 } } << 13.0;
    QTest::newRow("no number") << qQNaN() << QVector<QSizeF>(2, QSizeF(22, 22))
                               << QVector<QPoint> { { 0, 0 }, { 22, 0 } } << 22.0;
    QTest::newRow("no patch's width") << -qInf() << QVector<QSizeF>(2, QSizeF(22, 22))
                                      << QVector<QPoint> { { 0, 27 }, { 0, 54 } } << 76.0;
}

void tst_PaletteLayout::sizes()
{
    QFETCH(qreal, width);
    QFETCH(QVector<QSizeF>, patches);
    PaletteLayout layout(width);
    QVector<QPoint> places;
    for (const QSizeF &patch : qAsConst(patches))
        places.append(layout.place(patch));
    QTEST(places, "places");
    QTEST(layout.height(), "height");
}

// Separators alone take no room, and no patch can be so large that the arithmetic breaks.
void tst_PaletteLayout::empty()
{
    PaletteLayout layout(100);
    layout.endSwatch();
    layout.endSwatch();
    QCOMPARE(layout.height(), 0.0);
    QCOMPARE(layout.place(QSizeF(0, 0)), QPoint(0, 0));
    layout.endSwatch();
    QCOMPARE(layout.place(QSizeF(qInf(), 1e300)).x(), 0);
    for (int i = 0; i < 5; ++i)
        layout.place(QSizeF(1e300, qInf()));
    QVERIFY(layout.height() > 0);
}

TAMBER_TEST_MAIN(tst_PaletteLayout)
#include "tst_palettelayout.moc"
