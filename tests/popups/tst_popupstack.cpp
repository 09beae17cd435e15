#include "support/input.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/PopupBackground>
#include <TamberUi/PopupStack>

#include <QtCore/QCoreApplication>

#include <algorithm>
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

} // namespace

class tst_PopupStack : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void randomOrder();
    void pushOfNothing();
    void backgroundBlocksInput();
};

// Whatever the order, what was pushed last and is on the stack is the one and only filter; where it
// is dead, nobody is. A second entry of a popup is the higher one, and null stands for a dead one.
void tst_PopupStack::randomOrder()
{
    std::mt19937 random(1);
    const auto pick = [&](size_t count) {
        return std::uniform_int_distribution<size_t>(0, count - 1)(random);
    };
    Popup stranger;
    std::vector<std::unique_ptr<Popup>> popups;
    QVector<Popup *> open; // bottom first; null where one has died
    const auto pop = [&open](Popup *popup) {
        PopupStack::pop(popup);
        if (open.isEmpty() || open.last() != popup) {
            open.removeOne(popup);
            return;
        }
        open.removeLast();
        while (!open.isEmpty() && !open.last())
            open.removeLast();
    };
    for (int step = 0; step < 3000; ++step) {
        const size_t action = pick(9);
        if (popups.empty() || action < 2)
            popups.push_back(std::make_unique<Popup>());
        const auto chosen = popups.begin() + int(pick(popups.size()));
        if (action < 3) {
            open.append(action < 2 ? popups.back().get() : chosen->get());
            PopupStack::push(open.last());
        } else if (action < 6) {
            pop(chosen->get());
        } else if (action < 8) {
            std::replace(open.begin(), open.end(), chosen->get(), static_cast<Popup *>(nullptr));
            popups.erase(chosen);
        } else {
            pop(nullptr);
            pop(&stranger);
        }
        QCOMPARE(PopupStack::top(), open.isEmpty() ? nullptr : open.last());
        for (const auto &popup : popups)
            QCOMPARE(popup->isFilter(), !open.isEmpty() && open.last() == popup.get());
    }
    while (!open.isEmpty())
        pop(open.last());
    QVERIFY(!PopupStack::top());
}

void tst_PopupStack::pushOfNothing()
{
    Popup popup;
    PopupStack::push(&popup);
    expectWarning(QStringLiteral("null popup"));
    PopupStack::push(nullptr);
    QVERIFY(popup.isFilter());
    PopupStack::pop(&popup);
}

void tst_PopupStack::backgroundBlocksInput()
{
    Scene scene(QStringLiteral(
        "MouseArea { objectName: 'below'; property int caught: 0; anchors.fill: parent\n"
        "hoverEnabled: true; onEntered: ++caught; onPressed: ++caught; onWheel: ++caught }\n"
        "Rectangle { objectName: 'popup'; x: 100; y: 100; width: 200; height: 100\n"
        "Item { objectName: 'field'; focus: true } }"));
    const auto caught = [&] { return scene.find("below")->property("caught").toInt(); };
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
    QCOMPARE(caught(), 0);

    const QPoint outside(350, 150);
    move(scene.window(), outside);
    wheel(scene.window(), outside, 1);
    click(scene.window(), outside);
    QCOMPARE(caught(), 3);
}

TAMBER_TEST_MAIN(tst_PopupStack)
#include "tst_popupstack.moc"
