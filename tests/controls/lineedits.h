#pragma once

#include "support/scene.h"

#include <TamberUi/LineEditBase>

#include <QtTest/QtTest>

namespace ta::test {

inline const char kEdits[] =
    "UiLineEditBase { objectName: 'edit'; x: 100; y: 100; width: 200; height: 30; textInput: "
    "input\n"
    "TextInput { id: input; objectName: 'input'; anchors.fill: parent; activeFocusOnTab: true;"
    "selectByMouse: true } }\n"
    "UiLineEditBase { objectName: 'other'; x: 100; y: 200; width: 200; height: 30; textInput: "
    "second\n"
    "TextInput { id: second; objectName: 'second'; anchors.fill: parent; activeFocusOnTab: true } "
    "}\n";

// An editing item that does nothing by itself and tells what is done to it.
inline const char kFake[] = "Item { property string text; property int cursorPosition: 7;"
                            "property bool acceptableInput: true; property int selections: 0\n"
                            "function selectAll() { ++selections } }";

/// A scene with two line edits, of which "edit" is the first, and "input" its editing item.
struct Edits : Scene
{
    explicit Edits(const QString &body = QLatin1String(kEdits)) : Scene(body)
    {
        edit = find<ui::LineEditBase>("edit");
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

    QPointer<ui::LineEditBase> edit;
    QPointer<QQuickItem> input;
};

} // namespace ta::test
