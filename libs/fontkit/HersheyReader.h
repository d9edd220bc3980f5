#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QPoint>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace fontkit {

/**
 * One character of a Hershey font.
 *
 * Frame: the data's own units, x to the right, y downward. In the fonts of letters capitals reach
 * from y = 9, the base line, up to y = -12.
 */
struct HersheyGlyph
{
    int number = 0; ///< in Hershey's catalogue; many files have 12345 throughout
    int left = 0;   ///< where the character begins
    int right = 0;  ///< where the next one begins
    QVector<QVector<QPoint>> strokes;
};

/**
 * Reads Hershey fonts in the text form of James Hurt (".jhf").
 *
 * A record is a number (5 columns), a count of pairs (3 columns) and that many pairs of letters.
 * A letter is a coordinate, 'R' being 0. The first pair is the left and the right edge; a pair " R"
 * lifts the pen. A record that lacks pairs goes on in the next lines, up to one that begins as a
 * record does.
 *
 * Failure: a damaged record keeps its place, since the place in the file tells which character it
 * is. It holds as many points as there are, and `problems` tells the line.
 * Limit: 10,000 records; what follows is left out and told.
 */
class HersheyReader
{
public:
    /** Reads a whole file; false when it holds no record. What was read before is forgotten. */
    bool read(const QByteArray &content);

    const QVector<HersheyGlyph> &glyphs() const { return m_all; }

    /** "line 43: 12 pairs of 45", one for each thing that is wrong. */
    const QStringList &problems() const { return m_wrong; }

private:
    void readRecord(const QByteArray &record, int lineNumber);
    void tell(int lineNumber, const QString &what);

    QVector<HersheyGlyph> m_all;
    QStringList m_wrong;
};

} // namespace fontkit
