#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QList>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <QtGui/QTransform>

/**
 * How finely curves become straight lines, the same for shapes, texts and their hatch, on the
 * screen and in mark data.
 *
 * Without a tolerance, as in a process that never sets one, curves are flattened by Qt and arcs of
 * stroke fonts take a step of 15 degrees at most. With one, no chord lies farther from its curve
 * than the tolerance, and ellipses are ellipses to a tenth of a micrometre at any size that a
 * field has.
 *
 * Frame: millimetres of the drawing.
 * Order: a change reaches what is rebuilt later; mark data always is. GUI thread only.
 * Owner: process-wide state, as the figures of `ZTCoord`: a host that edits several drawings sets
 * it when it changes between them.
 */
class ZTDRAWENGINELIB_EXPORT ZTCurveTolerance
{
public:
    /** What programs give drawings that are new. */
    static constexpr double kUsualMm = 0.005;

    /** What holds now; 0: none. */
    static double toleranceMm();

    /** Anything but a positive finite number means none. */
    static void setToleranceMm(double mm);

    /**
     * The subpaths of a path as polygons, as `QPainterPath::toSubpathPolygons` gives them.
     *
     * `matrix` leads from the path to what comes back, and `unitsPerMm` units of what comes back
     * make a millimetre.
     *
     * Limit: 10,000 chords a curve.
     */
    static QList<QPolygonF> polygons(const QPainterPath &path, const QTransform &matrix,
                                     double unitsPerMm);

    /** The ellipse in a rectangle, clockwise from the right where y grows downward. */
    static QPainterPath ellipse(const QRectF &rect);

    /**
     * Chords that an arc of a radius in millimetres needs, at least `least`.
     *
     * Limit: 10,000 of them; `least` where a radius or sweep is no number.
     */
    static double arcChords(double radiusMm, double sweepRad, double least);

    /** By how much a transform lengthens what it lengthens most; 1 where that is no number. */
    static double largestScale(const QTransform &transform);

    /** While one lives, what `arcChords` is asked about will be enlarged by a transform. */
    class ZTDRAWENGINELIB_EXPORT Enlarged
    {
    public:
        explicit Enlarged(const QTransform &later);
        ~Enlarged();
        Enlarged(const Enlarged &) = delete;
        Enlarged &operator=(const Enlarged &) = delete;

    private:
        const double m_former;
    };
};
