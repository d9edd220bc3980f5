#include <hostkit/drawing/DrawingFile.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingRefusal_p.h>
#include <hostkit/drawing/DrawingSections_p.h>
#include <hostkit/drawing/DrawingStream_p.h>

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QImageReader>

#include <algorithm>

namespace hostkit {

namespace {

const QByteArray kMeta = QByteArrayLiteral("META");
const QByteArray kPreview = QByteArrayLiteral("PREV");
const QByteArray kStream = QByteArrayLiteral("STRM");
const QByteArray kRest = QByteArrayLiteral("REST");
const QByteArray kDrawings = QByteArrayLiteral("PLOT");
constexpr int kPreviewSide = 256;

bool isKnown(const QByteArray &tag)
{
    return tag == kMeta || tag == kPreview || tag == kStream || tag == kRest || tag == kDrawings;
}

/** The sections of a file by tag, each known one at most once. */
class Sections
{
public:
    explicit Sections(const QVector<DrawingSection> &all) : sections(all) {}

    const DrawingSection *find(const QByteArray &tag) const
    {
        const auto found = std::find_if(sections.begin(), sections.end(),
                                        [&](const auto &section) { return section.tag == tag; });
        return found != sections.end() ? &*found : nullptr;
    }

    bool hasTwice(const QByteArray &tag) const
    {
        return std::count_if(sections.begin(), sections.end(),
                             [&](const auto &section) { return section.tag == tag; }) > 1;
    }

private:
    const QVector<DrawingSection> &sections;
};

bool checkSections(const Sections &sections, DrawingError *error)
{
    for (const QByteArray &tag : {kMeta, kPreview, kStream, kRest, kDrawings}) {
        if (sections.hasTwice(tag))
            return refuseDamaged(
                error, QStringLiteral("it has two sections %1").arg(QString::fromLatin1(tag)));
    }
    for (const QByteArray &tag : {kMeta, kStream}) {
        if (sections.find(tag) == nullptr)
            return refuseDamaged(
                error, QStringLiteral("it has no section %1").arg(QString::fromLatin1(tag)));
    }
    if ((sections.find(kRest) == nullptr) != (sections.find(kDrawings) == nullptr))
        return refuseDamaged(error,
                             QStringLiteral("it has only one of the sections REST and PLOT"));
    return true;
}

bool readRest(const Sections &sections, DrawingFile *drawing, DrawingError *error)
{
    drawing->hasRest = sections.find(kRest) != nullptr;
    if (!drawing->hasRest)
        return true;
    if (!restFromBytes(sections.find(kRest)->bytes, &drawing->rest))
        return refuseDamaged(error, QStringLiteral("section REST is out of step"));
    if (!drawingsFromBytes(sections.find(kDrawings)->bytes, &drawing->rest.drawings))
        return refuseDamaged(error, QStringLiteral("section PLOT is out of step"));
    return true;
}

QByteArray copied(const QByteArray &borrowed) { return {borrowed.constData(), borrowed.size()}; }

bool readSections(const QVector<DrawingSection> &all, DrawingFile *drawing, DrawingError *error)
{
    const Sections sections(all);
    if (!checkSections(sections, error))
        return false;
    if (!metaFromBytes(sections.find(kMeta)->bytes, &drawing->meta))
        return refuseDamaged(error, QStringLiteral("section META is out of step"));
    if (const DrawingSection *preview = sections.find(kPreview))
        drawing->previewPng = copied(preview->bytes);
    drawing->stream = copied(sections.find(kStream)->bytes);
    for (const DrawingSection &section : all) {
        if (!isKnown(section.tag))
            drawing->unknown << DrawingSection{copied(section.tag), copied(section.bytes)};
    }
    return readRest(sections, drawing, error) && checkDrawing(*drawing, error);
}

bool readAll(const QString &path, QByteArray *bytes, DrawingError *error)
{
    const auto cannot = [error](const QString &why) {
        return refuse(error, DrawingError::Kind::CannotRead, why);
    };
    const QFileInfo info(path);
    if (!info.exists())
        return cannot(QStringLiteral("no such file"));
    if (!info.isFile())
        return cannot(info.isDir() ? QStringLiteral("is a folder")
                                   : QStringLiteral("is no ordinary file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return cannot(QStringLiteral("cannot be read: %1").arg(file.errorString()));
    if (file.size() > kMaxDrawingBytes)
        return cannot(QStringLiteral("larger than %1 MiB, the limit for a drawing")
                          .arg(kMaxDrawingBytes / (1024 * 1024)));
    *bytes = file.read(kMaxDrawingBytes);
    if (file.error() != QFileDevice::NoError)
        return cannot(QStringLiteral("cannot be read: %1").arg(file.errorString()));
    return true;
}

/** In as many steps as it takes: only a step that writes nothing knows why. */
bool writeAll(QIODevice &device, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 written = device.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

} // namespace

bool checkDrawing(const DrawingFile &drawing, DrawingError *error)
{
    DrawingStreamIndex index;
    QString reason;
    if (!indexDrawingStream(drawing.stream, &index, &reason))
        return refuseDamaged(error, reason);
    if (!drawing.meta.setup.isUsable())
        return refuseDamaged(error, QStringLiteral("its millimetres have no size"));
    if (!drawing.hasRest)
        return true;
    const auto shortRecords =
        std::count_if(index.records.begin(), index.records.end(),
                      [](const DrawingRecord &record) { return isShortRecord(record.type); });
    if (shortRecords != drawing.rest.items.size())
        return refuseDamaged(error, QStringLiteral("section REST is not about its objects"));
    for (const DrawingItemRest &item : drawing.rest.items) {
        if (item.drawing < -1 || item.drawing >= drawing.rest.drawings.size())
            return refuseDamaged(error, QStringLiteral("section PLOT lacks a drawing"));
    }
    return true;
}

QByteArray drawingToBytes(const DrawingFile &drawing)
{
    DrawingSections file;
    file.streamVersion = static_cast<quint16>(kStreamVersion);
    file.sections << DrawingSection{kMeta, metaToBytes(drawing.meta)};
    if (!drawing.previewPng.isEmpty())
        file.sections << DrawingSection{kPreview, drawing.previewPng};
    file.sections << DrawingSection{kStream, drawing.stream};
    if (drawing.hasRest) {
        file.sections << DrawingSection{kRest, restToBytes(drawing.rest)};
        file.sections << DrawingSection{kDrawings, drawingsToBytes(drawing.rest.drawings)};
    }
    file.sections << drawing.unknown;
    return joinSections(file);
}

bool writeDrawing(const DrawingFile &drawing, const QString &path, DrawingError *error)
{
    const auto cannot = [error](const QString &why) {
        return refuse(error, DrawingError::Kind::CannotWrite,
                      QStringLiteral("cannot be written: %1").arg(why));
    };
    // A pipe or a device would be replaced by a file.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        return cannot(QStringLiteral("is no ordinary file"));
    const QByteArray bytes = drawingToBytes(drawing);
    if (bytes.isEmpty())
        return cannot(QStringLiteral("the drawing is larger than %1 MiB")
                          .arg(kMaxDrawingBytes / (1024 * 1024)));
    QSaveFile file(path);
    // Unbuffered: QSaveFile does not notice when the last piece of its buffer finds no room.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return cannot(file.errorString());
    if (!writeAll(file, bytes) || !file.commit())
        return cannot(file.errorString());
    return true;
}

bool readDrawing(const QByteArray &bytes, DrawingFile *drawing, DrawingError *error)
{
    DrawingSections file;
    DrawingFile read;
    if (!splitSections(bytes, &file, error))
        return false;
    if (file.streamVersion != kStreamVersion)
        return refuse(error, DrawingError::Kind::NewerVersion,
                      QStringLiteral("holds data of stream version %1, this program reads %2")
                          .arg(file.streamVersion)
                          .arg(kStreamVersion));
    if (!readSections(file.sections, &read, error))
        return false;
    *drawing = read;
    return true;
}

bool readDrawing(const QString &path, DrawingFile *drawing, DrawingError *error)
{
    QByteArray bytes;
    return readAll(path, &bytes, error) && readDrawing(bytes, drawing, error);
}

// The size is looked at first: a small picture file can announce a gigantic picture.
QImage drawingPreview(const DrawingFile &drawing)
{
    QByteArray png = drawing.previewPng;
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    if (size.width() > kPreviewSide || size.height() > kPreviewSide)
        return {};
    return reader.read();
}

} // namespace hostkit
