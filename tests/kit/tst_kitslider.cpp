#include "support/input.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/SliderBase>

using namespace ta::ui;
using namespace ta::test;

class tst_KitSlider : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void label();
    void keys();
};

// A label is no part of the track.
void tst_KitSlider::label()
{
    Scene scene(QStringLiteral("UiSlider { objectName: 'slider'; x: 50; y: 20; width: 200\n"
                               "text: 'Volume'; valueText: 'loud'; maximumText: '11' }"),
                QSize(300, 100));
    auto *slider = scene.find<SliderBase>("slider");
    click(scene.window(), QPoint(60, 30));
    QCOMPARE(slider->value(), 0.5);
    QVERIFY(!slider->hovered());
    click(scene.window(), QPoint(60, 20 + 36));
    QVERIFY(slider->value() < 0.1 && slider->hovered() && slider->hasActiveFocus());
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
        { Qt::Key_Up, 55 },     { Qt::Key_Left, 50 }, { Qt::Key_PageDown, 25 },
        { Qt::Key_PageUp, 50 }, { Qt::Key_End, 100 }, { Qt::Key_Right, 100 },
        { Qt::Key_Delete, 30 },
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

TAMBER_TEST_MAIN(tst_KitSlider)
#include "tst_kitslider.moc"
