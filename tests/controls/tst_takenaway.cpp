// variants: threaded
#include "support/input.h"
#include "support/paintprobe.h"
#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/ButtonBase>
#include <TamberUi/DelegateBase>
#include <TamberUi/DragHandle>

using namespace ta::ui;
using namespace ta::test;

// Items that are taken out of their window while the mouse is pressed on them, as a list does with
// rows that scroll away.
class tst_TakenAway : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void handlersThatDraw();
};

namespace {

// The handler of \a end makes the item be drawn anew. A window that drew it after it has left would
// use it even when it is destroyed.
template <typename Item>
bool isForgotten(void (Item::*end)())
{
    Scene scene((QString()));
    PaintProbe<Item> item;
    item.setFlag(QQuickItem::ItemHasContents);
    item.setSize(QSizeF(80, 24));
    item.setParentItem(scene.root());
    press(scene.window(), QPoint(10, 10));
    if (!scene.waitForFrame() || scene.window()->mouseGrabberItem() != &item)
        return false;

    int ends = 0;
    QObject::connect(&item, end, &item, [&] {
        ++ends;
        item.update();
    });
    const int before = item.paints;
    item.setParentItem(nullptr);
    const bool isForgotten = scene.waitForFrame() && item.paints == before;
    return isForgotten && ends == 1 && !scene.window()->mouseGrabberItem();
}

} // namespace

void tst_TakenAway::handlersThatDraw()
{
    QVERIFY(isForgotten(&ButtonBase::pressedChanged));
    QVERIFY(isForgotten(&DelegateBase::pressedChanged));
    QVERIFY(isForgotten(&DragHandle::dragEnd));
}

TAMBER_TEST_MAIN(tst_TakenAway)
#include "tst_takenaway.moc"
