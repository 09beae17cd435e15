#include "support/dragover.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>
#include <TamberUi/VerticalScrollView>

#include <QtCore/QLibraryInfo>
#include <QtCore/QTimer>
#include <QtQml/QQmlComponent>

#include <utility>

using namespace ta::ui;
using namespace ta::test;

using View = VerticalScrollView;

// What a view does while something is dragged over its window, and what handlers may do to it.
class tst_VerticalScrollViewDrag : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBar(); // first: the kit must not be known yet
    void accelerates();
    void ends();
    void dropsWhereItIs();
    void restsAfterDrop();
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

const QPoint kNearTop(200, 110);
const QPoint kNearBottom(200, 450);
const QPoint kBetween(200, 300);
const QPoint kBeside(600, 450);

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

// Of what is shown at each tick. What was reached is kept while a drag goes on, wherever it goes,
// and gone with it.
void tst_VerticalScrollViewDrag::accelerates()
{
    Scene scene(QString::fromLatin1(kView));
    auto *view = scene.find<View>("view");
    view->setScrollPosition(1000, true);
    DragOver drag(scene.window());
    const struct
    {
        bool isNew;
        QPoint position;
        int ticks;
        double distance; // of the last one
    } steps[] = {
        { true, kNearBottom, 1, 8 },    { false, kNearBottom, 1, 8.8 },
        { false, kNearTop, 3, -9.68 },  { false, kNearTop, 50, -200 },
        { false, kNearTop, 1, -200 },   { true, kNearTop, 1, -8 },
        { false, kNearBottom, 2, 8.8 },
    };
    for (const auto &step : steps) {
        if (step.isNew)
            drag.enter(kBetween);
        drag.move(step.position);
        QVERIFY(scrollsByItself(view));
        const double before = view->scrollPosition();
        for (int tick = 0; tick < step.ticks; ++tick) // before the timer does it
            QVERIFY(QMetaObject::invokeMethod(view, "autoScroll"));
        drag.move(kBetween);
        QVERIFY(!scrollsByItself(view));
        QTRY_VERIFY(qFuzzyCompare(view->scrollPosition() - before, step.distance));
    }
    drag.move(kNearBottom);
    const double before = view->scrollPosition();
    QTRY_VERIFY(view->scrollPosition() > before + 500);
}

void tst_VerticalScrollViewDrag::ends()
{
    for (const char *way :
         { "leave", "drop", "elsewhere", "forbidden", "hidden", "gone", "window" }) {
        Scene scene(QString::fromLatin1(kView));
        auto *view = scene.find<View>("view");
        DragOver drag(scene.window());
        drag.move(kNearBottom);
        QVERIFY(scrollsByItself(view));
        const std::unique_ptr<QQuickItem> keep(view); // it outlives the window
        view->setParent(nullptr);
        const QByteArray kind = way;
        if (kind == "leave")
            drag.leave();
        else if (kind == "drop")
            drag.drop(kNearBottom);
        else if (kind == "forbidden")
            view->setDragAutoScroll(false);
        else if (kind == "gone")
            view->setParentItem(nullptr);
        else if (kind == "window")
            scene.destroyWindow();
        else if (kind == "hidden")
            view->setVisible(false);
        if (scene.window() && kind != "leave" && kind != "drop")
            drag.move(kind == "elsewhere" ? kBeside : kNearBottom);
        QVERIFY2(!scrollsByItself(view), way);
    }
}

// On what has scrolled under the resting pointer, also where leaving the old place ends the window.
void tst_VerticalScrollViewDrag::dropsWhereItIs()
{
    for (const bool windowGoes : { false, true }) {
        Scene scene(
            QStringLiteral("UiVerticalScrollView { objectName: 'view'; width: 300; height: 400\n"
                           "Column { Repeater { model: 50; UiDropZone { objectName: 'row' + index\n"
                           "width: 300; height: 100; UiMimeDropHandler { acceptedMimeTypes: "
                           "'text/plain' } } } } }"));
        auto *view = scene.find<View>("view");
        SignalLog log;
        for (const char *row : { "row3", "row5" })
            log.watch(scene.find(row), names({ "dragEnter", "dragExit", "drop" }),
                      QLatin1String(row) + QLatin1Char('.'));
        DragOver drag(scene.window());
        drag.data().setText(QStringLiteral("text"));
        drag.enter(QPoint(200, 350));
        drag.move(QPoint(200, 351));
        view->setScrollPosition(200, true);
        if (windowGoes)
            on(
                scene.find("row3"), QStringLiteral("dragExit"), [&] { scene.destroyWindow(); }, 1);
        drag.drop(QPoint(200, 351));
        const QString end = windowGoes ? QStringLiteral("row5.dragExit")
                                       : QStringLiteral("row5.drop");
        QCOMPARE(log.take(), names({ "row3.dragEnter", "row5.dragEnter", "row3.dragExit" }) << end);
    }
}

// No view begins to scroll again after the drop, whichever is told of it first.
void tst_VerticalScrollViewDrag::restsAfterDrop()
{
    for (const bool outerIsFirst : { false, true }) {
        Scene scene(QString {});
        View views[2];
        View &outer = views[outerIsFirst ? 0 : 1];
        View &inner = views[outerIsFirst ? 1 : 0];
        QQuickItem content;
        content.setImplicitHeight(10000);
        inner.setContentItem(&content);
        for (View &view : views) {
            view.setSize(QSizeF(300, 400));
            view.setParentItem(scene.root());
        }
        inner.setParentItem(&outer);
        DragOver drag(scene.window());
        drag.enter(QPoint(200, 380));
        drag.move(QPoint(200, 381));
        QVERIFY(scrollsByItself(&inner) && scrollsByItself(&outer));
        inner.setScrollPosition(200, true);
        drag.drop(QPoint(200, 381));
        QVERIFY(!scrollsByItself(&inner) && !scrollsByItself(&outer));
    }
}

// A popup speaks for what is behind it, not for what is in it.
void tst_VerticalScrollViewDrag::popups()
{
    Scene scene(QString::fromLatin1(kView)
                + QStringLiteral("UiPopupAnchor { objectName: 'anchor'; x: 450; y: 100\n"
                                 "Item { width: 300; height: 400; UiVerticalScrollView {\n"
                                 "objectName: 'inner'; width: 300; height: 400\n"
                                 "Item { implicitHeight: 1000 } } } }"));
    auto *view = scene.find<View>("view");
    auto *anchor = scene.find<PopupAnchor>("anchor");
    DragOver drag(scene.window());
    drag.move(kNearBottom);
    anchor->show();
    auto *inner = scene.find<View>("inner");
    QVERIFY(inner);
    drag.move(kNearBottom);
    QVERIFY(!scrollsByItself(view));
    drag.move(kNearBottom + QPoint(300, 0));
    QVERIFY(scrollsByItself(inner));
    anchor->setPreventAutoScroll(false);
    drag.move(kNearBottom);
    QVERIFY(scrollsByItself(view) && !scrollsByItself(inner));
    anchor->hide();

    QObject noPopup;
    PopupStack::push(&noPopup);
    drag.move(kNearBottom);
    QVERIFY(scrollsByItself(view));
    PopupStack::pop(&noPopup);
}

// Only the drags of the window that it is in, be it from the beginning.
void tst_VerticalScrollViewDrag::windows()
{
    Scene first(QString {});
    Scene second(QString {});
    View view(first.root());
    view.setSize(QSizeF(300, 400));
    for (Scene *scene : { &first, &second, &first }) {
        Scene &other = scene == &first ? second : first;
        view.setParentItem(scene->root());
        DragOver(other.window()).move(QPoint(100, 10));
        QVERIFY(!scrollsByItself(&view));
        DragOver(scene->window()).move(QPoint(100, 10));
        QVERIFY(scrollsByItself(&view));
    }
}

void tst_VerticalScrollViewDrag::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("victim");
    const char *const plain = "Item { objectName: 'content'; implicitHeight: 1000 }";
    // A real Flickable does not live through being destroyed in its own signals.
    const char *const flickable =
        "Item { objectName: 'content'; property real contentY; property real contentHeight: 1000\n"
        "property bool interactive: true\n"
        "property QtObject visibleArea: QtObject { property real heightRatio: 0.4 } }";
    const QVector<std::pair<const char *, QStringList>> rows = {
        { plain, names({ "widthChanged", "yChanged", "contentItemChanged", "heightRatioChanged",
                         "scrollPositionChanged" }) },
        { flickable,
          names({ "heightChanged", "widthChanged", "contentYChanged", "interactiveChanged" }) },
    };
    for (const auto &row : rows) {
        for (const QString &signal : row.second) {
            for (const char *victim : { "view", "content", "bar", "other" })
                QTest::addRow("%s in %s of %s", victim, qPrintable(signal),
                              row.first == plain ? "plain" : "flickable")
                    << QString::fromLatin1(row.first) << signal << QString::fromLatin1(victim);
        }
    }
}

// The first signal of each kind destroys something, or sets another content.
void tst_VerticalScrollViewDrag::handlersThatDestroy()
{
    QFETCH(QString, content);
    QFETCH(QString, signal);
    QFETCH(QString, victim);
    Scene scene(content + QString::fromLatin1(kView)
                + QStringLiteral("Item { objectName: 'other'; implicitHeight: 700 }"));
    const QPointer<View> view = scene.find<View>("view");
    const QPointer<QQuickItem> item = scene.root()->childItems().constFirst();
    delete view->contentItem();
    bool done = false;
    const QByteArray signature = signal.toLatin1() + "()";
    const bool isOfView = view->metaObject()->indexOfSignal(signature)
                          >= View::staticMetaObject.methodOffset();
    const auto meddle = [&] {
        done = true;
        if (victim == QLatin1String("view"))
            delete view;
        else if (victim == QLatin1String("content"))
            delete item;
        else if (victim == QLatin1String("bar"))
            delete view->childItems().constLast();
        else
            view->setContentItem(scene.find("other"));
    };
    on(isOfView ? static_cast<QObject *>(view) : item, signal, meddle, 1);

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
