// variants: x11
#include "palettes/palettes.h"

#include "support/input.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/ColorPickerBase>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

using namespace ta::ui;
using namespace ta::test;

class tst_KitColors : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void ownColors();
    void editing();
    void mixerPointer();
    void mixerKeys();
    void mixerKeepsTheHue();
    void indeterminate();
    void hexField();
    void faces();
    void button();
};

namespace {

class PickerScene : public Scene
{
public:
    explicit PickerScene(const char *properties = "")
        : Scene(QStringLiteral("Rectangle { anchors.fill: parent }\n"
                               "UiColorPicker { objectName: 'picker'; x: 20; y: 20; %1 }")
                    .arg(QLatin1String(properties))),
          picker(find<ColorPickerBase>("picker"))
    {
        waitForFrame();
    }

    /// Sets the whole text of a field, as a person does.
    void type(const char *field, const QByteArray &text)
    {
        find(field)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window(), Qt::Key_Backspace);
        for (char letter : text)
            QTest::keyClick(window(), letter);
        QTest::keyClick(window(), Qt::Key_Return);
    }

    ColorPickerBase *const picker;
};

QColor colorOf(const QObject *object)
{
    return object->property("color").value<QColor>();
}

QList<QQuickItem *> patchesOf(const QQuickItem *item)
{
    QList<QQuickItem *> patches;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (child->metaObject()->indexOfProperty("swatchIndex") >= 0)
            patches.append(child);
        else
            patches += patchesOf(child);
    }
    return patches;
}

} // namespace

// The picker's own list comes first; its transparent colour can be chosen.
void tst_KitColors::ownColors()
{
    PickerScene scene("palette: ['transparent', '#123456']");
    QVERIFY(scene.picker->usesTransparent());
    const QList<QQuickItem *> all = patchesOf(scene.picker);
    QCOMPARE(all.count(), 2 + 42);
    for (int patch : { 0, 1, 9 }) {
        click(scene.window(), center(all.at(patch)));
        QCOMPARE(scene.picker->color(), colorOf(all.at(patch)));
        QCOMPARE(scene.picker->isTransparent(), patch == 0);
    }
}

// The buttons beside a palette that is not read-only add and remove the chosen colour.
void tst_KitColors::editing()
{
    EditablePalette *palette = nullptr;
    const Provider provider([&] {
        palette = new EditablePalette;
        palette->add(colorList({ "#010101", "#020202" }));
        return palette;
    });
    PickerScene scene;
    ColorPickerBase *item = scene.picker;
    auto *add = scene.find("addColorButton");
    auto *remove = scene.find("removeColorButton");
    const auto colors = [&] { return palette->swatches().first()->colors(); };
    item->setColor(QColor(0x030303));
    QVERIFY(add->isEnabled() && !remove->isEnabled());
    QVERIFY(item->hasCustomColor());
    click(scene.window(), center(add));
    QCOMPARE(colors(), colorList({ "#010101", "#020202", "#030303" }));
    QVERIFY(!add->isEnabled() && remove->isEnabled() && !item->hasCustomColor());
    item->setIndeterminate(true);
    QVERIFY(!add->isEnabled() && !remove->isEnabled());
    item->setIndeterminate(false);
    item->setColor(QColor(0x020202));
    QMetaObject::invokeMethod(remove, "clicked", Q_ARG(Qt::KeyboardModifiers, Qt::NoModifier));
    QCOMPARE(colors(), colorList({ "#010101", "#030303" }));
    item->setProperty("editable", false);
    QVERIFY(!scene.find("addColorButton"));
}

// Presses inside of a part and drags to the place.
void tst_KitColors::mixerPointer()
{
    const struct
    {
        const char *part;
        QPointF place; // as fractions of the part
        QRgb color;
    } rows[] = {
        { "colorField", { 0.5, 0 }, 0x8000ffff },   { "colorField", { 0.3, 1 }, 0x80808080 },
        { "colorField", { -0.2, -3 }, 0x80ff0000 }, { "lightnessBar", { 0.5, 0 }, 0x80ffffff },
        { "opacityBar", { 0.5, 1 }, 0x0000ff00 },
    };
    PickerScene scene("mode: UiColorPicker.Mixer");
    for (const auto &row : rows) {
        scene.picker->setColor(QColor(0, 255, 0, 128));
        auto *item = scene.find(row.part);
        const QPointF point(row.place.x() * (item->width() - 1),
                            row.place.y() * (item->height() - 1));
        press(scene.window(), center(item));
        QVERIFY(item->hasActiveFocus());
        QTest::mouseMove(scene.window(), item->mapToScene(point).toPoint());
        release(scene.window(), item->mapToScene(point).toPoint());
        const QColor mixed = scene.picker->color();
        const auto near = [](int a, int b) { return qAbs(a - b) <= 3; }; // it is a whole pixel
        QVERIFY2(near(mixed.red(), qRed(row.color)) && near(mixed.green(), qGreen(row.color))
                     && near(mixed.blue(), qBlue(row.color)) && mixed.alpha() == qAlpha(row.color),
                 qPrintable(mixed.name(QColor::HexArgb)));
    }
}

void tst_KitColors::mixerKeys()
{
    PickerScene scene("mode: UiColorPicker.Mixer; color: '#ff0000'");
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(scene.window(), code, modifiers);
        return scene.picker->color();
    };
    scene.find("colorField")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_Left), QColor(0xff0000)); // the end
    QCOMPARE(key(Qt::Key_Right).hslHue(), 3); // a hundredth of 360 degrees
    QCOMPARE(key(Qt::Key_Down, Qt::ShiftModifier).hslSaturation(), 229); // a tenth of 255 less
    QCOMPARE(key(Qt::Key_Up, Qt::ShiftModifier).hslSaturation(), 255);
    scene.find("lightnessBar")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_End), QColor(Qt::black));
    QCOMPARE(key(Qt::Key_PageUp).lightness(), 26);
    scene.find("opacityBar")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_PageDown).alpha(), 230);
    QCOMPARE(key(Qt::Key_End).alpha(), 0);
}

// Black, white and grey have no hue; the handle stays, and coming back from there finds the colour.
void tst_KitColors::mixerKeepsTheHue()
{
    PickerScene scene("mode: UiColorPicker.Mixer; color: '#407fbf'");
    auto *field = scene.find("colorField");
    const double hue = field->property("hue").toDouble();
    const double saturation = field->property("saturation").toDouble();
    QVERIFY(hue > 0.5 && hue < 0.65 && saturation > 0.4);
    scene.find("lightnessBar")->forceActiveFocus();
    for (Qt::Key key : { Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown }) {
        QTest::keyClick(scene.window(), key);
        QCOMPARE(field->property("hue").toDouble(), hue);
        QCOMPARE(field->property("saturation").toDouble(), saturation);
    }
    QVERIFY(qAbs(scene.picker->color().hslHueF() - hue) < 0.02);
}

void tst_KitColors::indeterminate()
{
    PickerScene scene("mode: UiColorPicker.Mixer; color: '#8000ff00'");
    ColorPickerBase *item = scene.picker;
    item->setIndeterminate(true);
    for (const char *field : { "hexField", "redField", "opacityField" })
        QVERIFY(scene.find(field)->property("text").toString().isEmpty());
    // A colour that is picked now owes nothing to the one that is not shown.
    QQuickItem *field = scene.find("colorField");
    click(scene.window(), field->mapToScene(QPointF()).toPoint());
    QCOMPARE(item->color(), QColor(0xff0000));
    QVERIFY(item->isIndeterminate()); // which the host takes back
}

void tst_KitColors::hexField()
{
    const struct
    {
        const char *typed;
        QRgb color;
    } rows[] = {
        { "#ee4f4f", 0x80ee4f4f },
        { "abc", 0x80aabbcc },
        { "#40EE4F4F", 0x40ee4f4f },
        { "#12345", 0x80224466 },
    };
    PickerScene scene;
    for (const auto &row : rows) {
        scene.picker->setColor(QColor(0x22, 0x44, 0x66, 0x80));
        QCOMPARE(scene.find("hexField")->property("text").toString(), QStringLiteral("#224466"));
        scene.type("hexField", row.typed);
        QCOMPARE(scene.picker->color().rgba(), row.color);
        QCOMPARE(scene.find("hexField")->property("typedText").toString(),
                 scene.picker->color().name().toUpper());
    }
}

void tst_KitColors::faces()
{
    PickerScene scene;
    ColorPickerBase *item = scene.picker;
    QVERIFY(!scene.find("colorField"));
    click(scene.window(), center(scene.find("mixerButton")));
    QCOMPARE(item->mode(), ColorPickerBase::Mixer);
    QVERIFY(scene.find("colorField") && patchesOf(item).isEmpty());
    click(scene.window(), center(scene.find("eyedropperButton")));
    QVERIFY(item->colorPickActive());
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!item->colorPickActive());
}

void tst_KitColors::button()
{
    Scene scene(QStringLiteral("property int told: 0\n"
                               "Rectangle { anchors.fill: parent; color: '#7a3b19' }\n"
                               "UiColorButton { objectName: 'button'; x: 20; y: 20; color: 'red'\n"
                               "onUpdateRequested: ++told }"));
    auto *button = scene.find("button");
    auto *anchor = scene.find<PopupAnchor>("buttonPopup");
    click(scene.window(), center(button));
    QCOMPARE(PopupStack::top(), anchor);
    auto *item = scene.find<ColorPickerBase>("buttonPicker");
    QVERIFY(item && item->color() == QColor(Qt::red));
    QTRY_COMPARE(anchor->popupItem()->opacity(), 1.0);
    QVERIFY(scene.waitForFrame());
    click(scene.window(), center(patchesOf(item).at(7)));
    QCOMPARE(colorOf(button), colorOf(patchesOf(item).at(7)));

    // The press that picks from the window is outside of the popup, which stays.
    item->pickColor();
    QCoreApplication::processEvents();
    click(scene.window(), QPoint(700, 500));
    QCOMPARE(colorOf(button), QColor(0x7a3b19));
    QCOMPARE(scene.root()->property("told").toInt(), 2);
    QCOMPARE(PopupStack::top(), anchor);

    item->setMode(ColorPickerBase::Mixer);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!PopupStack::top() && button->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_Space);
    item = anchor->popupItem()->findChild<ColorPickerBase *>();
    QVERIFY(item);
    QCOMPARE(item->mode(), ColorPickerBase::Mixer); // as it was left
}

TAMBER_TEST_MAIN(tst_KitColors)
#include "tst_kitcolors.moc"
