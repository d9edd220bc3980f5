#pragma once

#include <studio/shapes/ShapeMeasures.h>

#include <hostkit/items/ShapeHatch.h>

#include <QtCore/QCoreApplication>

#include <functional>

namespace hostkit {
struct ItemExtras;
}

namespace studio {

/**
 * Edits of the selected shapes by exact values: each one undo step over all of them.
 *
 * Frame: millimetres on the field, y downward; degrees, counter-clockwise.
 * Failure: what comes back is the reason for which nothing was changed, for people; empty: done.
 */
class ShapeEdits
{
    Q_DECLARE_TR_FUNCTIONS(studio::ShapeEdits)

public:
    /** What a value is about when several shapes are selected. */
    enum class Extent {
        Together, ///< the one box around all of them
        Each      ///< the box of each shape
    };

    /** How places and sizes are meant. */
    struct Frame
    {
        QPointF anchor; ///< the point of a box that is placed, and that stays: 0 to 1 across, down
        Extent extent = Extent::Together;
    };

    /** `document` is borrowed and outlives this. */
    explicit ShapeEdits(ZTGraphicsDocument &document);

    /** Brings the anchor of the boxes to a place across (horizontal) or down (vertical). */
    QString setPlace(Qt::Orientation direction, double mm, const Frame &frame);

    /**
     * Gives the boxes a width (horizontal) or a height (vertical). Shapes that keep their
     * proportions are stretched both ways; one of them keeps those of all, taken together.
     */
    QString setSize(Qt::Orientation direction, double mm, const Frame &frame);

    /**
     * Turns the shapes about the middle of their boxes. Taken together they turn as one, if all
     * are turned alike; otherwise each comes to the angle by itself.
     */
    QString setTurn(double angleDeg, const Frame &frame);

    /** Gives selected ellipses a diameter along their first or their other axis. */
    QString setDiameter(bool isFirst, double mm);

    /** Changes the hatch of all selected shapes that can have one. */
    QString setHatch(const std::function<void(ZTFillParam &fill)> &change);

    /**
     * Changes the hatches of all selected shapes that can have some. `fresh` is a shape's hatch as
     * it was when it last had one: the one to begin with.
     */
    QString setHatches(const std::function<void(QVector<hostkit::ShapeHatch> &hatches,
                                                const hostkit::ShapeHatch &fresh)> &change);

    /** Whether overlapping outlines of each selected shape are united. */
    QString setOutlinesUnited(bool areUnited);

    /** Sets the number of sides of selected polygons. */
    QString setSides(int sides);

    /** Sets the length of selected lines; their starts stay. */
    QString setLength(double mm);

private:
    QString pushHatch(const std::function<void(ZTFillParam &, hostkit::ItemExtras &)> &change);
    QString place(const QVector<Placement> &placements, const char *undoSource);

    ZTGraphicsDocument &m_document;
};

/** The place within a box that an anchor names. */
QPointF anchorPoint(const QRectF &box, const QPointF &anchor);

} // namespace studio
