#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace hostkit {

/** A shape that is marked, at least in part, outside the field. */
struct ShapeOutside
{
    QString name; ///< as `shapeName` gives it
    QRectF boxMm; ///< of all that it marks, in millimetres from the origin of the scene
};

/** What an operator should know of a drawing before it is marked. */
struct MarkFindings
{
    QVector<ShapeOutside> outside; ///< reach out of the work area
    QStringList withoutLength;     ///< shapes with an outline that marks no length
    QStringList doubled;           ///< shapes with an outline that was marked before, to the point
    /** Shapes that mark something else than asked for, or what cannot be marked, with why. */
    QStringList notReady;

    bool isEmpty() const
    {
        return outside.isEmpty() && withoutLength.isEmpty() && doubled.isEmpty() &&
               notReady.isEmpty();
    }
};

/**
 * Whether a box lies in a field, to its very edges, both in millimetres. A millionth of a
 * millimetre beyond is still inside: sums of lengths are off by as much.
 */
bool isWithinField(const QRectF &boxMm, const QRectF &fieldMm);

/**
 * What people call a shape, in lists and in sentences alike: the name it was given, else its words,
 * 40 characters of them at most, else its kind and its number, "Rectangle 3".
 */
QString shapeName(const ZTAbstractGraphicsItem &item);

/**
 * Sentences about findings, one for each kind that there is, in the language of the program; they
 * name at most `kMostShapesNamed` shapes each.
 */
QStringList describeFindings(const MarkFindings &findings);
constexpr int kMostShapesNamed = 10;

/** The sentence about shapes outside the field; empty without any. */
QString describeOutside(const MarkFindings &findings);

/** The sentence about shapes that mark something else than asked for; empty without any. */
QString describeNotReady(const MarkFindings &findings);

} // namespace hostkit
