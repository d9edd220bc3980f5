#pragma once

#include <hostkit/marks/MarkJob.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSignalBlocker>

#include <functional>
#include <vector>

namespace hostkit {

/**
 * A drawing surface of its own, on which a job is laid out: its items side by side, the row of
 * them repeated as a matrix, hatched, and read out as an ordered mark graph.
 */
class MarkLayout
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::MarkLayout)

public:
    /** Gives a new item what it draws. */
    using Shaping = std::function<void(ZTAbstractGraphicsItem &item)>;

    /** Adds the items of a job; false ends it. */
    using Filling = std::function<bool(MarkLayout &layout)>;

    /**
     * Does a whole job. Limits and failures are those of `buildMarkJob`; the number of the item
     * at fault is the one of the call of `add`.
     */
    static bool build(const MarkJobOptions &options, const Filling &fill, MarkJobResult *result,
                      MarkJobFailure *failure);

    /** Adds an item, shaped and then turned; false when it is too much work. */
    bool add(ShapeType type, const Shaping &shape);

private:
    MarkLayout(const MarkJobOptions &jobOptions, MarkJobFailure *jobFailure);

    static bool buildGraph(const MarkJobOptions &options, const Filling &fill, ZTMarkGraph *graph,
                           MarkJobFailure *failure);
    bool repeat();
    ZTMarkGraph takeGraph();
    bool checkWork(int index, ZTShapeBase &shape);
    bool checkCopies() const;
    ZTFillParam fillParam() const;
    void layOut();
    void addCopies(int drawing, const QSizeF &pitchPx);
    void hatch();
    double copies() const { return double(m_options.columns) * m_options.rows; }

    /** Scene pixels of a length on the marked result, which the scale enlarges. */
    double scenePx(double lengthMm) const
    {
        return ZTCoord::getInstance()->mm2pix(lengthMm / m_options.scale);
    }

    /** The items in the order of the drawings, copies row by row: drawing `number % drawings`. */
    using Items = std::vector<ZTAbstractGraphicsItem *>;

    const MarkJobOptions &m_options;
    MarkJobFailure *m_failure;
    ZTShapeManager m_manager;
    QSignalBlocker m_nobodyFollows; ///< neither frame nor tree need to know what is selected
    Items m_drawn;                  ///< as they were added; owned by the scene
    Items m_items;                  ///< of all copies; owned by the scene
    double m_pieces = 0.0;          ///< points and about how many hatch segments, of one copy
};

} // namespace hostkit
