#pragma once

#include <codekit/CodeKind.h>

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <QtGui/QImage>

#include <atomic>

namespace codekit {

/** Marks as a beam leaves them: lines of its width. */
struct MarkedLines
{
    QVector<QVector<QPointF>> linesMm; ///< outlines and hatch; one point alone is a dot
    double beamMm = 0.05;              ///< width of what the beam marks; greater than 0
    bool isInverse = false;            ///< marked is light, as on dark metal
    double quietMm = 0.0;              ///< kept free around the lines in the picture
};

/**
 * A picture of marks for a reader: dark on light.
 *
 * Range: `pxPerMm` greater than 0; less where the picture would have more than 4,096 pixels a side.
 * Failure: null where there is nothing to draw.
 */
QImage drawMarks(const MarkedLines &marks, double pxPerMm);

/** What a reader found. */
struct ReadCode
{
    bool isRead = false;     ///< false: there was nothing that could be read
    QString text;            ///< as a reader gives it
    bool isMirrored = false; ///< its left is its right; not told of Aztec, which reads either way
};

/** Whether a reader for this kind is on board. */
bool canReadBack(CodeKind kind);

/**
 * Reads one code of a kind from marks, by a reader that has nothing to do with the encoder.
 *
 * The picture is tried at several resolutions around that of the module, and turned over last.
 * Any thread. `isGivenUp`, if there is one, ends it between two pictures with nothing read.
 */
ReadCode readMarks(const MarkedLines &marks, CodeKind kind, double moduleMm,
                   const std::atomic<bool> *isGivenUp = nullptr);

/** Whether what a reader gave is what `CodeSymbol::reads` promises. */
bool isSameContent(CodeKind kind, const QString &read, const QString &promised);

} // namespace codekit
