#include "support/testcase.h"

#include "scenegraph/bordergeometry_p.h"

using namespace ta::ui;

using Row = std::array<double, 3>; // x, y, distance
Q_DECLARE_METATYPE(Row)

class tst_BorderGeometry : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void solid();
    void dashed_data();
    void dashed();
    void distances();
};

namespace {

template <typename Vertex>
QPointF position(const Vertex &vertex)
{
    return QPointF(vertex.x, vertex.y);
}

} // namespace

// The fraction of a width stays in a solid border.
void tst_BorderGeometry::solid()
{
    const SolidBorderVertices vertices = solidBorderVertices(QSizeF(100.5, 50), 2.5f);
    const QPointF expected[] = { { 0, 0 },     { 100.5, 0 }, { 100.5, 50 }, { 0, 50 },
                                 { 2.5, 2.5 }, { 98, 2.5 },  { 98, 47.5 },  { 2.5, 47.5 } };
    for (size_t i = 0; i < vertices.size(); ++i)
        QCOMPARE(position(vertices[i]), expected[i]);
}

void tst_BorderGeometry::dashed_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<float>("borderWidth");
    QTest::addColumn<QVector<Row>>("rows");

    // clang-format off
    // The width loses its fraction, the size keeps it.
    QTest::newRow("fractions") << QSizeF(30.25, 20.5) << 3.75f << QVector<Row> {
        { 0, 0, 3 }, { 3, 0, 3 }, { 27.25, 0, 30.25 }, { 30.25, 0, 30.25 },
        { 30.25, 3, 30.25 }, { 30.25, 17.5, 47.75 }, { 30.25, 20.5, 47.75 },
        { 27.25, 20.5, 47.75 }, { 3, 20.5, 75 }, { 0, 20.5, 75 },
        { 0, 17.5, 75 }, { 0, 3, 0 },
        { 3, 3, 3 }, { 27.25, 3, 30.25 }, { 27.25, 17.5, 47.75 }, { 3, 17.5, 75 },
        { 0, 3, 92.5 }, { 3, 3, 92.5 } };
    // Smaller than two widths: the inner vertices change sides and nothing is clamped.
    QTest::newRow("crossed") << QSizeF(5, 4) << 4.0f << QVector<Row> {
        { 0, 0, 4 }, { 4, 0, 4 }, { 1, 0, 5 }, { 5, 0, 5 },
        { 5, 4, 5 }, { 5, 0, 5 }, { 5, 4, 5 },
        { 1, 4, 5 }, { 4, 4, 6 }, { 0, 4, 6 },
        { 0, 0, 6 }, { 0, 4, 0 },
        { 4, 4, 4 }, { 1, 4, 5 }, { 1, 0, 5 }, { 4, 0, 6 },
        { 0, 4, 6 }, { 4, 4, 6 } };
    // clang-format on
}

void tst_BorderGeometry::dashed()
{
    QFETCH(QSizeF, size);
    QFETCH(float, borderWidth);
    QFETCH(QVector<Row>, rows);
    const DashedBorderVertices vertices = dashedBorderVertices(size, borderWidth);
    QCOMPARE(size_t(rows.count()), vertices.size());
    for (int i = 0; i < rows.count(); ++i) {
        const Row row = { vertices[i].x, vertices[i].y, vertices[i].distance };
        QVERIFY2(row == rows.at(i), qPrintable(QString::number(i)));
    }
}

// Once around is the outline less three corners, each of which counts once and not twice.
void tst_BorderGeometry::distances()
{
    const BorderDistances along = borderDistances(QSizeF(1e6 + 0.25, 1e6), 3);
    QCOMPARE(along.right, 1e6 + 0.25);
    QCOMPARE(along.end, 4e6 + 0.5 - 9); // floats would be out by quarters here
}

TAMBER_TEST_MAIN(tst_BorderGeometry)
#include "tst_bordergeometry.moc"
