#pragma once

#include <vectorkit/VectorDrawing.h>
#include <vectorkit/hpgl/HpglFrame_p.h>

#include <vector>

namespace vectorkit {

/** How a plotter letters: size, direction, slant, origin, and where the next letter stands. */
class HpglLettering
{
public:
    /** As a plotter is after IN. */
    void reset() { *this = HpglLettering(); }

    // Each takes the parameters of its command; false when they make no sense.
    bool setSize(const std::vector<double> &numbers);
    bool setRelativeSize(const std::vector<double> &numbers);
    bool setDirection(const std::vector<double> &numbers, const HpglFrame *relativeTo);
    bool setSlant(const std::vector<double> &numbers);
    bool setOrigin(const std::vector<double> &numbers);
    bool setExtraSpace(const std::vector<double> &numbers);

    /**
     * Places a label, a text a line.
     *
     * `at` is the pen's place in millimetres, `lineStart` where its line began; both move on.
     */
    QVector<VectorText> place(const QByteArray &label, const HpglFrame &frame, QPointF *at,
                              QPointF *lineStart) const;

    /** The pen moved by letters and lines. */
    QPointF moved(const QPointF &at, const HpglFrame &frame, double letters, double lines) const;

    /** A letter centred on a point, as symbols are. */
    VectorText symbol(char letter, const HpglFrame &frame, const QPointF &at) const;

private:
    struct Measure;
    Measure measure(const HpglFrame &frame) const;
    VectorText line(const QString &text, const Measure &measure, const QPointF &at) const;

    double m_width = 0.187; ///< centimetres, or percent of the span between the scaling points
    double m_height = 0.269;
    bool m_isRelativeSize = false;
    double m_angle = 0.0; ///< degrees, counter-clockwise
    double m_slantDeg = 0.0;
    int m_origin = 1;
    double m_extraLetter = 0.0; ///< parts of a letter's cell
    double m_extraLine = 0.0;
};

} // namespace vectorkit
