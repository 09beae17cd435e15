#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ButtonBase>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

#include <QtGui/QAccessible>
#include <QtGui/QFontInfo>

using namespace ta::ui;
using namespace ta::test;

class tst_Kit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void registration();
    void secondEngine();
    void fontFamily();
    void statesLookDifferent_data();
    void statesLookDifferent();
    void accessibility_data();
    void accessibility();
    void accessibleActionsNeedAnAbleControl();
    void focusFrame();
    void loadIndicatorRests();
    void infoTip_data();
    void infoTip();
};

void tst_Kit::initTestCase()
{
    Scene::useKit();
}

void tst_Kit::registration()
{
    Scene scene(QStringLiteral(
        "property int style: Ui.SecondaryPushButtonStyle\n"
        "property color ink: UiColors.getColor(UiColors.DarkGrey80)\n"
        "UiText {} UiPushButton {} UiToolButton {} UiCheckBox {} UiHorizontalSeparator {}\n"
        "UiLoadIndicator {} UiComboBox {} UiInfoTip {} UiPopupAnchor {}\n"
        "UiSlider {} UiDefaultSlider {} UiIcon {} UiBorder {} UiCheckerBoard {} UiThumbnail {}"));
    QVERIFY(scene.isValid());
    QCOMPARE(scene.root()->property("style").toInt(), 2);
    QCOMPARE(scene.root()->property("ink").value<QColor>(), QColor(0x33, 0x33, 0x33));
    QCOMPARE(scene.root()->childItems().count(), 15);
}

// Engines share nothing that dies with one of them.
void tst_Kit::secondEngine()
{
    const QString body = QStringLiteral(
        "UiPushButton { objectName: 'button'; text: 'OK' }\n"
        "UiComboBox { objectName: 'combo'; model: ['Apple', 'Banana'] }");
    Scene first(body);
    QVERIFY(first.isValid());
    {
        Scene second(body);
        QVERIFY(second.isValid());
        QMetaObject::invokeMethod(second.find("combo"), "show");
        QVERIFY(second.find("combo")->property("popupVisible").toBool());
    }
    QVERIFY(!PopupStack::top());
    QMetaObject::invokeMethod(first.find("combo"), "show");
    QVERIFY(first.find("combo")->property("popupVisible").toBool());
    QTest::keyClick(first.window(), Qt::Key_Escape);
}

void tst_Kit::fontFamily()
{
    Scene scene(QStringLiteral("property font light: UiFonts.getFont(UiFonts.Light, 20)\n"
                               "property font regular: UiFonts.getFont(UiFonts.Regular, 20)\n"
                               "property font semiBold: UiFonts.getFont(UiFonts.SemiBold, 20)\n"
                               "property font italic: UiFonts.getFont(UiFonts.LightItalic, 20)"));
    QVERIFY(scene.isValid());
    const struct
    {
        const char *name;
        int weight;
        bool italic;
    } rows[] = {
        { "light", QFont::Light, false },
        { "regular", QFont::Normal, false },
        { "semiBold", QFont::DemiBold, false },
        { "italic", QFont::Light, true },
    };
    for (const auto &row : rows) {
        const QFontInfo info(scene.root()->property(row.name).value<QFont>());
        QVERIFY2(info.family().startsWith(QLatin1String("Lato")), qPrintable(info.family()));
        QCOMPARE(info.weight(), row.weight);
        QCOMPARE(info.italic(), row.italic);
    }
}

void tst_Kit::statesLookDifferent_data()
{
    QTest::addColumn<QString>("control");
    QTest::newRow("primary") << QStringLiteral("UiPushButton { text: 'Go' ");
    QTest::newRow("secondary") << QStringLiteral(
        "UiPushButton { text: 'Go'; style: Ui.SecondaryPushButtonStyle ");
    QTest::newRow("tool") << QStringLiteral(
        "UiToolButton { text: 'Go'; iconSource: 'qrc:/ui/images/checkmark.png' ");
    QTest::newRow("tool glyph") << QStringLiteral("UiToolButton { iconName: 'cut' ");
    QTest::newRow("push glyph") << QStringLiteral("UiPushButton { text: 'Go'; iconName: 'okay' ");
    QTest::newRow("check") << QStringLiteral("UiCheckBox { text: 'Go' ");
    QTest::newRow("combo") << QStringLiteral("UiComboBox { model: ['Go']; currentIndex: 0 ");
}

// Normal, hovered, pressed, focused and disabled can be told apart by the picture alone.
void tst_Kit::statesLookDifferent()
{
    QFETCH(QString, control);
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }") + control
                    + QStringLiteral("; objectName: 'control'; x: 50; y: 20 }"),
                QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("control");
    QHash<QByteArray, QImage> pictures;
    const auto take = [&](const QByteArray &state) {
        pictures.insert(state, scene.window()->grabWindow());
    };
    move(scene.window(), QPoint(5, 5));
    take("normal");
    move(scene.window(), center(button));
    QVERIFY(button->hovered());
    take("hovered");
    button->setDown(true);
    take("down");
    button->setDown(false);
    move(scene.window(), QPoint(5, 5));
    button->forceActiveFocus();
    take("focused");
    button->setFocus(false);
    button->setEnabled(false);
    take("disabled");
    const QList<QByteArray> states = pictures.keys();
    for (int i = 0; i < states.count(); ++i) {
        for (int j = i + 1; j < states.count(); ++j)
            QVERIFY2(pictures.value(states.at(i)) != pictures.value(states.at(j)),
                     QByteArray(states.at(i) + " looks like " + states.at(j)).constData());
    }
}

void tst_Kit::accessibility_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("action");
    QTest::newRow("push") << QStringLiteral("UiPushButton { text: 'Name' ") << QAccessible::Button
                          << QAccessibleActionInterface::pressAction();
    QTest::newRow("tool") << QStringLiteral("UiToolButton { text: 'Name'; style: Ui.IconOnly ")
                          << QAccessible::Button << QAccessibleActionInterface::pressAction();
    QTest::newRow("check") << QStringLiteral("UiCheckBox { text: 'Name' ") << QAccessible::CheckBox
                           << QAccessibleActionInterface::toggleAction();
    QTest::newRow("combo") << QStringLiteral("UiComboBox { placeholder: 'Name'; model: 3 ")
                           << QAccessible::ComboBox << QAccessibleActionInterface::pressAction();
}

// Assistive tools read the name and the state, and what they press acts.
void tst_Kit::accessibility()
{
    QFETCH(QString, control);
    QFETCH(QAccessible::Role, role);
    QFETCH(QString, action);
    Scene scene(control + QStringLiteral("; objectName: 'control' }"));
    QVERIFY(scene.isValid());
    auto *item = scene.find("control");
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), role);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    QVERIFY(accessible->state().focusable);
    QCOMPARE(bool(accessible->state().checkable), role == QAccessible::CheckBox);

    SignalLog log;
    log.watch(item, { QStringLiteral("clicked"), QStringLiteral("downChanged") });
    accessible->actionInterface()->doAction(action);
    QCOMPARE(log.entries().count(), 1);
    if (role == QAccessible::CheckBox)
        QVERIFY(accessible->state().checked);
}

void tst_Kit::accessibleActionsNeedAnAbleControl()
{
    for (const char *properties : { "enabled: false", "readOnly: true" }) {
        Scene scene(
            QStringLiteral("UiCheckBox { objectName: 'box'; %1 }").arg(QLatin1String(properties)));
        QVERIFY(scene.isValid());
        auto *box = scene.find("box");
        SignalLog log;
        log.watch(box, { QStringLiteral("clicked") });
        QAccessible::queryAccessibleInterface(box)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
        QCOMPARE(log.take(), QStringList());
        QVERIFY(!box->property("checked").toBool());
    }
}

// The keyboard's focus is framed; one that a press of the pointer brought is not.
void tst_Kit::focusFrame()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }"
                               "UiPushButton { objectName: 'button'; x: 50; y: 20; text: 'Go' }"),
                QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *button = scene.find("button");
    const auto framed = [&] {
        const QImage picture = scene.window()->grabWindow();
        return picture.pixelColor(49, 36) == QColor(0x8B, 0xC7, 0xD8);
    };
    QVERIFY(!framed());
    click(scene.window(), center(button));
    QVERIFY(button->hasActiveFocus() && !framed());
    button->setFocus(false);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(button->hasActiveFocus() && framed());
}

void tst_Kit::loadIndicatorRests()
{
    Scene scene(QStringLiteral("UiLoadIndicator { objectName: 'indicator' }"));
    QVERIFY(scene.isValid());
    auto *indicator = scene.find("indicator");
    const auto framesOfAMoment = [&] {
        QTest::qWait(50);
        QSignalSpy frames(scene.window(), &QQuickWindow::frameSwapped);
        QTest::qWait(200);
        return frames.count();
    };
    QCOMPARE(framesOfAMoment(), 0);
    indicator->setProperty("loading", true);
    QVERIFY(framesOfAMoment() > 1);
    indicator->setVisible(false);
    QCOMPARE(framesOfAMoment(), 0);
}

void tst_Kit::infoTip_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("above");
    QTest::newRow("middle") << QPoint(380, 280) << false;
    QTest::newRow("top left") << QPoint(0, 0) << false;
    QTest::newRow("top right") << QPoint(760, 0) << false;
    QTest::newRow("bottom left") << QPoint(0, 576) << true;
    QTest::newRow("bottom right") << QPoint(760, 576) << true;
}

// It lies inside the window, at the item, and its peak points at the item.
void tst_Kit::infoTip()
{
    QFETCH(QPoint, position);
    QFETCH(bool, above);
    Scene scene(
        QStringLiteral("Item { objectName: 'target'; x: %1; y: %2; width: 40; height: 24\n"
                       "UiInfoTip { objectName: 'tip'; text: 'A hint that is long enough to "
                       "need at least two lines, as hints do.' } }")
            .arg(position.x())
            .arg(position.y()));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("tip");
    anchor->show();
    const QQuickItem *tip = anchor->popupItem();
    QVERIFY(tip);
    const QRectF area = tip->mapRectToScene(QRectF(QPointF(), tip->size()));
    QVERIFY(QRectF(0, 0, 800, 600).contains(area));
    QVERIFY(area.height() > 50);
    QCOMPARE(above ? area.bottom() : area.top(), qreal(above ? position.y() : position.y() + 24));
    const QList<QQuickItem *> children = tip->childItems();
    const auto *peak = *std::find_if(children.begin(), children.end(), [](const QQuickItem *child) {
        return child->property("source").isValid();
    });
    const qreal tipX = peak->mapToScene(QPointF(peak->width() / 2, 0)).x();
    QVERIFY2(qAbs(tipX - (position.x() + 20)) <= 6, qPrintable(QString::number(tipX)));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!anchor->isPopupVisible());
}

TAMBER_TEST_MAIN(tst_Kit)
#include "tst_kit.moc"
