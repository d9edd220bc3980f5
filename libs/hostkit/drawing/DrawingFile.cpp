#include <hostkit/drawing/DrawingFile.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingCurves_p.h>
#include <hostkit/drawing/DrawingFrame_p.h>
#include <hostkit/drawing/ShapeRecords_p.h>
#include <hostkit/files/FileWriter.h>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QImageReader>

#include <algorithm>
#include <new>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingFile)
};

const QByteArray kMeta = QByteArrayLiteral("META");
const QByteArray kPreview = QByteArrayLiteral("PREV");
const QByteArray kItems = QByteArrayLiteral("ITEM");
const QByteArray kDrawings = QByteArrayLiteral("PLOT");
const QByteArray kCurves = QByteArrayLiteral("CURV");
const QByteArray kFonts = QByteArrayLiteral("FONT");
const QByteArray kExtras = QByteArrayLiteral("XTRA");
const QByteArray kOrigin = QByteArrayLiteral("rcvr");
const QByteArray kCurveTolerance = QByteArrayLiteral("curveTolerance"); // field of XTRA
const QByteArray kStream = QByteArrayLiteral("STRM");                   // of version 1
const QByteArray kRest = QByteArrayLiteral("REST");                     // of version 1
constexpr int kPreviewSide = 256;
constexpr int kPiece = 1024 * 1024;

QVector<QByteArray> knownTags()
{
    return {kMeta, kPreview, kItems, kDrawings, kCurves, kFonts, kExtras, kOrigin};
}

/** The sections of a file by tag. */
class Sections
{
public:
    explicit Sections(const DrawingFrame &whole) : m_frame(whole) {}

    const DrawingSection *find(const QByteArray &tag) const
    {
        const auto found = std::find_if(m_frame.sections.begin(), m_frame.sections.end(),
                                        [&](const auto &section) { return section.tag == tag; });
        return found != m_frame.sections.end() ? &*found : nullptr;
    }

    bool hasTwice(const QByteArray &tag) const
    {
        return std::count_if(m_frame.sections.begin(), m_frame.sections.end(),
                             [&](const auto &section) { return section.tag == tag; }) > 1;
    }

    /** Reads a section that may be missing. */
    template <class Read>
    bool readIfThere(const QByteArray &tag, const Read &read, Failure *failure) const
    {
        const DrawingSection *section = find(tag);
        return section == nullptr || read(section->bytes) ||
               failDamaged(failure,
                           Texts::tr("section %1 is out of step").arg(QString::fromLatin1(tag)));
    }

    bool isOfVersion1() const { return m_frame.version == 1; }

    QVector<QByteArray> known() const
    {
        if (isOfVersion1())
            return {kMeta, kPreview, kStream, kRest, kDrawings, kOrigin};
        return knownTags();
    }

private:
    const DrawingFrame &m_frame;
};

bool checkSections(const Sections &sections, Failure *failure)
{
    for (const QByteArray &tag : sections.known()) {
        if (sections.hasTwice(tag))
            return failDamaged(failure,
                               Texts::tr("it has two sections %1").arg(QString::fromLatin1(tag)));
    }
    for (const QByteArray &tag : {kMeta, sections.isOfVersion1() ? kStream : kItems}) {
        if (sections.find(tag) == nullptr)
            return failDamaged(failure,
                               Texts::tr("it has no section %1").arg(QString::fromLatin1(tag)));
    }
    const bool hasRest = sections.find(kRest) != nullptr;
    if (sections.isOfVersion1() && hasRest != (sections.find(kDrawings) != nullptr))
        return failDamaged(failure, Texts::tr("it has only one of the sections REST and PLOT"));
    return true;
}

/** Gives the polygons and imported drawings of a version-1 file what their stream lost. */
bool takeRest(const QByteArray &bytes, DrawingFile *drawing, Failure *failure)
{
    QVector<KeyedFields> fields;
    if (!restFromBytes(bytes, &fields, &drawing->fontHeights))
        return failDamaged(failure, Texts::tr("section REST is out of step"));
    int next = 0;
    for (DrawingItem &item : drawing->items) {
        if (lacksBase(item.kind) && next++ < fields.size())
            item.fields = fields[next - 1];
    }
    return next == fields.size() ||
           failDamaged(failure, Texts::tr("section REST is not about its objects"));
}

bool readVersion1(const Sections &sections, DrawingFile *drawing, Failure *failure)
{
    QString reason;
    if (!splitStream(sections.find(kStream)->bytes, &drawing->counters, &drawing->items, &reason))
        return failDamaged(failure, reason);
    const DrawingSection *rest = sections.find(kRest);
    drawing->isBare = rest == nullptr;
    return drawing->isBare || takeRest(rest->bytes, drawing, failure);
}

/** A tolerance that makes no sense is none, and stays among the fields. */
bool takeCurveTolerance(DrawingFile *drawing)
{
    KeyedFields &fields = drawing->extras.fields;
    const double toleranceMm = curveToleranceFromBytes(fields.value(kCurveTolerance));
    drawing->meta.setup.curveToleranceMm = toleranceMm;
    if (toleranceMm > 0.0)
        fields.remove(kCurveTolerance);
    return true;
}

/** The extras as a file has them: with what the set-up holds and the first version did not know. */
DrawingExtras extrasToWrite(const DrawingFile &drawing)
{
    DrawingExtras extras = drawing.extras;
    const double toleranceMm = drawing.meta.setup.curveToleranceMm;
    if (toleranceMm > 0.0)
        extras.fields.insert(kCurveTolerance, curveToleranceToBytes(toleranceMm));
    return extras;
}

bool readVersion2(const Sections &sections, DrawingFile *drawing, Failure *failure)
{
    const auto items = [&](const QByteArray &bytes) {
        return itemsFromBytes(bytes, &drawing->counters, &drawing->items);
    };
    const auto fonts = [&](const QByteArray &bytes) {
        return fontHeightsFromBytes(bytes, &drawing->fontHeights);
    };
    const auto extras = [&](const QByteArray &bytes) {
        return drawingExtrasFromBytes(bytes, &drawing->extras);
    };
    return sections.readIfThere(kItems, items, failure) &&
           sections.readIfThere(kFonts, fonts, failure) &&
           sections.readIfThere(kExtras, extras, failure) && takeCurveTolerance(drawing);
}

QByteArray copied(const QByteArray &borrowed) { return {borrowed.constData(), borrowed.size()}; }

bool readSections(const DrawingFrame &frame, DrawingFile *drawing, Failure *failure)
{
    const Sections sections(frame);
    if (!checkSections(sections, failure))
        return false;
    drawing->version = frame.version;
    if (const DrawingSection *preview = sections.find(kPreview))
        drawing->previewPng = copied(preview->bytes);
    // An origin that makes no sense is none: the drawing is whole without it.
    DrawingOrigin origin;
    const DrawingSection *known = sections.find(kOrigin);
    if (known != nullptr && originFromBytes(known->bytes, &origin))
        drawing->origin = origin;
    for (const DrawingSection &section : frame.sections) {
        if (!sections.known().contains(section.tag))
            drawing->extras.sections << DrawingSection{copied(section.tag), copied(section.bytes)};
    }
    const auto meta = [&](const QByteArray &bytes) { return metaFromBytes(bytes, &drawing->meta); };
    const auto drawings = [&](const QByteArray &bytes) {
        return drawingsFromBytes(bytes, &drawing->drawings);
    };
    const auto curves = [&](const QByteArray &bytes) {
        return curvesFromBytes(bytes, &drawing->drawings);
    };
    const auto readItems = sections.isOfVersion1() ? readVersion1 : readVersion2;
    return sections.readIfThere(kMeta, meta, failure) && readItems(sections, drawing, failure) &&
           sections.readIfThere(kDrawings, drawings, failure) &&
           (sections.isOfVersion1() || sections.readIfThere(kCurves, curves, failure)) &&
           checkDrawing(*drawing, failure);
}

bool cannotRead(Failure *failure, const QString &why)
{
    return fail(failure, Failure::Kind::CannotRead, why);
}

QString tooLarge()
{
    return Texts::tr("larger than %1 MiB, the limit for a drawing")
        .arg(kMaxDrawingBytes / (1024 * 1024));
}

/** As much as there is, in pieces: a file may grow or be no longer than its size says. */
bool readPieces(QFile &file, QByteArray *bytes, Failure *failure)
{
    bytes->reserve(static_cast<int>(file.size()));
    while (true) {
        const QByteArray piece = file.read(kPiece);
        if (piece.isEmpty())
            break;
        if (bytes->size() + piece.size() > kMaxDrawingBytes)
            return cannotRead(failure, tooLarge());
        bytes->append(piece);
    }
    return file.error() == QFileDevice::NoError ||
           cannotRead(failure, Texts::tr("cannot be read: %1").arg(file.errorString()));
}

bool readAll(const QString &path, QByteArray *bytes, Failure *failure)
{
    const QFileInfo info(path);
    if (!info.exists())
        return cannotRead(failure, Texts::tr("no such file"));
    if (info.isDir())
        return cannotRead(failure, Texts::tr("is a folder"));
    if (!info.isFile())
        return cannotRead(failure, Texts::tr("is no ordinary file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return cannotRead(failure, Texts::tr("cannot be read: %1").arg(file.errorString()));
    if (file.size() > kMaxDrawingBytes)
        return cannotRead(failure, tooLarge());
    return readPieces(file, bytes, failure);
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

bool readWhole(const QByteArray &bytes, DrawingFile *drawing, Failure *failure)
{
    DrawingFrame frame;
    DrawingFile read;
    if (!splitFrame(bytes, &frame, failure))
        return false;
    if (frame.streamVersion != kStreamVersion)
        return fail(failure, Failure::Kind::NewerVersion,
                    Texts::tr("holds data of stream version %1, this program reads %2")
                        .arg(frame.streamVersion)
                        .arg(kStreamVersion));
    if (!readSections(frame, &read, failure))
        return false;
    *drawing = read;
    return true;
}

/** Runs a step that takes as much memory as a file asks for. */
template <class Step>
bool within(const Step &step, Failure::Kind kind, Failure *failure)
{
    try {
        return step();
    } catch (const std::bad_alloc &) {
        return fail(failure, kind, Texts::tr("needs more memory than there is"));
    }
}

} // namespace

bool checkDrawing(const DrawingFile &drawing, Failure *failure)
{
    QString reason;
    if (!checkCounters(drawing.counters, &reason))
        return failDamaged(failure, reason);
    if (!drawing.meta.setup.isUsable())
        return failDamaged(failure, Texts::tr("its millimetres have no size"));
    for (int i = 0; i < drawing.items.size(); ++i) {
        const DrawingItem &item = drawing.items[i];
        const auto type = libraryKind(item.kind);
        if (type && !checkShapeRecord(*type, item.shape, &reason))
            return failDamaged(failure, Texts::tr("%1, object %2").arg(reason).arg(i + 1));
        if (!hasGoodFields(item, drawing.drawings.size()))
            return failDamaged(failure, Texts::tr("object %1 is out of step").arg(i + 1));
    }
    return true;
}

QByteArray drawingToBytes(const DrawingFile &drawing)
{
    DrawingFrame frame;
    frame.streamVersion = static_cast<quint16>(kStreamVersion);
    frame.sections << DrawingSection{kMeta, metaToBytes(drawing.meta)};
    if (!drawing.previewPng.isEmpty())
        frame.sections << DrawingSection{kPreview, drawing.previewPng};
    frame.sections << DrawingSection{kItems, itemsToBytes(drawing.counters, drawing.items)};
    if (!drawing.drawings.isEmpty())
        frame.sections << DrawingSection{kDrawings, drawingsToBytes(drawing.drawings)};
    const QByteArray curves = curvesToBytes(drawing.drawings);
    if (!curves.isEmpty())
        frame.sections << DrawingSection{kCurves, curves};
    if (!drawing.fontHeights.isEmpty())
        frame.sections << DrawingSection{kFonts, fontHeightsToBytes(drawing.fontHeights)};
    const QByteArray extras = drawingExtrasToBytes(extrasToWrite(drawing));
    if (!extras.isEmpty())
        frame.sections << DrawingSection{kExtras, extras};
    if (drawing.origin)
        frame.sections << DrawingSection{kOrigin, originToBytes(*drawing.origin)};
    for (const DrawingSection &section : drawing.extras.sections) {
        if (!knownTags().contains(section.tag))
            frame.sections << section;
    }
    return joinFrame(frame);
}

bool writeDrawing(const DrawingFile &drawing, const QString &path, Failure *failure)
{
    const auto write = [&] {
        const QByteArray bytes = drawingToBytes(drawing);
        if (bytes.isEmpty())
            return fail(failure, Failure::Kind::CannotWrite,
                        Texts::tr("cannot be written: the drawing is larger than %1 MiB")
                            .arg(kMaxDrawingBytes / (1024 * 1024)));
        return saveWhole(
            path, [&bytes](QIODevice &device) { return writeAll(device, bytes); }, failure);
    };
    return within(write, Failure::Kind::CannotWrite, failure);
}

bool readDrawing(const QByteArray &bytes, DrawingFile *drawing, Failure *failure)
{
    return within([&] { return readWhole(bytes, drawing, failure); }, Failure::Kind::NotPossible,
                  failure);
}

bool readDrawing(const QString &path, DrawingFile *drawing, Failure *failure)
{
    const auto read = [&] {
        QByteArray bytes;
        return readAll(path, &bytes, failure) && readWhole(bytes, drawing, failure);
    };
    return within(read, Failure::Kind::NotPossible, failure);
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
