#include "support/testcase.h"

#include "scenegraph/iconatlas_p.h"
#include "scenegraph/icongeometry_p.h"

#include <TamberUi/Icon>

#include <QtGui/QImage>

using namespace ta::ui;

// The tables and the pictures of the icon sets, without a window.
class tst_IconAtlas : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void records_data();
    void records();
    void pictures_data();
    void pictures();
    void choice();
    void cells_data();
    void cells();
    void names();
    void geometry();
    void sharedGeometry();
};

namespace {

QImage picture(const IconAtlas &atlas)
{
    return QImage::fromData(atlas.data, atlas.dataSize, "png");
}

QImage glyph(const IconAtlas &atlas, const QImage &image, int entry)
{
    const int pitch = atlas.cellSize + 2;
    return image.copy(atlas.entries[entry].column * pitch, atlas.entries[entry].row * pitch,
                      atlas.cellSize, atlas.cellSize);
}

int ink(const QImage &image)
{
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y));
    }
    return sum;
}

} // namespace

void tst_IconAtlas::records_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<int>("imageSize");
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("count");
    QTest::newRow("16") << 16 << 1.0 << 256 << 16 << 8 << 57;
    QTest::newRow("16@2x") << 16 << 2.0 << 512 << 32 << 8 << 57;
    QTest::newRow("24") << 24 << 1.0 << 512 << 24 << 12 << 129;
    QTest::newRow("24@2x") << 24 << 2.0 << 1024 << 48 << 12 << 129;
    QTest::newRow("32") << 32 << 1.0 << 256 << 32 << 7 << 47;
    QTest::newRow("32@2x") << 32 << 2.0 << 512 << 64 << 7 << 47;
}

void tst_IconAtlas::records()
{
    QFETCH(int, size);
    QFETCH(double, ratio);
    QFETCH(int, imageSize);
    QFETCH(int, columns);
    const IconAtlas &atlas = getAtlas(size, ratio);
    QTEST(atlas.cellSize, "cell");
    QTEST(atlas.entryCount, "count");
    QCOMPARE(picture(atlas).size(), QSize(imageSize, imageSize));
    QCOMPARE(int(atlas.data[24]), 8); // bits a channel
    QCOMPARE(int(atlas.data[25]), 6); // RGBA
    QCOMPARE(int(atlas.data[28]), 0); // not interlaced
    QCOMPARE(atlas.cellFraction, float(atlas.cellSize) / float(imageSize));
    QVERIFY(qAbs(atlas.gapFraction - 2.0f / float(imageSize)) <= 0.0000006f);
    QCOMPARE(QByteArray(atlas.entries[0].name), QByteArray());
    QSet<QByteArray> seen;
    for (int i = 0; i < atlas.entryCount; ++i) {
        QCOMPARE(atlas.entries[i].column, i % columns);
        QCOMPARE(atlas.entries[i].row, i / columns);
        seen.insert(atlas.entries[i].name);
    }
    QCOMPARE(seen.count(), atlas.entryCount);
}

void tst_IconAtlas::pictures_data()
{
    QTest::addColumn<int>("size");
    for (int size : { 16, 24, 32 })
        QTest::addRow("%d", size) << size;
}

// The first cell is empty, every other one is inked, and nothing lies between or beyond the cells.
// The two drawings of a glyph have the same shape, and no two glyphs look alike.
void tst_IconAtlas::pictures()
{
    QFETCH(int, size);
    const IconAtlas &once = getAtlas(size, 1);
    const IconAtlas &twice = getAtlas(size, 2);
    const QImage onceImage = picture(once);
    const QImage twiceImage = picture(twice);
    int inkOfCells[2] = { 0, 0 };
    QHash<QByteArray, QByteArray> looks;
    for (int i = 0; i < once.entryCount; ++i) {
        const QImage small = glyph(once, onceImage, i);
        const QImage large = glyph(twice, twiceImage, i);
        inkOfCells[0] += ink(small);
        inkOfCells[1] += ink(large);
        if (i == 0) {
            QCOMPARE(ink(small) + ink(large), 0);
            continue;
        }
        const QByteArray name = once.entries[i].name;
        QCOMPARE(QByteArray(twice.entries[i].name), name);
        QVERIFY2(ink(small) > 255 * 8, name);

        const QImage halved = large.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                                  .scaled(small.size(), Qt::IgnoreAspectRatio,
                                          Qt::SmoothTransformation);
        int difference = 0;
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width(); ++x)
                difference += qAbs(qAlpha(small.pixel(x, y)) - qAlpha(halved.pixel(x, y)));
        }
        QVERIFY2(difference <= ink(small) / 4, name);

        const QByteArray bits(reinterpret_cast<const char *>(small.constBits()),
                              int(small.sizeInBytes()));
        QVERIFY2(!looks.contains(bits),
                 QByteArray(name + " looks like " + looks.value(bits)).constData());
        looks.insert(bits, name);
    }
    QCOMPARE(ink(onceImage), inkOfCells[0]);
    QCOMPARE(ink(twiceImage), inkOfCells[1]);
}

void tst_IconAtlas::choice()
{
    QCOMPARE(&getAtlas(16, 1.1), &iconAtlas_16());
    QCOMPARE(&getAtlas(16, 1.25), &iconAtlas_16_2x());
    QCOMPARE(&getAtlas(32, 3), &iconAtlas_32_2x());
    QCOMPARE(&getAtlas(24, 0.5), &iconAtlas_24());
    expectWarning(QStringLiteral("^Unsupported atlas size 48$"));
    expectWarning(QStringLiteral("^Unsupported atlas size -1$"));
    QCOMPARE(&getAtlas(48, 2), &iconAtlas_24());
    QCOMPARE(&getAtlas(-1, 1), &iconAtlas_24());
}

void tst_IconAtlas::cells_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QPointF>("place");
    QTest::addColumn<double>("extent");
    QTest::newRow("close@2x") << 16 << 2.0 << QByteArray("close") << QPointF(4 * 0.066406, 0.066406)
                              << 0.0625;
    QTest::newRow("close") << 16 << 1.0 << QByteArray("close") << QPointF(4 * 0.070313, 0.070313)
                           << 0.0625;
    QTest::newRow("last of 24") << 24 << 1.0 << QByteArray("width")
                                << QPointF(8 * 0.050781, 10 * 0.050781) << 0.046875;
    QTest::newRow("last of 32") << 32 << 2.0 << QByteArray("wifi-config")
                                << QPointF(4 * 0.128906, 6 * 0.128906) << 0.125;
    QTest::newRow("unknown") << 24 << 1.0 << QByteArray("no such glyph") << QPointF(0, 0)
                             << 0.046875;
    QTest::newRow("other case") << 16 << 1.0 << QByteArray("Close") << QPointF(0, 0) << 0.0625;
    QTest::newRow("none") << 32 << 1.0 << QByteArray() << QPointF(0, 0) << 0.125;
}

void tst_IconAtlas::cells()
{
    QFETCH(int, size);
    QFETCH(double, ratio);
    QFETCH(QByteArray, name);
    QFETCH(QPointF, place);
    QFETCH(double, extent);
    const QRectF cell = iconCell(size, ratio, name);
    QVERIFY2(qAbs(cell.x() - place.x()) < 1e-6 && qAbs(cell.y() - place.y()) < 1e-6,
             qPrintable(QStringLiteral("%1 %2").arg(cell.x()).arg(cell.y())));
    QCOMPARE(cell.size(), QSizeF(extent, extent));
}

void tst_IconAtlas::names()
{
    const Icon icon;
    QStringList names = icon.iconNamesForSize(Icon::Icon_16x16);
    QCOMPARE(names.count(), 57);
    QCOMPARE(names.mid(0, 2), QStringList({ QString(), QStringLiteral("access-none") }));
    QCOMPARE(icon.iconNamesForSize(Icon::Icon_24x24).last(), QStringLiteral("width"));
    QCOMPARE(icon.iconNamesForSize(Icon::Icon_32x32).count(), 47);
    expectWarning(QStringLiteral("Unsupported atlas size 48"));
    QCOMPARE(icon.iconNamesForSize(Icon::Icon_48x48), icon.iconNamesForSize(Icon::Icon_24x24));
}

void tst_IconAtlas::geometry()
{
    const IconGeometry quad(16, 1, "close");
    QCOMPARE(quad.vertexCount(), 4);
    QCOMPARE(quad.indexCount(), 0);
    QCOMPARE(quad.drawingMode(), uint(QSGGeometry::DrawTriangleStrip));
    QCOMPARE(quad.vertexDataPattern(), QSGGeometry::StaticPattern);
    const QSGGeometry::TexturedPoint2D *vertices = quad.vertexDataAsTexturedPoint2D();
    QCOMPARE(QPointF(vertices[0].x, vertices[0].y), QPointF(0, 0));
    QCOMPARE(QPointF(vertices[3].x, vertices[3].y), QPointF(16, 16));
    const QRectF cell = iconCell(16, 1, "close");
    QCOMPARE(vertices[0].tx, float(cell.left()));
    QCOMPARE(vertices[3].ty, float(cell.bottom()));
}

void tst_IconAtlas::sharedGeometry()
{
    QSharedPointer<IconGeometry> first = IconGeometry::get(16, 1, QStringLiteral("close"));
    QCOMPARE(IconGeometry::get(16, 1.1, QStringLiteral("close")), first);
    QVERIFY(IconGeometry::get(16, 2, QStringLiteral("close")) != first);
    QVERIFY(IconGeometry::get(24, 1, QStringLiteral("close")) != first);
    QVERIFY(IconGeometry::get(16, 1, QStringLiteral("up")) != first);
    const QWeakPointer<IconGeometry> weak = first;
    first.clear();
    QVERIFY(!weak.toStrongRef());
    QVERIFY(IconGeometry::get(16, 1, QStringLiteral("close")));
}

TAMBER_TEST_MAIN(tst_IconAtlas)
#include "tst_iconatlas.moc"
