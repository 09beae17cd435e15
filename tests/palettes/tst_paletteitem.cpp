// variants: scale2 x11
#include "palettes/palettes.h"
#include "palettes/places.h"

#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/GlobalDefaultPalette>
#include <TamberUi/PaletteItem>

using namespace ta::ui;
using namespace ta::test;

class tst_PaletteItem : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void places();
    void nothingToShow();
    void choosing();
    void looks();
    void follows();
    void reuse();
    void oneColorChanges();
    void patchesDestroyed();
    void partsGo();
    void withoutContext();
    void handlersThatChange();
    void handlersThatDestroy();
};

namespace {

// For signals that are known by their name only.
class Destroyer : public QObject
{
    Q_OBJECT

public:
    explicit Destroyer(QObject *victim) : m_victim(victim) {}

public Q_SLOTS:
    void destroy() { delete m_victim; }

private:
    QPointer<QObject> m_victim;
};

const QString kScene = QStringLiteral(
    "Rectangle { anchors.fill: parent }\n"
    "UiColorPickerBase { id: pick; objectName: 'picker' }\n"
    "UiPaletteItem { objectName: 'item'; x: 20; y: 20; width: 200; colorPicker: pick }\n");

// The patches in display order.
QVector<QQuickItem *> patches(const QQuickItem *item)
{
    QVector<QQuickItem *> all;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        all.append(child);
    const auto key = [](const QQuickItem *patch) {
        return std::make_pair(patch->property("swatchIndex").toInt(),
                              patch->property("colorIndex").toInt());
    };
    std::sort(all.begin(), all.end(),
              [&](const QQuickItem *a, const QQuickItem *b) { return key(a) < key(b); });
    return all;
}

QStringList colorsOf(const QQuickItem *item)
{
    QStringList names;
    const QVector<QQuickItem *> all = patches(item);
    for (const QQuickItem *patch : all)
        names.append(patch->property("color").value<QColor>().name());
    return names;
}

QStringList statesOf(const QQuickItem *item)
{
    QStringList states;
    const QVector<QQuickItem *> all = patches(item);
    for (const QQuickItem *patch : all)
        states.append(patch->property("state").toString());
    return states;
}

} // namespace

void tst_PaletteItem::initTestCase()
{
    Scene::useKit();
}

void tst_PaletteItem::places()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    GlobalDefaultPalette palette;
    item->setPalette(&palette);
    const QVector<QQuickItem *> before = patches(item);
    QCOMPARE(before.count(), 42);
    for (qreal width :
         { 200.0, 0.0, 21.9, 22.0, 44.0, 153.5, 154.0, 159.0, 160.0, 203.0, 5000.0 }) {
        item->setWidth(width);
        const Places expected = placesOfPatches({ 6, 8, 8, 6, 4, 10 }, width);
        QVERIFY(scene.waitForFrame());
        QCOMPARE(item->implicitHeight(), expected.height);
        QCOMPARE(patches(item), before);
        for (int i = 0; i < before.count(); ++i)
            QCOMPARE(before.at(i)->position(), QPointF(expected.places.at(i)));
    }
    item->setWidth(200);
    QTRY_COMPARE(before.at(8)->position(), QPointF(0, 27));
    QCOMPARE(before.at(6)->position(), QPointF(137, 0));
    QCOMPARE(before.at(0)->size(), QSizeF(22, 22));
}

void tst_PaletteItem::nothingToShow()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    auto *picker = scene.find<ColorPickerBase>("picker");
    SignalLog log;
    log.watch(item, { QStringLiteral("paletteChanged"), QStringLiteral("colorPickerChanged") });
    item->setColorPicker(picker);
    item->setPalette(nullptr);
    QCOMPARE(log.take(), QStringList());
    item->setColorPicker(nullptr);
    GlobalDefaultPalette palette;
    item->setPalette(&palette);
    item->setPalette(&palette);
    QCOMPARE(log.take(), names({ "colorPickerChanged", "paletteChanged" }));
    QVERIFY(scene.waitForFrame());
    QVERIFY(item->childItems().isEmpty());
    QCOMPARE(item->implicitHeight(), 0.0);
    QVERIFY(!item->findChild<QQmlComponent *>());

    item->setColorPicker(picker);
    QCOMPARE(item->childItems().count(), 42);
    QTRY_VERIFY(item->implicitHeight() > 0);
    item->setColorPicker(nullptr);
    QVERIFY(item->childItems().isEmpty());
    QTRY_COMPARE(item->implicitHeight(), 0.0);
}

void tst_PaletteItem::choosing()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    auto *picker = scene.find<ColorPickerBase>("picker");
    EditablePalette palette;
    palette.add(colorList({ "#ee4f4f", "#5b9555", "#ee4f4f" }));
    palette.add(colorList({ "#123456" }));
    item->setPalette(&palette);
    QVERIFY(scene.waitForFrame());
    const QVector<QQuickItem *> all = patches(item);
    const QString s = QStringLiteral("selected");
    QCOMPARE(statesOf(item), QStringList({ {}, {}, {}, {} }));

    click(scene.window(), center(all.at(3)));
    QCOMPARE(picker->color(), QColor(0x123456));
    move(scene.window(), QPoint(500, 500));
    QCOMPARE(statesOf(item), QStringList({ {}, {}, {}, s }));
    QCOMPARE(all.at(3)->z(), 1.0);
    QCOMPARE(all.at(0)->z(), 0.0);
    picker->setColor(QColor(0xee4f4f));
    QCOMPARE(statesOf(item), QStringList({ s, {}, s, {} })); // both are that colour
    picker->setIndeterminate(true);
    QCOMPARE(statesOf(item), QStringList({ {}, {}, {}, {} }));
    picker->setIndeterminate(false);

    picker->setBindable(true);
    QSignalSpy requests(picker, &ColorPickerBase::updateRequested);
    click(scene.window(), center(all.at(1)));
    QCOMPARE(requests.count(), 1);
    QCOMPARE(requests.first().first().value<QColor>(), QColor(0x5b9555));
    QCOMPARE(statesOf(item), QStringList({ s, QStringLiteral("hovered"), s, {} }));
    QCOMPARE(all.at(1)->z(), 2.0); // above the rings of its neighbours
    picker->setColor(QColor(0x5b9555));
    QCOMPARE(statesOf(item), QStringList({ {}, s, {}, {} }));
    QCOMPARE(all.at(1)->z(), 1.0);
}

// Read from the window: the rings lie inside and outside of the patch, and a light patch has an
// edge.
void tst_PaletteItem::looks()
{
    Scene scene(kScene, QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    auto *picker = scene.find<ColorPickerBase>("picker");
    EditablePalette palette;
    for (const char *color : { "#ffffff", "#e5e5e5", "#e6e6e6", "#2040c0" })
        palette.add(colorList({ color }));
    item->setPalette(&palette);
    picker->setColor(QColor(0x2040c0));
    move(scene.window(), QPoint(200, 80));
    const auto pixel = [&](int patch, int inside) { // from its left edge
        const QQuickItem *it = patches(item).at(patch);
        const qreal ratio = scene.window()->effectiveDevicePixelRatio();
        const QPointF place = it->mapToScene(QPointF(inside + 0.5, it->height() / 2)) * ratio;
        return scene.window()->grabWindow().pixelColor(int(place.x()), int(place.y()));
    };
    QTRY_COMPARE(pixel(3, -1), QColor(0x98, 0xBE, 0x9C)); // fades in
    QTRY_COMPARE(pixel(3, 1), QColor(Qt::white));
    QCOMPARE(pixel(3, -3), QColor(0x98, 0xBE, 0x9C));
    QCOMPARE(pixel(3, -4), QColor(Qt::white));
    QCOMPARE(pixel(3, 2), QColor(0x2040c0));
    QVERIFY(pixel(0, 0).lightness() < 240 && pixel(0, 1) == QColor(Qt::white));
    QCOMPARE(pixel(1, 0), QColor(0xe5e5e5));
    QVERIFY(pixel(2, 0).lightness() < 0xe5);

    move(scene.window(), center(patches(item).at(1)));
    QTRY_COMPARE(pixel(1, -1), QColor(0xBA, 0xD6, 0xBD));
    QTRY_COMPARE(pixel(1, 0), QColor(Qt::white));
}

// Every way in which the colours of a palette become others or change places.
void tst_PaletteItem::follows()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    EditablePalette palette;
    auto *first = palette.add(colorList({ "#000001", "#000002" }));
    auto *second = palette.add(colorList({ "#000003" }));
    item->setPalette(&palette);
    const auto show = [&](std::initializer_list<const char *> names) {
        return colorsOf(item) == ta::test::names(names);
    };
    QVERIFY(show({ "#000001", "#000002", "#000003" }));
    first->setColors(colorList({ "#000002", "#000001" })); // the same set
    QVERIFY(show({ "#000002", "#000001", "#000003" }));
    palette.insertColor(QColor(0x000003)); // a colour that it has already
    QVERIFY(show({ "#000002", "#000001", "#000003", "#000003" }));
    palette.insertSwatch(second, 0); // another order
    QVERIFY(show({ "#000003", "#000002", "#000001", "#000003" }));
    palette.removeSwatch(first);
    QVERIFY(show({ "#000003" }));
    first->setColors({});
    palette.insertSwatch(first, 0);
    palette.insertColor(QColor(0x000009), -1, 0);
    QVERIFY(show({ "#000009", "#000003" }));
    delete second;
    QVERIFY(show({ "#000009" }));

    // Another palette; the first one is not followed any more.
    GlobalDefaultPalette other;
    item->setPalette(&other);
    QCOMPARE(colorsOf(item).count(), 42);
    const QVector<QQuickItem *> before = patches(item);
    palette.insertColor(QColor(0x000010));
    QCOMPARE(patches(item), before);
}

// What is there already is used again, where it is; only the surplus goes.
void tst_PaletteItem::reuse()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    EditablePalette palette;
    auto *swatch = palette.add(colorList({ "red", "lime", "blue", "black" }));
    item->setPalette(&palette);
    QVector<QPointer<QQuickItem>> before;
    const QVector<QQuickItem *> all = patches(item);
    for (QQuickItem *patch : all) {
        QCOMPARE(patch->parent(), item);
        before.append(patch);
    }
    palette.insertColor(Qt::white);
    QCOMPARE(patches(item).mid(0, 4), all);
    QCOMPARE(patches(item).count(), 5);
    swatch->setColors(colorList({ "white", "red" }));
    QCOMPARE(patches(item), all.mid(0, 2));
    QCOMPARE(item->childItems().count(), 2);
    QTRY_VERIFY(!before.at(2) && !before.at(3));
    QVERIFY(before.at(0) && before.at(1));
    GlobalDefaultPalette other;
    item->setPalette(&other);
    QCOMPARE(patches(item).mid(0, 2), all.mid(0, 2));
    item->setPalette(nullptr);
    QVERIFY(item->childItems().isEmpty());
    QTRY_VERIFY(!before.at(0));
}

void tst_PaletteItem::oneColorChanges()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    EditablePalette palette;
    for (int swatch = 0; swatch < 10; ++swatch) {
        QList<QColor> colors;
        for (int i = 0; i < 100; ++i)
            colors.append(QColor(swatch, i, 0));
        palette.add(colors);
    }
    item->setPalette(&palette);
    const QVector<QQuickItem *> before = patches(item);
    SignalLog log;
    for (QQuickItem *patch : before)
        log.watch(patch, { QStringLiteral("colorChanged"), QStringLiteral("colorPickerChanged"),
                           QStringLiteral("swatchIndexChanged"),
                           QStringLiteral("colorIndexChanged"), QStringLiteral("parentChanged") });
    palette.setColor(QColor(0xabcdef), 50, 7);
    QCOMPARE(patches(item), before);
    QCOMPARE(log.take(), names({ "colorChanged" }));
    QCOMPARE(before.at(750)->property("color").value<QColor>(), QColor(0xabcdef));
}

// Somebody else destroys patches: the next change makes new ones.
void tst_PaletteItem::patchesDestroyed()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    EditablePalette palette;
    palette.add(colorList({ "red", "lime", "blue" }));
    item->setPalette(&palette);
    QVERIFY(scene.waitForFrame());
    delete patches(item).at(1);
    item->setWidth(40);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(patches(item).at(1)->position(), QPointF(0, 27));
    palette.insertColor(Qt::black);
    QCOMPARE(colorsOf(item), names({ "#ff0000", "#00ff00", "#0000ff", "#000000" }));
    qDeleteAll(item->childItems());
    palette.insertColor(Qt::white);
    QCOMPARE(item->childItems().count(), 5);
}

// A palette or a picker that is destroyed is none from the next change on; until then the patches
// rest, without a complaint.
void tst_PaletteItem::partsGo()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    auto palette = std::make_unique<EditablePalette>();
    palette->add(colorList({ "black", "lime" }));
    item->setPalette(palette.get());
    QCOMPARE(statesOf(item), QStringList({ QStringLiteral("selected"), {} }));
    QVERIFY(scene.waitForFrame());
    delete scene.find<ColorPickerBase>("picker");
    QVERIFY(!item->colorPicker());
    QCOMPARE(statesOf(item), QStringList({ {}, {} }));
    click(scene.window(), center(patches(item).at(1)));
    palette->insertColor(Qt::red);
    QVERIFY(item->childItems().isEmpty());

    const auto picker = scene.create(QStringLiteral("UiColorPickerBase {}"));
    item->setColorPicker(qobject_cast<ColorPickerBase *>(picker.get()));
    QCOMPARE(item->childItems().count(), 3);
    palette.reset();
    QVERIFY(!item->palette());
    QVERIFY(scene.waitForFrame());
    click(scene.window(), center(patches(item).at(1)));
    QCOMPARE(item->colorPicker()->color(), QColor(Qt::green));
    EditablePalette next;
    item->setPalette(&next);
    QVERIFY(item->childItems().isEmpty());
}

void tst_PaletteItem::withoutContext()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    PaletteItem item(scene.root());
    GlobalDefaultPalette palette;
    item.setPalette(&palette);
    item.setColorPicker(scene.find<ColorPickerBase>("picker"));
    item.setWidth(100);
    QVERIFY(scene.waitForFrame());
    QVERIFY(item.childItems().isEmpty());
}

// While the patches become those of one palette, a handler sets another one and destroys swatches
// of the first: what counts is what is set last.
void tst_PaletteItem::handlersThatChange()
{
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    auto *item = scene.find<PaletteItem>("item");
    EditablePalette palette;
    palette.add(colorList({ "red", "lime", "blue" }));
    QPointer<EditableSwatch> second = palette.add(colorList({ "black" }));
    EditablePalette other;
    other.add(colorList({ "white", "gray" }));
    item->setPalette(&other);
    connect(item, &QQuickItem::childrenChanged, this, [&] {
        if (item->palette() == &palette) {
            delete second;
            item->setPalette(&other);
        }
    });
    for (int i = 0; i < 2; ++i) {
        item->setPalette(&palette);
        QCOMPARE(colorsOf(item), names({ "#ffffff", "#808080" }));
        QVERIFY(!second);
    }
}

void tst_PaletteItem::handlersThatDestroy()
{
    for (auto signal : { &PaletteItem::paletteChanged, &PaletteItem::colorPickerChanged }) {
        Scene scene(kScene);
        QVERIFY(scene.isValid());
        QPointer<PaletteItem> item = scene.find<PaletteItem>("item");
        ColorPickerBase *picker = item->colorPicker();
        item->setColorPicker(nullptr);
        GlobalDefaultPalette palette;
        connect(item, signal, this, [&item] { delete item; });
        item->setPalette(&palette);
        if (item)
            item->setColorPicker(picker);
        QVERIFY(!item);
    }

    // What follows the colours of the patches takes the item with it, in the middle of a rebuild.
    {
        Scene scene(kScene);
        QVERIFY(scene.isValid());
        QPointer<PaletteItem> item = scene.find<PaletteItem>("item");
        EditablePalette palette;
        auto *swatch = palette.add(colorList({ "red", "lime", "blue" }));
        item->setPalette(&palette);
        Destroyer destroyer(item);
        connect(patches(item).at(1), SIGNAL(colorChanged()), &destroyer, SLOT(destroy()));
        swatch->setColors(colorList({ "red", "black", "white" }));
        QVERIFY(!item);
    }

    // What follows the places of the patches takes the item with it, in the middle of a layout.
    Scene scene(kScene);
    QVERIFY(scene.isValid());
    QPointer<PaletteItem> item = scene.find<PaletteItem>("item");
    GlobalDefaultPalette palette;
    item->setPalette(&palette);
    connect(patches(item).at(20), &QQuickItem::xChanged, this, [&] { item->setPalette(nullptr); });
    connect(item, &QQuickItem::implicitHeightChanged, this, [&item] { delete item; });
    QTRY_VERIFY(!item);
}

TAMBER_TEST_MAIN(tst_PaletteItem)
#include "tst_paletteitem.moc"
