#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/shapes/Reach_p.h>

#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <QtGui/QTransform>

#include <algorithm>
#include <vector>

/**
 * The outline of a path of straight lines, made without a list of its polygons.
 *
 * The points are mapped once and go from path to path; only the subpaths' places are sorted, with
 * the comparisons of `ZTPointSort::sort` and so into the same order, equal x included.
 */
class StraightOutline
{
public:
    /** Looks for the subpaths of two points or more. */
    explicit StraightOutline(const QPainterPath &source) : m_path(source)
    {
        const int count = source.elementCount();
        int begin = 0;
        for (int i = 1; i < count && m_isStraight; ++i) {
            const QPainterPath::Element &element = source.elementAt(i);
            if (element.isMoveTo()) {
                add(begin, i);
                begin = i;
            } else {
                m_isStraight = element.isLineTo();
            }
        }
        add(begin, count);
    }

    /** False where there are curves: then there is no outline to be had here. */
    bool isStraight() const { return m_isStraight; }

    /** Into the order of marking. Leaves alone what has a first point out of reach. */
    void sort(const QTransform &matrix, EShapeSortType kind)
    {
        for (Run &run : m_runs)
            run.firstX = matrix.map(QPointF(m_path.elementAt(run.begin))).x();
        // What is no number cannot be compared.
        if (!std::all_of(m_runs.begin(), m_runs.end(),
                         [](const Run &run) { return ::isWithinReach(run.firstX); }))
            return;
        if (kind == EShapeSortType::ShapeSortXFromMin)
            std::sort(m_runs.begin(), m_runs.end(),
                      [](const Run &a, const Run &b) { return a.firstX < b.firstX; });
        else
            std::sort(m_runs.begin(), m_runs.end(),
                      [](const Run &a, const Run &b) { return a.firstX > b.firstX; });
    }

    /** The outline; empty where a point is out of reach. */
    QPainterPath mapped(const QTransform &matrix) const
    {
        QPainterPath outline;
        if (m_runs.size() > 1)
            outline.reserve(m_pointCount + 1);
        QPolygonF polygon;
        for (const Run &run : m_runs) {
            polygon.resize(run.end - run.begin);
            QPointF *at = polygon.data();
            for (int i = run.begin; i < run.end; ++i)
                *at++ = matrix.map(QPointF(m_path.elementAt(i)));
            if (!isWithinReach(polygon))
                return {};
            outline.addPolygon(polygon);
        }
        return outline;
    }

private:
    struct Run
    {
        double firstX; ///< after the transform
        int begin;     ///< element of the path
        int end;
    };

    void add(int begin, int end)
    {
        if (end - begin < 2)
            return;
        m_runs.push_back({0.0, begin, end});
        m_pointCount += end - begin;
    }

    const QPainterPath &m_path;
    std::vector<Run> m_runs;
    int m_pointCount = 0;
    bool m_isStraight = true;
};
