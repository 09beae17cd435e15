#include "support/testcase.h"

#include <QtCore/QMutex>
#include <QtCore/QRegularExpression>

#if defined(__SANITIZE_ADDRESS__)
// Reports of leaks name libraries only while they are loaded; the graphics driver's is not at the
// end.
extern "C" __attribute__((visibility("default"))) int dlclose(void *)
{
    return 0;
}
#endif

namespace ta::test {

namespace {

struct Expectation
{
    QRegularExpression pattern;
    bool met = false;
};

// Messages come from any thread.
QMutex s_mutex;
QVector<Expectation> s_expectations;
QStringList s_unexpected;
QtMessageHandler s_previousHandler = nullptr;

// Said by the platform plugins of a machine without a desktop; nothing a test could be wrong about.
bool isNoise(const QString &message)
{
    static const char *const beginnings[] = {
        "This plugin does not support propagateSizeHints()",
        "QStandardPaths: XDG_RUNTIME_DIR not set",
        "QXcbConnection: XCB error: 3 (BadWindow)", // a drag's end, told to a window that is gone
    };
    return std::any_of(std::begin(beginnings), std::end(beginnings), [&](const char *beginning) {
        return message.startsWith(QLatin1String(beginning));
    });
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        if (isNoise(message))
            return;
        QMutexLocker locker(&s_mutex);
        for (Expectation &expectation : s_expectations) {
            if (expectation.pattern.match(message).hasMatch()) {
                expectation.met = true;
                return;
            }
        }
        s_unexpected.append(message);
    }
    s_previousHandler(type, context, message);
}

} // namespace

void TestCase::expectWarning(const QString &pattern)
{
    QMutexLocker locker(&s_mutex);
    s_expectations.append({ QRegularExpression(pattern), false });
}

void TestCase::init()
{
    {
        QMutexLocker locker(&s_mutex);
        s_expectations.clear();
        s_unexpected.clear();
    }
    s_previousHandler = qInstallMessageHandler(handleMessage);
}

void TestCase::cleanup()
{
    qInstallMessageHandler(s_previousHandler);
    QStringList missing;
    for (const Expectation &expectation : qAsConst(s_expectations)) {
        if (!expectation.met)
            missing.append(expectation.pattern.pattern());
    }
    if (!s_unexpected.isEmpty())
        QFAIL(qPrintable(QStringLiteral("Unexpected: ") + s_unexpected.join(QLatin1String(" | "))));
    if (!missing.isEmpty())
        QFAIL(qPrintable(QStringLiteral("Never came: ") + missing.join(QLatin1String(" | "))));
}

} // namespace ta::test
