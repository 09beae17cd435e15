#include "controls/sliderposition_p.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/SliderBase>

#include <limits>

using namespace ta::ui;
using namespace ta::test;

class tst_SliderBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void valueAt();
    void positionOf();
    void positionsThatNeverArrive();
    void setters();
    void bounds();
    void orderInDocuments();
    void drag();
    void middleButton();
    void bindable();
    void hoverAndDisabling();
    void handlersThatMeddle();
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

void tst_SliderBase::valueAt()
{
    const int most = std::numeric_limits<int>::max();
    const struct
    {
        const char *name;
        double x;
        double width;
        int margin;
        SliderRange range;
        double value;
        QEasingCurve::Type type = QEasingCurve::Linear;
    } rows[] = {
        { "quarter", 50, 200, 0, { 0, 1 }, 0.25 },
        { "left of it", -30, 200, 0, { 0, 1 }, 0 },
        { "right of it", 500, 200, 0, { 0, 1 }, 1 },
        { "margin", 60, 220, 10, { -10, 10 }, -5 },
        { "in the margin", 4, 220, 10, { -10, 10 }, -10 },
        { "one pixel, left", 99, 150, 100, { 0, 1 }, 0 },
        { "one pixel, within", 100.5, 150, 100, { 0, 1 }, 0.5 },
        { "one pixel, right", 101, 150, 100, { 0, 1 }, 1 },
        { "no width", 0.25, kNaN, 0, { 0, 1 }, 0.25 },
        { "nowhere", kNaN, 200, 0, { 2, 3 }, 2 },
        { "beyond", kInf, 200, 0, { 2, 3 }, 3 },
        { "huge margin", 5, 200, most, { 0, 1 }, 0 },
        { "curve", 100, 200, 0, { 0, 100 }, 25, QEasingCurve::InQuad },
        { "overshoot", 180, 200, 0, { 0, 1 }, 1, QEasingCurve::OutBack },
        { "undershoot", 20, 200, 0, { 0, 1 }, 0, QEasingCurve::InBack },
        { "equal bounds", 20, 200, 0, { 7, 7 }, 7 },
    };
    for (const auto &row : rows) {
        const double value = sliderValueAt(row.x, row.width, row.margin, row.range, row.type);
        QVERIFY2(value == row.value, row.name);
    }
}

// There and back, over the whole range; in the middle of a symmetric curve without any search.
void tst_SliderBase::positionOf()
{
    const SliderRange range { -50, 150 };
    for (QEasingCurve::Type type :
         { QEasingCurve::Linear, QEasingCurve::InQuad, QEasingCurve::OutQuint,
           QEasingCurve::InOutCubic, QEasingCurve::InCirc, QEasingCurve::OutCirc }) {
        const QEasingCurve curve(type);
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
    }
    QCOMPARE(sliderPositionOf(0, { 0, 1 }, QEasingCurve::Linear), 1.0 / 1024);
    QCOMPARE(sliderPositionOf(1, { 0, 1 }, QEasingCurve::Linear), 1023.0 / 1024);
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
    QVERIFY(qIsNaN(sliderValueAt(50, 200, 0, { 0, 1 }, broken))); // which no slider stores
    const double huge = std::numeric_limits<double>::max();
    const double position = sliderPositionOf(huge, { -huge, huge }, QEasingCurve::Linear);
    QVERIFY(position >= 0 && position <= 1);
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

void tst_SliderBase::bounds()
{
    const QString minimum = QStringLiteral("minimumValueChanged");
    const QString maximum = QStringLiteral("maximumValueChanged");
    const QString value = QStringLiteral("valueChanged");
    const QString normalized = QStringLiteral("normalizedValueChanged");
    const struct
    {
        const char *property;
        double bound;
        double minimum;
        double maximum;
        double value;
        QStringList signalNames;
    } rows[] = {
        { "minimumValue", 0.25, 0.25, 1, 0.5, { minimum, normalized } },
        { "minimumValue", 0.75, 0.75, 1, 0.75, { minimum, value, normalized } },
        { "minimumValue", 2, 2, 2, 2, { minimum, maximum, value, normalized } },
        { "maximumValue", 3, 0, 3, 0.5, { maximum, normalized } },
        { "maximumValue", 0.25, 0, 0.25, 0.25, { maximum, value, normalized } },
        { "maximumValue", -2, -2, -2, -2, { maximum, minimum, value, normalized } },
        { "maximumValue", 1.00000000000001, 0, 1, 0.5, {} },
        { "minimumValue", kNaN, 0, 1, 0.5, {} },
        { "maximumValue", kNaN, 0, 1, 0.5, {} },
        { "minimumValue", -kInf, 0, 1, 0.5, {} },
        { "maximumValue", kInf, 0, 1, 0.5, {} },
    };
    for (const auto &row : rows) {
        SliderBase slider;
        SignalLog log;
        log.watch(&slider);
        slider.setProperty(row.property, row.bound);
        QCOMPARE(log.take(), row.signalNames);
        QCOMPARE(slider.minimumValue(), row.minimum);
        QCOMPARE(slider.maximumValue(), row.maximum);
        QCOMPARE(slider.value(), row.value);
    }
}

void tst_SliderBase::orderInDocuments()
{
    const QPair<const char *, double> rows[] = {
        { "value: 70; minimumValue: 50; maximumValue: 100", 70 },
        { "maximumValue: 100; minimumValue: 50; value: 70", 70 },
        { "property var v: [50, 70, 100]; minimumValue: v[0]; value: v[1]; maximumValue: v[2]",
          70 },
        { "value: 70; maximumValue: 60", 60 },
        { "value: NaN; maximumValue: 60", 0.5 },
    };
    for (const auto &row : rows) {
        Scene scene(QStringLiteral("UiSliderBase { objectName: 'slider'; %1 }")
                        .arg(QLatin1String(row.first)));
        auto *slider = scene.find<SliderBase>("slider");
        QCOMPARE(slider->value(), row.second);
        // Later, the value follows its bounds as ever.
        slider->setMaximumValue(1);
        slider->setMaximumValue(100);
        QCOMPARE(slider->value(), qMin(1.0, row.second));
    }
}

// Also outside of the slider, and also in something that could scroll instead.
void tst_SliderBase::drag()
{
    Scene scene(QStringLiteral("Flickable { objectName: 'flickable'; anchors.fill: parent;"
                               "contentWidth: 3000; contentHeight: 3000; %1 }")
                    .arg(QLatin1String(kSlider)));
    auto *slider = scene.find<SliderBase>("slider");
    move(scene.window(), at(100));
    SignalLog log;
    log.watch(slider);
    press(scene.window(), at(50));
    QCOMPARE(slider->value(), 0.25);
    QCOMPARE(log.take(), names({ "valueChanged", "normalizedValueChanged", "pressedChanged" }));
    for (int x = 0; x <= 150; x += 10)
        move(scene.window(), at(x) + QPoint(0, x));
    QCOMPARE(slider->value(), 0.75);
    move(scene.window(), at(-30));
    QCOMPARE(slider->value(), 0.0);
    move(scene.window(), QPoint(700, 500));
    QCOMPARE(slider->value(), 1.0);
    QVERIFY(slider->pressed());
    release(scene.window(), QPoint(700, 500));
    QVERIFY(!slider->pressed());
    QCOMPARE(scene.find("flickable")->property("contentY").toInt(), 0);
}

void tst_SliderBase::middleButton()
{
    Scene scene { QLatin1String(kSlider) };
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
    QCOMPARE(log.take(), QStringList());

    // No release reaches a slider that its own handler disabled, so it must not be pressed either.
    scene.root()->setEnabled(true);
    connect(slider, &SliderBase::valueChanged, [&] { slider->setEnabled(false); });
    press(scene.window(), at(100));
    QVERIFY(!slider->isEnabled() && !slider->pressed());
    release(scene.window(), at(100));
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

// What the pointer leads to may end the slider. Presses are sent to it directly: a window does not
// survive that its items are destroyed by them.
void tst_SliderBase::handlersThatDestroy()
{
    const QPair<void (SliderBase::*)(), Qt::MouseButton> rows[] = {
        { &SliderBase::valueChanged, Qt::LeftButton },
        { &SliderBase::pressedChanged, Qt::LeftButton },
        { &SliderBase::resetRequested, Qt::MiddleButton },
        { &SliderBase::hoveredChanged, Qt::NoButton }, // by being disabled
        { &SliderBase::pressedChanged, Qt::NoButton },
    };
    for (const auto &row : rows) {
        Scene scene { QLatin1String(kSlider) };
        const QPointer<SliderBase> slider = scene.find<SliderBase>("slider");
        if (row.second == Qt::NoButton) {
            move(scene.window(), at(50));
            press(scene.window(), at(50));
        }
        connect(slider, row.first, [&] { delete slider; });
        if (row.second == Qt::NoButton) {
            slider->setEnabled(false);
        } else {
            QMouseEvent event(QEvent::MouseButtonPress, QPointF(50, 10), row.second, row.second,
                              {});
            QCoreApplication::sendEvent(slider, &event);
        }
        QVERIFY(!slider);
    }
}

TAMBER_TEST_MAIN(tst_SliderBase)
#include "tst_sliderbase.moc"
