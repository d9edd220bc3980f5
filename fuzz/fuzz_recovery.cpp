// The section of a recovery file that says where its drawing belongs: any bytes there crash nothing
// and cost the drawing nothing, and an origin that is read is written back as the same.

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingFrame_p.h>

#include <QtCore/QDateTime>

#include <cstdint>
#include <cstdlib>

using hostkit::DrawingFile;
using hostkit::DrawingFrame;
using hostkit::DrawingOrigin;

namespace {

constexpr std::size_t kMostBytes = 512;

void check(bool holds)
{
    if (!holds)
        std::abort();
}

bool areSame(const DrawingOrigin &a, const DrawingOrigin &b)
{
    return a.path == b.path && a.size == b.size && a.modifiedMs == b.modifiedMs;
}

/** An empty drawing that belongs to a file. */
DrawingFile emptyDrawing()
{
    DrawingFile drawing;
    drawing.counters = QByteArray(12, '\0'); // no variant texts, and the next id
    drawing.meta.savedAt = QDateTime::fromMSecsSinceEpoch(0, Qt::UTC);
    drawing.origin = DrawingOrigin{QStringLiteral("/home/user/plate.ztd"), 1234, 1700000000000};
    return drawing;
}

/** The drawing's file, with other bytes in the section. */
QByteArray withOrigin(const QByteArray &bytes)
{
    static const QByteArray usual = drawingToBytes(emptyDrawing());
    DrawingFrame frame;
    hostkit::Failure failure;
    check(hostkit::splitFrame(usual, &frame, &failure));
    check(frame.sections.last().tag == "rcvr");
    frame.sections.last().bytes = bytes;
    return hostkit::joinFrame(frame);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > kMostBytes)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    DrawingOrigin origin;
    const bool isOrigin = hostkit::originFromBytes(bytes, &origin);
    DrawingOrigin again;
    if (isOrigin)
        check(hostkit::originFromBytes(hostkit::originToBytes(origin), &again) &&
              areSame(again, origin));

    DrawingFile drawing;
    hostkit::Failure failure;
    check(hostkit::readDrawing(withOrigin(bytes), &drawing, &failure));
    check(drawing.origin.has_value() == isOrigin);
    check(!isOrigin || areSame(*drawing.origin, origin));
    check(drawing.items.isEmpty());
    return 0;
}
