#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace fontkit {

/**
 * Reads the strokes of one Chinese character from the JSON of the data set "hanzi-writer-data".
 *
 * Of its object only "medians" counts: a list of strokes, each a list of points [x, y] along the
 * middle of the brush stroke, in the order of writing.
 *
 * Frame: units of an em of 1,024, x to the right, y up, the base line at y = 0. The em reaches from
 * y = -124 to y = 900; strokes may stick out of it a little.
 */
class HanziReader
{
public:
    static constexpr int kEm = 1024;
    static constexpr int kEmTop = 900;

    /** Limit: points of a character; the data has some 70 on average. */
    static constexpr int kMaxPoints = 2000;

    /**
     * Reads a character; what was read before is forgotten.
     *
     * Failure: false with a sentence in `errorText`, and no strokes, when the bytes are no such
     * object, a point is no pair of numbers, one lies more than 4 em away, or there are more than
     * `kMaxPoints`. A stroke without
     * points is left out; without any stroke the character counts as missing.
     */
    bool read(const QByteArray &json);

    const QVector<QVector<QPointF>> &strokes() const { return m_medians; }
    const QString &errorText() const { return m_error; } ///< empty while all is well

private:
    QVector<QVector<QPointF>> m_medians;
    QString m_error;
};

} // namespace fontkit
