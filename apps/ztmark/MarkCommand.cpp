#include "MarkCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "Progress.h"

#include <hostkit/MarkGraphWriter.h>

#include <CLI/CLI.hpp>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <map>

namespace {

using hostkit::DrawingInput;

const std::map<std::string, FillType> kHatches{
    {"none", FillType::None}, {"line", FillType::Line}, {"zigzag", FillType::ULine}};

const std::map<std::string, EShapeSortType> kOrders{
    {"none", EShapeSortType::ShapeSortNone},      {"nearest", EShapeSortType::ShapeSortNearest},
    {"x-min", EShapeSortType::ShapeSortXFromMin}, {"x-max", EShapeSortType::ShapeSortXFromMax},
    {"y-min", EShapeSortType::ShapeSortYFromMin}, {"y-max", EShapeSortType::ShapeSortYFromMax}};

/** Adds an option whose value `read` takes, and turns a refusal into a usage error. */
template <class Read>
CLI::Option *addValue(CLI::App *command, const std::string &name, const std::string &help,
                      Read read)
{
    const auto take = [name, read](const std::string &text) {
        try {
            read(text);
        } catch (const arguments::ArgumentError &error) {
            throw CLI::ValidationError(name, error.what);
        }
    };
    return command->add_option_function<std::string>(name, take, help)->take_last();
}

template <class Value>
Value chosen(const std::map<std::string, Value> &choices, const std::string &text)
{
    const auto found = choices.find(text);
    if (found == choices.end())
        throw arguments::ArgumentError{"\"" + text + "\" is not among the choices"};
    return found->second;
}

QString millimetres(double length)
{
    return QString::number(length, 'f', 3) + QStringLiteral(" mm");
}

/** Why the output cannot be written; empty when nothing is known to stand against it. */
QString obstacleTo(const QFileInfo &output, const std::vector<std::string> &inputs)
{
    if (output.isDir())
        return QStringLiteral("is a folder");
    if (!output.dir().exists())
        return QStringLiteral("the folder does not exist");
    const auto isOutput = [&output](const std::string &input) {
        return input != "-" && output.exists() &&
               QFileInfo(QString::fromStdString(input)) == output;
    };
    if (std::any_of(inputs.begin(), inputs.end(), isOutput))
        return QStringLiteral("would overwrite the drawing it is made of");
    return {};
}

QString warningAbout(const PltReport &report)
{
    const QString first = DrawingInput::describe(report.problems.first());
    if (report.illFormedLines == 1)
        return QStringLiteral("warning: ") + first;
    return QStringLiteral("warning: %1 ill-formed lines, ztmark info lists them; the first is %2")
        .arg(report.illFormedLines)
        .arg(first);
}

} // namespace

MarkCommand::MarkCommand(CLI::App &app)
    : command(app.add_subcommand("mark", "Turn plotter drawings into ordered mark paths"))
{
    addFiles();
    addHatch();
    addLayout();
    command->final_callback([this] { checkTogether(); });
    command->footer(
        "Lengths take mm (the default), cm or in: 0.5, 0.5mm, 2cm, 1in. Angles are degrees,\n"
        "clockwise. A drawing is imported 20 mm high. Several drawings stand side by side, a gap\n"
        "apart, each one object.\n"
        "\n"
        "Limits: drawings of 256 MiB, 1,000,000 objects, 10,000,000 hatch lines over a drawing,\n"
        "20,000,000 points and hatch segments in all.\n"
        "\n"
        "Example:\n"
        "  ztmark mark logo.plt --hatch zigzag --spacing 0.3mm --angle 45 -o logo.svg");
}

void MarkCommand::addFiles()
{
    command->add_option("FILE", files, "Plotter drawings; - reads standard input")
        ->required()
        ->type_name("");
    command
        ->add_option("-o,--output", outputs,
                     "Write the paths to a file; its extension says how: .svg or .png\n"
                     "a picture, .json or .csv the paths. Can be given several times")
        ->type_name("OUT")
        ->allow_extra_args(false)
        ->check(CLI::Validator(
            [](std::string &name) {
                if (hostkit::hasMarkGraphExtension(QString::fromStdString(name)))
                    return std::string();
                return "\"" + name + "\" must end in one of " +
                       hostkit::markGraphExtensions().join(QStringLiteral(", ")).toStdString();
            },
            ""));
    command->add_flag("-q,--quiet", quiet, "No summary and no progress; warnings stay");
}

void MarkCommand::addHatch()
{
    addValue(command, "--hatch", "Hatch style: none, line, or zigzag (lines joined end to end)",
             [this](const std::string &text) { options.hatch = chosen(kHatches, text); })
        ->type_name("STYLE")
        ->default_str("none");
    addValue(
        command, "--spacing", "Distance of the hatch lines on the marked result",
        [this](const std::string &text) { options.spacingMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0.5mm");
    addValue(command, "--angle", "Direction of the hatch lines, -360 to 360",
             [this](const std::string &text) {
                 options.angleDeg = arguments::number(text, -360.0, 360.0);
             })
        ->type_name("DEGREES")
        ->default_str("0");
    command->add_flag(
        "--no-outline", [this](std::int64_t) { options.outline = false; },
        "Mark the hatch alone, without the outlines");
}

void MarkCommand::addLayout()
{
    addValue(command, "--order",
             "Order of the objects: none, nearest, or a sweep x-min, x-max, y-min,\ny-max from "
             "that side",
             [this](const std::string &text) { options.order = chosen(kOrders, text); })
        ->type_name("ORDER")
        ->default_str("none");
    addValue(command, "--matrix", "Repeat the layout in columns x rows",
             [this](const std::string &text) {
                 const QSize size = arguments::matrix(text);
                 options.columns = size.width();
                 options.rows = size.height();
             })
        ->type_name("CxR")
        ->default_str("1x1");
    addValue(command, "--gap", "Space between copies and drawings, across and down",
             [this](const std::string &text) { options.gapMm = arguments::gapMm(text); })
        ->type_name("LENGTH[,LENGTH]")
        ->default_str("2mm,2mm");
    addValue(
        command, "--scale", "Enlarge the drawings, 0.001 to 1000",
        [this](const std::string &text) { options.scale = arguments::number(text, 0.001, 1000.0); })
        ->type_name("FACTOR")
        ->default_str("1");
    addValue(command, "--rotate", "Turn each drawing, -360 to 360",
             [this](const std::string &text) {
                 options.rotateDeg = arguments::number(text, -360.0, 360.0);
             })
        ->type_name("DEGREES")
        ->default_str("0");
}

bool MarkCommand::isChosen() const { return command->parsed(); }

void MarkCommand::checkTogether() const
{
    if (!options.outline && options.hatch == FillType::None)
        throw CLI::ValidationError("--no-outline",
                                   "nothing to mark without --hatch line or zigzag");
    if (std::count(files.begin(), files.end(), "-") > 1)
        throw CLI::ValidationError("FILE", "standard input can be read only once");
}

int MarkCommand::run()
{
    Drawings drawings;
    hostkit::MarkJobResult result;
    Progress progress(!quiet);
    if (!checkOutputs() || !readDrawings(&drawings, progress) ||
        !build(drawings, &result, progress))
        return console::Failed;
    const bool written = writeOutputs(result.graph, progress);
    progress.finish();
    warn(drawings, result.after);
    if (!quiet)
        printSummary(result);
    const bool printed = console::finishOutput();
    return written && printed ? console::Done : console::Failed;
}

/** Finds what would fail in the end, or destroy a drawing, before the work begins. */
bool MarkCommand::checkOutputs() const
{
    for (const std::string &output : outputs) {
        const QString obstacle = obstacleTo(QFileInfo(QString::fromStdString(output)), files);
        if (!obstacle.isEmpty()) {
            console::complain(output, obstacle);
            return false;
        }
    }
    return true;
}

bool MarkCommand::readDrawings(Drawings *drawings, Progress &progress) const
{
    for (const std::string &file : files) {
        const QString name = QString::fromStdString(file);
        progress.begin(QStringLiteral("reading ") + name);
        auto drawing = std::make_unique<DrawingInput>();
        QString error;
        if (!drawing->open(name, &error)) {
            progress.finish();
            console::complain(file, error);
            return false;
        }
        drawings->push_back(std::move(drawing));
    }
    return true;
}

bool MarkCommand::build(const Drawings &drawings, hostkit::MarkJobResult *result,
                        Progress &progress)
{
    options.progress = [&progress](const QString &step) { progress.begin(step); };
    hostkit::MarkJobError error;
    const bool built = hostkit::buildMarkJob(drawings, options, result, &error);
    options.progress = nullptr;
    if (built)
        return true;
    progress.finish();
    if (error.drawing >= 0)
        console::complain(files[static_cast<size_t>(error.drawing)], error.reason);
    else
        console::complain(error.reason.toStdString());
    return false;
}

/** A file that fails does not keep the others from being written. */
bool MarkCommand::writeOutputs(const ZTMarkGraph &graph, Progress &progress) const
{
    bool written = true;
    for (const std::string &output : outputs) {
        const QString path = QString::fromStdString(output);
        progress.begin(QStringLiteral("writing ") + path);
        QString error;
        if (hostkit::saveMarkGraph(graph, hostkit::MarkUnits::current(), path, &error))
            continue;
        progress.finish();
        console::complain(output, error);
        written = false;
    }
    return written;
}

void MarkCommand::warn(const Drawings &drawings, const hostkit::MarkPathMeasure &measure) const
{
    for (size_t i = 0; i < drawings.size(); ++i) {
        if (drawings[i]->report().illFormedLines > 0)
            console::complain(files[i], warningAbout(drawings[i]->report()));
    }
    if (options.hatch != FillType::None && measure.hatchSegments == 0)
        console::complain("warning: the hatch is empty: no line meets the drawing");
}

void MarkCommand::printSummary(const hostkit::MarkJobResult &result) const
{
    const auto row = [](const QString &name, const QString &value) {
        console::print(QStringLiteral("%1 %2").arg(name, -15).arg(value));
    };
    row(QStringLiteral("Objects:"), QString::number(result.after.objects));
    row(QStringLiteral("Polylines:"), QString::number(result.after.polylines));
    row(QStringLiteral("Hatch segments:"), QString::number(result.after.hatchSegments));
    row(QStringLiteral("Mark length:"), millimetres(result.after.markMm));
    row(QStringLiteral("Jump length:"),
        QStringLiteral("%1 before ordering, %2 after")
            .arg(millimetres(result.before.jumpMm), millimetres(result.after.jumpMm)));
}
