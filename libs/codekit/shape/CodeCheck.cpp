#include <codekit/shape/CodeCheck.h>

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

double usualBeamMm(const CodeItem &item)
{
    if (item.code().form().style == CodeStyle::BarLines)
        return item.moduleMm();
    const ZTFillParam fill = item.getFillParam();
    return fill.fillType != FillType::None && fill.spac > 0.0 ? fill.spac : kUsualBeamMm;
}

QVector<QVector<QPointF>> linesOf(const ZTMarkObject &object, const QTransform &toMm)
{
    QVector<QVector<QPointF>> lines;
    lines.reserve(object.lines.size() + object.fillLines.size());
    for (const QPolygonF &polygon : object.lines)
        lines.append(toMm.map(polygon));
    for (const QLineF &line : object.fillLines)
        lines.append({toMm.map(line.p1()), toMm.map(line.p2())});
    return lines;
}

} // namespace

CodeReading readCode(const CodeItem &item, const ZTMarkObject &object,
                     const hostkit::MarkUnits &units, double beamMm)
{
    const CodeSymbol &symbol = item.code().symbol();
    CodeReading reading;
    reading.expected = symbol.reads;
    if (!item.code().notReadyReason().isEmpty() || symbol.columns == 0) {
        reading.verdict = CodeVerdict::NotReady;
        reading.expected = item.text();
        return reading;
    }
    if (!canReadBack(symbol.kind)) {
        reading.verdict = CodeVerdict::NoReader;
        return reading;
    }
    MarkedLines marks;
    marks.linesMm = linesOf(object, levelled(item, units));
    marks.beamMm = beamMm > 0.0 ? beamMm : usualBeamMm(item);
    marks.isInverse = item.code().form().isInverse;
    marks.quietMm = kQuietModules * item.moduleMm();
    // Bars, Aztec and PDF417 are read either way round.
    const bool isMirrored = item.code().getTransformParam().determinant() < 0.0;
    const ReadCode read = readMarks(marks, symbol.kind, item.moduleMm());
    reading.read = read.text;
    if (!read.isRead)
        reading.verdict = CodeVerdict::Nothing;
    else if (!isSameContent(symbol.kind, read.text, symbol.reads))
        reading.verdict = CodeVerdict::Different;
    else
        reading.verdict = read.isMirrored || isMirrored ? CodeVerdict::Mirrored : CodeVerdict::Good;
    return reading;
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
        return tr("cannot be read; it is to say \"%1\". Try a larger module or a closer hatch")
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
