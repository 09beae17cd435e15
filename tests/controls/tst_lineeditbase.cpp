#include "controls/lineedits.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <QtGui/QCursor>

using namespace ta::ui;
using namespace ta::test;

class tst_LineEditBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void typing();
    void keysThatEnd();
    void bindable();
    void focusReasons();
    void focusWhileCreated();
    void writtenText();
    void composedText();
    void undoAfterRevert();
    void validator();
    void hoverAndDisabling();
};

namespace {

void compose(QObject *editor, const QString &preedit, const QString &commit)
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(editor, &event);
}

} // namespace

// What is typed is the editing item's alone until the focus leaves it.
void tst_LineEditBase::typing()
{
    Edits scene;
    move(scene.window(), QPoint(120, 105)); // hovered all the time
    SignalLog log;
    log.watch(scene.edit);
    scene.edit->forceActiveFocus(Qt::TabFocusReason);
    QVERIFY(scene.input->hasActiveFocus());
    scene.type("word");
    QCOMPARE(scene.edit->editText(), QStringLiteral("word"));
    QVERIFY(scene.edit->text().isEmpty() && scene.edit->isEmpty());
    QCOMPARE(log.take(), QStringList());
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.find("second")->hasActiveFocus());
    QCOMPARE(scene.edit->text(), QStringLiteral("word"));
    QCOMPARE(scene.cursor(), 0);
    QCOMPARE(log.take(), names({ "textChanged", "emptyChanged" }));

    // Nothing new is nothing to announce. Tab selects, a press puts the cursor.
    QTest::keyClick(scene.window(), Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(scene.selected(), QStringLiteral("word"));
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.selected(), QString());
    click(scene.window(), QPoint(120, 105));
    QVERIFY(scene.input->hasActiveFocus());
    QCOMPARE(scene.selected(), QString());
    QVERIFY(scene.cursor() > 0);
    QCOMPARE(log.take(), QStringList());
    scene.edit->selectAll();
    QTest::keyClick(scene.window(), Qt::Key_Delete);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(log.take(), names({ "textChanged", "emptyChanged" }));
    QVERIFY(scene.edit->isEmpty());
}

void tst_LineEditBase::keysThatEnd()
{
    const QStringList returned = names({ "textChanged", "returnPressed" });
    const struct
    {
        Qt::Key key;
        const char *text;
        QStringList signalNames;
    } rows[] = {
        { Qt::Key_Return, "oldnew", returned },
        { Qt::Key_Enter, "oldnew", returned },
        { Qt::Key_Escape, "old", {} },
    };
    for (const auto &row : rows) {
        Edits scene(QStringLiteral("property int passed: 0; Keys.onPressed: ++passed\n")
                    + QLatin1String(kEdits));
        scene.edit->setText(QStringLiteral("old"));
        click(scene.window(), center(scene.input));
        QTest::keyClick(scene.window(), Qt::Key_End);
        scene.type("new");
        SignalLog log;
        log.watch(scene.edit);
        const QVariant passed = scene.root()->property("passed");
        QTest::keyClick(scene.window(), row.key);
        QCOMPARE(scene.edit->text(), QLatin1String(row.text));
        QCOMPARE(scene.typed(), scene.edit->text());
        QCOMPARE(log.take(), row.signalNames);
        QVERIFY(!scene.input->hasActiveFocus() && !scene.edit->hasActiveFocus());
        QCOMPARE(scene.cursor(), 0);
        QCOMPARE(scene.root()->property("passed"), passed);
    }
}

void tst_LineEditBase::bindable()
{
    Edits scene(QStringLiteral("property string stored: 'old'; property bool follow: false\n")
                + QLatin1String(kEdits));
    scene.edit->setBindable(true);
    scene.edit->setText(QStringLiteral("old"));
    SignalLog log;
    log.watch(scene.edit);
    QStringList shown;
    connect(scene.edit, &LineEditBase::updateRequested, [&](const QString &value) {
        shown += value + QLatin1Char('|') + scene.typed();
        if (scene.root()->property("follow").toBool())
            scene.edit->setText(value.toUpper());
    });
    for (bool follow : { false, true }) {
        scene.root()->setProperty("follow", follow);
        scene.edit->forceActiveFocus(Qt::TabFocusReason);
        scene.type(follow ? "b" : "a");
        QTest::keyClick(scene.window(), Qt::Key_Tab);
        QCOMPARE(scene.edit->text(), follow ? QStringLiteral("B") : QStringLiteral("old"));
        QCOMPARE(scene.typed(), scene.edit->text());
        QCOMPARE(log.take(), follow ? names({ "updateRequested", "textChanged", "editingFinished" })
                                    : names({ "updateRequested", "editingFinished" }));
    }
    QCOMPARE(shown, names({ "a|a", "b|b" }));
    // Also what did not change is requested; Escape requests what is there.
    scene.edit->forceActiveFocus();
    scene.type("x");
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(log.take(), names({ "updateRequested", "editingFinished" }));
    QCOMPARE(shown.last(), QStringLiteral("B|B"));
}

// Selects, or leaves the cursor where a press has put it.
void tst_LineEditBase::focusReasons()
{
    const struct
    {
        Qt::FocusReason reason;
        int first; // selections of a line edit that has not been edited before
        int direct; // and of its editing item, when the focus goes to that
    } rows[] = {
        { Qt::MouseFocusReason, 0, 0 },   { Qt::TabFocusReason, 2, 1 },
        { Qt::BacktabFocusReason, 2, 1 }, { Qt::ActiveWindowFocusReason, 1, 0 },
        { Qt::PopupFocusReason, 1, 0 },   { Qt::ShortcutFocusReason, 1, 0 },
        { Qt::OtherFocusReason, 1, 0 },
    };
    for (const auto &row : rows) {
        Edits scene(QStringLiteral("UiLineEditBase { objectName: 'edit'; textInput: input\n")
                    + QString(QLatin1String(kFake))
                          .replace(QLatin1String("Item {"),
                                   QLatin1String("Item { id: input; objectName: 'input';"))
                    + QLatin1String("}"));
        QCOMPARE(scene.cursor(), 0);
        scene.edit->forceActiveFocus(row.reason);
        QVERIFY(scene.input->hasActiveFocus());
        QCOMPARE(scene.input->property("selections").toInt(), row.first);
        scene.edit->setFocus(false);
        scene.input->setProperty("selections", 0);
        scene.input->forceActiveFocus(row.reason);
        QCOMPARE(scene.input->property("selections").toInt(), row.direct);
    }
}

// An edit that is made where nothing else has the focus gets it before it has its editing item.
void tst_LineEditBase::focusWhileCreated()
{
    Edits scene(QStringLiteral(
        "Loader { objectName: 'loader'; focus: true; active: false; sourceComponent: Component {"
        "UiLineEditBase { focus: true; text: 'abc'; textInput: input\n"
        "onTextInputChanged: input.text = text\n"
        "TextInput { id: input; objectName: 'late' } } } }"));
    scene.find("loader")->setProperty("active", true);
    auto *late = scene.find("late");
    QVERIFY(late->hasActiveFocus());
    QCOMPARE(late->property("selectedText").toString(), QStringLiteral("abc"));
}

// The host may write at any time; where the cursor is while the user types is not its business.
void tst_LineEditBase::writtenText()
{
    Edits scene;
    const auto fake = scene.create(QLatin1String(kFake));
    auto *editor = qobject_cast<QQuickItem *>(fake.get());
    editor->setParentItem(scene.edit);
    editor->setProperty("text", QStringLiteral("its own"));
    scene.edit->setTextInput(editor);
    QCOMPARE(editor->property("cursorPosition").toInt(), 0);
    QCOMPARE(scene.edit->editText(), QStringLiteral("its own"));
    editor->setProperty("cursorPosition", 3);
    scene.edit->setText(QStringLiteral("one"));
    QCOMPARE(editor->property("cursorPosition").toInt(), 0);
    editor->forceActiveFocus();
    editor->setProperty("cursorPosition", 3);
    editor->setProperty("text", QStringLiteral("typing"));
    scene.edit->setText(QStringLiteral("one")); // no change
    QCOMPARE(scene.edit->editText(), QStringLiteral("typing"));
    scene.edit->setText(QStringLiteral("two"));
    QCOMPARE(scene.edit->editText(), QStringLiteral("two"));
    QCOMPARE(editor->property("cursorPosition").toInt(), 3);

    // A handler that writes has the last word, in the editing item as well.
    on(scene.edit, QStringLiteral("textChanged"), [&] { scene.edit->setText(QString()); });
    scene.edit->setText(QStringLiteral("three"));
    QCOMPARE(scene.edit->editText(), QString());
    QVERIFY(scene.edit->isEmpty());
}

// Text that is being composed is no text yet. Where the editing item makes it one, it is committed.
void tst_LineEditBase::composedText()
{
    const QString kana = QStringLiteral("\u304b\u306a");
    Edits scene;
    scene.edit->forceActiveFocus();
    compose(scene.input, kana, QString());
    QCOMPARE(scene.edit->editText(), QString());
    compose(scene.input, QString(), kana);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.edit->text(), kana);

    // Focus that leaves in the middle, and the input method that commits only then.
    scene.edit->forceActiveFocus();
    compose(scene.input, kana, QString());
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    compose(scene.input, QString(), QStringLiteral("!"));
    scene.edit->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.edit->text().contains(QLatin1Char('!')));

    // A host that writes meanwhile replaces the whole of it.
    scene.edit->forceActiveFocus();
    compose(scene.input, kana, QString());
    scene.edit->setText(QStringLiteral("written"));
    QCOMPARE(scene.edit->editText(), QStringLiteral("written"));
    QCOMPARE(scene.input->property("preeditText").toString(), QString());
}

void tst_LineEditBase::undoAfterRevert()
{
    Edits scene;
    scene.edit->setText(QStringLiteral("old"));
    scene.edit->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_End);
    scene.type("er");
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    scene.edit->forceActiveFocus();
    QTest::keySequence(scene.window(), QKeySequence::Undo);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.edit->text(), QStringLiteral("old"));
    QCOMPARE(scene.typed(), QStringLiteral("old"));
}

// What a validator refuses is never typed; what is not finished is committed and marked.
void tst_LineEditBase::validator()
{
    Edits scene;
    QVERIFY(scene.edit->hasAcceptableInput());
    const auto bounds = scene.create(QStringLiteral("IntValidator { bottom: 10; top: 99 }"));
    SignalLog log;
    log.watch(scene.edit);
    scene.input->setProperty("validator", QVariant::fromValue(bounds.get()));
    QVERIFY(!scene.edit->hasAcceptableInput());
    QCOMPARE(log.take(), names({ "acceptableInputChanged" }));
    scene.edit->forceActiveFocus();
    scene.type("x4y2z7");
    QCOMPARE(scene.edit->editText(), QStringLiteral("42"));
    QVERIFY(scene.edit->hasAcceptableInput());
    QCOMPARE(log.take(), names({ "acceptableInputChanged" }));
    QTest::keyClick(scene.window(), Qt::Key_Backspace);
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.edit->text(), QStringLiteral("4"));
    QVERIFY(!scene.edit->hasAcceptableInput());
    scene.edit->setText(QStringLiteral("word")); // by the host, whom no validator binds
    QCOMPARE(scene.edit->editText(), QStringLiteral("word"));
    QVERIFY(!scene.edit->hasAcceptableInput());
    scene.input->setProperty("validator", QVariant::fromValue<QObject *>(nullptr));
}

void tst_LineEditBase::hoverAndDisabling()
{
    Edits scene;
    QCOMPARE(scene.edit->cursor().shape(), Qt::IBeamCursor);
    SignalLog log;
    log.watch(scene.edit, names({ "hoveredChanged" }));
    for (bool disables : { false, true }) {
        move(scene.window(), center(scene.edit));
        QVERIFY(scene.edit->hovered());
        move(scene.window(), disables ? center(scene.edit) : QPoint(500, 500));
        scene.root()->setEnabled(!disables);
        QVERIFY(!scene.edit->hovered());
        QCOMPARE(log.take(), names({ "hoveredChanged", "hoveredChanged" }));
    }
    QCOMPARE(scene.edit->cursor().shape(), Qt::ArrowCursor);
    scene.root()->setEnabled(true);
    QCOMPARE(scene.edit->cursor().shape(), Qt::IBeamCursor);

    // Disabled while it is edited: what was typed is committed with the focus.
    scene.edit->forceActiveFocus();
    scene.type("typed");
    scene.edit->setEnabled(false);
    QVERIFY(!scene.input->hasActiveFocus());
    QCOMPARE(scene.edit->text(), QStringLiteral("typed"));

    // A child of something disabled becomes enabled once more in the middle of its destruction.
    scene.edit->setEnabled(true);
    scene.root()->setEnabled(false);
    delete scene.edit;
}

TAMBER_TEST_MAIN(tst_LineEditBase)
#include "tst_lineeditbase.moc"
