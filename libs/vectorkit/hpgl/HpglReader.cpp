#include <vectorkit/FormatSniffer_p.h>
#include <vectorkit/hpgl/HpglInterpreter_p.h>

#include <QtCore/QByteArray>

namespace vectorkit {

namespace {

/** The bytes with blanks for a byte order mark, so that places stay what they are in the file. */
QByteArray withoutMark(QByteArray bytes)
{
    static const QByteArray kByteOrderMark("\xEF\xBB\xBF");
    if (bytes.startsWith(kByteOrderMark))
        bytes.replace(0, kByteOrderMark.size(), QByteArray(kByteOrderMark.size(), ' '));
    return bytes;
}

} // namespace

bool readHpgl(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
              ReadFailure *failure)
{
    ReadFailure reason;
    VectorDrawing read;
    bool isRead = false;
    const QByteArray plain = withoutMark(bytes);
    if (formatOf(bytes) == VectorFormat::Hpgl)
        isRead = HpglInterpreter(plain, options, &read).run(&reason);
    else
        reason = foreignKindOf(bytes);
    if (isRead)
        *drawing = read;
    else if (failure)
        *failure = reason;
    return isRead;
}

} // namespace vectorkit
