#include "controls/scrollposition_p.h"
#include "support/testcase.h"

#include <limits>

using namespace ta::ui;
using namespace ta::test;

using View = VerticalScrollView;

class tst_ScrollPosition : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void arithmetic();
    void targets();
};

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = qQNaN();

} // namespace

void tst_ScrollPosition::arithmetic()
{
    QCOMPARE(scrollRange(1000, 200), 800.0);
    QCOMPARE(scrollRange(100, 200), 0.0);
    QCOMPARE(scrollRange(kNaN, 200), 0.0);
    QCOMPARE(boundedScrollPosition(900, -100, 800), 700.0);
    QCOMPARE(boundedScrollPosition(-kInf, -100, 800), -100.0);
    QCOMPARE(visibleRatio(200, 1000), 0.2);
    QCOMPARE(visibleRatio(200, 0.5), 1.0);
    for (double ratio : { 0.0, -0.5, 1.01, kInf, -kInf, kNaN })
        QCOMPARE(usableRatio(ratio), 1.0);
    QCOMPARE(usableRatio(0.01), 0.01);
    const int most = std::numeric_limits<int>::max();
    QCOMPARE(scrolledContentWidth(300, true, { 3, 5, false }), 280.0);
    QCOMPARE(scrolledContentWidth(300, true, { 3, 5, true }), 292.0);
    QCOMPARE(scrolledContentWidth(300, true, { most, most, false }), 0.0);

    const struct
    {
        double shown, target;
        qint64 elapsed;
        double position;
        bool isLast;
    } steps[] = {
        { 0, 110, 11, 11, false }, { 0, -110, 55, -55, false }, { 0, 110, -86400000, 10, false },
        { 0, 11, 10, 1, false },   { 0, 10.9, 10, 10.9, true },
    };
    for (const auto &step : steps) {
        const ScrollStep result = scrollStep(step.shown, step.target, step.elapsed);
        QCOMPARE(result.position, step.position);
        QCOMPARE(result.isLast, step.isLast);
    }

    QCOMPARE(wheelDistance(0.2, -120), 60.0);
    QCOMPARE(wheelDistance(0, 8), -5.0);
    QCOMPARE(autoScrollSpeedAt(80, 400, 0), -8.0);
    QCOMPARE(autoScrollSpeedAt(0, 400, -50), -50.0);
    QCOMPARE(autoScrollSpeedAt(80.5, 400, -50), 0.0);
    QCOMPARE(autoScrollSpeedAt(400, 400, 50), 50.0);
    QCOMPARE(autoScrollSpeedAt(50, 100, 0), -8.0);
    QCOMPARE(acceleratedScrollSpeed(-8), -8.8);
    QCOMPARE(acceleratedScrollSpeed(190), 200.0);
}

// In a view 200 high that shows 100 to 300.
void tst_ScrollPosition::targets()
{
    const struct
    {
        const char *what;
        int mode;
        double top, bottom, target;
    } rows[] = {
        { "contained", View::Contain, 100, 300, kNaN },
        { "below", View::Contain, 290, 310, 110 },
        { "higher than the view, from below", View::Contain, 200, 500, 200 },
        { "higher than the view, from above", View::Contain, -200, 150, -50 },
        { "center", View::Center, 500, 540, 420 },
        { "bottom", View::Bottom, 500, 540, 340 },
        { "no mode", 4, 500, 540, kNaN },
    };
    for (const auto &row : rows) {
        const ItemSpan item { row.top, row.bottom, row.bottom - row.top };
        const double target = scrollTarget(View::ScrollPosition(row.mode), 100, 200, item);
        QVERIFY2(target == row.target || (qIsNaN(target) && qIsNaN(row.target)), row.what);
    }
}

TAMBER_TEST_MAIN(tst_ScrollPosition)
#include "tst_scrollposition.moc"
