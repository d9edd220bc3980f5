#include "ForeignFiles.h"

#include "Console.h"
#include "InfoRows.h"
#include "JobArguments.h"
#include "Progress.h"
#include "Usage.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

using hostkit::ImportSplit;
using inforows::printRow;
using inforows::rounded;
using vectorkit::PieceKind;
using vectorkit::VectorDrawing;
using vectorkit::VectorFormat;
using vectorkit::VectorLayer;
using vectorkit::VectorNote;
using vectorkit::VectorPath;
using vectorkit::VectorShape;

namespace {

constexpr std::array<const char *, 8> kOptions{"--size",  "--width",     "--height",    "--unit",
                                               "--split", "--tolerance", "--fill-open", "--clean"};

const std::map<std::string, ImportSplit> kSplits{{"none", ImportSplit::None},
                                                 {"layer", ImportSplit::Layer},
                                                 {"color", ImportSplit::Color},
                                                 {"outline", ImportSplit::Outline}};

/** "40x20", each a length. */
QSizeF sizeOf(const std::string &text)
{
    const std::size_t by = text.find('x');
    if (by == std::string::npos)
        arguments::refuse(text, ForeignFiles::tr("\"%1\" is no size such as 40x20 or 40mmx2cm"));
    return {arguments::positiveLengthMm(text.substr(0, by)),
            arguments::positiveLengthMm(text.substr(by + 1))};
}

double unitOf(const std::string &text)
{
    static const std::map<std::string, double> kNamed{
        {"mm", 1.0}, {"cm", 10.0}, {"in", 25.4}, {"inch", 25.4}};
    const auto named = kNamed.find(text);
    return named != kNamed.end() ? named->second : arguments::positiveLengthMm(text);
}

QString formatOf(const VectorDrawing &drawing)
{
    switch (drawing.format) {
    case VectorFormat::Svg:
        return QStringLiteral("SVG %1").arg(drawing.formatVersion).trimmed();
    case VectorFormat::Dxf:
        return QStringLiteral("DXF %1").arg(drawing.formatVersion).trimmed();
    default:
        return drawing.formatVersion.isEmpty() ? QStringLiteral("HP-GL") : drawing.formatVersion;
    }
}

QString textOf(VectorNote::Kind kind)
{
    switch (kind) {
    case VectorNote::Kind::Left:
        return ForeignFiles::tr("left out");
    case VectorNote::Kind::Changed:
        return ForeignFiles::tr("changed");
    default:
        return ForeignFiles::tr("damaged");
    }
}

/** A text that came with a file, fit to be shown on a line. */
QString shown(const QString &text)
{
    return QString::fromStdString(console::printable(text.toStdString()));
}

QString counted(int count, const QString &one, const QString &many)
{
    return count == 1 ? one : many.arg(count);
}

/** What a drawing is made of. */
struct Counts
{
    int lines = 0;
    int curves = 0;
    int arcs = 0;
    int closed = 0;
    int open = 0;
    std::set<QRgb> colors;
    std::set<int> pens;
};

Counts countsOf(const VectorDrawing &drawing)
{
    Counts counts;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            if (shape.pen > 0 && drawing.hasPens())
                counts.pens.insert(shape.pen);
            else if (shape.color.isValid())
                counts.colors.insert(shape.color.rgb());
            for (const VectorPath &path : shape.paths) {
                ++(path.isClosed() ? counts.closed : counts.open);
                path.forEach([&](const VectorPath::Piece &piece) {
                    ++(piece.kind == PieceKind::Line    ? counts.lines
                       : piece.kind == PieceKind::Cubic ? counts.curves
                                                        : counts.arcs);
                });
            }
        }
    }
    return counts;
}

void printColors(const Counts &counts)
{
    QStringList names;
    for (const QRgb rgb : counts.colors)
        names << QColor(rgb).name();
    if (!names.isEmpty())
        printRow(ForeignFiles::tr("Colors:"), names.join(QStringLiteral(", ")));
    names.clear();
    for (const int pen : counts.pens)
        names << QString::number(pen);
    if (!names.isEmpty())
        printRow(ForeignFiles::tr("Pens:"), names.join(QStringLiteral(", ")));
}

void printContents(const VectorDrawing &drawing)
{
    for (const VectorLayer &layer : drawing.layers) {
        printRow(ForeignFiles::tr("Layer:"),
                 QStringLiteral("\"%1\", %2, %3")
                     .arg(shown(layer.name),
                          counted(layer.shapes.size(), ForeignFiles::tr("1 shape"),
                                  ForeignFiles::tr("%1 shapes")),
                          counted(layer.texts.size(), ForeignFiles::tr("1 text"),
                                  ForeignFiles::tr("%1 texts"))));
    }
    const Counts counts = countsOf(drawing);
    printColors(counts);
    printRow(ForeignFiles::tr("Outlines:"),
             ForeignFiles::tr("%1 closed, %2 open").arg(counts.closed).arg(counts.open));
    printRow(
        ForeignFiles::tr("Pieces:"),
        QStringLiteral("%1, %2, %3")
            .arg(counted(counts.lines, ForeignFiles::tr("1 line"), ForeignFiles::tr("%1 lines")),
                 counted(counts.arcs, ForeignFiles::tr("1 arc"), ForeignFiles::tr("%1 arcs")),
                 counted(counts.curves, ForeignFiles::tr("1 curve"),
                         ForeignFiles::tr("%1 curves"))));
    printRow(ForeignFiles::tr("Texts:"), QString::number(drawing.textCount()));
}

/** "left out: pictures (bitmaps) (3), first at line 12" */
QString noteText(const VectorNote &note)
{
    const QString what =
        QStringLiteral("%1: %2 (%3)").arg(textOf(note.kind), note.what).arg(note.count);
    return note.where.isEmpty() ? what : ForeignFiles::tr("%1, first at %2").arg(what, note.where);
}

/** Warns of what is missing from a drawing. */
void warnOfLosses(const std::string &name, const VectorDrawing &drawing)
{
    for (const VectorNote &note : drawing.notes) {
        if (note.kind != VectorNote::Kind::Changed)
            console::complain(name, ForeignFiles::tr("warning: %1").arg(noteText(note)));
    }
}

template <class Items>
QRectF boxOf(const Items &items)
{
    QRectF boxPx;
    for (const ZTAbstractGraphicsItem *item : items)
        boxPx |= item->boundingRect().translated(item->pos());
    return boxPx;
}

/** Turns a drawing about (0, 0); positive is clockwise. */
void turn(VectorDrawing *drawing, double angleDeg)
{
    QTransform turned;
    turned.rotate(angleDeg);
    for (VectorLayer &layer : drawing->layers) {
        for (VectorShape &shape : layer.shapes) {
            for (VectorPath &path : shape.paths)
                path = path.transformed(turned);
        }
        for (vectorkit::VectorText &text : layer.texts) {
            text.positionMm = turned.map(text.positionMm);
            text.angleDeg -= angleDeg;
        }
    }
}

bool readForeign(const InputFiles &files, const std::string &name,
                 const vectorkit::ReadOptions &how, VectorDrawing *drawing)
{
    QByteArray bytes;
    if (!files.read(name, &bytes))
        return false;
    vectorkit::ReadFailure failure;
    if (vectorkit::readDrawing(bytes, how, drawing, &failure)) {
        hostkit::noteMissingFonts(drawing);
        return true;
    }
    console::complain(name, failure.advice.isEmpty()
                                ? failure.reason
                                : failure.reason + QLatin1Char(' ') + failure.advice);
    return false;
}

} // namespace

void ForeignFiles::addOptions(CLI::App *owner)
{
    m_command = owner;
    options.toleranceMm = ZTCurveTolerance::kUsualMm;
    usage::addValue(m_command, "--size", tr("Stretch each drawing to this width and height"),
                    [this](const std::string &text) { m_sizeMm = sizeOf(text); })
        ->type_name("WxH");
    usage::addValue(m_command, "--width", tr("Enlarge each drawing to this width"),
                    [this](const std::string &text) {
                        m_sizeMm = QSizeF(arguments::positiveLengthMm(text), 0.0);
                    })
        ->type_name("LENGTH");
    usage::addValue(m_command, "--height", tr("Enlarge each drawing to this height"),
                    [this](const std::string &text) {
                        m_sizeMm = QSizeF(0.0, arguments::positiveLengthMm(text));
                    })
        ->type_name("LENGTH");
    usage::addValue(m_command, "--unit",
                    tr("Length of the file's unit: mm, cm, in, or a length such as 0.025mm"),
                    [this](const std::string &text) { m_reading.unitMm = unitOf(text); })
        ->type_name("UNIT");
    usage::addValue(
        m_command, "--split", tr("What becomes one shape: none, layer, color, outline"),
        [this](const std::string &text) { options.split = usage::chosen(kSplits, text); })
        ->type_name("BY")
        ->default_str("color");
    usage::addValue(m_command, "--tolerance", tr("How far straight pieces may lie beside curves"),
                    [this](const std::string &text) {
                        options.toleranceMm = arguments::positiveLengthMm(text);
                    })
        ->type_name("LENGTH")
        ->default_str("0.005mm");
    m_command->add_flag("--fill-open", options.fillsOpen,
                        tr("Hatch open outlines as if they were closed").toStdString());
    m_cleaning.addOption(owner);
}

const char *ForeignFiles::givenOption() const
{
    const auto isGiven = [this](const char *option) {
        return m_command->get_option(option)->count() > 0;
    };
    const auto found = std::find_if(kOptions.begin(), kOptions.end(), isGiven);
    return found != kOptions.end() ? *found : nullptr;
}

void ForeignFiles::checkTogether() const
{
    std::size_t sizes = 0;
    for (const char *option : {"--size", "--width", "--height"})
        sizes += m_command->get_option(option)->count() > 0 ? 1 : 0;
    if (sizes > 1)
        usage::refuse("--size", tr("one of --size, --width and --height is enough"));
}

bool ForeignFiles::import(const InputFiles &files, const hostkit::MarkJobOptions &layout,
                          ZTGraphicsDocument &document, Progress &progress)
{
    if (layout.hatch != FillType::None) {
        ZTFillParam fill;
        fill.fillType = layout.hatch;
        fill.spac = layout.spacingMm;
        fill.angle = layout.angleDeg;
        options.fill = fill;
    }
    // Curves that stay curves are cut when they are marked, as in any new drawing.
    if (options.toleranceMm == 0.0)
        ZTCurveTolerance::setToleranceMm(ZTCurveTolerance::kUsualMm);
    bool isWhole = true;
    for (const std::string &name : files.names) {
        progress.begin(tr("reading %1").arg(QString::fromStdString(name)));
        isWhole = importFile(files, name, layout, document) && isWhole;
        const QString tooMuch = m_work.checkCopies(layout);
        if (tooMuch.isEmpty())
            continue;
        console::complain(tooMuch.toStdString());
        items.clear();
        return false;
    }
    return isWhole;
}

bool ForeignFiles::importFile(const InputFiles &files, const std::string &name,
                              const hostkit::MarkJobOptions &layout, ZTGraphicsDocument &document)
{
    VectorDrawing drawing;
    if (!readForeign(files, name, m_reading, &drawing) || !prepare(name, layout, &drawing))
        return false;
    warnOfLosses(name, drawing);
    const QString tooMuch = m_work.add(drawing, options, layout);
    if (!tooMuch.isEmpty()) {
        console::complain(name, tooMuch);
        return false;
    }
    if (!m_work.checkCopies(layout).isEmpty())
        return false;
    const hostkit::ImportResult result = hostkit::importDrawing(document, drawing, options);
    m_work.addObjects(result.items.size());
    if (result.dots > 0)
        console::complain(name, tr("warning: dots: %1, taken in as lines of %2 mm")
                                    .arg(result.dots)
                                    .arg(hostkit::kDotMm));
    place(result.items, layout.gapMm, document);
    return true;
}

/** Sizes, mends and turns a drawing; false, told on stderr, when that cannot be. */
bool ForeignFiles::prepare(const std::string &name, const hostkit::MarkJobOptions &layout,
                           VectorDrawing *drawing)
{
    if (!hostkit::fitDrawing(drawing, m_sizeMm)) {
        console::complain(name, tr("has no extent in the direction of the size asked for"));
        return false;
    }
    if (layout.scale != 1.0)
        drawing->scale(layout.scale);
    // Its lengths are those of the marks: what comes first is the size.
    if (m_cleaning.isAsked()) {
        const double tolerance =
            options.toleranceMm > 0.0 ? options.toleranceMm : ZTCurveTolerance::kUsualMm;
        const vectorkit::CleanReport report = m_cleaning.clean(drawing, tolerance);
        m_cleaned << CleanArgument::describe(report);
    }
    if (drawing->isEmpty()) {
        console::complain(name, tr("nothing is left of it after cleaning"));
        return false;
    }
    if (layout.rotateDeg != 0.0)
        turn(drawing, layout.rotateDeg);
    return true;
}

/** Puts what came in to the right of what is there. */
void ForeignFiles::place(const QList<ZTAbstractGraphicsItem *> &added, const QSizeF &gapMm,
                         ZTGraphicsDocument &document)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const QRectF boxPx = boxOf(added);
    const QPointF cornerPx(coord.mm2pix(pitchMm.width()), 0.0);
    // An item's position is clamped to the scene.
    ZTGraphicsScene &scene = *document.itemMag()->scene();
    scene.setSceneRect(scene.sceneRect() | QRectF(cornerPx, boxPx.size()));
    for (ZTAbstractGraphicsItem *item : added) {
        item->setPos(item->pos() + cornerPx - boxPx.topLeft());
        items.append(item);
    }
    pitchMm = QSizeF(pitchMm.width() + coord.pix2mm(boxPx.width()) + gapMm.width(),
                     std::max(pitchMm.height(), coord.pix2mm(boxPx.height()) + gapMm.height()));
}

void ForeignFiles::centre(ZTGraphicsDocument &document) const
{
    const QRectF boxPx = boxOf(items);
    const QPointF middleMm = QRectF(document.view()->getWorkArea()).center();
    const QPointF wayPx =
        ZTCoord::getInstance()->getMm2pixTransform().map(middleMm) - boxPx.center();
    ZTGraphicsScene &scene = *document.itemMag()->scene();
    scene.setSceneRect(scene.sceneRect() | boxPx.translated(wayPx));
    for (ZTAbstractGraphicsItem *item : items)
        item->setPos(item->pos() + wayPx);
}

void ForeignFiles::printCleaning() const
{
    for (const QString &line : m_cleaned)
        JobArguments::printRow(tr("Cleaned:"), line);
}

bool ForeignFiles::describe(const InputFiles &files)
{
    VectorDrawing drawing;
    if (!readForeign(files, files.names.front(), {}, &drawing))
        return false;
    printRow(tr("Format:"), formatOf(drawing));
    if (!drawing.producer.isEmpty())
        printRow(tr("Written by:"), shown(drawing.producer));
    printRow(tr("Unit:"), tr("%1 mm. %2").arg(drawing.unitMm).arg(drawing.sizeReason));
    const QSizeF sizeMm = hostkit::arrivingBoxMm(drawing).size();
    printRow(tr("Size:"), tr("%1 x %2 mm").arg(rounded(sizeMm.width()), rounded(sizeMm.height())));
    if (!drawing.declaredSizeMm.isEmpty())
        printRow(tr("Sheet:"), tr("%1 x %2 mm")
                                   .arg(rounded(drawing.declaredSizeMm.width()),
                                        rounded(drawing.declaredSizeMm.height())));
    printContents(drawing);
    printRow(tr("Cleaning mends:"), CleanArgument::describeNeeds(drawing));
    for (const VectorNote &note : drawing.notes)
        console::print(QStringLiteral("  ") + shown(noteText(note)));
    return true;
}
