#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Loader>

#include <functional>
#include <utility>

using namespace ta::ui;
using namespace ta::test;

class tst_Loader : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sizes();
    void signalOrder();
    void initialValues();
    void badComponents();
    void changesWhileCompleting();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void outlivesWhatItUses();
};

namespace {

// A loader with two components at hand; created counts what they made, alive what is left.
const QString kLoader = QStringLiteral(
    "id: root; property int created: 0; property int alive: 0\n"
    "property Component small: Item { implicitWidth: 120; implicitHeight: 40\n"
    "property int value: 1; property int twice: 2 * value\n"
    "Component.onCompleted: { ++created; ++alive } Component.onDestruction: --root.alive }\n"
    "property Component large: Item { implicitWidth: 200; implicitHeight: 100\n"
    "Component.onCompleted: { ++created; ++alive } Component.onDestruction: --root.alive }\n"
    "UiLoader { id: loader; objectName: 'loader'; sourceComponent: root.small }\n");

// Runs what a test wants to happen as soon as it is complete. QML's own handlers may not destroy
// their object at once.
class Completing : public QQuickItem
{
    Q_OBJECT

public:
    static inline std::function<void()> then;

protected:
    void componentComplete() override
    {
        QQuickItem::componentComplete();
        if (then)
            then();
    }
};

void destroyDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QQmlComponent *component(const Scene &scene, const char *name)
{
    return scene.root()->property(name).value<QQmlComponent *>();
}

int number(const Scene &scene, const char *name)
{
    return scene.root()->property(name).toInt();
}

} // namespace

void tst_Loader::initTestCase()
{
    Scene::useKit();
    qmlRegisterType<Completing>("tests.Loader", 1, 0, "Completing");
}

// The loader takes over the implicit size, and the item the loader's size.
void tst_Loader::sizes()
{
    Scene scene(kLoader + QStringLiteral("property real seen: loader.implicitWidth"));
    auto *loader = scene.find<Loader>("loader");
    const QPointer<QQuickItem> item = loader->item();
    QCOMPARE(loader->size(), QSizeF(120, 40));
    loader->setSize(QSizeF(300, 50));
    QCOMPARE(item->size(), QSizeF(300, 50));
    item->setImplicitWidth(70);
    item->setImplicitHeight(80);
    QCOMPARE(scene.root()->property("seen").toReal(), 70.0);
    QCOMPARE(loader->implicitHeight(), 80.0);
    QCOMPARE(item->size(), QSizeF(300, 50));

    // The old one has nothing to say any more, and goes.
    loader->setSourceComponent(component(scene, "large"));
    item->setImplicitWidth(1);
    QCOMPARE(loader->implicitWidth(), 200.0);
    QCOMPARE(loader->item()->size(), QSizeF(300, 50));
    QVERIFY(!item->parentItem());
    destroyDeferred();
    QVERIFY(!item);
    loader->resetWidth();
    QCOMPARE(loader->item()->width(), 200.0);
}

// A map makes the item anew; what is equal changes nothing.
void tst_Loader::signalOrder()
{
    Scene scene(kLoader);
    auto *loader = scene.find<Loader>("loader");
    SignalLog log;
    log.watch(loader, names({ "sourceComponentChanged", "propertiesChanged", "itemChanged",
                              "implicitWidth2Changed", "implicitHeight2Changed" }));
    const QStringList another = names({ "sourceComponentChanged", "itemChanged",
                                        "implicitWidth2Changed", "implicitHeight2Changed" });
    for (int i = 0; i < 2; ++i)
        loader->setSourceComponent(component(scene, "large"));
    QCOMPARE(log.take(), another);
    for (int i = 0; i < 2; ++i)
        loader->setProperties(QVariantMap { { QStringLiteral("x"), 3 } });
    QCOMPARE(log.take(), names({ "propertiesChanged", "itemChanged" }));
    loader->setSourceComponent(nullptr);
    QCOMPARE(log.take(), another);
    QVERIFY(!loader->item());
    QCOMPARE(loader->size(), QSizeF(0, 0));
    destroyDeferred();
    QCOMPARE(number(scene, "alive"), 0);
}

void tst_Loader::initialValues()
{
    Scene scene(
        kLoader
        + QStringLiteral("UiLoader { objectName: 'other'; sourceComponent: root.small\n"
                         "properties: ({ value: 21, unknown: 'dynamic', visible: 'nonsense' }) }"));
    QCOMPARE(number(scene, "created"), 2); // nothing before the loader is complete
    auto *loader = scene.find<Loader>("other");
    QCOMPARE(loader->item()->property("twice").toInt(), 42);
    loader->setProperties({ { QStringLiteral("value"), 5 } });
    QCOMPARE(loader->item()->property("twice").toInt(), 10);
    QCOMPARE(number(scene, "created"), 3);
}

void tst_Loader::badComponents()
{
    const struct
    {
        const char *qml;
        const char *warning;
        bool sizeUpdated;
    } rows[] = {
        { "Item {", "^\".*Expected token.*\"$", false },
        { "import QtQml 2.15; QtObject {}", "", true },
        { "import QtQuick 2.15; Item { property Item i; i.x: 3 }", "null", true },
        { "import QtQuick 2.15; Item { required property int n }", "Required property n", true },
        { "", "not ready", true },
    };
    for (const auto &row : rows) {
        Scene scene(kLoader);
        auto *loader = scene.find<Loader>("loader");
        QQmlComponent bad(&scene.engine());
        if (*row.qml)
            bad.setData(row.qml, QUrl(QStringLiteral("qrc:/item.qml")));
        SignalLog log;
        log.watch(loader, names({ "itemChanged" }));
        if (*row.warning)
            expectWarning(QLatin1String(row.warning));
        loader->setProperties({ { QStringLiteral("objectName"), QStringLiteral("set") } });
        loader->setSourceComponent(&bad);
        QVERIFY(!loader->item());
        QCOMPARE(log.take().count(), 2);
        QCOMPARE(loader->implicitWidth(), row.sizeUpdated ? 0.0 : 120.0);
        QVERIFY(loader->childItems().isEmpty());
    }
}

// One live item is left, and it is the one that was asked for last.
void tst_Loader::changesWhileCompleting()
{
    expectWarning(QStringLiteral("asks for another one"));
    const std::pair<const char *, int> rows[] = {
        { "loader.properties = { value: 7 }", 2 },
        { "loader.properties = { value: 7, x: Math.random() }", 10 }, // without end
    };
    for (const auto &row : rows) {
        Scene scene(kLoader
                    + QStringLiteral("property Component turning: Item { property int value: 0\n"
                                     "Component.onCompleted: { ++created; ++alive; %1 }\n"
                                     "Component.onDestruction: --root.alive }")
                          .arg(QLatin1String(row.first)));
        auto *loader = scene.find<Loader>("loader");
        SignalLog log;
        log.watch(loader, names({ "itemChanged" }));
        loader->setSourceComponent(component(scene, "turning"));
        QCOMPARE(log.take().count(), 1);
        destroyDeferred();
        QCOMPARE(number(scene, "created"), 1 + row.second);
        QCOMPARE(number(scene, "alive"), 1);
        QCOMPARE(loader->childItems(), QList<QQuickItem *>({ loader->item() }));
        QCOMPARE(loader->item()->property("value").toInt(), 7);
    }
}

void tst_Loader::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("signal");
    for (const char *victim : { "loader", "window", "item", "component" }) {
        for (const char *signal : { "sourceComponentChanged", "itemChanged", "completed",
                                    "implicitWidth2Changed", "implicitHeight2Changed" })
            QTest::addRow("%s in %s", victim, signal)
                << QString::fromLatin1(victim) << QString::fromLatin1(signal);
    }
    // Qt itself goes on with an item that its handlers of this have destroyed.
    QTest::newRow("item in widthChanged")
        << QStringLiteral("item") << QStringLiteral("widthChanged");
}

void tst_Loader::handlersThatDestroy()
{
    QFETCH(QString, victim);
    QFETCH(QString, signal);
    Scene scene(kLoader);
    const QPointer<Loader> loader = scene.find<Loader>("loader");
    const QPointer<QQmlComponent> calling(new QQmlComponent(&scene.engine()));
    calling->setData("import QtQuick 2.15; import tests.Loader 1.0\n"
                     "Completing { implicitWidth: 77; implicitHeight: 33 }",
                     QUrl());
    bool done = false;
    const auto destroy = [&] {
        done = true;
        if (victim == QLatin1String("loader"))
            delete loader;
        else if (victim == QLatin1String("item"))
            delete loader->item();
        else if (victim == QLatin1String("component"))
            delete calling;
        else
            scene.destroyWindow();
    };
    if (signal == QLatin1String("completed"))
        Completing::then = destroy;
    else
        on(loader, signal, destroy, 1);
    loader->setSourceComponent(calling);
    Completing::then = nullptr;
    QVERIFY(done);
    destroyDeferred();
    delete calling;
}

void tst_Loader::outlivesWhatItUses()
{
    Scene scene(kLoader);
    auto *loader = scene.find<Loader>("loader");
    delete loader->item();
    QVERIFY(!loader->item());
    loader->setSize(QSizeF(5, 5));
    delete component(scene, "small");
    QVERIFY(!loader->sourceComponent());
    loader->setProperties({ { QStringLiteral("x"), 1 } });
    QVERIFY(!loader->item());
}

TAMBER_TEST_MAIN(tst_Loader)
#include "tst_loader.moc"
