// variants: x11
#include "palettes/palettes.h"

#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ColorPickerBase>
#include <TamberUi/PaletteItem>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

using namespace ta::ui;
using namespace ta::test;

class tst_KitColors : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void patches();
    void ownColors();
    void editing();
    void mixerPointer_data();
    void mixerPointer();
    void mixerKeys();
    void mixerKeepsTheHue();
    void mixerAsks();
    void indeterminate();
    void hexField_data();
    void hexField();
    void numberFields();
    void faces();
    void button();
    void buttonAsks();
    void buttonPicksFromWindow();
};

namespace {

QString picker(const QString &properties)
{
    return QStringLiteral("property var asked: []\nRectangle { anchors.fill: parent }\n"
                          "UiColorPicker { objectName: 'picker'; x: 20; y: 20; %1\n"
                          "onUpdateRequested: asked.push(newValue) }\n")
        .arg(properties);
}

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

QVariantList asked(const Scene &scene)
{
    return scene.root()->property("asked").toList();
}

} // namespace

void tst_KitColors::patches()
{
    for (bool bindable : { false, true }) {
        Scene scene(picker(bindable ? QStringLiteral("bindable: true") : QString()));
        QVERIFY(scene.isValid());
        auto *item = scene.find("picker");
        QVERIFY(scene.waitForFrame());
        const QList<QQuickItem *> all = patchesOf(item);
        QCOMPARE(all.count(), 42);
        QCOMPARE(all.last()->mapToItem(item, QPointF()).x() + 22, 313.0); // three full rows
        click(scene.window(), center(all.at(7)));
        QCOMPARE(colorOf(item), QColor(bindable ? 0x000000 : 0xEE4F4F));
        QCOMPARE(asked(scene), bindable ? QVariantList { QColor(0xEE4F4F) } : QVariantList());
    }
}

// The picker's own list comes first; its transparent colour can be chosen.
void tst_KitColors::ownColors()
{
    Scene scene(picker(QStringLiteral("palette: ['transparent', '#123456']")));
    QVERIFY(scene.isValid());
    auto *item = scene.find<ColorPickerBase>("picker");
    QVERIFY(item->usesTransparent());
    QVERIFY(scene.waitForFrame());
    const QList<QQuickItem *> all = patchesOf(item);
    QCOMPARE(all.count(), 44);
    click(scene.window(), center(all.at(0)));
    QVERIFY(item->isTransparent());
    click(scene.window(), center(all.at(1)));
    QCOMPARE(item->color(), QColor(0x123456));
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
    Scene scene(picker(QString()));
    QVERIFY(scene.isValid());
    auto *item = scene.find<ColorPickerBase>("picker");
    auto *add = scene.find("addColorButton");
    auto *remove = scene.find("removeColorButton");
    QVERIFY(scene.waitForFrame());
    const auto colors = [&] { return palette->swatches().first()->colors(); };
    item->setColor(QColor(0x020202));
    QVERIFY(!add->isEnabled() && remove->isEnabled());
    item->setColor(QColor(0x030303));
    QVERIFY(add->isEnabled() && !remove->isEnabled());
    QVERIFY(item->hasCustomColor());
    click(scene.window(), center(add));
    QCOMPARE(colors(), colorList({ "#010101", "#020202", "#030303" }));
    QVERIFY(!add->isEnabled() && remove->isEnabled() && !item->hasCustomColor());
    item->setIndeterminate(true);
    QVERIFY(!add->isEnabled() && !remove->isEnabled());
    item->setIndeterminate(false);
    for (int rgb : { 0x020202, 0x010101, 0x030303 }) {
        item->setColor(QColor(rgb));
        QVERIFY(remove->isEnabled());
        QMetaObject::invokeMethod(remove, "clicked", Q_ARG(Qt::KeyboardModifiers, Qt::NoModifier));
        QVERIFY(!colors().contains(QColor(rgb)));
    }
    QVERIFY(palette->isEmpty() && add->isEnabled());
    item->setProperty("editable", false);
    QVERIFY(!scene.find("addColorButton"));
}

void tst_KitColors::mixerPointer_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<QPointF>("place"); // as fractions of the part
    QTest::addColumn<QColor>("color");
    const QByteArray field("colorField");
    const QByteArray lightness("lightnessBar");
    const QByteArray opacity("opacityBar");
    QTest::newRow("red") << field << QPointF(0, 0) << QColor(255, 0, 0, 128);
    QTest::newRow("cyan") << field << QPointF(0.5, 0) << QColor(0, 255, 255, 128);
    QTest::newRow("red again") << field << QPointF(1, 0) << QColor(255, 0, 0, 128);
    QTest::newRow("grey") << field << QPointF(0.3, 1) << QColor(128, 128, 128, 128);
    QTest::newRow("outside") << field << QPointF(-0.2, -3) << QColor(255, 0, 0, 128);
    QTest::newRow("white") << lightness << QPointF(0.5, 0) << QColor(255, 255, 255, 128);
    QTest::newRow("black") << lightness << QPointF(0.5, 1) << QColor(0, 0, 0, 128);
    QTest::newRow("opaque") << opacity << QPointF(0.5, 0) << QColor(0, 255, 0, 255);
    QTest::newRow("transparent") << opacity << QPointF(0.5, 1) << QColor(0, 255, 0, 0);
}

// Presses inside of a part and drags to the place.
void tst_KitColors::mixerPointer()
{
    QFETCH(QByteArray, part);
    QFETCH(QPointF, place);
    QFETCH(QColor, color);
    Scene scene(picker(QStringLiteral("mode: UiColorPicker.Mixer; color: '#8000ff00'")));
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    auto *item = scene.find(part);
    const QPointF point(place.x() * (item->width() - 1), place.y() * (item->height() - 1));
    press(scene.window(), center(item));
    QVERIFY(item->hasActiveFocus());
    QTest::mouseMove(scene.window(), item->mapToScene(point).toPoint());
    release(scene.window(), item->mapToScene(point).toPoint());
    const QColor mixed = colorOf(scene.find("picker"));
    const auto near = [](int a, int b) { return qAbs(a - b) <= 3; }; // the place is a whole pixel
    QVERIFY2(near(mixed.red(), color.red()) && near(mixed.green(), color.green())
                 && near(mixed.blue(), color.blue()) && mixed.alpha() == color.alpha(),
             qPrintable(mixed.name(QColor::HexArgb)));
}

void tst_KitColors::mixerKeys()
{
    Scene scene(picker(QStringLiteral("mode: UiColorPicker.Mixer; color: '#ff0000'")));
    QVERIFY(scene.isValid());
    auto *item = scene.find<ColorPickerBase>("picker");
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(scene.window(), code, modifiers);
        return item->color();
    };
    scene.find("colorField")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_Left), QColor(0xff0000)); // the end
    QCOMPARE(key(Qt::Key_Right).hslHue(), 3); // a hundredth of 360 degrees
    QCOMPARE(key(Qt::Key_Right, Qt::ShiftModifier).hslHue(), 39);
    QCOMPARE(key(Qt::Key_Down, Qt::ShiftModifier).hslSaturation(), 229); // a tenth of 255 less
    QCOMPARE(key(Qt::Key_Up, Qt::ShiftModifier).hslSaturation(), 255);
    scene.find("lightnessBar")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_Home), QColor(Qt::white));
    QCOMPARE(key(Qt::Key_End), QColor(Qt::black));
    QCOMPARE(key(Qt::Key_PageUp).lightness(), 26);
    scene.find("opacityBar")->forceActiveFocus();
    QCOMPARE(key(Qt::Key_PageDown).alpha(), 230);
    QCOMPARE(key(Qt::Key_Up).alpha(), 233);
    QCOMPARE(key(Qt::Key_End).alpha(), 0);
}

// Black, white and grey have no hue; the handle stays, and coming back from there finds the colour.
void tst_KitColors::mixerKeepsTheHue()
{
    Scene scene(picker(QStringLiteral("mode: UiColorPicker.Mixer; color: '#407fbf'")));
    QVERIFY(scene.isValid());
    auto *field = scene.find("colorField");
    const double hue = field->property("hue").toDouble();
    const double saturation = field->property("saturation").toDouble();
    QVERIFY(hue > 0.5 && hue < 0.65 && saturation > 0.4);
    auto *item = scene.find<ColorPickerBase>("picker");
    scene.find("lightnessBar")->forceActiveFocus();
    for (Qt::Key key : { Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown }) {
        QTest::keyClick(scene.window(), key);
        QCOMPARE(field->property("hue").toDouble(), hue);
        QCOMPARE(field->property("saturation").toDouble(), saturation);
    }
    QVERIFY(qAbs(item->color().hslHueF() - hue) < 0.02);

    // What the host writes is shown as it is.
    item->setColor(QColor(0x808080));
    QCOMPARE(field->property("hue").toDouble(), hue);
    QCOMPARE(field->property("saturation").toDouble(), 0.0);
    item->setColor(QColor(0x00ff00));
    QVERIFY(qAbs(field->property("hue").toDouble() - 1 / 3.0) < 0.001);
}

// The handles are where the host's colour is, not where the pointer has been.
void tst_KitColors::mixerAsks()
{
    Scene scene(
        picker(QStringLiteral("mode: UiColorPicker.Mixer; color: '#00ff00'; bindable: true")));
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    auto *field = scene.find("colorField");
    const double hue = field->property("hue").toDouble();
    click(scene.window(), field->mapToScene(QPointF(3, 3)).toPoint());
    QCOMPARE(asked(scene).count(), 1);
    QCOMPARE(colorOf(scene.find("picker")), QColor(0x00ff00));
    QCOMPARE(field->property("hue").toDouble(), hue);
    scene.find("picker")->setProperty("color", asked(scene).first());
    QVERIFY(qAbs(field->property("hue").toDouble() - 3 / (field->width() - 1)) < 1e-6);
}

void tst_KitColors::indeterminate()
{
    Scene scene(picker(QStringLiteral("mode: UiColorPicker.Mixer; color: '#8000ff00'")));
    QVERIFY(scene.isValid());
    auto *item = scene.find<ColorPickerBase>("picker");
    QVERIFY(scene.waitForFrame());
    const QImage before = scene.window()->grabWindow();
    item->setIndeterminate(true);
    QVERIFY(scene.window()->grabWindow() != before);
    for (const char *part : { "colorField", "lightnessBar", "opacityBar" })
        QVERIFY(!scene.find(part)->property("marked").toBool());
    for (const char *field : { "hexField", "redField", "opacityField" })
        QVERIFY(scene.find(field)->property("text").toString().isEmpty());
    // A colour that is picked now owes nothing to the one that is not shown.
    QQuickItem *field = scene.find("colorField");
    click(scene.window(), field->mapToScene(QPointF()).toPoint());
    QCOMPARE(item->color(), QColor(0xff0000));
    QVERIFY(item->isIndeterminate()); // which the host takes back
}

void tst_KitColors::hexField_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QColor>("color");
    const QColor before(0x22, 0x44, 0x66, 0x80);
    const auto opaque = [](QRgb rgb) { return QColor::fromRgba(0x80000000 | rgb); };
    QTest::newRow("six") << QStringLiteral("#ee4f4f") << opaque(0xee4f4f);
    QTest::newRow("three") << QStringLiteral("abc") << opaque(0xaabbcc);
    QTest::newRow("eight") << QStringLiteral("#40EE4F4F") << QColor::fromRgba(0x40ee4f4f);
    QTest::newRow("with spaces") << QStringLiteral(" 123456 ") << opaque(0x123456);
    QTest::newRow("five") << QStringLiteral("#12345") << before;
    QTest::newRow("a name") << QStringLiteral("red") << before;
    QTest::newRow("nothing") << QString() << before;
}

void tst_KitColors::hexField()
{
    QFETCH(QString, typed);
    QFETCH(QColor, color);
    Scene scene(picker(QStringLiteral("color: '#80224466'")));
    QVERIFY(scene.isValid());
    auto *field = scene.find("hexField");
    QCOMPARE(field->property("text").toString(), QStringLiteral("#224466"));
    field->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Backspace);
    for (const QChar &letter : typed)
        QTest::keyClick(scene.window(), letter.toLatin1());
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(colorOf(scene.find("picker")), color);
    QCOMPARE(field->property("typedText").toString(),
             QLatin1Char('#') + color.name().mid(1).toUpper());
}

void tst_KitColors::numberFields()
{
    Scene scene(picker(QStringLiteral("color: '#224466'; mode: UiColorPicker.Mixer")));
    QVERIFY(scene.isValid());
    const struct
    {
        const char *field;
        const char *typed;
        QRgb color;
    } rows[] = {
        { "redField", "255", 0xffff4466 },   { "greenField", "0", 0xffff0066 },
        { "blueField", "16", 0xffff0010 },   { "blueField", "999", 0xffff00ff },
        { "redField", "", 0xffff00ff },      { "opacityField", "50", 0x80ff00ff },
        { "opacityField", "0", 0x00ff00ff }, { "redField", "17", 0x001100ff },
    };
    for (const auto &row : rows) {
        scene.find(row.field)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(scene.window(), Qt::Key_Backspace);
        for (const char *letter = row.typed; *letter; ++letter)
            QTest::keyClick(scene.window(), *letter);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QCOMPARE(colorOf(scene.find("picker")).rgba(), row.color);
    }
    scene.find("redField")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Up);
    QCOMPARE(colorOf(scene.find("picker")).red(), 18);
    QTest::keyClick(scene.window(), Qt::Key_Down);
    QCOMPARE(colorOf(scene.find("picker")).red(), 17);
}

void tst_KitColors::faces()
{
    Scene scene(picker(QString()));
    QVERIFY(scene.isValid());
    auto *item = scene.find<ColorPickerBase>("picker");
    QVERIFY(scene.waitForFrame());
    QVERIFY(!scene.find("colorField"));
    click(scene.window(), center(scene.find("mixerButton")));
    QCOMPARE(item->mode(), ColorPickerBase::Mixer);
    QVERIFY(scene.find("colorField") && patchesOf(item).isEmpty());
    click(scene.window(), center(scene.find("swatchesButton")));
    QCOMPARE(item->mode(), ColorPickerBase::Swatches);
    QCOMPARE(patchesOf(item).count(), 42);
    click(scene.window(), center(scene.find("eyedropperButton")));
    QVERIFY(item->colorPickActive());
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!item->colorPickActive());
    item->setProperty("usesEyedropper", false);
    QVERIFY(!scene.find("eyedropperButton")->isVisible());
}

void tst_KitColors::button()
{
    Scene scene(QStringLiteral("property var asked: []\n"
                               "UiColorButton { objectName: 'button'; x: 20; y: 20; color: 'red'\n"
                               "onUpdateRequested: asked.push(newValue) }"));
    QVERIFY(scene.isValid());
    auto *button = scene.find("button");
    auto *anchor = scene.find<PopupAnchor>("buttonPopup");
    click(scene.window(), center(button));
    QCOMPARE(PopupStack::top(), anchor);
    auto *item = scene.find<ColorPickerBase>("buttonPicker");
    QVERIFY(item && item->color() == QColor(Qt::red));
    QTRY_COMPARE(anchor->popupItem()->opacity(), 1.0);
    QVERIFY(scene.waitForFrame());
    for (int patch : { 7, 8 }) {
        click(scene.window(), center(patchesOf(item).at(patch)));
        QCOMPARE(colorOf(button), colorOf(patchesOf(item).at(patch)));
        QCOMPARE(item->color(), colorOf(button));
    }
    QCOMPARE(asked(scene).count(), 2);
    item->setMode(ColorPickerBase::Mixer);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!PopupStack::top() && button->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_Space);
    item = qobject_cast<ColorPickerBase *>(anchor->popupItem()->findChild<ColorPickerBase *>());
    QVERIFY(item);
    QCOMPARE(item->mode(), ColorPickerBase::Mixer); // as it was left
    button->setEnabled(false);
    QVERIFY(!PopupStack::top());
}

void tst_KitColors::buttonAsks()
{
    Scene scene(
        QStringLiteral("property var asked: []\n"
                       "UiColorButton { objectName: 'button'; color: 'red'; bindable: true\n"
                       "onUpdateRequested: asked.push(newValue) }"));
    QVERIFY(scene.isValid());
    auto *button = scene.find("button");
    QMetaObject::invokeMethod(button, "show");
    scene.find<ColorPickerBase>("buttonPicker")->updateColor(Qt::blue);
    QCOMPARE(asked(scene), QVariantList { QColor(Qt::blue) });
    QCOMPARE(colorOf(button), QColor(Qt::red));
    QMetaObject::invokeMethod(button, "hide");
    QVERIFY(!PopupStack::top());
}

// The press that picks is outside of the popup, which stays.
void tst_KitColors::buttonPicksFromWindow()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent; color: '#7a3b19' }\n"
                               "UiColorButton { objectName: 'button'; x: 20; y: 20 }"));
    QVERIFY(scene.isValid());
    auto *button = scene.find("button");
    click(scene.window(), center(button));
    QVERIFY(scene.waitForFrame());
    auto *item = scene.find<ColorPickerBase>("buttonPicker");
    item->pickColor();
    QCoreApplication::processEvents();
    press(scene.window(), QPoint(700, 500));
    release(scene.window(), QPoint(700, 500));
    QCOMPARE(colorOf(button), QColor(0x7a3b19));
    QVERIFY(PopupStack::top());
    click(scene.window(), QPoint(700, 500));
    QVERIFY(!PopupStack::top());
}

TAMBER_TEST_MAIN(tst_KitColors)
#include "tst_kitcolors.moc"
