#include "popups.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/MenuItem>

#include <QtQml/QQmlListReference>

using namespace ta::ui;
using namespace ta::test;

// The entries of a menu as objects: their order, and the components that draw them.
class tst_MenuEntries : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void ranking();
    void delegates();
};

namespace {

QStringList objectNames(QObject *menu, const char *list)
{
    QStringList names;
    const QQmlListReference entries(menu, list);
    for (int i = 0; i < entries.count(); ++i)
        names.append(entries.at(i) ? entries.at(i)->objectName() : QStringLiteral("-"));
    return names;
}

} // namespace

void tst_MenuEntries::ranking()
{
    MenuScene scene(QStringLiteral("UiContextMenu { objectName: 'menu'\n"
                                   "UiMenuItem { objectName: 'two'; rank: [2] }\n"
                                   "UiMenuItem { objectName: 'onefive'; rank: [1, 5] }\n"
                                   "UiMenuItem { objectName: 'one'; rank: [1] }\n"
                                   "UiMenuItem { objectName: 'onezero'; rank: [1, 0] }\n"
                                   "UiMenuSeparator { objectName: 'none'; rank: [] }\n"
                                   "UiMenuItem { objectName: 'zero' }\n"
                                   "UiMenuItem { objectName: 'minus'; rank: [0, 0, -1] } }"));
    ContextMenu *menu = scene.menu;
    const QStringList ranked = names(
        { "minus", "none", "zero", "one", "onezero", "onefive", "two" });
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);

    // A rank that changes tells nobody, and counts from the next change of the list on.
    auto *two = scene.find<MenuItem>("two");
    SignalLog log;
    log.watch(two);
    two->setRank({ -1 });
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);
    menu->removeItem(nullptr);
    QCOMPARE(objectNames(menu, "rankedItems").first(), QStringLiteral("two"));
    QVERIFY(log.take().isEmpty());

    // Destroyed entries stay in the lists as null.
    delete two;
    QCOMPARE(objectNames(menu, "items").first(), QStringLiteral("-"));
    QCOMPARE(objectNames(menu, "rankedItems").count(QStringLiteral("-")), 1);
    log.watch(menu);
    QQmlListReference items(menu, "items");
    QVERIFY(!items.at(-1) && !items.at(7));
    QVERIFY(items.clear() && items.clear());
    QCOMPARE(log.take(), names({ "itemsChanged" }));
    QVERIFY(objectNames(menu, "rankedItems").isEmpty());
}

// Entries of one kind and one engine share their delegate for as long as one of them lives.
void tst_MenuEntries::delegates()
{
    Scene scene(QString {});
    Scene other(QString {});
    const auto make = [](Scene &in, const char *type) {
        return in.create(QString::fromLatin1(type));
    };
    const auto delegate = [](const auto &entry) {
        return qobject_cast<AbstractMenuItem *>(entry.get())->delegate();
    };
    auto a = make(scene, "UiMenuItem {}");
    auto b = make(scene, "UiMenuItem {}");
    const QPointer<QQmlComponent> shared = delegate(a);
    QVERIFY(shared && shared->isReady());
    QCOMPARE(delegate(b), shared.data());
    QVERIFY(delegate(make(scene, "UiMenuSeparator {}")) != shared);
    const auto c = make(other, "UiMenuItem {}");
    QVERIFY(delegate(c) != shared && delegate(c)->engine() == &other.engine());
    a.reset();
    QVERIFY(shared);
    b.reset();
    QVERIFY(!shared);
    QVERIFY(delegate(make(scene, "UiMenuItem {}")));
    QVERIFY(!MenuItem().delegate()); // which no engine knows
}

TAMBER_TEST_MAIN(tst_MenuEntries)
#include "tst_menuentries.moc"
