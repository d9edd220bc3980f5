#include <vectorkit/FormatSniffer_p.h>
#include <vectorkit/hpgl/HpglInterpreter_p.h>

namespace vectorkit {

bool readHpgl(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
              ReadFailure *failure)
{
    ReadFailure reason;
    VectorDrawing read;
    bool isRead = false;
    if (formatOf(bytes) == VectorFormat::Hpgl)
        isRead = HpglInterpreter(bytes, options, &read).run(&reason);
    else
        reason = foreignKindOf(bytes);
    if (isRead)
        *drawing = read;
    else if (failure)
        *failure = reason;
    return isRead;
}

} // namespace vectorkit
