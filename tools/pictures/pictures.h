#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <functional>

class QPainter;

// What the drawing tools have in common: pictures of 8-bit RGBA, drawn from vectors.

/*!
    Draws a picture of \a size pixels; \a draw paints it on a canvas of any larger size.

    Drawn large and averaged down: Qt approximates curves by lines on a grid of its own, which at
    the sizes of icons leaves the two halves of a ring several levels apart. 16 bits a channel,
    because the layers of a soft shadow are so faint that rounding each of them would add up to
    bands. The result is premultiplied, so that a pixel without alpha keeps no colour either.
*/
QImage drawPicture(const QSize &size, const std::function<void(QPainter *)> &draw);

/// Writes \a picture as a PNG; empty when that worked, else why not.
QString writePicture(const QImage &picture, const QString &fileName);

/// Compares the PNG \a fileName with \a picture, which is what its source draws; empty when they
/// agree, else how they differ. Two levels are allowed for: room for the rounding of another Qt or
/// processor, too little for a change of the drawing.
QString comparePicture(const QImage &picture, const QString &fileName);
