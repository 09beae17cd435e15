#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/Icon>

#include <QtCore/QRegularExpression>

using namespace ta::ui;
using namespace ta::test;

namespace {

// The renderer's own report of its last frame.
int s_batches = 0;
QtMessageHandler s_next = nullptr;

void readReport(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static const QRegularExpression report(
        QStringLiteral(
            "-> Opaque: \\d+ nodes in (\\d+) batches.*-> Alpha: \\d+ nodes in (\\d+) batches"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = report.match(message);
    if (match.hasMatch())
        s_batches = match.captured(1).toInt() + match.captured(2).toInt();
    else if (type != QtDebugMsg)
        s_next(type, context, message);
}

} // namespace

class tst_IconBatching : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void manyIcons();
};

void tst_IconBatching::initTestCase()
{
    qputenv("QSG_RENDERER_DEBUG", "render"); // read when the first window is rendered
    Scene::useKit();
}

// Icons that look alike are drawn in one call for each size, however many there are; a state of its
// own makes another one.
void tst_IconBatching::manyIcons()
{
    Scene scene(QStringLiteral(
        "property var sizes: [UiIcon.Icon_16x16, UiIcon.Icon_24x24, UiIcon.Icon_32x32]\n"
        "property var names: ['close', 'edit', 'refresh', 'shared', 'filter']\n"
        "Repeater { model: 10000; UiIcon { objectName: 'icon' + index; x: index % 100 * 33;\n"
        "y: Math.floor(index / 100) * 33; iconSize: sizes[index % 3]; iconName: names[index % 5] } "
        "}"));
    s_next = qInstallMessageHandler(readReport);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(s_batches, 3);
    scene.find<Icon>("icon5000")->setDisabled(1);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(s_batches, 4);
    scene.find<Icon>("icon5000")->setDisabled(0);
    scene.find<Icon>("icon5001")->setIconName(QStringLiteral("up"));
    QVERIFY(scene.waitForFrame());
    QCOMPARE(s_batches, 3);
    qInstallMessageHandler(s_next);
}

TAMBER_TEST_MAIN(tst_IconBatching)
#include "tst_iconbatching.moc"
