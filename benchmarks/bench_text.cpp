#include "measures.h"
#include "rows.h"

namespace bench {

Rows textRows()
{
    // The bases bring no items of their own, so both sides get what they need to be used.
    const QByteArray edit = "import QtQuick 2.15; import tamber.Ui.Private 1.0\n"
                            "UiLineEditBase { textInput: input; TextInput { id: input } }";
    const QByteArray editOfTheirs = "import QtQuick.Templates 2.15; TextField {}";
    const QByteArray box = "import QtQuick 2.15; import tamber.Ui.Private 1.0\n"
                           "Item { UiSpinBoxExPrivate {}\n"
                           "UiLineEditBase { textInput: input; TextInput { id: input } }\n"
                           "UiButtonBase {} UiButtonBase {} }";
    const QByteArray boxOfTheirs = "import QtQuick 2.15; import QtQuick.Templates 2.15\n"
                                   "SpinBox { editable: true; contentItem: TextInput {}\n"
                                   "up.indicator: Item {} down.indicator: Item {} }";
    const QByteArray readyEdit = "import tamber.Ui 1.0; UiLineEdit {}";
    const QByteArray readyEditOfTheirs = "import QtQuick.Controls 2.15; TextField {}";
    const QByteArray readyBox = "import tamber.Ui 1.0; UiSpinBox {}";
    const QByteArray readyBoxOfTheirs = "import QtQuick.Controls 2.15; SpinBox { editable: true }";
    const struct
    {
        const char *create;
        const char *heap;
        QByteArray ours;
        QByteArray theirs;
    } pairs[] = {
        { "create a line edit base", "heap of a line edit base", edit, editOfTheirs },
        { "create the bases of a spin box", "heap of the bases of a spin box", box, boxOfTheirs },
        { "create a line edit", "heap of a line edit", readyEdit, readyEditOfTheirs },
        { "create a spin box", "heap of a spin box", readyBox, readyBoxOfTheirs },
    };
    Rows rows;
    for (const auto &pair : pairs) {
        rows += { pair.create, "µs", 1.0, creationTime(pair.ours), creationTime(pair.theirs) };
        rows += { pair.heap, "bytes", 1.0, creationHeap(pair.ours), creationHeap(pair.theirs) };
    }
    return rows;
}

} // namespace bench
