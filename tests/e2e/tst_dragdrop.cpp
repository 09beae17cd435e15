// variants: x11
#include "gallery.h"

#include "support/testcase.h"

using namespace ta::test;

// Drags between processes, as the X server carries them.
class tst_DragDrop : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void cardBetweenGalleries();
    void cardBetweenColumns();
    void escape();
    void files();
};

namespace {

const QStringList kPage = { QStringLiteral("--page"), QStringLiteral("drag-and-drop") };
const QString kReady = QStringLiteral("ready drag-and-drop");
const QString kCard1 = QStringLiteral("card1");
const QString kEnd = QStringLiteral("drag ends card1");
const QString kIdeas = QStringLiteral("ideas");
const QString kAir = QStringLiteral("air");

// So that they overlap in a corner where nothing is.
bool lieBesideEachOther(Gallery &first, Gallery &second)
{
    return first.says(kReady) && first.arrange(QRect(0, 0, 900, 680)) && second.says(kReady)
           && second.arrange(QRect(690, 510, 900, 680));
}

QString over(const QString &zone)
{
    return QStringLiteral("drag over ") + zone;
}

QString off(const QString &zone)
{
    return QStringLiteral("drag off ") + zone;
}

QString dropped(const QString &zone, Qt::KeyboardModifiers keys, const QString &value)
{
    return QStringLiteral("dropped %1 %2 %3").arg(zone).arg(int(keys)).arg(value);
}

QString firstCard(const QString &column)
{
    return QStringLiteral(R"({"column":"%1","id":1,"ink":"ButtonNormalBlue",)"
                          R"("note":"Slow pan, 20 seconds","title":"Harbour at dawn"})")
        .arg(column);
}

} // namespace

// Nothing stays pressed for the next test where one has failed.
void tst_DragDrop::cleanup()
{
    Gallery::release();
    Gallery::keyUp("shift");
    Gallery::keyUp("ctrl");
    TestCase::cleanup();
}

// Out of the window, into the other one, back, into it again, and dropped with a key held.
void tst_DragDrop::cardBetweenGalleries()
{
    Gallery first(kPage);
    Gallery second(kPage);
    QVERIFY(lieBesideEachOther(first, second));

    QVERIFY(first.drag(kCard1));
    QVERIFY(first.dragOver(kAir));
    QVERIFY(second.dragOver(kIdeas));
    QVERIFY(first.says(off(kAir)));
    QVERIFY(second.dragOver(kAir));
    QVERIFY(second.says(off(kIdeas)));
    QVERIFY(first.dragOver(kAir));
    QVERIFY(second.says(off(kAir)));
    QVERIFY(second.dragOver(kAir));
    Gallery::keyDown("shift");
    second.move(kAir);
    Gallery::release();
    QVERIFY(second.says(dropped(kAir, Qt::ShiftModifier, firstCard(kIdeas))));
    Gallery::keyUp("shift");
    second.place(QStringLiteral("card6")); // under a number of its own there

    // Both work on as if nothing had been.
    QVERIFY(first.closes() && second.closes());
}

// A move takes the zone away that the drag began in, while it is still under way.
void tst_DragDrop::cardBetweenColumns()
{
    Gallery gallery(kPage);
    QVERIFY(gallery.says(kReady));
    for (const bool copies : { false, true }) {
        const QRect before = gallery.area(kCard1);
        const QString from = copies ? kAir : kIdeas;
        const QString to = copies ? kIdeas : kAir;
        QVERIFY(gallery.drag(kCard1));
        QVERIFY(gallery.dragOver(to));
        if (copies)
            Gallery::keyDown("ctrl");
        gallery.move(to);
        Gallery::release();
        QVERIFY(gallery.says(
            dropped(to, copies ? Qt::ControlModifier : Qt::NoModifier, firstCard(from))));
        if (copies) {
            Gallery::keyUp("ctrl");
            QVERIFY(gallery.area(kIdeas).contains(gallery.area(QStringLiteral("card6"))));
            QCOMPARE(gallery.area(kCard1), before);
        } else {
            QVERIFY(
                QTest::qWaitFor([&] { return gallery.area(kAir).contains(gallery.area(kCard1)); },
                                20000));
        }
    }
    QVERIFY(gallery.closes());
}

void tst_DragDrop::escape()
{
    Gallery first(kPage);
    Gallery second(kPage);
    QVERIFY(lieBesideEachOther(first, second));

    QVERIFY(first.drag(kCard1));
    QVERIFY(second.dragOver(kAir));
    first.key("Escape");
    QVERIFY(second.says(off(kAir)));
    QVERIFY(first.says(kEnd));
    Gallery::release();

    // The next drag is one like any other.
    QVERIFY(first.drag(kCard1));
    QVERIFY(first.dragOver(kAir));
    first.key("Escape");
    QVERIFY(first.says(off(kAir)));
    QVERIFY(first.says(kEnd));
    Gallery::release();
    QVERIFY(first.drag(kCard1));
    QVERIFY(second.dragOver(kAir));
    Gallery::release();
    QVERIFY(second.says(dropped(kAir, Qt::NoModifier, firstCard(kIdeas))));
    QCOMPARE(second.count(off(kAir)), 1);
}

// Each box gets the files that it has asked for, in their order.
void tst_DragDrop::files()
{
    Gallery gallery(kPage);
    QVERIFY(gallery.says(kReady));
    QVERIFY(gallery.arrange(QRect(0, 0, 1180, 840)));
    Gallery source(QStringLiteral(TAMBERUI_DRAGSOURCE),
                   { QStringLiteral("/tmp/b.MOV"), QStringLiteral("/tmp/a note.txt"),
                     QStringLiteral("/tmp/c.png"), QStringLiteral("/tmp/a.mkv") });
    const QString start = QStringLiteral("files");
    QVERIFY(source.says(QStringLiteral("ready files")));
    QVERIFY(source.arrange(QRect(1300, 900, 200, 200), start));

    const struct
    {
        const char *zone;
        const char *value;
    } boxes[] = {
        { "files",
          R"(["file:///tmp/b.MOV","file:///tmp/a%20note.txt","file:///tmp/c.png","file:///tmp/a.mkv"])" },
        { "pictures", R"(["file:///tmp/c.png"])" },
        { "videos", R"(["file:///tmp/b.MOV","file:///tmp/a.mkv"])" },
    };
    const QString end = QStringLiteral("drag ends files");
    for (const auto &box : boxes) {
        const QString zone = QString::fromLatin1(box.zone);
        QVERIFY(source.drag(start));
        QVERIFY(gallery.dragOver(zone));
        Gallery::release();
        QVERIFY(gallery.says(dropped(zone, Qt::NoModifier, QString::fromLatin1(box.value))));
        QVERIFY(source.says(end));
    }

    // The board has no use for files.
    QVERIFY(source.drag(start));
    gallery.move(kAir);
    QVERIFY(gallery.dragOver(QStringLiteral("videos")));
    QCOMPARE(gallery.count(over(kAir)), 0);
    source.key("Escape");
    QVERIFY(gallery.says(off(QStringLiteral("videos"))));
    Gallery::release();
}

TAMBER_TEST_MAIN(tst_DragDrop)
#include "tst_dragdrop.moc"
