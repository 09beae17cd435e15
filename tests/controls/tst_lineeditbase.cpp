#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/LineEditBase>

#include <QtGui/QCursor>

using namespace ta::ui;
using namespace ta::test;

class tst_LineEditBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void typing();
    void keysThatEnd_data();
    void keysThatEnd();
    void bindable();
    void focusReasons_data();
    void focusReasons();
    void tabbing();
    void writtenText();
    void composedText();
    void undoAfterRevert();
    void validator();
    void hoverAndDisabling();
    void oddEditors_data();
    void oddEditors();
    void replacedEditor();
    void replacedInTheMiddle();
    void destroyedWithFocus_data();
    void destroyedWithFocus();
    void longText();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
};

namespace {

const char kEdits[] =
    "UiLineEditBase { objectName: 'edit'; x: 100; y: 100; width: 200; height: 30; textInput: "
    "input\n"
    "TextInput { id: input; objectName: 'input'; anchors.fill: parent; activeFocusOnTab: true;"
    "selectByMouse: true } }\n"
    "UiLineEditBase { objectName: 'other'; x: 100; y: 200; width: 200; height: 30; textInput: "
    "second\n"
    "TextInput { id: second; objectName: 'second'; anchors.fill: parent; activeFocusOnTab: true } "
    "}\n";

// An editing item that does nothing by itself and tells what is done to it.
const char kFake[] = "Item { property string text; property int cursorPosition: 7;"
                     "property bool acceptableInput: true; property int selections: 0\n"
                     "function selectAll() { ++selections } }";

struct Edits : Scene
{
    explicit Edits(const QString &body = QLatin1String(kEdits)) : Scene(body)
    {
        edit = find<LineEditBase>("edit");
        input = find("input");
    }

    void type(const char *text)
    {
        for (const char *c = text; *c; ++c)
            QTest::keyClick(window(), *c);
    }
    QString typed() const { return input->property("text").toString(); }
    int cursor() const { return input->property("cursorPosition").toInt(); }
    QString selected() const { return input->property("selectedText").toString(); }

    QPointer<LineEditBase> edit;
    QPointer<QQuickItem> input;
};

void compose(QObject *editor, const QString &preedit, const QString &commit)
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(editor, &event);
}

void sendFocusOut(QObject *editor)
{
    QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(editor, &event);
}

} // namespace

// What is typed is the editing item's alone until the focus leaves it.
void tst_LineEditBase::typing()
{
    Edits scene;
    QVERIFY(scene.isValid());
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

    // Nothing new is nothing to announce.
    QTest::keyClick(scene.window(), Qt::Key_Tab, Qt::ShiftModifier);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(log.take(), QStringList());
    QTest::keyClick(scene.window(), Qt::Key_Tab, Qt::ShiftModifier);
    QTest::keyClick(scene.window(), Qt::Key_Delete);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(log.take(), names({ "textChanged", "emptyChanged" }));
    QVERIFY(scene.edit->isEmpty());
}

void tst_LineEditBase::keysThatEnd_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("signalNames");
    const QStringList returned = names({ "textChanged", "returnPressed" });
    QTest::newRow("Return") << Qt::Key_Return << QStringLiteral("oldnew") << returned;
    QTest::newRow("Enter") << Qt::Key_Enter << QStringLiteral("oldnew") << returned;
    QTest::newRow("Escape") << Qt::Key_Escape << QStringLiteral("old") << QStringList();
}

void tst_LineEditBase::keysThatEnd()
{
    QFETCH(Qt::Key, key);
    Edits scene(QStringLiteral("property int passed: 0; Keys.onPressed: ++passed\n")
                + QLatin1String(kEdits));
    QVERIFY(scene.isValid());
    scene.edit->setText(QStringLiteral("old"));
    click(scene.window(), center(scene.input));
    QTest::keyClick(scene.window(), Qt::Key_End);
    scene.type("new");
    SignalLog log;
    log.watch(scene.edit);
    const int passed = scene.root()->property("passed").toInt();
    QTest::keyClick(scene.window(), key);
    QTEST(scene.edit->text(), "text");
    QTEST(scene.typed(), "text");
    QTEST(log.take(), "signalNames");
    QVERIFY(!scene.input->hasActiveFocus() && !scene.edit->hasActiveFocus());
    QCOMPARE(scene.cursor(), 0);
    QCOMPARE(scene.root()->property("passed").toInt(), passed);
}

void tst_LineEditBase::bindable()
{
    Edits scene(QStringLiteral("property string stored: 'old'; property bool follow: false\n")
                + QLatin1String(kEdits));
    QVERIFY(scene.isValid());
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

void tst_LineEditBase::focusReasons_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<int>("first"); // selections of a line edit that has not been edited before
    QTest::addColumn<int>("direct"); // and of its editing item, when the focus goes to that
    QTest::newRow("Mouse") << Qt::MouseFocusReason << 0 << 0;
    QTest::newRow("Tab") << Qt::TabFocusReason << 2 << 1;
    QTest::newRow("Backtab") << Qt::BacktabFocusReason << 2 << 1;
    QTest::newRow("ActiveWindow") << Qt::ActiveWindowFocusReason << 1 << 0;
    QTest::newRow("Popup") << Qt::PopupFocusReason << 1 << 0;
    QTest::newRow("Shortcut") << Qt::ShortcutFocusReason << 1 << 0;
    QTest::newRow("Other") << Qt::OtherFocusReason << 1 << 0;
}

void tst_LineEditBase::focusReasons()
{
    QFETCH(Qt::FocusReason, reason);
    Edits scene(QStringLiteral("UiLineEditBase { objectName: 'edit'; textInput: input\n")
                + QString(QLatin1String(kFake))
                      .replace(QLatin1String("Item {"),
                               QLatin1String("Item { id: input; objectName: 'input';"))
                + QLatin1String("}"));
    QVERIFY(scene.isValid());
    QCOMPARE(scene.cursor(), 0);
    scene.edit->forceActiveFocus(reason);
    QVERIFY(scene.input->hasActiveFocus());
    QTEST(scene.input->property("selections").toInt(), "first");
    scene.edit->setFocus(false);
    scene.input->setProperty("selections", 0);
    scene.input->forceActiveFocus(reason);
    QTEST(scene.input->property("selections").toInt(), "direct");
}

// Into a field and out again, in both directions; a press puts the cursor, Tab selects.
void tst_LineEditBase::tabbing()
{
    Edits scene;
    QVERIFY(scene.isValid());
    scene.edit->setText(QStringLiteral("a text of some words"));
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.input->hasActiveFocus());
    QCOMPARE(scene.selected(), scene.edit->text());
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.find("second")->hasActiveFocus());
    QCOMPARE(scene.selected(), QString());
    QTest::keyClick(scene.window(), Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(scene.selected(), scene.edit->text());
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    click(scene.window(), QPoint(120, 105));
    QVERIFY(scene.input->hasActiveFocus());
    QCOMPARE(scene.selected(), QString());
    QVERIFY(scene.cursor() > 0 && scene.cursor() < scene.edit->text().length());
    scene.edit->selectAll();
    QCOMPARE(scene.selected(), scene.edit->text());
}

// The host may write at any time; where the cursor is while the user types is not its business.
void tst_LineEditBase::writtenText()
{
    Edits scene;
    QVERIFY(scene.isValid());
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
    const auto connection = connect(scene.edit, &LineEditBase::textChanged,
                                    [&] { scene.edit->setText(QString()); });
    scene.edit->setText(QStringLiteral("three"));
    QCOMPARE(scene.edit->editText(), QString());
    QVERIFY(scene.edit->isEmpty());
    disconnect(connection);
}

// Text that is being composed is no text yet. Where the editing item makes it one, it is committed.
void tst_LineEditBase::composedText()
{
    const QString kana = QStringLiteral("\u304b\u306a");
    Edits scene;
    QVERIFY(scene.isValid());
    scene.edit->forceActiveFocus();
    compose(scene.input, kana, QString());
    QCOMPARE(scene.edit->editText(), QString());
    compose(scene.input, QString(), kana);
    QCOMPARE(scene.edit->editText(), kana);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.edit->text(), kana);

    // Focus that leaves in the middle, and the input method that commits only then.
    scene.edit->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_End);
    compose(scene.input, kana, QString());
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.edit->text(), kana);
    compose(scene.input, QString(), QStringLiteral("!"));
    QVERIFY(scene.edit->editText().contains(QLatin1Char('!')));
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
    QVERIFY(scene.isValid());
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

    // Within one edit, undo is the editing item's own.
    scene.edit->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_End);
    scene.type("x");
    QTest::keySequence(scene.window(), QKeySequence::Undo);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(scene.edit->text(), QStringLiteral("old"));
}

// What a validator refuses is never typed; what is not finished is committed and marked.
void tst_LineEditBase::validator()
{
    Edits scene;
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
    QCOMPARE(scene.edit->cursor().shape(), Qt::IBeamCursor);
    SignalLog log;
    log.watch(scene.edit, names({ "hoveredChanged" }));
    move(scene.window(), center(scene.edit));
    QVERIFY(scene.edit->hovered());
    move(scene.window(), QPoint(500, 500));
    QVERIFY(!scene.edit->hovered());
    QCOMPARE(log.take(), names({ "hoveredChanged", "hoveredChanged" }));
    move(scene.window(), center(scene.edit));
    scene.root()->setEnabled(false);
    QVERIFY(!scene.edit->hovered());
    QCOMPARE(log.take(), names({ "hoveredChanged", "hoveredChanged" }));
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

void tst_LineEditBase::oddEditors_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("shown"); // of the text "kept"
    QTest::newRow("plain item") << QStringLiteral("Item {}") << QString();
    QTest::newRow("text of another kind")
        << QStringLiteral("Item { property int text: 5; property string cursorPosition: 'x';"
                          "property var acceptableInput: null }")
        << QStringLiteral("5");
    QTest::newRow("read-only text")
        << QStringLiteral("Item { readonly property string text: 'its' }") << QStringLiteral("its");
    QTest::newRow("text only") << QStringLiteral("Item { property string text }")
                               << QStringLiteral("kept");
    QTest::newRow("selectAll with argument") << QStringLiteral(
        "Item { property string text; function selectAll(x) { text = 'called' } }")
                                             << QStringLiteral("kept");
    QTest::newRow("method that throws")
        << QStringLiteral("Text { signal selectAll() }") << QStringLiteral("kept");
}

// What an editing item lacks is left undone, and no text is lost by it.
void tst_LineEditBase::oddEditors()
{
    QFETCH(QString, editor);
    QFETCH(QString, shown);
    Edits scene;
    QVERIFY(scene.isValid());
    scene.edit->setText(QStringLiteral("kept"));
    const auto object = scene.create(editor);
    auto *item = qobject_cast<QQuickItem *>(object.get());
    QVERIFY(item);
    item->setParentItem(scene.edit);
    scene.edit->setTextInput(item);
    scene.edit->setText(QStringLiteral("word"));
    scene.edit->setText(QStringLiteral("kept"));
    QCOMPARE(scene.edit->editText(), shown);
    QVERIFY(!scene.edit->hasAcceptableInput());
    scene.edit->selectAll();
    QCOMPARE(scene.edit->editText(), shown);
    scene.edit->forceActiveFocus(Qt::TabFocusReason);
    QVERIFY(item->hasActiveFocus());
    scene.find("other")->forceActiveFocus();
    QCOMPARE(scene.edit->text(), shown.isEmpty() ? QStringLiteral("kept") : shown);
    scene.edit->setTextInput(nullptr);
    scene.edit->forceActiveFocus();
    QCOMPARE(scene.edit->editText(), QString());
    // Nor is anything done for an item that comes to nothing.
    expectWarning(QStringLiteral("cannot be its own editing item"));
    scene.edit->setTextInput(scene.edit);
    QVERIFY(!scene.edit->textInput());
    auto *other = scene.find<LineEditBase>("other");
    scene.edit->setTextInput(other);
    other->setTextInput(scene.edit);
    scene.edit->selectAll();
    QCOMPARE(other->textInput(), scene.find("second"));
}

// Nothing of one editing item is read, written or heard on the next.
void tst_LineEditBase::replacedEditor()
{
    Edits scene;
    QVERIFY(scene.isValid());
    const auto plain = scene.create(QStringLiteral("Item { property string name: 'mine' }"));
    auto *item = qobject_cast<QQuickItem *>(plain.get());
    item->setParentItem(scene.edit);
    SignalLog log;
    log.watch(scene.edit);
    scene.edit->setTextInput(item);
    QCOMPARE(log.take(), names({ "textInputChanged" }));
    QCOMPARE(scene.edit->editText(), QString());
    QVERIFY(!scene.edit->hasAcceptableInput());
    scene.edit->setText(QStringLiteral("text"));
    scene.edit->selectAll();
    QCOMPARE(item->property("name").toString(), QStringLiteral("mine"));
    QCOMPARE(scene.typed(), QString());
    log.take();

    // The old one is on its own now, be its validator or its keys.
    const auto bounds = scene.create(QStringLiteral("IntValidator {}"));
    scene.input->setProperty("validator", QVariant::fromValue(bounds.get()));
    scene.input->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(scene.input->hasActiveFocus());
    scene.find("second")->forceActiveFocus();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.edit->text(), QStringLiteral("text"));
    scene.input->setProperty("validator", QVariant::fromValue<QObject *>(nullptr));

    scene.edit->setTextInput(scene.input);
    scene.edit->setTextInput(scene.input);
    QCOMPARE(log.take(), names({ "textInputChanged" }));
    scene.input->forceActiveFocus();
    scene.type("new");
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(log.take(), names({ "textChanged" })); // heard once, not once for each time it was set
    QCOMPARE(scene.edit->text(), QStringLiteral("new"));
}

// What was typed in an editing item that is taken away stays there; the next one begins afresh.
void tst_LineEditBase::replacedInTheMiddle()
{
    Edits scene;
    QVERIFY(scene.isValid());
    scene.edit->setText(QStringLiteral("old"));
    scene.edit->forceActiveFocus(Qt::TabFocusReason);
    scene.type("half");
    const auto next = scene.create(QStringLiteral("TextInput { text: 'next' }"));
    auto *item = qobject_cast<QQuickItem *>(next.get());
    item->setParentItem(scene.edit);
    scene.edit->setTextInput(item);
    QCOMPARE(scene.edit->text(), QStringLiteral("old"));
    item->forceActiveFocus();
    QCOMPARE(scene.edit->text(), QStringLiteral("old"));
    QCOMPARE(scene.typed(), QStringLiteral("halfold").left(scene.typed().length()));
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.edit->text(), QStringLiteral("next"));
    // From within a commit.
    item->forceActiveFocus();
    QTest::keyClick(scene.window(), 'x');
    connect(scene.edit, &LineEditBase::textChanged, [&] { scene.edit->setTextInput(scene.input); });
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.edit->textInput(), scene.input.data());
    QCOMPARE(scene.typed(), scene.edit->text());
}

void tst_LineEditBase::destroyedWithFocus_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<bool>("bindable");
    for (bool bindable : { false, true }) {
        const char *kind = bindable ? ", bindable" : "";
        QTest::addRow("TextInput%s", kind) << QStringLiteral("TextInput {}") << bindable;
        QTest::addRow("TextInput with more%s", kind)
            << QStringLiteral("TextInput { property int more: 3; onTextChanged: more = length }")
            << bindable;
        QTest::addRow("QML only%s", kind) << QString(QLatin1String(kFake)) << bindable;
    }
}

// The focus of an item that is being destroyed goes to the line edit, which must not give it back;
// and nothing that was looked up on the item's class may be touched any more.
void tst_LineEditBase::destroyedWithFocus()
{
    QFETCH(QString, editor);
    QFETCH(bool, bindable);
    Edits scene;
    QVERIFY(scene.isValid());
    auto object = scene.create(editor);
    auto *item = qobject_cast<QQuickItem *>(object.get());
    item->setParentItem(scene.edit);
    scene.edit->setBindable(bindable);
    scene.edit->setTextInput(item);
    scene.edit->setText(QStringLiteral("kept"));
    scene.edit->forceActiveFocus();
    QVERIFY(item->hasActiveFocus());
    item->setParentItem(scene.root()); // it leaves with the focus, and comes back
    QVERIFY(!item->hasActiveFocus() && scene.edit->hasActiveFocus());
    item->setParentItem(scene.edit);
    item->forceActiveFocus();
    QVERIFY(item->hasActiveFocus());
    object.reset();
    QVERIFY(!scene.edit->textInput());
    QCOMPARE(scene.edit->text(), QStringLiteral("kept"));
    QCOMPARE(scene.edit->editText(), QString());
    QVERIFY(!scene.edit->hasAcceptableInput());
    scene.edit->selectAll();
    scene.edit->setText(QStringLiteral("new"));
    scene.find("other")->forceActiveFocus();
    scene.edit->forceActiveFocus();
    scene.edit->setTextInput(scene.input);
    scene.input->forceActiveFocus();
    scene.type("more");
    QCOMPARE(scene.edit->editText(), QStringLiteral("more"));
    delete scene.edit.data(); // and its editing item with it, focused
    QTest::keyClick(scene.window(), 'x');
}

void tst_LineEditBase::longText()
{
    Edits scene;
    QVERIFY(scene.isValid());
    const QString text(1000000, QLatin1Char('w'));
    scene.edit->setVisible(false); // laying it out is Qt's own affair
    scene.input->setProperty("maximumLength", text.length());
    scene.edit->setText(text);
    QCOMPARE(scene.edit->editText().length(), text.length());
    QMetaObject::invokeMethod(scene.edit, "selectAll");
    sendFocusOut(scene.input);
    QCOMPARE(scene.edit->text(), text);
    scene.edit->setText(QString());
    QVERIFY(scene.edit->isEmpty());
}

void tst_LineEditBase::handlersThatDestroy_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *signal : { "textChanged", "emptyChanged", "updateRequested", "editingFinished",
                                "returnPressed", "textInputChanged" })
        QTest::newRow(signal) << QByteArray(signal);
}

// Each signal, on every way that leads to it, may end the line edit, its editing item or both.
// Events are sent directly: a window does not survive that its focus item is destroyed by them.
void tst_LineEditBase::handlersThatDestroy()
{
    QFETCH(QByteArray, signal);
    enum Way { FocusOut, BindableFocusOut, Return, Escape, Written, Replaced, WayCount };
    int destroyed = 0;
    for (int way = 0; way < WayCount; ++way) {
        for (bool editorOnly : { false, true }) {
            Edits scene;
            QVERIFY(scene.isValid());
            scene.edit->setBindable(way == BindableFocusOut);
            scene.input->setProperty("text", QStringLiteral("typed"));
            QPointer<QObject> victim = scene.edit.data();
            if (editorOnly)
                victim = scene.input.data();
            const auto destroy = [&] { delete victim.data(); };
            if (signal == "textChanged")
                connect(scene.edit, &LineEditBase::textChanged, destroy);
            else if (signal == "emptyChanged")
                connect(scene.edit, &LineEditBase::emptyChanged, destroy);
            else if (signal == "updateRequested")
                connect(scene.edit, &LineEditBase::updateRequested, destroy);
            else if (signal == "editingFinished")
                connect(scene.edit, &LineEditBase::editingFinished, destroy);
            else if (signal == "returnPressed")
                connect(scene.edit, &LineEditBase::returnPressed, destroy);
            else
                connect(scene.edit, &LineEditBase::textInputChanged, destroy);
            QKeyEvent key(QEvent::KeyPress, way == Return ? Qt::Key_Return : Qt::Key_Escape, {});
            switch (way) {
            case FocusOut:
            case BindableFocusOut:
                sendFocusOut(scene.input);
                break;
            case Return:
            case Escape:
                QCoreApplication::sendEvent(scene.input, &key);
                QVERIFY(key.isAccepted());
                break;
            case Written:
                scene.edit->setText(QStringLiteral("written"));
                break;
            case Replaced:
                scene.edit->setTextInput(nullptr);
                break;
            }
            destroyed += !victim;
            if (editorOnly && !victim)
                QCOMPARE(scene.edit->editText(), QString());
        }
    }
    QVERIFY(destroyed > 0);
}

TAMBER_TEST_MAIN(tst_LineEditBase)
#include "tst_lineeditbase.moc"
