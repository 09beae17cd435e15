#include "controls/sliderposition_p.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/SliderBase>

#include <limits>

using namespace ta::ui;
using namespace ta::test;

Q_DECLARE_METATYPE(QEasingCurve::Type)

class tst_SliderBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void valueAt_data();
    void valueAt();
    void positionOf_data();
    void positionOf();
    void positionsThatNeverArrive();
    void costs();
    void setters();
    void bounds_data();
    void bounds();
    void orderInDocuments_data();
    void orderInDocuments();
    void drag();
    void flickableAround();
    void middleButton();
    void bindable();
    void hoverAndDisabling();
    void disabledByHandler();
    void handlersThatMeddle();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
};

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = qQNaN();
const char kSlider[] =
    "UiSliderBase { objectName: 'slider'; x: 100; y: 100; width: 200; height: 20 }";

// A position in the slider, in the window.
QPoint at(int x)
{
    return QPoint(100 + x, 110);
}

double constantCurve(double)
{
    return 0.25;
}

double brokenCurve(double)
{
    return qQNaN();
}

} // namespace

void tst_SliderBase::valueAt_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("margin");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QEasingCurve::Type>("type");
    QTest::addColumn<double>("value");
    const auto linear = QEasingCurve::Linear;
    QTest::newRow("quarter") << 50.0 << 200.0 << 0 << 0.0 << 1.0 << linear << 0.25;
    QTest::newRow("left of it") << -30.0 << 200.0 << 0 << 0.0 << 1.0 << linear << 0.0;
    QTest::newRow("right of it") << 500.0 << 200.0 << 0 << 0.0 << 1.0 << linear << 1.0;
    QTest::newRow("margin") << 60.0 << 220.0 << 10 << -10.0 << 10.0 << linear << -5.0;
    QTest::newRow("in the margin") << 4.0 << 220.0 << 10 << -10.0 << 10.0 << linear << -10.0;
    QTest::newRow("one pixel, left") << 99.0 << 150.0 << 100 << 0.0 << 1.0 << linear << 0.0;
    QTest::newRow("one pixel, within") << 100.5 << 150.0 << 100 << 0.0 << 1.0 << linear << 0.5;
    QTest::newRow("one pixel, right") << 101.0 << 150.0 << 100 << 0.0 << 1.0 << linear << 1.0;
    QTest::newRow("zero width") << 5.0 << 0.0 << 0 << 0.0 << 1.0 << linear << 1.0;
    QTest::newRow("no width") << 0.25 << kNaN << 0 << 0.0 << 1.0 << linear << 0.25;
    QTest::newRow("nowhere") << kNaN << 200.0 << 0 << 2.0 << 3.0 << linear << 2.0;
    QTest::newRow("beyond") << kInf << 200.0 << 0 << 2.0 << 3.0 << linear << 3.0;
    QTest::newRow("huge margin") << 5.0 << 200.0 << std::numeric_limits<int>::max() << 0.0 << 1.0
                                 << linear << 0.0;
    QTest::newRow("curve") << 100.0 << 200.0 << 0 << 0.0 << 100.0 << QEasingCurve::InQuad << 25.0;
    QTest::newRow("overshoot") << 180.0 << 200.0 << 0 << 0.0 << 1.0 << QEasingCurve::OutBack << 1.0;
    QTest::newRow("undershoot") << 20.0 << 200.0 << 0 << 0.0 << 1.0 << QEasingCurve::InBack << 0.0;
    QTest::newRow("equal bounds") << 20.0 << 200.0 << 0 << 7.0 << 7.0 << linear << 7.0;
}

void tst_SliderBase::valueAt()
{
    QFETCH(double, x);
    QFETCH(double, width);
    QFETCH(int, margin);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QEasingCurve::Type, type);
    QTEST(sliderValueAt(x, width, margin, { minimum, maximum }, type), "value");
}

void tst_SliderBase::positionOf_data()
{
    QTest::addColumn<QEasingCurve::Type>("type");
    QTest::newRow("Linear") << QEasingCurve::Linear;
    QTest::newRow("InQuad") << QEasingCurve::InQuad;
    QTest::newRow("OutQuint") << QEasingCurve::OutQuint;
    QTest::newRow("InOutCubic") << QEasingCurve::InOutCubic;
    QTest::newRow("InCirc") << QEasingCurve::InCirc;
    QTest::newRow("OutCirc") << QEasingCurve::OutCirc;
}

// There and back, over the whole range; in the middle of a symmetric curve without any search.
void tst_SliderBase::positionOf()
{
    QFETCH(QEasingCurve::Type, type);
    const QEasingCurve curve(type);
    const SliderRange range { -50, 150 };
    double last = 0;
    for (int i = 0; i <= 100; ++i) {
        const double value = range.minimum + 2 * i;
        const double position = sliderPositionOf(value, range, curve);
        QVERIFY(position >= last && position <= 1);
        const double back = sliderValueAt(position * 200, 200, 0, range, curve);
        QVERIFY2(qAbs(back - value) < 0.2, qPrintable(QString::number(value)));
        last = position;
    }
    const double middle = sliderValueAt(100, 200, 0, range, curve);
    QCOMPARE(sliderPositionOf(middle, range, curve), 0.5);
    QCOMPARE(sliderPositionOf(middle + 0.19, range, curve), 0.5); // less than a thousandth
    if (type == QEasingCurve::Linear) {
        QCOMPARE(sliderPositionOf(0, { 0, 1 }, curve), 1.0 / 1024);
        QCOMPARE(sliderPositionOf(1, { 0, 1 }, curve), 1023.0 / 1024);
        QCOMPARE(sliderPositionOf(0.25, { 0, 1 }, curve), 0.25);
    }
}

// The search ends where no position will do, and says which end is nearer.
void tst_SliderBase::positionsThatNeverArrive()
{
    QCOMPARE(sliderPositionOf(3, { 3, 3 }, QEasingCurve::Linear), 0.0);
    QEasingCurve constant;
    constant.setCustomType(constantCurve);
    QCOMPARE(sliderPositionOf(0.25, { 0, 1 }, constant), 0.5);
    QVERIFY(sliderPositionOf(0, { 0, 1 }, constant) < 1e-6);
    QVERIFY(sliderPositionOf(1, { 0, 1 }, constant) > 1 - 1e-6);
    QEasingCurve broken;
    broken.setCustomType(brokenCurve);
    const double anywhere = sliderPositionOf(0.25, { 0, 1 }, broken);
    QVERIFY(anywhere >= 0 && anywhere <= 1);
    const double huge = std::numeric_limits<double>::max();
    const double position = sliderPositionOf(huge, { -huge, huge }, QEasingCurve::Linear);
    QVERIFY(position >= 0 && position <= 1);
}

void tst_SliderBase::costs()
{
    SliderBase slider;
    QVERIFY(slider.children().isEmpty());
    QVERIFY(slider.childItems().isEmpty());
    QVERIFY(!slider.flags().testFlag(QQuickItem::ItemHasContents));
    QCOMPARE(slider.acceptedMouseButtons(), Qt::LeftButton | Qt::MiddleButton);
    QVERIFY(slider.acceptHoverEvents());
    QVERIFY(slider.keepMouseGrab());
    QVERIFY(!slider.activeFocusOnTab());
    QVERIFY(qIsNaN(slider.resetValue()));
    QCOMPARE(slider.easing(), QEasingCurve(QEasingCurve::Linear));
}

// What is written, what is kept, what is announced.
void tst_SliderBase::setters()
{
    SliderBase slider;
    SignalLog log;
    log.watch(&slider);
    const QStringList value = names({ "valueChanged", "normalizedValueChanged" });
    const struct
    {
        double written;
        double stored;
        QStringList signalNames;
    } values[] = {
        { 0.5000000000001, 0.5, {} }, { kNaN, 0.5, {} }, { 0.25, 0.25, value }, { -3, 0, value },
        { 1e-13, 1e-13, value }, // only 0 is like 0
        { kInf, 1, value },           { 2, 1, {} },      { -kInf, 0, value },
    };
    for (const auto &row : values) {
        slider.setValue(row.written);
        QCOMPARE(slider.value(), row.stored);
        QCOMPARE(log.take(), row.signalNames);
    }

    slider.setMargin(4);
    slider.setMargin(4);
    slider.setBindable(true);
    slider.setBindable(true);
    slider.setEasing(QEasingCurve::Linear);
    slider.setEasing(QEasingCurve::InQuad);
    slider.setEasing(QEasingCurve::InQuad);
    slider.setEasing(QEasingCurve::Linear);
    slider.setResetValue(kNaN);
    slider.setResetValue(0.75);
    slider.setResetValue(0.75000000000001);
    slider.setResetValue(kNaN);
    QCOMPARE(log.take(), names({ "marginChanged", "bindableChanged", "easingChanged",
                                 "easingChanged", "resetValueChanged", "resetValueChanged" }));
    QVERIFY(qIsNaN(slider.resetValue()));

    // The host's own binding writes, bindable or not.
    slider.setValue(0.75);
    QCOMPARE(log.take(), value);
    QCOMPARE(slider.normalizedValue(), 0.75);
    slider.setEasing(QEasingCurve::InQuad);
    QVERIFY(qAbs(slider.normalizedValue() - std::sqrt(0.75)) < 0.001);
}

void tst_SliderBase::bounds_data()
{
    QTest::addColumn<bool>("isMinimum");
    QTest::addColumn<double>("bound");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<QStringList>("signalNames");
    const bool min = true;
    const bool max = false;
    QTest::newRow("minimum") << min << 0.25 << 0.25 << 1.0 << 0.5
                             << names({ "minimumValueChanged", "normalizedValueChanged" });
    QTest::newRow("minimum above value")
        << min << 0.75 << 0.75 << 1.0 << 0.75
        << names({ "minimumValueChanged", "valueChanged", "normalizedValueChanged" });
    QTest::newRow("minimum above maximum") << min << 2.0 << 2.0 << 2.0 << 2.0
                                           << names({ "minimumValueChanged", "maximumValueChanged",
                                                      "valueChanged", "normalizedValueChanged" });
    QTest::newRow("maximum") << max << 3.0 << 0.0 << 3.0 << 0.5
                             << names({ "maximumValueChanged", "normalizedValueChanged" });
    QTest::newRow("maximum below value")
        << max << 0.25 << 0.0 << 0.25 << 0.25
        << names({ "maximumValueChanged", "valueChanged", "normalizedValueChanged" });
    QTest::newRow("maximum below minimum") << max << -2.0 << -2.0 << -2.0 << -2.0
                                           << names({ "maximumValueChanged", "minimumValueChanged",
                                                      "valueChanged", "normalizedValueChanged" });
    QTest::newRow("same maximum") << max << 1.00000000000001 << 0.0 << 1.0 << 0.5 << QStringList();
    QTest::newRow("minimum NaN") << min << kNaN << 0.0 << 1.0 << 0.5 << QStringList();
    QTest::newRow("maximum NaN") << max << kNaN << 0.0 << 1.0 << 0.5 << QStringList();
    QTest::newRow("minimum infinite") << min << -kInf << 0.0 << 1.0 << 0.5 << QStringList();
    QTest::newRow("maximum infinite") << max << kInf << 0.0 << 1.0 << 0.5 << QStringList();
}

void tst_SliderBase::bounds()
{
    QFETCH(bool, isMinimum);
    QFETCH(double, bound);
    SliderBase slider;
    SignalLog log;
    log.watch(&slider);
    if (isMinimum)
        slider.setMinimumValue(bound);
    else
        slider.setMaximumValue(bound);
    QTEST(log.take(), "signalNames");
    QTEST(slider.minimumValue(), "minimum");
    QTEST(slider.maximumValue(), "maximum");
    QTEST(slider.value(), "value");
}

void tst_SliderBase::orderInDocuments_data()
{
    QTest::addColumn<QString>("properties");
    QTest::addColumn<double>("value");
    QTest::newRow("value first") << "value: 70; minimumValue: 50; maximumValue: 100" << 70.0;
    QTest::newRow("value last") << "maximumValue: 100; minimumValue: 50; value: 70" << 70.0;
    QTest::newRow("bindings") << "property var v: [50, 70, 100]; minimumValue: v[0];"
                                 "value: v[1]; maximumValue: v[2]"
                              << 70.0;
    QTest::newRow("outside") << "value: 70; maximumValue: 60" << 60.0;
    QTest::newRow("not a number") << "value: NaN; maximumValue: 60" << 0.5;
    QTest::newRow("none") << "maximumValue: 60; minimumValue: -60" << 0.5;
}

void tst_SliderBase::orderInDocuments()
{
    QFETCH(QString, properties);
    Scene scene(QStringLiteral("UiSliderBase { objectName: 'slider'; ") + properties
                + QLatin1Char('}'));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    QTEST(slider->value(), "value");
    // Later, the value follows its bounds as ever.
    slider->setMaximumValue(1);
    slider->setMaximumValue(100);
    QCOMPARE(slider->value(), qMin(1.0, slider->value()));
}

void tst_SliderBase::drag()
{
    Scene scene { QLatin1String(kSlider) };
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    move(scene.window(), at(100));
    SignalLog log;
    log.watch(slider);
    press(scene.window(), at(50));
    QCOMPARE(slider->value(), 0.25);
    QVERIFY(slider->pressed());
    QCOMPARE(log.take(), names({ "valueChanged", "normalizedValueChanged", "pressedChanged" }));
    move(scene.window(), at(-30)); // also outside
    QCOMPARE(slider->value(), 0.0);
    move(scene.window(), QPoint(700, 500));
    QCOMPARE(slider->value(), 1.0);
    QVERIFY(slider->pressed());
    release(scene.window(), QPoint(700, 500));
    QVERIFY(!slider->pressed());
    log.take();
    move(scene.window(), at(20));
    click(scene.window(), at(20), Qt::RightButton);
    QCOMPARE(slider->value(), 1.0);
    QCOMPARE(log.count(QStringLiteral("pressedChanged")), 0);

    // A wheel and keys go on to others.
    slider->forceActiveFocus();
    wheel(scene.window(), at(20), 1);
    QTest::keyClick(scene.window(), Qt::Key_Left);
    QCOMPARE(slider->value(), 1.0);
}

void tst_SliderBase::flickableAround()
{
    Scene scene(QStringLiteral("Flickable { objectName: 'flickable'; anchors.fill: parent;"
                               "contentWidth: 3000; contentHeight: 3000;")
                + QLatin1String(kSlider) + QLatin1Char('}'));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    press(scene.window(), at(10));
    for (int x = 10; x <= 150; x += 10)
        move(scene.window(), at(x) + QPoint(0, x));
    QCOMPARE(slider->value(), 0.75);
    QVERIFY(slider->pressed());
    release(scene.window(), at(150));
    QCOMPARE(scene.find("flickable")->property("contentY").toInt(), 0);
}

void tst_SliderBase::middleButton()
{
    Scene scene { QLatin1String(kSlider) };
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    SignalLog log;
    log.watch(slider, names({ "valueChanged", "pressedChanged", "resetRequested" }));
    press(scene.window(), at(50), Qt::MiddleButton);
    move(scene.window(), at(150));
    release(scene.window(), at(150), Qt::MiddleButton);
    QCOMPARE(log.take(), names({ "resetRequested" }));
    QCOMPARE(slider->value(), 0.5);

    slider->setResetValue(5); // between the bounds: 1
    click(scene.window(), at(50), Qt::MiddleButton);
    QCOMPARE(slider->value(), 1.0);
    QCOMPARE(log.take(), names({ "valueChanged" }));
    slider->setResetValue(kInf);
    slider->setValue(0);
    slider->reset();
    QCOMPARE(slider->value(), 1.0);
    log.take();

    // While it is held, the left button resets, too, and nothing drags.
    slider->setResetValue(0.5);
    press(scene.window(), at(50), Qt::MiddleButton);
    slider->setValue(0);
    press(scene.window(), at(50), Qt::LeftButton);
    QCOMPARE(slider->value(), 0.5);
    move(scene.window(), at(180));
    QCOMPARE(slider->value(), 0.5);
    QVERIFY(!slider->pressed());
    release(scene.window(), at(50), Qt::MiddleButton);
    move(scene.window(), at(150)); // the left one is still held
    QCOMPARE(slider->value(), 0.75);
    release(scene.window(), at(50), Qt::LeftButton);
    QCOMPARE(log.count(QStringLiteral("pressedChanged")), 0);
}

void tst_SliderBase::bindable()
{
    Scene scene(QStringLiteral("property real stored: 0.5; property var asked: []\n"
                               "UiSliderBase { objectName: 'slider'; x: 100; y: 100; width: 200;"
                               "height: 20; bindable: true; value: stored;"
                               "onUpdateRequested: asked.push(newValue) }"));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    SignalLog log;
    log.watch(slider, names({ "valueChanged", "normalizedValueChanged", "resetRequested" }));
    click(scene.window(), at(50));
    click(scene.window(), at(50));
    click(scene.window(), at(100)); // where it is
    slider->setResetValue(-4);
    click(scene.window(), at(100), Qt::MiddleButton);
    QCOMPARE(scene.root()->property("asked").toList(), QVariantList({ 0.25, 0.25, 0.5, 0.0 }));
    QCOMPARE(slider->value(), 0.5);
    QCOMPARE(log.take(), QStringList());
    scene.root()->setProperty("stored", 0.75);
    QCOMPARE(slider->value(), 0.75);
    slider->setResetValue(kNaN);
    slider->reset();
    QCOMPARE(log.take(), names({ "valueChanged", "normalizedValueChanged", "resetRequested" }));
}

void tst_SliderBase::hoverAndDisabling()
{
    Scene scene { QLatin1String(kSlider) };
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    SignalLog log;
    log.watch(slider, names({ "hoveredChanged", "pressedChanged" }));
    move(scene.window(), at(50));
    QVERIFY(slider->hovered());
    move(scene.window(), QPoint(400, 400));
    QVERIFY(!slider->hovered());
    move(scene.window(), at(50));
    press(scene.window(), at(50));
    QCOMPARE(log.take(),
             names({ "hoveredChanged", "hoveredChanged", "hoveredChanged", "pressedChanged" }));
    scene.root()->setEnabled(false); // by an ancestor
    QVERIFY(!slider->hovered() && !slider->pressed());
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    move(scene.window(), at(150));
    QCOMPARE(slider->value(), 0.25);
    release(scene.window(), at(150));
    scene.root()->setEnabled(true);
    scene.root()->setEnabled(false);
    QCOMPARE(log.count(QStringLiteral("pressedChanged")), 0);
}

// No release reaches a disabled slider, so it must not be pressed either.
void tst_SliderBase::disabledByHandler()
{
    Scene scene { QLatin1String(kSlider) };
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    connect(slider, &SliderBase::valueChanged, [&] { slider->setEnabled(false); });
    press(scene.window(), at(50));
    QVERIFY(!slider->pressed());
    release(scene.window(), at(50));
}

// Whatever a handler sets in between, the value ends up between the bounds.
void tst_SliderBase::handlersThatMeddle()
{
    SliderBase slider;
    connect(&slider, &SliderBase::minimumValueChanged, [&] { slider.setValue(-100); });
    connect(&slider, &SliderBase::maximumValueChanged, [&] {
        if (slider.maximumValue() > 1)
            slider.setMaximumValue(1.5);
    });
    connect(&slider, &SliderBase::valueChanged, [&] {
        if (slider.value() > 1.25)
            slider.setValue(1.25);
    });
    for (double bound : { 2.0, -5.0, 7.0, 0.0 }) {
        slider.setMinimumValue(bound);
        QVERIFY(slider.minimumValue() <= slider.value());
        QVERIFY(slider.value() <= slider.maximumValue());
    }
}

void tst_SliderBase::handlersThatDestroy_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *signal :
         { "valueChanged", "normalizedValueChanged", "minimumValueChanged", "maximumValueChanged",
           "hoveredChanged", "pressedChanged", "updateRequested", "resetRequested" })
        QTest::newRow(signal) << QByteArray(signal);
}

// Each signal, on every way that leads to it, may end the slider. Presses are sent to it directly:
// a window does not survive that its items are destroyed by them.
void tst_SliderBase::handlersThatDestroy()
{
    QFETCH(QByteArray, signal);
    enum Way { Press, BindablePress, MiddlePress, Disable, Minimum, Maximum, WayCount };
    int destroyed = 0;
    for (int way = 0; way < WayCount; ++way) {
        Scene scene { QLatin1String(kSlider) };
        QVERIFY(scene.isValid());
        QPointer<SliderBase> slider = scene.find<SliderBase>("slider");
        const auto destroy = [&] { delete slider.data(); };
        if (way == Disable) {
            move(scene.window(), at(50));
            press(scene.window(), at(50));
        }
        slider->setBindable(way == BindablePress);
        if (signal == "valueChanged")
            connect(slider, &SliderBase::valueChanged, destroy);
        else if (signal == "normalizedValueChanged")
            connect(slider, &SliderBase::normalizedValueChanged, destroy);
        else if (signal == "minimumValueChanged")
            connect(slider, &SliderBase::minimumValueChanged, destroy);
        else if (signal == "maximumValueChanged")
            connect(slider, &SliderBase::maximumValueChanged, destroy);
        else if (signal == "hoveredChanged")
            connect(slider, &SliderBase::hoveredChanged, destroy);
        else if (signal == "pressedChanged")
            connect(slider, &SliderBase::pressedChanged, destroy);
        else if (signal == "updateRequested")
            connect(slider, &SliderBase::updateRequested, destroy);
        else
            connect(slider, &SliderBase::resetRequested, destroy);
        switch (way) {
        case Press:
        case BindablePress:
        case MiddlePress: {
            const Qt::MouseButton button = way == MiddlePress ? Qt::MiddleButton : Qt::LeftButton;
            QMouseEvent event(QEvent::MouseButtonPress, QPointF(50, 10), button, button, {});
            QCoreApplication::sendEvent(slider, &event);
            break;
        }
        case Disable:
            slider->setEnabled(false);
            break;
        case Minimum:
            slider->setMinimumValue(2);
            break;
        case Maximum:
            slider->setMaximumValue(-2);
            break;
        }
        destroyed += !slider;
    }
    QVERIFY(destroyed > 0);
}

TAMBER_TEST_MAIN(tst_SliderBase)
#include "tst_sliderbase.moc"
