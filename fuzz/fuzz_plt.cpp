// Any bytes as a plotter file: the reader gives what a QString a line gives, and the check agrees.

#include <support/oracle/PlainPltReader.h>

#include <ZTDrawEngineLib/shapes/PltCheck.h>
#include <ZTDrawEngineLib/shapes/PltReader.h>

#include <QtCore/QBuffer>

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void requireSame(const QPainterPath &a, const QPainterPath &b)
{
    require(a.elementCount() == b.elementCount());
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPainterPath::Element left = a.elementAt(i);
        const QPainterPath::Element right = b.elementAt(i);
        require(left.type == right.type && left.x == right.x && left.y == right.y);
    }
}

void requireConsistent(const PltReport &report, bool isDrawing)
{
    require(report.penUpLines + report.penDownLines + report.skippedLines == report.lines);
    require(report.points <= report.penUpLines + report.penDownLines);
    require(report.illFormedLines <= report.penUpLines + report.penDownLines);
    require(report.problems.size() == qMin(report.illFormedLines, 5));
    require(report.skipped.size() <= qMin(report.skippedLines, 5));
    require((report.polylines > 0) == isDrawing);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);

    PltReader reader;
    testsupport::PlainPltReader plain;
    const bool isDrawing = plain.load(bytes);
    require(reader.load(buffer) == isDrawing);
    requireSame(reader.getPath(), plain.path);
    requireConsistent(PltCheck::inspect(bytes, 5), isDrawing);
    return 0;
}
