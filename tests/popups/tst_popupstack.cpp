#include "support/input.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/PopupBackground>
#include <TamberUi/PopupStack>

#include <QtCore/QCoreApplication>

#include <random>
#include <vector>

using namespace ta::ui;
using namespace ta::test;

namespace {

// Counts the events that it sees as a filter of the application.
class Popup : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        seen += event->type() == QEvent::User;
        return false;
    }

    bool isFilter()
    {
        seen = 0;
        QObject receiver;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&receiver, &event);
        return seen == 1;
    }

    int seen = 0;
};

// Takes every event that reaches it.
class Catcher : public QQuickItem
{
public:
    explicit Catcher(QQuickItem *parent) : QQuickItem(parent)
    {
        setAcceptedMouseButtons(Qt::AllButtons);
        setAcceptHoverEvents(true);
        setSize(parent->size());
    }

    int caught = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++caught; }
    void wheelEvent(QWheelEvent *) override { ++caught; }
    void hoverEnterEvent(QHoverEvent *) override { ++caught; }
};

} // namespace

class tst_PopupStack : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void destroyedPopups();
    void popsOfStrangers();
    void duplicates();
    void randomOrder();
    void backgroundBlocksInput();
    void backgroundFollowsSize();
};

// A dead top leaves no filter, and a pop of null, which stands for it, hands on to the one below.
void tst_PopupStack::destroyedPopups()
{
    Popup a;
    PopupStack::push(&a);
    {
        Popup top;
        PopupStack::push(&top);
    }
    QVERIFY(!PopupStack::top() && !a.isFilter());
    PopupStack::pop(nullptr);
    QVERIFY(a.isFilter());
    PopupStack::pop(&a);
}

void tst_PopupStack::popsOfStrangers()
{
    Popup a, stranger;
    PopupStack::pop(&stranger);
    PopupStack::pop(nullptr);
    PopupStack::push(&a);
    PopupStack::pop(&stranger);
    PopupStack::pop(nullptr);
    QVERIFY(a.isFilter());
    expectWarning(QStringLiteral("null popup"));
    PopupStack::push(nullptr);
    QCOMPARE(PopupStack::top(), &a);
    QVERIFY(a.isFilter());
    PopupStack::pop(&a);
    QVERIFY(!PopupStack::top());
}

// A second entry is the higher one.
void tst_PopupStack::duplicates()
{
    Popup a, b;
    for (Popup *popup : { &a, &b, &a })
        PopupStack::push(popup);
    for (Popup *popup : { &a, &b, &a }) {
        QVERIFY(popup->isFilter());
        PopupStack::pop(popup);
    }
    QVERIFY(!PopupStack::top());
}

// Whatever the order, the live popup pushed last is the one and only filter, unless a popup died on
// top.
void tst_PopupStack::randomOrder()
{
    std::mt19937 random(1);
    const auto pick = [&](size_t count) {
        return std::uniform_int_distribution<size_t>(0, count - 1)(random);
    };
    std::vector<std::unique_ptr<Popup>> popups;
    QVector<Popup *> open; // bottom first; null where one has died
    for (int step = 0; step < 2000; ++step) {
        if (popups.empty() || pick(5) < 2) {
            popups.push_back(std::make_unique<Popup>());
            open.append(popups.back().get());
            PopupStack::push(popups.back().get());
        } else {
            const auto chosen = popups.begin() + int(pick(popups.size()));
            Popup *popup = chosen->get();
            if (pick(2) == 0) {
                PopupStack::pop(popup);
                if (!open.isEmpty() && open.last() == popup) {
                    open.removeLast();
                    while (!open.isEmpty() && !open.last())
                        open.removeLast();
                } else {
                    open.removeOne(popup);
                }
            } else {
                if (open.contains(popup))
                    open.replace(open.indexOf(popup), nullptr);
                popups.erase(chosen);
            }
        }
        for (const auto &popup : popups)
            QCOMPARE(popup->isFilter(), !open.isEmpty() && open.last() == popup.get());
    }
    for (int entries = open.count(); entries > 0; --entries)
        PopupStack::pop(PopupStack::top());
    QVERIFY(!PopupStack::top());
}

void tst_PopupStack::backgroundBlocksInput()
{
    Scene scene(QStringLiteral("Rectangle { objectName: 'popup'; x: 100; y: 100; z: 1; width: 200;"
                               " height: 100; Item { objectName: 'field'; focus: true } }"));
    QVERIFY(scene.isValid());
    Catcher below(scene.root());
    auto *popup = scene.find("popup");
    auto *background = new PopupBackground(popup);
    QCOMPARE(background->z(), -100.0);
    QCOMPARE(background->cursor().shape(), Qt::ArrowCursor);

    const QPoint inside(150, 150);
    move(scene.window(), inside);
    wheel(scene.window(), inside, 1);
    for (Qt::MouseButton button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }) {
        popup->setFocus(false);
        click(scene.window(), inside, button);
        QVERIFY(popup->hasActiveFocus());
    }
    QCOMPARE(below.caught, 0);

    const QPoint outside(350, 150);
    move(scene.window(), outside);
    wheel(scene.window(), outside, 1);
    click(scene.window(), outside);
    QCOMPARE(below.caught, 3);
}

void tst_PopupStack::backgroundFollowsSize()
{
    QQuickItem popup;
    popup.setSize({ 10, 20 });
    auto *background = new PopupBackground(&popup);
    QCOMPARE(background->size(), QSizeF(10, 20));
    popup.setSize({ 33, 44.5 });
    QCOMPARE(background->size(), QSizeF(33, 44.5));
    background->setParentItem(nullptr);
    popup.setSize({ 1, 1 });
    QCOMPARE(background->size(), QSizeF(33, 44.5));
}

TAMBER_TEST_MAIN(tst_PopupStack)
#include "tst_popupstack.moc"
