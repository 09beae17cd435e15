#pragma once

#include "comparison.h"

#include <QtCore/QByteArrayList>

namespace bench {

// What a row can measure. QML is a whole document with its imports.

/// Microseconds of the GUI thread to create one object inside a shown window.
Measure creationTime(const QByteArray &qml);

/// Bytes of heap that one object inside a shown window takes.
Measure creationHeap(const QByteArray &qml);

/// The same inside an item that \a around makes, with what the objects have posted to be done at
/// once.
Measure creationTimeInside(const QByteArray &around, const QByteArray &qml);
Measure creationHeapInside(const QByteArray &around, const QByteArray &qml);

/// Frames of a window in which \a count objects lie beside and above each other.
struct Frames
{
    QByteArray qml;
    int count = 1000;
    int cell = 29; ///< logical pixels from one to the next
    QByteArrayList others = {}; ///< more kinds of object, each an equal part of \c count
};
enum class Before { Nothing, Resize, Appear }; ///< what happens to each object before the frame
enum class Until { Rendered, Shown };

/// Microseconds of the GUI thread for polishing, synchronising and rendering; until Shown, filling
/// the pixels is in it where there is no graphics card.
Measure frameTime(const Frames &frames, Before before, Until until);

/// A popup whose visible part is an item with the object name "content".
struct Popup
{
    QByteArray qml;
    const char *open; ///< names of its methods
    const char *close;
};
enum class Opening { First, Later };

/// Microseconds from the call that opens a popup to the end of the frame that shows it.
Measure openingTime(const Popup &popup, Opening which);

/// What the content of a popup must be where no text is, for instance at its lower edge.
constexpr const char *kPopupColor = "#3366cc";

} // namespace bench
