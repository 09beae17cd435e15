#include "controls/lineedits.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <functional>

using namespace ta::ui;
using namespace ta::test;

class tst_EditingItems : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void oddEditors();
    void circles();
    void replacedEditor();
    void replacedInTheMiddle();
    void destroyedWithFocus();
    void longText();
    void handlersThatDestroy();
};

// What an editing item lacks is left undone, and no text is lost by it.
void tst_EditingItems::oddEditors()
{
    const struct
    {
        const char *editor;
        const char *shown; // of the text "kept"
    } rows[] = {
        { "Item {}", "" },
        { "Item { property int text: 5; property string cursorPosition: 'x';"
          "property var acceptableInput: null }",
          "5" },
        { "Item { readonly property string text: 'its' }", "its" },
        { "Item { property string text }", "kept" },
        { "Item { property string text; function selectAll(x) { text = 'called' } }", "kept" },
        { "Text { signal selectAll() }", "kept" },
    };
    for (const auto &row : rows) {
        const QString shown = QLatin1String(row.shown);
        Edits scene;
        scene.edit->setText(QStringLiteral("kept"));
        const auto object = scene.create(QLatin1String(row.editor));
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
    }
}

// What leads back to the line edit is refused.
void tst_EditingItems::circles()
{
    Edits scene;
    scene.edit->setTextInput(nullptr);
    scene.edit->forceActiveFocus();
    QCOMPARE(scene.edit->editText(), QString());
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
void tst_EditingItems::replacedEditor()
{
    Edits scene;
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
void tst_EditingItems::replacedInTheMiddle()
{
    Edits scene;
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

// The focus of an item that is being destroyed goes to the line edit, which must not give it back;
// and nothing that was looked up on the item's class may be touched any more.
void tst_EditingItems::destroyedWithFocus()
{
    for (const char *editor :
         { "TextInput {}", "TextInput { property int more: 3; onTextChanged: more = length }",
           kFake }) {
        Edits scene;
        auto object = scene.create(QLatin1String(editor));
        auto *item = qobject_cast<QQuickItem *>(object.get());
        item->setParentItem(scene.edit);
        scene.edit->setBindable(editor == kFake);
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
}

void tst_EditingItems::longText()
{
    Edits scene;
    const QString text(1000000, QLatin1Char('w'));
    scene.input->setVisible(false); // laying it out is Qt's own affair
    scene.input->setProperty("maximumLength", text.length());
    scene.edit->setText(text);
    QCOMPARE(scene.edit->editText().length(), text.length());
    QMetaObject::invokeMethod(scene.edit, "selectAll");
    scene.edit->forceActiveFocus();
    scene.edit->setFocus(false);
    QCOMPARE(scene.edit->text(), text);
}

// Each signal, on every way that leads to it, may end the line edit, its editing item or both.
// Events are sent directly: a window does not survive that its focus item is destroyed by them.
void tst_EditingItems::handlersThatDestroy()
{
    const auto sendReturn = [](const Edits &scene) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {});
        QCoreApplication::sendEvent(scene.input, &key);
        QVERIFY(key.isAccepted());
    };
    const auto sendFocusOut = [](const Edits &scene) {
        QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
        QCoreApplication::sendEvent(scene.input, &event);
    };
    const struct
    {
        bool bindable;
        QStringList signalNames;
        std::function<void(const Edits &)> go;
    } ways[] = {
        { false, names({ "textChanged", "emptyChanged" }), sendFocusOut },
        { true, names({ "updateRequested", "editingFinished" }), sendFocusOut },
        { false, names({ "returnPressed" }), sendReturn },
        { false, names({ "textChanged", "emptyChanged" }),
          [](const Edits &scene) { scene.edit->setText(QStringLiteral("written")); } },
        { false, names({ "textInputChanged" }),
          [](const Edits &scene) { scene.edit->setTextInput(nullptr); } },
    };
    for (const auto &way : ways) {
        for (const QString &signal : way.signalNames) {
            for (bool editorOnly : { false, true }) {
                Edits scene;
                scene.edit->setBindable(way.bindable);
                scene.input->setProperty("text", QStringLiteral("typed"));
                const QPointer<QQuickItem> victim = editorOnly ? scene.input : scene.edit.data();
                on(
                    scene.edit, signal, [&] { delete victim; }, 1);
                way.go(scene);
                QVERIFY2(!victim, qPrintable(signal));
                if (editorOnly)
                    QCOMPARE(scene.edit->editText(), QString());
            }
        }
    }
}

TAMBER_TEST_MAIN(tst_EditingItems)
#include "tst_editingitems.moc"
