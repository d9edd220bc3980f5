#include "ForeignFiles.h"

#include "Console.h"
#include "InfoRows.h"
#include "Progress.h"
#include "Usage.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

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

constexpr double kGapMm = 2.0;
constexpr double kUsualToleranceMm = 0.005;
constexpr qint64 kProbe = 65536;

constexpr std::array<const char *, 7> kOptions{"--size",  "--width",     "--height",   "--unit",
                                               "--split", "--tolerance", "--fill-open"};

const std::map<std::string, ImportSplit> kSplits{{"none", ImportSplit::None},
                                                 {"layer", ImportSplit::Layer},
                                                 {"color", ImportSplit::Color},
                                                 {"outline", ImportSplit::Outline}};

/** Qt takes names that begin with ':' for built-in resources; an absolute one is always a file. */
QString absolutePath(const QString &name)
{
    return name.startsWith(QLatin1Char('/')) ? name : QDir::currentPath() + QLatin1Char('/') + name;
}

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
            if (shape.pen > 0)
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
        printRow(ForeignFiles::tr("Layer:"), ForeignFiles::tr("\"%1\", %2 shapes, %3 texts")
                                                 .arg(layer.name)
                                                 .arg(layer.shapes.size())
                                                 .arg(layer.texts.size()));
    }
    const Counts counts = countsOf(drawing);
    printColors(counts);
    printRow(ForeignFiles::tr("Outlines:"),
             ForeignFiles::tr("%1 closed, %2 open").arg(counts.closed).arg(counts.open));
    printRow(ForeignFiles::tr("Pieces:"), ForeignFiles::tr("%1 lines, %2 arcs, %3 curves")
                                              .arg(counts.lines)
                                              .arg(counts.arcs)
                                              .arg(counts.curves));
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

QRectF boxOf(const QList<ZTAbstractGraphicsItem *> &items)
{
    QRectF boxPx;
    for (const ZTAbstractGraphicsItem *item : items)
        boxPx |= item->boundingRect().translated(item->pos());
    return boxPx;
}

} // namespace

bool ForeignFiles::isNamed(const std::string &name)
{
    if (name.empty() || name == "-")
        return false;
    const QString path = absolutePath(QString::fromStdString(name));
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.read(kProbe);
    switch (vectorkit::formatOf(start)) {
    case VectorFormat::Svg:
    case VectorFormat::Dxf:
        return true;
    case VectorFormat::Hpgl:
        return PltCheck::inspect(start + file.readAll()).polylines == 0;
    default:
        return false;
    }
}

void ForeignFiles::addOptions(CLI::App *owner)
{
    m_command = owner;
    options.toleranceMm = kUsualToleranceMm;
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
}

bool ForeignFiles::isChosen(const std::vector<std::string> &names) const
{
    for (const char *option : kOptions) {
        if (m_command->get_option(option)->count() > 0)
            return true;
    }
    return std::any_of(names.begin(), names.end(), isNamed);
}

void ForeignFiles::checkTogether() const
{
    std::size_t sizes = 0;
    for (const char *option : {"--size", "--width", "--height"})
        sizes += m_command->get_option(option)->count() > 0 ? 1 : 0;
    if (sizes > 1)
        usage::refuse("--size", tr("one of --size, --width and --height is enough"));
}

bool ForeignFiles::read(const std::string &name, const vectorkit::ReadOptions &how,
                        VectorDrawing *drawing)
{
    vectorkit::ReadFailure failure;
    const QString path = absolutePath(QString::fromStdString(name));
    if (vectorkit::readDrawingFile(path, how, drawing, &failure))
        return true;
    console::complain(name, failure.advice.isEmpty()
                                ? failure.reason
                                : failure.reason + QLatin1Char(' ') + failure.advice);
    return false;
}

bool ForeignFiles::import(const std::vector<std::string> &names, ZTGraphicsDocument &document,
                          Progress &progress)
{
    bool isWhole = true;
    double leftPx = 0.0;
    for (const std::string &name : names) {
        progress.begin(tr("reading %1").arg(QString::fromStdString(name)));
        VectorDrawing drawing;
        if (!read(name, m_reading, &drawing)) {
            isWhole = false;
            continue;
        }
        if (!hostkit::fitDrawing(&drawing, m_sizeMm)) {
            console::complain(name, tr("has no extent in the direction of the size asked for"));
            isWhole = false;
            continue;
        }
        const hostkit::ImportResult result = hostkit::importDrawing(document, drawing, options);
        const QRectF boxPx = boxOf(result.items);
        // An item's position is clamped to the scene.
        ZTGraphicsScene &scene = *document.itemMag()->scene();
        scene.setSceneRect(scene.sceneRect() | QRectF(QPointF(leftPx, 0.0), boxPx.size()));
        for (ZTAbstractGraphicsItem *item : result.items)
            item->setPos(item->pos() + QPointF(leftPx, 0.0) - boxPx.topLeft());
        leftPx += boxPx.width() + ZTCoord::getInstance()->mm2pix(kGapMm);
        warnOfLosses(name, drawing);
    }
    return isWhole;
}

bool ForeignFiles::describe(const std::string &name)
{
    VectorDrawing drawing;
    if (!read(name, {}, &drawing))
        return false;
    printRow(tr("Format:"), formatOf(drawing));
    if (!drawing.producer.isEmpty())
        printRow(tr("Written by:"), drawing.producer);
    printRow(tr("Unit:"), tr("%1 mm. %2").arg(drawing.unitMm).arg(drawing.sizeReason));
    const QSizeF sizeMm = drawing.boundsMm().size();
    printRow(tr("Size:"), tr("%1 x %2 mm").arg(rounded(sizeMm.width()), rounded(sizeMm.height())));
    if (!drawing.declaredSizeMm.isEmpty())
        printRow(tr("Sheet:"), tr("%1 x %2 mm")
                                   .arg(rounded(drawing.declaredSizeMm.width()),
                                        rounded(drawing.declaredSizeMm.height())));
    printContents(drawing);
    for (const VectorNote &note : drawing.notes)
        console::print(QStringLiteral("  ") + noteText(note));
    return true;
}
