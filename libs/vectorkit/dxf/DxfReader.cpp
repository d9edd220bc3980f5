#include <vectorkit/FormatSniffer_p.h>
#include <vectorkit/VectorReader.h>
#include <vectorkit/dxf/DxfEntities_p.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace vectorkit {

namespace {

using namespace dxf;

constexpr double kInchMm = 25.4;
constexpr int kSniffedBytes = 65536;

bool fail(ReadFailure *failure, ReadFailure::Kind kind, const QString &reason,
          const QString &advice = QString())
{
    if (failure)
        *failure = {kind, reason, advice};
    return false;
}

/** "AC1015" with the year that people know it by. */
QString versionName(const QString &version)
{
    static const struct
    {
        const char *code;
        const char *name;
    } kVersions[] = {{"AC1006", "R10"},  {"AC1009", "R12"},  {"AC1012", "R13"},  {"AC1014", "R14"},
                     {"AC1015", "2000"}, {"AC1018", "2004"}, {"AC1021", "2007"}, {"AC1024", "2010"},
                     {"AC1027", "2013"}, {"AC1032", "2018"}};
    for (const auto &row : kVersions) {
        if (version == QLatin1String(row.code))
            return QStringLiteral("%1 (%2)").arg(version, QLatin1String(row.name));
    }
    return version;
}

/** Whether the tags are those of a drawing: a section, or comments before it. */
bool startsAsDrawing(File *file)
{
    file->readOpeningComment();
    return file->tags.peekType() == "SECTION";
}

/** What the unit is when the file doesn't say it. */
struct UnitGuess
{
    double unitMm;
    const char *reason;
};

UnitGuess guessedUnit(const Header &header, double extent)
{
    constexpr int kEngineering = 3;
    constexpr int kArchitectural = 4;
    constexpr int kEnglish = 0;
    constexpr int kMetric = 1;
    constexpr double kLargeInches = 40.0;
    if (header.lengthUnits == kEngineering || header.lengthUnits == kArchitectural)
        return {kInchMm,
                QT_TRANSLATE_NOOP("vectorkit", "The file names no unit; it shows lengths in "
                                               "feet and inches, so inches are taken.")};
    if (header.measurement == kMetric)
        return {1.0, QT_TRANSLATE_NOOP("vectorkit", "The file names no unit; it says that it is "
                                                    "metric, so millimetres are taken.")};
    if (header.measurement == kEnglish && extent > 0.0 && extent <= kLargeInches)
        return {kInchMm, QT_TRANSLATE_NOOP("vectorkit",
                                           "The file names no unit; it says that it is not metric "
                                           "and is small, so inches are taken.")};
    if (extent > 0.0 && extent < 1.0)
        return {kInchMm,
                QT_TRANSLATE_NOOP("vectorkit", "The file names no unit; it would be smaller "
                                               "than 1 mm, so inches are taken.")};
    return {1.0, QT_TRANSLATE_NOOP("vectorkit", "The file names no unit; millimetres are taken, as "
                                                "most drawings are in them.")};
}

double extentOf(const VectorDrawing &drawing)
{
    const QRectF bounds = drawing.boundsMm();
    return std::max(bounds.width(), bounds.height());
}

/** The unit that is chosen or declared; false when it is to be guessed. */
bool settleUnit(const Header &header, const ReadOptions &options, VectorDrawing *drawing)
{
    if (options.unitMm > 0.0) {
        drawing->unitMm = options.unitMm;
        drawing->sizeSource = SizeSource::Chosen;
        drawing->sizeReason = QCoreApplication::translate("vectorkit", "The unit was chosen.");
        return true;
    }
    const double declared = declaredUnitMm(header.units);
    if (declared > 0.0) {
        drawing->unitMm = declared;
        drawing->sizeSource = SizeSource::Declared;
        drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The file names its unit: it is %1 mm long.")
                .arg(declared, 0, 'g', 7);
        return true;
    }
    return false;
}

/** How far the drawing is from (0, 0), in both directions together. */
double reachOf(const VectorDrawing &drawing)
{
    const QRectF bounds = drawing.boundsMm();
    double reach = std::max({std::abs(bounds.left()), std::abs(bounds.top()),
                             std::abs(bounds.right()), std::abs(bounds.bottom())});
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorText &text : layer.texts)
            reach = std::max({reach, text.positionMm.manhattanLength(), text.heightMm});
    }
    return reach;
}

void guessUnit(const Header &header, VectorDrawing *drawing)
{
    constexpr double kMostMm = 1e9;
    UnitGuess guess = guessedUnit(header, extentOf(*drawing));
    if (guess.unitMm * reachOf(*drawing) > kMostMm)
        guess = guessedUnit(Header(), 0.0);
    if (guess.unitMm != 1.0)
        drawing->scale(guess.unitMm);
    drawing->unitMm = guess.unitMm;
    drawing->sizeSource = SizeSource::Guessed;
    drawing->sizeReason = QCoreApplication::translate("vectorkit", guess.reason);
}

/** Reads the entities of the sheet; false when it must stop. */
bool readEntities(File *file, const Frame &sheet, EntityReader *reader)
{
    Record record;
    Setting setting;
    setting.sheet = sheet;
    for (const TagReader::Place &section : file->entitySections) {
        file->tags.goTo(section);
        for (;;) {
            const std::string_view type = file->tags.peekType();
            if (type.empty() || type == "ENDSEC" || type == "SECTION" || type == "EOF")
                break;
            file->tags.readEntity(&record);
            // The last one of a file that was cut off may have lost digits.
            if (!file->hasEnd && file->tags.atEnd())
                record.isDamaged = true;
            if (!reader->add(record, setting))
                return false;
        }
    }
    return true;
}

bool tellStop(const EntityReader &reader, const ReadOptions &options, ReadFailure *failure)
{
    if (reader.isCancelled())
        return fail(failure, ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."));
    return fail(failure, ReadFailure::Kind::TooLarge,
                QCoreApplication::translate("vectorkit",
                                            "It draws more than %1 lines and curves, the limit.")
                    .arg(options.mostPieces));
}

/** Takes out layers on which nothing stands. */
void dropEmptyLayers(VectorDrawing *drawing)
{
    const auto isEmpty = [](const VectorLayer &layer) {
        return layer.shapes.isEmpty() && layer.texts.isEmpty();
    };
    drawing->layers.erase(std::remove_if(drawing->layers.begin(), drawing->layers.end(), isEmpty),
                          drawing->layers.end());
}

bool tellEmpty(const VectorDrawing &drawing, ReadFailure *failure)
{
    QStringList left;
    for (const VectorNote &note : drawing.notes)
        left.append(QStringLiteral("%1 (%2)").arg(note.what).arg(note.count));
    if (left.isEmpty())
        return fail(failure, ReadFailure::Kind::Empty,
                    QCoreApplication::translate("vectorkit", "There is nothing in the drawing."));
    return fail(
        failure, ReadFailure::Kind::Empty,
        QCoreApplication::translate("vectorkit",
                                    "There is nothing in the drawing that can be read, only: %1.")
            .arg(left.join(QStringLiteral(", "))),
        QCoreApplication::translate(
            "vectorkit", "Put what you need into the model space on visible layers, as lines, "
                         "curves and texts, and save it again."));
}

bool tellDamage(const EntityReader &reader, ReadFailure *failure)
{
    return fail(
        failure, ReadFailure::Kind::Damaged,
        QCoreApplication::translate(
            "vectorkit", "It is damaged: %1 of %2 entities have values that are missing or wrong.")
            .arg(reader.damagedCount())
            .arg(reader.entityCount()),
        QCoreApplication::translate("vectorkit", "Save it again from the program that drew it."));
}

} // namespace

bool readDxf(const QByteArray &bytes, const ReadOptions &options, VectorDrawing *drawing,
             ReadFailure *failure)
{
    if (bytes.size() > options.mostBytes)
        return fail(
            failure, ReadFailure::Kind::TooLarge,
            QCoreApplication::translate("vectorkit", "The file is larger than %1 MiB, the limit.")
                .arg(options.mostBytes / (1024 * 1024)));
    File file(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    // Finding the sections is a third of the work.
    const auto findingGoesOn = [&](double share) {
        return !options.progress || options.progress(share / 3.0);
    };
    if (!startsAsDrawing(&file)) {
        const ReadFailure foreign = foreignKindOf(bytes.left(kSniffedBytes));
        return fail(failure, ReadFailure::Kind::WrongFormat, foreign.reason, foreign.advice);
    }
    if (!file.readFrame(findingGoesOn))
        return fail(failure, ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."));
    VectorDrawing read;
    read.format = VectorFormat::Dxf;
    read.formatVersion = versionName(file.header.version);
    read.producer = file.header.producer;
    const bool isSettled = settleUnit(file.header, options, &read);
    ReadOptions counted = options;
    if (options.progress)
        counted.progress = [&](double share) {
            return options.progress((1.0 + 2.0 * share) / 3.0);
        };
    EntityReader reader(file, counted, &read);
    const double unit = read.unitMm;
    const Frame sheet{{unit, 0.0, 0.0}, {0.0, -unit, 0.0}, {0.0, 0.0, unit}, {}};
    if (!readEntities(&file, sheet, &reader))
        return tellStop(reader, options, failure);
    if (!file.hasEnd)
        read.note(VectorNote::Kind::Damaged,
                  QCoreApplication::translate("vectorkit", "the end of the file is missing"),
                  QString());
    // Beyond a tenth, what is left is not the drawing any more.
    if (reader.damagedCount() * 10 > reader.entityCount())
        return tellDamage(reader, failure);
    dropEmptyLayers(&read);
    if (read.isEmpty())
        return tellEmpty(read, failure);
    if (!isSettled)
        guessUnit(file.header, &read);
    *drawing = read;
    return true;
}

} // namespace vectorkit
