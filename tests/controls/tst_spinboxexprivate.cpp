#include "controls/spinboxnumbers_p.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/SpinBoxExPrivate>

#include <limits>
#include <utility>

using namespace ta::ui;
using namespace ta::test;

class tst_SpinBoxExPrivate : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void steps();
    void everyNumberOfDecimals();
    void texts();
    void thereAndBack();
    void values();
    void decimals();
    void bounds();
    void handlersThatDestroy();
};

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kMax = std::numeric_limits<double>::max();

// The texts of an object are in the locale that is the default at the time.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QString &name) { QLocale::setDefault(QLocale(name)); }
    ~DefaultLocale() { QLocale::setDefault(QLocale::system()); }
};

bool same(double a, double b)
{
    return (qIsNaN(a) && qIsNaN(b)) || a == b || qFuzzyCompare(a, b)
           || (qAbs(a) < 1e-9 && qAbs(b) < 1e-9);
}

} // namespace

void tst_SpinBoxExPrivate::steps()
{
    const struct
    {
        double value;
        int decimals;
        double above, below;
    } rows[] = {
        { 1.3, 1, 1.4, 1.2 }, // on the grid
        { 1.26, 1, 1.4, 1.2 },
        { 1.24, 1, 1.3, 1.1 },
        { 2.5, 0, 3, 1 }, // halves to even
        { 3.5, 0, 5, 3 },
        { 0.125, 2, 0.13, 0.11 },
        { -2.5, 0, -1, -3 },
        { -1.26, 1, -1.2, -1.4 },
        { -0.04, 1, 0.1, -0.1 },
        { 0.12345678916, 10, 0.1234567893, 0.1234567891 },
        { 999999.99, 2, 1000000, 999999.98 },
        { 1e300, 10, 1e300, 1e300 }, // finer than a double
        { kMax, 0, kMax, kMax },
        { -kMax, 0, -kMax, -kMax },
        { qQNaN(), 1, qQNaN(), qQNaN() },
        { kInf, 1, qQNaN(), qQNaN() },
        { -kInf, 1, qQNaN(), qQNaN() },
    };
    SpinBoxExPrivate box;
    for (const auto &row : rows) {
        box.setDecimals(row.decimals);
        const QByteArray number = QByteArray::number(row.value, 'g', 17);
        QVERIFY2(same(box.stepUp(row.value), row.above), number.constData());
        QVERIFY2(same(box.stepDown(row.value), row.below), number.constData());
    }
}

// A walk over the grid, written out, has every digit right at each number of decimals; and a value
// off the grid lands on it.
void tst_SpinBoxExPrivate::everyNumberOfDecimals()
{
    const QLocale c = QLocale::c();
    for (int decimals = 0; decimals <= 10; ++decimals) {
        const double step = std::pow(10, -decimals);
        const double start = -57 * step;
        double up = start;
        double down = -start;
        for (int i = -56; i <= 57; ++i) {
            up = numberAbove(up, decimals, kMax);
            down = numberBelow(down, decimals, -kMax);
            const double wanted = i * step;
            QVERIFY2(qAbs(up - wanted) < step / 1e3, qPrintable(QString::number(up, 'g', 17)));
            QVERIFY2(qAbs(down + wanted) < step / 1e3, qPrintable(QString::number(down, 'g', 17)));
        }
        QCOMPARE(numberText(numberAbove(7.3 * step, decimals, kMax), decimals, c),
                 numberText(8 * step, decimals, c));
        QCOMPARE(numberText(numberBelow(7.3 * step, decimals, -kMax), decimals, c),
                 numberText(6 * step, decimals, c));
        QCOMPARE(numberAbove(57 * step, decimals, 57.5 * step), 57.5 * step);
        QCOMPARE(numberBelow(57 * step, decimals, 56.5 * step), 56.5 * step);
    }
}

void tst_SpinBoxExPrivate::texts()
{
    const double none = qQNaN();
    const struct
    {
        const char *locale;
        const char *text;
        double number;
    } rows[] = {
        { "en_US", "1.5", 1.5 },
        { "en_US", "-1,234.5", -1234.5 },
        { "en_US", " 12 ", 12 },
        { "en_US", "1e3", 1000 },
        { "en_US", "12 apples", none },
        { "en_US", "", none },
        { "en_US", "nan", none },
        { "en_US", "1e999", none },
        { "de_DE", "1,5", 1.5 },
        { "de_DE", "1.5", 1.5 }, // as C has it
        { "de_DE", "1.500", 1500 },
        { "de_DE", "-1.234.567,25", -1234567.25 },
        { "de_DE", "1,5,5", none },
        { "fr_FR", "1,5", 1.5 },
        { "fr_FR", "1.5", 1.5 },
        { "fr_FR", "1\u202f500,5", 1500.5 },
        { "ar_EG", "\u0661\u066b\u0665", 1.5 },
        { "ar_EG", "1.5", 1.5 },
        { "ar_EG", "-2", -2 },
        { "ar_EG", "\u0661.5", none }, // half of each
        { "hi_IN", "1.5", 1.5 },
        { "hi_IN", "1,23,456.5", 123456.5 },
        { "hi_IN", "\u0915", none },
    };
    for (const auto &row : rows) {
        const QLocale locale(QLatin1String(row.locale));
        QVERIFY2(same(numberOf(QString::fromUtf8(row.text), locale), row.number), row.text);
    }
}

// What is shown in a locale is read in it as the same number.
void tst_SpinBoxExPrivate::thereAndBack()
{
    const std::pair<const char *, const char *> rows[] = {
        { "en_US", "1234567.8" },
        { "de_DE", "1234567,8" },
        { "fr_FR", "1234567,8" },
        { "ar_EG", "\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u066b\u0668" },
        { "hi_IN", "1234567.8" },
    };
    for (const auto &row : rows) {
        const DefaultLocale locale(QLatin1String(row.first));
        SpinBoxExPrivate box;
        QCOMPARE(box.parseNumber(box.displayString()), 0.0);
        box.setValue(1234567.8);
        QCOMPARE(box.displayString(), QString::fromUtf8(row.second));
        for (double value : { 1234567.8, -1234567.8, -0.1, 42.0 }) {
            box.setValue(value);
            QCOMPARE(box.parseNumber(box.displayString()), value);
        }
    }
}

void tst_SpinBoxExPrivate::values()
{
    const DefaultLocale german(QStringLiteral("de_DE"));
    SpinBoxExPrivate box;
    QCOMPARE(box.displayString(), QStringLiteral("0,0"));
    SignalLog log;
    log.watch(&box);
    const QStringList both = names({ "valueChanged", "displayStringChanged" });
    const struct
    {
        double written;
        double stored;
        const char *text;
        QStringList signalNames;
    } steps[] = {
        { qQNaN(), 0, "0,0", {} },
        { kInf, 0, "0,0", {} },
        { 1e-13, 0, "0,0", {} },
        { -1e-12, 0, "0,0", {} },
        { 1e-11, 1e-11, "0,0", names({ "valueChanged" }) },
        { 2.24, 2.24, "2,2", both },
        { 2.24 + 1e-13, 2.24, "2,2", {} },
        { 2.26, 2.26, "2,3", both },
        { 1234567, 1234567, "1234567,0", both },
        { -kInf, 1234567, "1234567,0", {} },
        { -1e-13, 0, "0,0", both },
    };
    for (const auto &step : steps) {
        box.setValue(step.written);
        QCOMPARE(box.value(), step.stored);
        QCOMPARE(box.displayString(), QString::fromLatin1(step.text));
        QCOMPARE(log.take(), step.signalNames);
    }
    box.setMaximum(5);
    box.setValue(kMax); // only input keeps to the bounds
    QCOMPARE(box.value(), kMax);
    QCOMPARE(box.displayString().length(), 309 + 2);
}

void tst_SpinBoxExPrivate::decimals()
{
    SpinBoxExPrivate box;
    box.setValue(1.0 / 3);
    SignalLog log;
    log.watch(&box);
    const QStringList both = names({ "decimalsChanged", "displayStringChanged" });
    box.setDecimals(15);
    QCOMPARE(box.decimals(), 10);
    QCOMPARE(box.displayString(), QStringLiteral("0.3333333333"));
    QCOMPARE(log.take(), both);
    box.setDecimals(11);
    QCOMPARE(log.take(), QStringList());
    box.setDecimals(-3);
    QCOMPARE(box.displayString(), QStringLiteral("0"));
    QCOMPARE(log.take(), both);
}

// Neither bound passes the other. What is parsed and stepped keeps to them, what is written does
// not.
void tst_SpinBoxExPrivate::bounds()
{
    const DefaultLocale german(QStringLiteral("de_DE"));
    SpinBoxExPrivate box;
    QCOMPARE(box.maximum(), kMax);
    QCOMPARE(box.minimum(), -kMax);
    box.setValue(50);
    SignalLog log;
    log.watch(&box);
    for (double wrong : { qQNaN(), kInf, -kInf }) {
        box.setMinimum(wrong);
        box.setMaximum(wrong);
    }
    QCOMPARE(log.take(), QStringList());
    box.setMaximum(10);
    box.setMinimum(20);
    QCOMPARE(box.minimum(), 10.0);
    box.setMinimum(0);
    box.setMaximum(-5);
    QCOMPARE(box.maximum(), 0.0);
    box.setMaximum(-7); // where it is
    QCOMPARE(log.take(),
             names({ "maximumChanged", "minimumChanged", "minimumChanged", "maximumChanged" }));
    QCOMPARE(box.value(), 50.0);

    box.setMaximum(10);
    const std::pair<QString, double> texts[] = {
        { QStringLiteral("12"), 10 },
        { QStringLiteral("-1"), 0 },
        { QStringLiteral("inf"), 10 },
        { QStringLiteral("2,5"), 2.5 },
        { QStringLiteral("zehn"), qQNaN() },
        { QString(1000000, QLatin1Char('7')), qQNaN() },
        { QString(1000000, QLatin1Char('0')) + QLatin1Char('3'), 3 },
    };
    for (const auto &text : texts)
        QVERIFY2(same(box.parseNumber(text.first), text.second), qPrintable(text.first.left(9)));
    QCOMPARE(box.stepUp(9.96), 10.0);
    QCOMPARE(box.stepUp(20), 10.0);
    QCOMPARE(box.stepDown(-3), 0.0);
    QCOMPARE(box.stepDown(20), 19.9); // each step knows the bound that it goes to
}

void tst_SpinBoxExPrivate::handlersThatDestroy()
{
    auto *box = new SpinBoxExPrivate;
    connect(box, &SpinBoxExPrivate::valueChanged, [&] { delete box; });
    box->setValue(5);
    box = new SpinBoxExPrivate;
    connect(box, &SpinBoxExPrivate::decimalsChanged, [&] { delete box; });
    box->setDecimals(5);
}

TAMBER_TEST_MAIN(tst_SpinBoxExPrivate)
#include "tst_spinboxexprivate.moc"
