// variants: scale2 x11
#include "palettes/palettes.h"

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
    void initTestCase() { Scene::useKit(); }
    void places();
    void nothingToShow();
    void choosing();
    void looks();
    void follows();
    void reuse();
    void partsGo();
    void handlersThatChange();
    void handlersThatDestroy();
};

namespace {

// A shown palette item, 200 wide, with its picker.
class ItemScene : public Scene
{
public:
    explicit ItemScene(const QSize &size = QSize(800, 600))
        : Scene(QStringLiteral("Rectangle { anchors.fill: parent }\n"
                               "UiColorPickerBase { id: pick; objectName: 'picker' }\n"
                               "UiPaletteItem { objectName: 'item'; x: 20; y: 20; width: 200\n"
                               "colorPicker: pick }\n"),
                size),
          item(find<PaletteItem>("item")), picker(find<ColorPickerBase>("picker"))
    {
    }

    /// In display order.
    QVector<QQuickItem *> patches() const
    {
        QVector<QQuickItem *> all = item->childItems().toVector();
        const auto key = [](const QQuickItem *patch) {
            return std::make_pair(patch->property("swatchIndex").toInt(),
                                  patch->property("colorIndex").toInt());
        };
        std::sort(all.begin(), all.end(),
                  [&](const QQuickItem *a, const QQuickItem *b) { return key(a) < key(b); });
        return all;
    }
    /// What each patch has as \a property.
    QStringList each(const char *property) const
    {
        QStringList values;
        const QVector<QQuickItem *> all = patches();
        for (const QQuickItem *patch : all)
            values.append(patch->property(property).toString());
        return values;
    }

    const QPointer<PaletteItem> item;
    const QPointer<ColorPickerBase> picker;
};

} // namespace

void tst_PaletteItem::places()
{
    ItemScene scene;
    GlobalDefaultPalette palette;
    scene.item->setPalette(&palette);
    const QVector<QQuickItem *> before = scene.patches();
    QCOMPARE(before.count(), 42);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(before.at(6)->position(), QPointF(137, 0));
    QCOMPARE(before.at(8)->position(), QPointF(0, 27));
    QCOMPARE(scene.item->implicitHeight(), before.last()->y() + 22);
    scene.item->setWidth(21.9);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.patches(), before);
    QCOMPARE(before.last()->position(), QPointF(0, 42 * 27));
    QCOMPARE(scene.item->implicitHeight(), 42 * 27 + 22.0);
}

void tst_PaletteItem::nothingToShow()
{
    ItemScene scene;
    SignalLog log;
    log.watch(scene.item,
              { QStringLiteral("paletteChanged"), QStringLiteral("colorPickerChanged") });
    scene.item->setColorPicker(scene.picker);
    scene.item->setColorPicker(nullptr);
    GlobalDefaultPalette palette;
    scene.item->setPalette(&palette);
    QCOMPARE(log.take(), names({ "colorPickerChanged", "paletteChanged" }));
    QVERIFY(scene.item->childItems().isEmpty());

    scene.item->setColorPicker(scene.picker);
    QTRY_VERIFY(scene.item->implicitHeight() > 0);
    scene.item->setColorPicker(nullptr);
    QVERIFY(scene.item->childItems().isEmpty());
    QTRY_COMPARE(scene.item->implicitHeight(), 0.0);

    PaletteItem withoutContext(scene.root()); // it cannot make patches
    withoutContext.setPalette(&palette);
    withoutContext.setColorPicker(scene.picker);
}

void tst_PaletteItem::choosing()
{
    ItemScene scene;
    EditablePalette palette;
    palette.add(colorList({ "#ee4f4f", "#5b9555", "#ee4f4f" }));
    palette.add(colorList({ "#123456" }));
    scene.item->setPalette(&palette);
    QVERIFY(scene.waitForFrame());
    const QVector<QQuickItem *> all = scene.patches();
    const QString s = QStringLiteral("selected");

    click(scene.window(), center(all.at(3)));
    QCOMPARE(scene.picker->color(), QColor(0x123456));
    move(scene.window(), QPoint(500, 500));
    QCOMPARE(scene.each("state"), QStringList({ {}, {}, {}, s }));
    scene.picker->setColor(QColor(0xee4f4f));
    QCOMPARE(scene.each("state"), QStringList({ s, {}, s, {} })); // both are that colour
    scene.picker->setIndeterminate(true);
    QCOMPARE(scene.each("state"), QStringList({ {}, {}, {}, {} }));
    scene.picker->setIndeterminate(false);

    scene.picker->setBindable(true);
    QSignalSpy requests(scene.picker, &ColorPickerBase::updateRequested);
    click(scene.window(), center(all.at(1)));
    QCOMPARE(requests.count(), 1);
    QCOMPARE(requests.first().first().value<QColor>(), QColor(0x5b9555));
    QCOMPARE(scene.each("state"), QStringList({ s, QStringLiteral("hovered"), s, {} }));
    QCOMPARE(all.at(1)->z(), 2.0); // above the rings of its neighbours
}

// Read from the window: the rings lie inside and outside of the patch, and a light patch has an
// edge.
void tst_PaletteItem::looks()
{
    ItemScene scene(QSize(300, 100));
    EditablePalette palette;
    for (const char *color : { "#ffffff", "#e5e5e5", "#e6e6e6", "#2040c0" })
        palette.add(colorList({ color }));
    scene.item->setPalette(&palette);
    scene.picker->setColor(QColor(0x2040c0));
    move(scene.window(), QPoint(200, 80));
    const auto pixel = [&](int patch, int inside) { // from its left edge
        const QQuickItem *it = scene.patches().at(patch);
        const qreal ratio = scene.window()->effectiveDevicePixelRatio();
        const QPointF place = it->mapToScene(QPointF(inside + 0.5, it->height() / 2)) * ratio;
        return scene.window()->grabWindow().pixelColor(int(place.x()), int(place.y()));
    };
    QTRY_COMPARE(pixel(3, -1), QColor(0x98, 0xBE, 0x9C)); // fades in
    QTRY_COMPARE(pixel(3, 1), QColor(Qt::white));
    QCOMPARE(pixel(3, -3), QColor(0x98, 0xBE, 0x9C));
    QCOMPARE(pixel(3, 2), QColor(0x2040c0));
    QCOMPARE(pixel(1, 0), QColor(0xe5e5e5));
    QVERIFY(pixel(2, 0).lightness() < 0xe5);

    move(scene.window(), center(scene.patches().at(1)));
    QTRY_COMPARE(pixel(1, -1), QColor(0xBA, 0xD6, 0xBD));
}

// Every way in which the colours of a palette become others or change places.
void tst_PaletteItem::follows()
{
    ItemScene scene;
    EditablePalette palette;
    auto *first = palette.add(colorList({ "#000001", "#000002" }));
    auto *second = palette.add(colorList({ "#000003" }));
    scene.item->setPalette(&palette);
    const auto show = [&](std::initializer_list<const char *> names) {
        return scene.each("color") == ta::test::names(names);
    };
    QVERIFY(show({ "#000001", "#000002", "#000003" }));
    first->setColors(colorList({ "#000002", "#000001" })); // the same set
    QVERIFY(show({ "#000002", "#000001", "#000003" }));
    palette.insertColor(QColor(0x000003)); // a colour that it has already
    QVERIFY(show({ "#000002", "#000001", "#000003", "#000003" }));
    palette.insertSwatch(second, 0); // another order
    QVERIFY(show({ "#000003", "#000002", "#000001", "#000003" }));
    delete first;
    QVERIFY(show({ "#000003" }));

    // Another palette; the first one is not followed any more.
    GlobalDefaultPalette other;
    scene.item->setPalette(&other);
    const QVector<QQuickItem *> before = scene.patches();
    palette.insertColor(QColor(0x000010));
    QCOMPARE(scene.patches(), before);
}

// What is there already is used again, where it is, and told only what is new to it.
void tst_PaletteItem::reuse()
{
    ItemScene scene;
    EditablePalette palette;
    palette.add(colorList({ "red", "lime", "blue" }));
    auto *swatch = palette.add(colorList({ "black", "white" }));
    scene.item->setPalette(&palette);
    const QVector<QQuickItem *> all = scene.patches();
    const QVector<QPointer<QQuickItem>> before(all.begin(), all.end());
    SignalLog log;
    for (QQuickItem *patch : all)
        log.watch(patch, names({ "colorChanged", "colorPickerChanged", "swatchIndexChanged",
                                 "colorIndexChanged", "parentChanged" }));
    palette.setColor(QColor(0xabcdef), 1, 1);
    QCOMPARE(log.take(), names({ "colorChanged" }));
    QCOMPARE(scene.patches(), all);
    palette.insertColor(Qt::gray, -1, 1);
    QCOMPARE(scene.patches().mid(0, 5), all);
    palette.removeSwatch(swatch);
    QCOMPARE(scene.patches(), all.mid(0, 3));
    QTRY_VERIFY(!before.at(3) && !before.at(4));

    // Somebody else destroys one: the next change makes a new one.
    delete all.at(1);
    palette.insertColor(Qt::black);
    QCOMPARE(scene.each("color"), names({ "#ff0000", "#00ff00", "#0000ff", "#000000" }));
}

// A palette or a picker that is destroyed is none from the next change on; until then the patches
// rest, without a complaint.
void tst_PaletteItem::partsGo()
{
    ItemScene scene;
    auto palette = std::make_unique<EditablePalette>();
    palette->add(colorList({ "black", "lime" }));
    scene.item->setPalette(palette.get());
    QVERIFY(scene.waitForFrame());
    delete scene.picker;
    click(scene.window(), center(scene.patches().at(1)));
    palette->insertColor(Qt::red);
    QVERIFY(scene.item->childItems().isEmpty());

    const auto picker = scene.create(QStringLiteral("UiColorPickerBase {}"));
    scene.item->setColorPicker(qobject_cast<ColorPickerBase *>(picker.get()));
    palette.reset();
    QVERIFY(scene.waitForFrame());
    click(scene.window(), center(scene.patches().at(1)));
    QCOMPARE(scene.item->colorPicker()->color(), QColor(Qt::green));
}

// While the patches become those of one palette, a handler sets another one and destroys swatches
// of the first: what counts is what is set last.
void tst_PaletteItem::handlersThatChange()
{
    ItemScene scene;
    EditablePalette palette;
    palette.add(colorList({ "red", "lime", "blue" }));
    QPointer<EditableSwatch> second = palette.add(colorList({ "black" }));
    EditablePalette other;
    other.add(colorList({ "white", "gray" }));
    scene.item->setPalette(&other);
    connect(scene.item, &QQuickItem::childrenChanged, this, [&] {
        if (scene.item->palette() == &palette) {
            delete second;
            scene.item->setPalette(&other);
        }
    });
    scene.item->setPalette(&palette);
    QCOMPARE(scene.each("color"), names({ "#ffffff", "#808080" }));
    QVERIFY(!second);
}

void tst_PaletteItem::handlersThatDestroy()
{
    GlobalDefaultPalette palette;
    {
        ItemScene scene;
        connect(scene.item, &PaletteItem::paletteChanged, this, [&] { delete scene.item; });
        scene.item->setPalette(&palette);
        QVERIFY(!scene.item);
    }

    // What follows the colours of the patches takes the item with it, in the middle of a rebuild.
    {
        ItemScene scene;
        EditablePalette editable;
        auto *swatch = editable.add(colorList({ "red", "lime", "blue" }));
        scene.item->setPalette(&editable);
        on(scene.patches().at(1), QStringLiteral("colorChanged"), [&] { delete scene.item; });
        swatch->setColors(colorList({ "red", "black", "white" }));
        QVERIFY(!scene.item);
    }

    // What follows the places of the patches does, in the middle of a layout.
    ItemScene scene;
    scene.item->setPalette(&palette);
    connect(scene.patches().at(20), &QQuickItem::xChanged, this,
            [&] { scene.item->setPalette(nullptr); });
    connect(scene.item, &QQuickItem::implicitHeightChanged, this, [&] { delete scene.item; });
    QTRY_VERIFY(!scene.item);
}

TAMBER_TEST_MAIN(tst_PaletteItem)
#include "tst_paletteitem.moc"
