#include "HersheyReader.h"

#include <QtCore/QList>

#include <algorithm>

namespace fontkit {

namespace {

constexpr int kNumberColumns = 5;
constexpr int kCountColumns = 3;
constexpr int kHeaderColumns = kNumberColumns + kCountColumns;
constexpr int kMaxRecords = 10000; // Limit: some fifty times the largest font

bool isBlank(const QByteArray &line)
{
    return std::all_of(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
}

bool isNumber(const QByteArray &columns)
{
    const int start = static_cast<int>(
        std::distance(columns.begin(), std::find_if(columns.begin(), columns.end(),
                                                    [](char c) { return c != ' '; })));
    return start < columns.size() && std::all_of(columns.begin() + start, columns.end(),
                                                 [](char c) { return c >= '0' && c <= '9'; });
}

/** Whether a line begins a record: two numbers at the right of their columns. */
bool isHeader(const QByteArray &line)
{
    return line.size() >= kHeaderColumns && isNumber(line.left(kNumberColumns)) &&
           isNumber(line.mid(kNumberColumns, kCountColumns));
}

int pairsOf(const QByteArray &record)
{
    return record.mid(kNumberColumns, kCountColumns).trimmed().toInt();
}

/** Whether a record wants more pairs than it has so far. */
bool goesOn(const QByteArray &record)
{
    return isHeader(record) && record.size() < kHeaderColumns + 2 * pairsOf(record);
}

int coordinate(char letter) { return letter - 'R'; }

bool isPrintable(const QByteArray &pairs)
{
    return std::all_of(pairs.begin(), pairs.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

/** The points of all pairs behind the first one, stroke by stroke. */
QVector<QVector<QPoint>> strokesOf(const QByteArray &pairs)
{
    QVector<QVector<QPoint>> strokes;
    bool isNew = true;
    for (int i = 2; i + 1 < pairs.size(); i += 2) {
        if (pairs.at(i) == ' ' && pairs.at(i + 1) == 'R') {
            isNew = true;
            continue;
        }
        if (isNew)
            strokes.append(QVector<QPoint>());
        isNew = false;
        strokes.last().append({coordinate(pairs.at(i)), coordinate(pairs.at(i + 1))});
    }
    return strokes;
}

} // namespace

bool HersheyReader::read(const QByteArray &content)
{
    m_all.clear();
    m_wrong.clear();
    QByteArray record;
    int recordLine = 0;
    int lineNumber = 0;
    for (QByteArray line : content.split('\n')) {
        ++lineNumber;
        if (line.endsWith('\r'))
            line.chop(1);
        if (isBlank(line))
            continue;
        if (goesOn(record) && !isHeader(line)) {
            record += line;
            continue;
        }
        if (!record.isEmpty())
            readRecord(record, recordLine);
        record = line;
        recordLine = lineNumber;
        if (m_all.size() >= kMaxRecords) {
            tell(lineNumber, QStringLiteral("more than %1 records").arg(kMaxRecords));
            return true;
        }
    }
    if (!record.isEmpty())
        readRecord(record, recordLine);
    return !m_all.isEmpty();
}

void HersheyReader::readRecord(const QByteArray &record, int lineNumber)
{
    if (!isHeader(record)) {
        tell(lineNumber, QStringLiteral("no record of a glyph"));
        m_all.append(HersheyGlyph());
        return;
    }
    const int count = pairsOf(record);
    QByteArray pairs = record.mid(kHeaderColumns);
    HersheyGlyph glyph;
    glyph.number = record.left(kNumberColumns).trimmed().toInt();
    if (!isPrintable(pairs)) {
        tell(lineNumber, QStringLiteral("a character that is no coordinate"));
        pairs.clear();
    } else if (pairs.size() < 2 * count) {
        tell(lineNumber, QStringLiteral("%1 pairs of %2").arg(pairs.size() / 2).arg(count));
    } else if (!isBlank(pairs.mid(2 * count))) {
        tell(lineNumber, QStringLiteral("more than its %1 pairs").arg(count));
    }
    pairs.truncate(2 * count);
    if (pairs.size() >= 2) {
        glyph.left = coordinate(pairs.at(0));
        glyph.right = coordinate(pairs.at(1));
        if (glyph.right <= glyph.left)
            tell(lineNumber, QStringLiteral("no width"));
    }
    glyph.strokes = strokesOf(pairs);
    m_all.append(glyph);
}

void HersheyReader::tell(int lineNumber, const QString &what)
{
    m_wrong.append(QStringLiteral("line %1: %2").arg(lineNumber).arg(what));
}

} // namespace fontkit
