#pragma once

#include <hostkit/drawing/DrawingExtras.h>

#include <QtCore/QVector>

namespace studio {

/** A line that helps to place shapes; it is never marked. */
struct Guide
{
    Qt::Orientation orientation = Qt::Vertical; ///< of the line
    double atMm = 0.0;                          ///< its x if it is upright, else its y

    bool operator==(const Guide &other) const
    {
        return orientation == other.orientation && atMm == other.atMm;
    }
};

/** The guides that a drawing carries; none where its field makes no sense. */
QVector<Guide> guidesOf(const hostkit::DrawingExtras &extras);

/** Replaces the guides of a drawing. */
void setGuides(const QVector<Guide> &guides, hostkit::DrawingExtras *extras);

} // namespace studio
