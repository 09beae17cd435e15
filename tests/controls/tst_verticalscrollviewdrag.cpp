#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>
#include <TamberUi/VerticalScrollView>

#include <QtCore/QLibraryInfo>
#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtGui/QDropEvent>
#include <QtQml/QQmlComponent>

using namespace ta::ui;
using namespace ta::test;

using View = VerticalScrollView;

// What a view does while something is dragged over its window, and what handlers may do to it.
class tst_VerticalScrollViewDrag : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBar(); // first: the kit must not be known yet
    void acceleratesAndStops();
    void ends_data();
    void ends();
    void popups();
    void windows();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
};

namespace {

// 100 to 500 in the window.
const char kView[] =
    "UiVerticalScrollView { objectName: 'view'; x: 100; y: 100; width: 300; height: 400\n"
    "Item { objectName: 'content'; implicitHeight: 100000 } }\n";

void dragOver(QWindow *window, const QPoint &position)
{
    const QMimeData data;
    QDragMoveEvent event(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

bool scrollsByItself(const View *view)
{
    return view->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->isActive();
}

} // namespace

void tst_VerticalScrollViewDrag::withoutBar()
{
    qmlRegisterType<View>("tests.Views", 1, 0, "View");
    QQmlEngine engine;
    engine.setImportPathList({ QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath) });
    QQmlComponent component(&engine);
    component
        .setData("import QtQuick 2.15; import tests.Views 1.0; View { width: 100; height: 100\n"
                 "Item { height: 1000 } }",
                 QUrl());
    expectWarning(QStringLiteral("^Cannot create a scroll bar: .*tamber.Ui"));
    const std::unique_ptr<QObject> object(component.create());
    auto *view = qobject_cast<View *>(object.get());
    QVERIFY(view);
    view->setScrollPosition(200, true);
    QCOMPARE(view->contentItem()->y(), -200.0);
    QCOMPARE(view->childItems().count(), 1);
    Scene::useKit();
}

void tst_VerticalScrollViewDrag::acceleratesAndStops()
{
    Scene scene(QString::fromLatin1(kView));
    QVERIFY(scene.isValid());
    auto *view = scene.find<View>("view");
    QVERIFY(!scrollsByItself(view));
    dragOver(scene.window(), QPoint(200, 450));
    QVERIFY(scrollsByItself(view));
    QVector<double> targets = { 0 };
    double target = 0; // of the animation: the shown position and the speed
    double speed = 8;
    connect(view->findChild<QTimer *>(), &QTimer::timeout, view, [&] {
        target = view->scrollPosition();
        speed = qMin(speed * 1.1, 200.0);
    });
    QTRY_VERIFY(speed == 200.0);
    dragOver(scene.window(), QPoint(210, 460)); // keeps the speed
    const double before = view->scrollPosition();
    QTRY_VERIFY(target > before + 200);
    dragOver(scene.window(), QPoint(200, 300));
    QVERIFY(!scrollsByItself(view));

    // Afterwards it begins slowly again, here upwards.
    view->setScrollPosition(5000, true);
    dragOver(scene.window(), QPoint(200, 110));
    QTRY_VERIFY(view->scrollPosition() < 5000);
    QVERIFY(view->scrollPosition() > 4500);
    dragOver(scene.window(), QPoint(200, 90));
    QVERIFY(!scrollsByItself(view));
}

void tst_VerticalScrollViewDrag::ends_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way :
         { "leave", "drop", "elsewhere", "forbidden", "hidden", "gone", "window" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_VerticalScrollViewDrag::ends()
{
    QFETCH(QString, way);
    Scene scene(QString::fromLatin1(kView));
    QVERIFY(scene.isValid());
    auto *view = scene.find<View>("view");
    dragOver(scene.window(), QPoint(200, 450));
    QVERIFY(scrollsByItself(view));
    const std::unique_ptr<QQuickItem> keep(view); // it outlives the window
    view->setParent(nullptr);
    const QMimeData data;
    QDragLeaveEvent leave;
    QDropEvent drop(QPoint(200, 450), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (way == QLatin1String("leave"))
        QCoreApplication::sendEvent(scene.window(), &leave);
    else if (way == QLatin1String("drop"))
        QCoreApplication::sendEvent(scene.window(), &drop);
    else if (way == QLatin1String("forbidden"))
        view->setDragAutoScroll(false);
    else if (way == QLatin1String("gone"))
        view->setParentItem(nullptr);
    else if (way == QLatin1String("window"))
        scene.destroyWindow();
    else if (way == QLatin1String("hidden"))
        view->setVisible(false);
    if (scene.window() && way != QLatin1String("leave") && way != QLatin1String("drop"))
        dragOver(scene.window(),
                 way == QLatin1String("elsewhere") ? QPoint(600, 450) : QPoint(200, 451));
    QVERIFY(!scrollsByItself(view));
}

// A popup speaks for what is behind it, not for what is in it.
void tst_VerticalScrollViewDrag::popups()
{
    Scene scene(QString::fromLatin1(kView)
                + QStringLiteral("UiPopupAnchor { objectName: 'anchor'; x: 450; y: 100\n"
                                 "Item { width: 300; height: 400; UiVerticalScrollView {\n"
                                 "objectName: 'inner'; width: 300; height: 400\n"
                                 "Item { implicitHeight: 1000 } } } }"));
    QVERIFY(scene.isValid());
    auto *view = scene.find<View>("view");
    auto *anchor = scene.find<PopupAnchor>("anchor");
    dragOver(scene.window(), QPoint(200, 450));
    QVERIFY(scrollsByItself(view));
    anchor->show();
    auto *inner = scene.find<View>("inner");
    QVERIFY(inner);
    dragOver(scene.window(), QPoint(200, 450));
    QVERIFY(!scrollsByItself(view));
    dragOver(scene.window(), QPoint(500, 450));
    QVERIFY(scrollsByItself(inner));
    anchor->setPreventAutoScroll(false);
    dragOver(scene.window(), QPoint(200, 450));
    QVERIFY(scrollsByItself(view) && !scrollsByItself(inner));
    anchor->hide();

    QObject noPopup;
    PopupStack::push(&noPopup);
    dragOver(scene.window(), QPoint(200, 451));
    QVERIFY(scrollsByItself(view));
    PopupStack::pop(&noPopup);
}

// Only the drags of the window that it is in, be it from the beginning.
void tst_VerticalScrollViewDrag::windows()
{
    Scene first(QString {});
    Scene second(QString {});
    QVERIFY(first.isValid() && second.isValid());
    View view(first.root());
    view.setSize(QSizeF(300, 400));
    for (Scene *scene : { &first, &second, &first }) {
        Scene &other = scene == &first ? second : first;
        view.setParentItem(scene->root());
        dragOver(other.window(), QPoint(100, 10));
        QVERIFY(!scrollsByItself(&view));
        dragOver(scene->window(), QPoint(100, 10));
        QVERIFY(scrollsByItself(&view));
    }
}

void tst_VerticalScrollViewDrag::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QString>("victim");
    const char *const plain = "Item { objectName: 'content'; implicitHeight: 1000 }";
    // A real Flickable does not live through being destroyed in its own signals.
    const char *const flickable =
        "Item { objectName: 'content'; property real contentY; property real contentHeight: 1000\n"
        "property bool interactive: true\n"
        "property QtObject visibleArea: QtObject { property real heightRatio: 0.4 } }";
    const struct
    {
        const char *content;
        QByteArrayList signalNames;
    } rows[] = {
        { plain, { "widthChanged()", "yChanged()" } },
        { flickable,
          { "heightChanged()", "widthChanged()", "contentYChanged()", "interactiveChanged()" } },
        { nullptr, { "contentItemChanged()", "heightRatioChanged()", "scrollPositionChanged()" } },
    };
    for (const auto &row : rows) {
        for (const QByteArray &signal : row.signalNames) {
            for (const char *victim : { "view", "content", "bar", "other" }) {
                QTest::addRow("%s in %s of %s", victim, signal.constData(),
                              row.content == plain       ? "plain"
                              : row.content == flickable ? "flickable"
                                                         : "view")
                    << QString::fromLatin1(row.content ? row.content : plain) << signal
                    << QString::fromLatin1(victim);
            }
        }
    }
}

// The first signal of each kind destroys something, or sets another content.
void tst_VerticalScrollViewDrag::handlersThatDestroy()
{
    QFETCH(QString, content);
    QFETCH(QByteArray, signal);
    QFETCH(QString, victim);
    Scene scene(content + QString::fromLatin1(kView)
                + QStringLiteral("Item { objectName: 'other'; implicitHeight: 700 }"));
    QVERIFY(scene.isValid());
    const QPointer<View> view = scene.find<View>("view");
    const QPointer<QQuickItem> item = scene.root()->childItems().constFirst();
    delete view->contentItem();
    bool done = false;
    const auto destroy = [&] {
        if (std::exchange(done, true))
            return;
        if (victim == QLatin1String("view"))
            delete view;
        else if (victim == QLatin1String("content"))
            delete item;
        else if (victim == QLatin1String("bar"))
            delete view->childItems().constLast();
        else
            view->setContentItem(scene.find("other"));
    };
    QTimer relay; // calls the function when a signal that is only known by its name is emitted
    relay.callOnTimeout(destroy);
    QObject *sender = item;
    if (view->metaObject()->indexOfSignal(signal)
        >= VerticalScrollView::staticMetaObject.methodOffset())
        sender = view;
    const int index = sender->metaObject()->indexOfSignal(signal);
    QVERIFY(index >= 0);
    QMetaObject::connect(sender, index, &relay, relay.metaObject()->indexOfSignal("timeout()"));

    view->setContentItem(item);
    QVERIFY(scene.waitForFrame());
    if (view)
        view->setScrollPosition(300);
    QTRY_VERIFY(done);
    QTest::qWait(50); // the animation goes on, or not
    if (view)
        view->setScrollPosition(20, true);
    QVERIFY(scene.waitForFrame());
    if (view && victim == QLatin1String("other"))
        QCOMPARE(view->contentItem()->implicitHeight(), 700.0);
}

TAMBER_TEST_MAIN(tst_VerticalScrollViewDrag)
#include "tst_verticalscrollviewdrag.moc"
