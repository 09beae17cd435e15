#include "support/input.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/SliderBase>

#include <QtGui/QAccessible>

using namespace ta::ui;
using namespace ta::test;

class tst_KitSlider : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void looks();
    void keys();
    void accessibility();
};

// The states can be told apart by the picture alone, and a label is no part of the track.
void tst_KitSlider::looks()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }\n"
                               "UiSlider { objectName: 'slider'; x: 50; y: 20; width: 200\n"
                               "text: 'Volume'; valueText: 'loud'; maximumText: '11' }"),
                QSize(300, 100));
    auto *slider = scene.find<SliderBase>("slider");
    const QPoint handle = QPoint(150, 20 + 36);
    QVector<QImage> pictures;
    const auto take = [&] { pictures.append(scene.window()->grabWindow()); };
    move(scene.window(), QPoint(60, 30)); // on the label
    QVERIFY(!slider->hovered());
    click(scene.window(), QPoint(60, 30));
    QCOMPARE(slider->value(), 0.5);
    take();
    move(scene.window(), handle);
    QVERIFY(slider->hovered());
    take();
    press(scene.window(), handle);
    QVERIFY(slider->pressed() && slider->hasActiveFocus());
    QCOMPARE(slider->value(), 0.5);
    take();
    release(scene.window(), handle);
    move(scene.window(), QPoint(60, 30));
    slider->setFocus(false);
    slider->forceActiveFocus();
    take();
    slider->setFocus(false);
    slider->setEnabled(false);
    take();
    for (int i = 0; i < pictures.count(); ++i) {
        for (int j = i + 1; j < pictures.count(); ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j), qPrintable(QString::number(10 * i + j)));
    }
}

void tst_KitSlider::keys()
{
    Scene scene(QStringLiteral("property var asked: []; property int passed: 0\n"
                               "Keys.onPressed: ++passed\n"
                               "UiSlider { objectName: 'slider'; value: 50; maximumValue: 100\n"
                               "resetValue: 30; onUpdateRequested: asked.push(newValue) }"));
    auto *slider = scene.find<SliderBase>("slider");
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(slider->hasActiveFocus());
    const struct
    {
        Qt::Key key;
        double value;
    } rows[] = {
        { Qt::Key_Right, 55 }, { Qt::Key_Up, 60 },       { Qt::Key_Left, 55 },
        { Qt::Key_Down, 50 },  { Qt::Key_PageDown, 25 }, { Qt::Key_PageDown, 0 },
        { Qt::Key_Left, 0 },   { Qt::Key_PageUp, 25 },   { Qt::Key_End, 100 },
        { Qt::Key_Home, 0 },   { Qt::Key_Delete, 30 },
    };
    for (const auto &row : rows) {
        QTest::keyClick(scene.window(), row.key);
        QCOMPARE(slider->value(), row.value);
    }
    slider->setProperty("stepSize", 2);
    QTest::keyClick(scene.window(), Qt::Key_Right);
    QCOMPARE(slider->value(), 32.0);
    QCOMPARE(scene.root()->property("passed").toInt(), 0);
    QTest::keyClick(scene.window(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(scene.window(), Qt::Key_A);
    QCOMPARE(scene.root()->property("passed").toInt(), 3); // Alt itself is the third

    slider->setBindable(true);
    QTest::keyClick(scene.window(), Qt::Key_End);
    QTest::keyClick(scene.window(), Qt::Key_Delete);
    QCOMPARE(slider->value(), 32.0);
    QCOMPARE(scene.root()->property("asked").toList(), QVariantList({ 100.0, 30.0 }));
}

void tst_KitSlider::accessibility()
{
    Scene scene(QStringLiteral("UiSlider { objectName: 'slider'; text: 'Name'; value: 50\n"
                               "maximumValue: 100; minimumValue: -100; valueText: '50 %' }"));
    auto *slider = scene.find<SliderBase>("slider");
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(slider);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::Slider);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    QCOMPARE(accessible->text(QAccessible::Description), QStringLiteral("50 %"));
    QVERIFY(accessible->state().focusable);
    QAccessibleValueInterface *value = accessible->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->minimumValue().toDouble(), -100.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);
    value->setCurrentValue(70);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(slider->value(), 60.0);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(value->currentValue().toDouble(), 70.0);
}

TAMBER_TEST_MAIN(tst_KitSlider)
#include "tst_kitslider.moc"
