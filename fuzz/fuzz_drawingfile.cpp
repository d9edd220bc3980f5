// Drawing files, with lengths and checksums put right so that the fuzzer gets behind them: nothing
// crashes, and what is read, loaded and saved again is the same from then on.

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingFrame_p.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/drawing/ShapeRecords_p.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QtEndian>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

using hostkit::DrawingFile;
using hostkit::DrawingItem;
using hostkit::Failure;

namespace {

constexpr int kHeader = 32;
constexpr int kSectionHead = 12;
constexpr int kSum = 4;

template <class Number>
void put(QByteArray *bytes, int at, Number number)
{
    qToBigEndian(number, bytes->data() + at);
}

/** Cuts sections at the end of the input and gives them and the header their checksums. */
void putRight(QByteArray *bytes)
{
    if (bytes->size() < kHeader)
        return;
    quint32 count = 0;
    int at = kHeader;
    while (bytes->size() - at >= kSectionHead + kSum) {
        const auto wanted = qFromBigEndian<quint64>(bytes->constData() + at + 4);
        const int room = bytes->size() - at - kSectionHead - kSum;
        const int length = static_cast<int>(qMin(wanted, static_cast<quint64>(room)));
        put(bytes, at + 4, static_cast<quint64>(length));
        const int summed = kSectionHead + length;
        put(bytes, at + summed, hostkit::drawingChecksum(bytes->constData() + at, summed));
        at += summed + kSum;
        ++count;
    }
    bytes->truncate(at);
    put(bytes, 16, static_cast<quint64>(at));
    put(bytes, 24, count);
    put(bytes, 28, hostkit::drawingChecksum(bytes->constData(), 28));
}

double realAt(const QByteArray &bytes, int at)
{
    const auto bits = qFromBigEndian<quint64>(bytes.constData() + at);
    double value = 0.0;
    memcpy(&value, &bits, sizeof value);
    return value;
}

bool isTame(double value, double most) { return std::abs(value) <= most; }

bool isTame(const ZTFillParam &fill)
{
    return fill.fillType == FillType::None || !(std::abs(fill.spac) < 5.0);
}

bool isTame(const QTransform &t)
{
    for (const double value : {t.m11(), t.m12(), t.m13(), t.m21(), t.m22(), t.m23(), t.m33()}) {
        if (!isTame(value, 3.0))
            return false;
    }
    return isTame(t.m31(), 100.0) && isTame(t.m32(), 100.0);
}

/** Whether base settings, which begin so many records, ask for a shape of common size. */
bool isTameBase(const QByteArray &shape)
{
    constexpr int kRect = 4;
    constexpr int kHatchKind = 176;
    for (int i = 0; i < kRect + 18; ++i) {
        if (!isTame(realAt(shape, 8 * i), i < kRect ? 100.0 : 3.0))
            return false;
    }
    const auto kind = qFromBigEndian<qint32>(shape.constData() + kHatchKind);
    return kind == 2 || !(std::abs(realAt(shape, kHatchKind + 4)) < 5.0);
}

/** Whether fields ask for a shape of common size: the large ones are no news, only slow. */
bool areTameFields(const hostkit::KeyedFields &fields)
{
    hostkit::ShapeBaseFields base;
    if (baseFromBytes(fields.value(hostkit::itemfield::kBase), &base) &&
        !(isTame(base.fill) && isTame(base.transform) && isTame(base.roundingTransform) &&
          isTame(base.rectMm.width(), 100.0) && isTame(base.rectMm.height(), 100.0)))
        return false;
    QLineF line;
    return !hostkit::lineFromBytes(fields.value(hostkit::itemfield::kLine), &line) ||
           isTame(line.length(), 1000.0);
}

bool isTame(const DrawingItem &item)
{
    const auto kind = hostkit::libraryKind(item.kind);
    if (kind == ShapeType::Polygon && qFromBigEndian<qint32>(item.shape.constData()) > 100)
        return false;
    if (!hostkit::lacksBase(item.kind) && !isTameBase(item.shape))
        return false;
    return areTameFields(item.fields);
}

bool isTame(const DrawingFile &drawing)
{
    const auto itemIsTame = [](const DrawingItem &item) { return isTame(item); };
    const auto drawingIsTame = [](const QPainterPath &path) {
        const QRectF box = path.controlPointRect();
        return isTame(box.width(), 100.0) && isTame(box.height(), 100.0);
    };
    const hostkit::DrawingSetup &setup = drawing.meta.setup;
    const double pxPerMm = setup.height / setup.physicalHeight * setup.displayRatio;
    return !drawing.isBare && isTame(pxPerMm, 10.0) && drawing.items.size() <= 20 &&
           std::all_of(drawing.items.begin(), drawing.items.end(), itemIsTame) &&
           std::all_of(drawing.drawings.begin(), drawing.drawings.end(), drawingIsTame);
}

DrawingFile loadedAndTaken(const DrawingFile &drawing, ZTGraphicsDocument &document)
{
    hostkit::DrawingLoad load;
    load.maxPieces = 1'000'000;
    Failure error;
    hostkit::DrawingReport report;
    if (!applyDrawing(drawing, document, load, &report, &error))
        return drawing;
    hostkit::DrawingCapture capture;
    capture.savedAt = drawing.meta.savedAt;
    capture.withPreview = false;
    DrawingFile taken;
    if (!captureDrawing(document, capture, &taken, &error))
        std::abort();
    return taken;
}

void check(const QByteArray &bytes, ZTGraphicsDocument &document)
{
    DrawingFile drawing;
    Failure error;
    if (!readDrawing(bytes, &drawing, &error)) {
        if (error.reason.isEmpty())
            std::abort();
        return;
    }
    const QByteArray again = drawingToBytes(drawing);
    DrawingFile read;
    if (!readDrawing(again, &read, &error) || drawingToBytes(read) != again)
        std::abort();
    drawingPreview(drawing);
    if (!isTame(drawing))
        return;
    const DrawingFile first = loadedAndTaken(drawing, document);
    const DrawingFile second = loadedAndTaken(first, document);
    if (drawingToBytes(second) != drawingToBytes(first))
        std::abort();
}

void ignoreMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_drawingfile";
    static char *argv[] = {name, nullptr};
    static const QApplication application(argc, argv);
    static const bool isSetUp = [] {
        qInstallMessageHandler(ignoreMessages);
        hostkit::registerFactories();
        codekit::registerCodeFactories();
        return true;
    }();
    static ZTGraphicsDocument document;
    Q_UNUSED(isSetUp)
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    check(bytes, document);
    putRight(&bytes);
    check(bytes, document);
    return 0;
}
