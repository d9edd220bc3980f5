#include <codekit/shape/CodeCheck.h>

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>

namespace codekit {

namespace {

constexpr double kUsualBeamMm = 0.05;
constexpr double kQuietModules = 11.0; ///< more than any kind asks for

QString tr(const char *text) { return QCoreApplication::translate("codekit", text); }

/** Turned back to where its rows lie level, as a part is turned before a scanner. */
QTransform levelled(const CodeItem &item, const hostkit::MarkUnits &units)
{
    const QTransform &transform = item.code().getTransformParam();
    const double angleRad = std::atan2(transform.m12(), transform.m11());
    return QTransform::fromScale(1.0 / units.perMm, 1.0 / units.perMm) *
           QTransform().rotateRadians(-angleRad);
}

/** The beam that was taken off the dark areas, else what closes them. */
double usualBeamMm(const CodeItem &item)
{
    const CodeForm &form = item.code().form();
    if (form.growthMm > 0.0)
        return form.growthMm * item.moduleMm() / form.moduleMm;
    if (form.style == CodeStyle::BarLines)
        return item.moduleMm();
    if (form.style == CodeStyle::Points)
        return item.moduleMm() * form.dotShare;
    const ZTFillParam fill = item.getFillParam();
    return fill.fillType != FillType::None && fill.spac > 0.0 ? fill.spac : kUsualBeamMm;
}

/** Widest side of the quiet zone of a code that does not mark it as its frame. */
double quietMm(const CodeItem &item)
{
    const QMargins quiet = infoOf(item.code().symbol().kind).quietModules;
    const int modules = std::max({quiet.left(), quiet.top(), quiet.right(), quiet.bottom()});
    return item.code().form().isInverse ? 0.0 : modules * item.moduleMm();
}

using Lines = QVector<QVector<QPointF>>;

void addLines(const ZTMarkObject &object, const QTransform &toMm, Lines *lines)
{
    lines->reserve(lines->size() + object.lines.size() + object.fillLines.size());
    for (const QPolygonF &polygon : object.lines)
        lines->append(toMm.map(polygon));
    for (const QLineF &line : object.fillLines)
        lines->append({toMm.map(line.p1()), toMm.map(line.p2())});
}

QRectF boundsOf(const Lines &lines)
{
    QRectF bounds;
    for (const QVector<QPointF> &line : lines) {
        const QRectF box = QPolygonF(line).boundingRect();
        const double hair = 1e-9; // a level line has no height, and would not count
        bounds |= box.adjusted(-hair, -hair, hair, hair);
    }
    return bounds;
}

/** Narrows the part of a line between two parameters to where one coordinate is within limits. */
void narrow(double from, double by, double least, double most, double *first, double *last)
{
    if (by == 0.0) {
        if (from < least || from > most)
            *last = -1.0;
        return;
    }
    const double a = (least - from) / by;
    const double b = (most - from) / by;
    *first = std::max(*first, std::min(a, b));
    *last = std::min(*last, std::max(a, b));
}

/** Adds the parts of lines within a field: a picture of the code need not show the rest. */
void addWithin(const Lines &others, const QRectF &field, Lines *lines)
{
    for (const QVector<QPointF> &other : others) {
        for (int at = 1; at < other.size(); ++at) {
            const QLineF line(other[at - 1], other[at]);
            double first = 0.0;
            double last = 1.0;
            narrow(line.x1(), line.dx(), field.left(), field.right(), &first, &last);
            narrow(line.y1(), line.dy(), field.top(), field.bottom(), &first, &last);
            if (first <= last)
                lines->append({line.pointAt(first), line.pointAt(last)});
        }
    }
}

Lines linesOf(const CodeItem &item, const CodeSurroundings &around)
{
    const QTransform toMm = levelled(item, around.units);
    Lines lines;
    addLines(around.marks, toMm, &lines);
    const double quiet = quietMm(item);
    const QRectF field = boundsOf(lines).adjusted(-quiet, -quiet, quiet, quiet);
    Lines others;
    for (const ZTMarkObject &object : around.others)
        addLines(object, toMm, &others);
    addWithin(others, field, &lines);
    return lines;
}

} // namespace

QRectF codeFieldPx(const CodeItem &item)
{
    const double quietPx = ZTCoord::getInstance()->mm2pix(quietMm(item));
    return item.sceneBoundingRect().adjusted(-quietPx, -quietPx, quietPx, quietPx);
}

CodeScan scanOf(const CodeItem &item, const CodeSurroundings &around)
{
    const CodeSymbol &symbol = item.code().symbol();
    CodeScan scan;
    scan.kind = symbol.kind;
    scan.isReady = item.code().notReadyReason().isEmpty() && symbol.columns > 0;
    scan.expected = scan.isReady ? symbol.reads : item.text();
    if (!scan.isReady || !canReadBack(scan.kind))
        return scan;
    scan.moduleMm = item.moduleMm();
    // Bars, Aztec and PDF417 are read either way round.
    scan.isMirrored = item.code().getTransformParam().determinant() < 0.0;
    scan.marks.linesMm = linesOf(item, around);
    scan.marks.beamMm = around.beamMm > 0.0 ? around.beamMm : usualBeamMm(item);
    scan.marks.isInverse = item.code().form().isInverse;
    scan.marks.quietMm = kQuietModules * item.moduleMm();
    return scan;
}

CodeReading readScan(const CodeScan &scan, const std::atomic<bool> *isGivenUp)
{
    CodeReading reading;
    reading.expected = scan.expected;
    if (!scan.isReady) {
        reading.verdict = CodeVerdict::NotReady;
        return reading;
    }
    if (!canReadBack(scan.kind)) {
        reading.verdict = CodeVerdict::NoReader;
        return reading;
    }
    const ReadCode read = readMarks(scan.marks, scan.kind, scan.moduleMm, isGivenUp);
    reading.read = read.text;
    if (!read.isRead)
        reading.verdict = CodeVerdict::Nothing;
    else if (!isSameContent(scan.kind, read.text, scan.expected))
        reading.verdict = CodeVerdict::Different;
    else
        reading.verdict =
            read.isMirrored || scan.isMirrored ? CodeVerdict::Mirrored : CodeVerdict::Good;
    return reading;
}

CodeReading readCode(const CodeItem &item, const CodeSurroundings &around)
{
    return readScan(scanOf(item, around));
}

QString describe(const CodeReading &reading)
{
    switch (reading.verdict) {
    case CodeVerdict::Good:
        return tr("reads: %1").arg(reading.read);
    case CodeVerdict::Mirrored:
        return tr("is mirrored; turned over it reads: %1").arg(reading.read);
    case CodeVerdict::Different:
        return tr("reads as \"%1\", not as \"%2\"").arg(reading.read, reading.expected);
    case CodeVerdict::Nothing:
        return tr("cannot be read; it is to say \"%1\". Try a larger module or a "
                  "closer hatch, and keep other shapes out of its quiet zone")
            .arg(reading.expected);
    case CodeVerdict::NotReady:
        return tr("does not show what it was given, \"%1\"").arg(reading.expected);
    case CodeVerdict::NoReader:
        return tr("there is no reader on board for this kind; it is to say \"%1\"")
            .arg(reading.expected);
    }
    return {};
}

} // namespace codekit
