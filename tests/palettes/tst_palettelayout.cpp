#include "support/testcase.h"

#include "palettes/palettelayout_p.h"

#include <numeric>

using namespace ta::ui;
using namespace ta::test;

class tst_PaletteLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widths();
    void sizes();
    void empty();
};

namespace {

struct Places
{
    QVector<QPoint> places;
    qreal height = 0;
};

// Where patches of 22 x 22 belong, swatches of counts one after the other, computed from what
// stands in each row.
Places placesOfPatches(const QVector<int> &counts, qreal width)
{
    constexpr int side = 22;
    constexpr int gap = 5;
    QVector<QVector<int>> rows(1); // widths of the patches and gaps
    Places result;
    for (int count : counts) {
        for (int i = 0; i < count; ++i) {
            int used = std::accumulate(rows.last().begin(), rows.last().end(), 0);
            if (used + side > width) {
                rows.append(QVector<int>());
                used = 0;
            }
            const int y = (rows.count() - 1) * (side + gap);
            result.places.append(QPoint(used, y));
            result.height = y + side;
            rows.last().append(side);
        }
        if (!rows.last().isEmpty())
            rows.last().append(gap);
    }
    return result;
}

} // namespace

void tst_PaletteLayout::widths()
{
    const QVector<QVector<int>> swatches {
        { 6, 8, 8, 6, 4, 10 }, { 0, 0, 3, 0, 5, 0 }, QVector<int>(40, 1), { 200 }
    };
    for (const QVector<int> &counts : swatches) {
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
}

// Of other sizes, with fractions that each step leaves out, and widths that are none.
void tst_PaletteLayout::sizes()
{
    const struct
    {
        qreal width;
        QVector<QSizeF> patches;
        QVector<QPoint> places;
        qreal height;
    } rows[] = {
        { 30, QVector<QSizeF>(3, { 10.7, 7.9 }), { { 0, 0 }, { 10, 0 }, { 0, 12 } }, 19.9 },
        { 21.4, QVector<QSizeF>(2, { 10.7, 8 }), { { 0, 0 }, { 10, 0 } }, 8 },
        { 50, { { 20, 20 }, { 30, 8 }, { 1, 4 } }, { { 0, 0 }, { 20, 0 }, { 0, 9 } }, 13 },
        { qQNaN(), QVector<QSizeF>(2, { 22, 22 }), { { 0, 0 }, { 22, 0 } }, 22 },
        { -qInf(), QVector<QSizeF>(2, { 22, 22 }), { { 0, 27 }, { 0, 54 } }, 76 },
    };
    for (const auto &row : rows) {
        PaletteLayout layout(row.width);
        QVector<QPoint> places;
        for (const QSizeF &patch : row.patches)
            places.append(layout.place(patch));
        QCOMPARE(places, row.places);
        QCOMPARE(layout.height(), row.height);
    }
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
