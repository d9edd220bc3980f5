#include <vectorkit/VectorReader.h>

#include <vectorkit/FormatSniffer_p.h>
#include <vectorkit/Gunzip_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace vectorkit {

namespace {

using Kind = ReadFailure::Kind;

bool fail(ReadFailure *failure, Kind kind, const QString &reason)
{
    if (failure)
        *failure = {kind, reason, QString()};
    return false;
}

/** What a byte array can hold bounds it too. */
qint64 mostBytesOf(const ReadOptions &options)
{
    return qBound(qint64(0), options.mostBytes, qint64(0x7FFFFF00));
}

bool failTooLarge(ReadFailure *failure, const ReadOptions &options)
{
    const qint64 mib = mostBytesOf(options) / (1024 * 1024);
    return fail(
        failure, Kind::TooLarge,
        QCoreApplication::translate("vectorkit", "The file is larger than %1 MiB, the limit.")
            .arg(mib));
}

/** Unpacks what is compressed, once. */
bool unpack(const QByteArray &bytes, const ReadOptions &options, QByteArray *unpacked,
            ReadFailure *failure)
{
    switch (gunzip(bytes, mostBytesOf(options), unpacked)) {
    case Unpacking::Done:
        return true;
    case Unpacking::TooLarge:
        return failTooLarge(failure, options);
    case Unpacking::Damaged:
        break;
    }
    if (failure)
        *failure = {
            Kind::Damaged,
            QCoreApplication::translate("vectorkit", "The file is compressed (gzip) and damaged."),
            QCoreApplication::translate("vectorkit", "Copy or load it once more.")};
    return false;
}

bool readBytes(const QString &path, const ReadOptions &options, QByteArray *bytes,
               ReadFailure *failure)
{
    const QFileInfo info(path);
    if (!info.exists())
        return fail(failure, Kind::Unreadable,
                    QCoreApplication::translate("vectorkit", "There is no such file."));
    if (!info.isFile()) // a pipe may never answer
        return fail(failure, Kind::Unreadable,
                    QCoreApplication::translate("vectorkit", "This is no file that holds data."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(failure, Kind::Unreadable,
                    QCoreApplication::translate("vectorkit", "The file cannot be read: %1")
                        .arg(file.errorString()));
    if (file.size() > mostBytesOf(options))
        return failTooLarge(failure, options);
    *bytes = file.read(mostBytesOf(options) + 1);
    if (file.error() != QFileDevice::NoError)
        return fail(failure, Kind::Unreadable,
                    QCoreApplication::translate("vectorkit", "The file cannot be read: %1")
                        .arg(file.errorString()));
    return true;
}

} // namespace

bool readDrawing(const QByteArray &file, const ReadOptions &options, VectorDrawing *drawing,
                 ReadFailure *failure)
{
    if (file.size() > mostBytesOf(options))
        return failTooLarge(failure, options);
    QByteArray bytes = file;
    if (isGzip(file) && !unpack(file, options, &bytes, failure))
        return false;
    if (bytes.trimmed().isEmpty())
        return fail(failure, Kind::Empty,
                    QCoreApplication::translate("vectorkit", "The file is empty."));
    switch (formatOf(bytes)) {
    case VectorFormat::Hpgl:
        return readHpgl(bytes, options, drawing, failure);
    case VectorFormat::Svg:
        return readSvg(bytes, options, drawing, failure);
    case VectorFormat::Dxf:
        return readDxf(bytes, options, drawing, failure);
    case VectorFormat::Unknown:
        break;
    }
    if (failure)
        *failure = foreignKindOf(bytes);
    return false;
}

bool readDrawingFile(const QString &path, const ReadOptions &options, VectorDrawing *drawing,
                     ReadFailure *failure)
{
    QByteArray bytes;
    return readBytes(path, options, &bytes, failure) &&
           readDrawing(bytes, options, drawing, failure);
}

} // namespace vectorkit
