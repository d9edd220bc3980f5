#include <hostkit/drawing/DrawingCurves_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>
#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingFrame_p.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtCore/QDataStream>

#include <cmath>

namespace hostkit {

namespace {

constexpr double kToleranceMm = 0.01;
constexpr double kMaxMm = 1e12;
constexpr quint32 kLeastPiece = 1 + 16;
constexpr quint32 kLeastDrawing = 4 + 4 + 4;

/** What a piece is, as it is written. */
enum : quint8 { kBegin, kLine, kCurve };

bool hasCurves(const QPainterPath &drawing)
{
    for (int at = 0; at < drawing.elementCount(); ++at) {
        if (drawing.elementAt(at).isCurveTo())
            return true;
    }
    return false;
}

/** Tells whether curves belong to the straight pieces that a file has in PLOT. */
quint32 checksumOf(const QPainterPath &straight)
{
    const QByteArray bytes = drawingsToBytes({straight});
    return drawingChecksum(bytes.constData(), bytes.size());
}

void writePieces(QDataStream &out, const QPainterPath &drawing)
{
    quint32 pieces = 0;
    for (int at = 0; at < drawing.elementCount(); ++at)
        pieces += drawing.elementAt(at).type != QPainterPath::CurveToDataElement ? 1 : 0;
    out << pieces;
    for (int at = 0; at < drawing.elementCount(); ++at) {
        const QPainterPath::Element element = drawing.elementAt(at);
        if (element.isMoveTo())
            out << quint8(kBegin);
        else if (element.isLineTo())
            out << quint8(kLine);
        else if (element.isCurveTo())
            out << quint8(kCurve);
        out << element.x << element.y;
    }
}

/** One drawing's pieces; false where they make no sense. */
bool readPieces(ByteReader &reader, QPainterPath *drawing)
{
    bool isGood = true;
    const auto place = [&reader, &isGood] {
        const double x = reader.real();
        const QPointF point(x, reader.real());
        isGood = isGood && std::abs(point.x()) <= kMaxMm && std::abs(point.y()) <= kMaxMm;
        return point;
    };
    const auto pieces = reader.number<quint32>();
    isGood = pieces <= reader.left() / kLeastPiece;
    for (quint32 piece = 0; piece < pieces && isGood && reader.ok(); ++piece) {
        const quint8 kind = reader.byte();
        if (kind > kCurve || (piece == 0 && kind != kBegin))
            return false;
        const QPointF first = place();
        if (kind == kBegin) {
            drawing->moveTo(first);
        } else if (kind == kLine) {
            drawing->lineTo(first);
        } else {
            const QPointF second = place();
            drawing->cubicTo(first, second, place());
        }
    }
    return isGood && reader.ok();
}

} // namespace

QPainterPath straightened(const QPainterPath &drawing)
{
    if (!hasCurves(drawing))
        return drawing;
    QPainterPath straight;
    const QVector<vectorkit::VectorPath> paths = vectorkit::pathsOf(drawing);
    for (const vectorkit::VectorPath &path : paths)
        straight.addPolygon(path.flattened(kToleranceMm));
    return straight;
}

QByteArray curvesToBytes(const QVector<QPainterPath> &drawings)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    quint32 count = 0;
    out << count;
    for (int place = 0; place < drawings.size(); ++place) {
        if (!hasCurves(drawings[place]))
            continue;
        ++count;
        out << static_cast<quint32>(place) << checksumOf(straightened(drawings[place]));
        writePieces(out, drawings[place]);
    }
    out.device()->seek(0);
    out << count;
    return count > 0 ? bytes : QByteArray();
}

bool curvesFromBytes(const QByteArray &bytes, QVector<QPainterPath> *drawings)
{
    ByteReader reader(bytes);
    const auto count = reader.number<quint32>();
    if (count > reader.left() / kLeastDrawing)
        return false;
    qint64 last = -1;
    for (quint32 i = 0; i < count; ++i) {
        const qint64 place = reader.number<quint32>();
        const auto checksum = reader.number<quint32>();
        QPainterPath drawing;
        if (!readPieces(reader, &drawing) || place <= last)
            return false;
        last = place;
        const bool isThere = place < drawings->size();
        if (isThere && checksumOf(drawings->at(static_cast<int>(place))) == checksum)
            (*drawings)[static_cast<int>(place)] = drawing;
    }
    return reader.ok() && reader.atEnd();
}

} // namespace hostkit
