#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DragHandle>

#include <QtGui/QAccessible>

using namespace ta::ui;
using namespace ta::test;

class tst_KitSplitter : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void init();
    void drag();
    void sizes();
    void keys();
    void doubleClick();
    void accessibility();

private:
    int paneSize() const { return m_splitter->property("paneSize").toInt(); }
    // Both panes and the line between them, from one end to the other.
    bool isFilled() const;

    std::unique_ptr<Scene> m_scene;
    QQuickItem *m_splitter = nullptr;
    DragHandle *m_handle = nullptr;
    SignalLog m_log;
};

void tst_KitSplitter::init()
{
    TestCase::init();
    m_scene = std::make_unique<Scene>(QStringLiteral(
        "UiSplitter { objectName: 'splitter'; width: 401; height: 301; size: 150; text: 'Border'\n"
        "minimumSize: 100; minimumRest: 80\n"
        "first: Item { objectName: 'first'; anchors.fill: parent }\n"
        "second: Item { objectName: 'second'; anchors.fill: parent } }"));
    m_splitter = m_scene->find("splitter");
    m_handle = m_scene->find<DragHandle>("splitterHandle");
    m_log.take();
    m_log.watch(m_splitter, { QStringLiteral("moved") });
}

bool tst_KitSplitter::isFilled() const
{
    const QRectF all(QPointF(), m_splitter->size());
    const auto place = [&](const char *name) {
        const auto *item = m_scene->find(name);
        return item->mapRectToItem(m_splitter, QRectF(QPointF(), item->size()));
    };
    const QRectF first = place("first");
    const QRectF second = place("second");
    const bool horizontal = m_splitter->property("orientation").toInt() == Qt::Horizontal;
    return first.topLeft() == all.topLeft() && second.bottomRight() == all.bottomRight()
           && (horizontal ? second.left() - first.right() : second.top() - first.bottom()) == 1;
}

// Beyond a limit the border waits there until the pointer is back.
void tst_KitSplitter::drag()
{
    const int ways[] = { 50, 500, -500, 0 };
    const struct
    {
        bool vertical, sizesSecond;
        int expected[4];
    } rows[] = {
        { false, false, { 200, 320, 100, 150 } },
        { true, true, { 100, 100, 220, 150 } },
    };
    for (const auto &row : rows) {
        m_splitter->setProperty("orientation", int(row.vertical ? Qt::Vertical : Qt::Horizontal));
        m_splitter->setProperty("sizesSecond", row.sizesSecond);
        QVERIFY(isFilled());
        QCOMPARE(m_handle->cursor().shape(), row.vertical ? Qt::SizeVerCursor : Qt::SizeHorCursor);
        const QPoint start = center(m_handle);
        press(m_scene->window(), start);
        for (int i = 0; i < 4; ++i) {
            const QPoint way = row.vertical ? QPoint(30, ways[i]) : QPoint(ways[i], 30);
            QTest::mouseMove(m_scene->window(), start + way);
            QCOMPARE(paneSize(), row.expected[i]);
            QVERIFY(isFilled());
        }
        release(m_scene->window(), start);
        QVERIFY(m_log.take().count() >= 3);
        m_splitter->setProperty("sizesSecond", false);
    }
}

// The size that was chosen comes back with the room for it.
void tst_KitSplitter::sizes()
{
    const int rows[][2] = {
        { 401, 150 }, // room
        { 221, 140 }, // less than both want
        { 151, 100 }, // the rest gives way
        { 61, 60 }, // not even that
    };
    for (const auto &row : rows) {
        m_splitter->setWidth(row[0]);
        QCOMPARE(paneSize(), row[1]);
        m_splitter->setWidth(401);
        QCOMPARE(paneSize(), 150);
    }
    QCOMPARE(m_log.take(), QStringList());
}

void tst_KitSplitter::keys()
{
    m_handle->forceActiveFocus();
    const struct
    {
        Qt::Key key;
        int expected;
    } rows[] = {
        { Qt::Key_Right, 166 }, { Qt::Key_Left, 150 }, { Qt::Key_Home, 100 },
        { Qt::Key_End, 320 },   { Qt::Key_Up, 320 },   { Qt::Key_Delete, 150 },
    };
    for (const auto &row : rows) {
        QTest::keyClick(m_scene->window(), row.key);
        QCOMPARE(paneSize(), row.expected);
    }
    QCOMPARE(m_log.count(QStringLiteral("moved")), 5);
}

void tst_KitSplitter::doubleClick()
{
    m_splitter->setProperty("size", 300);
    click(m_scene->window(), center(m_handle));
    QCOMPARE(paneSize(), 300);
    click(m_scene->window(), center(m_handle));
    QCOMPARE(paneSize(), 150);
}

void tst_KitSplitter::accessibility()
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(m_handle);
    QCOMPARE(accessible->role(), QAccessible::Splitter);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Border"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(paneSize(), 166);
}

TAMBER_TEST_MAIN(tst_KitSplitter)
#include "tst_kitsplitter.moc"
