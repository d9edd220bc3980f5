#include "JobArguments.h"

#include "Console.h"
#include "InputFiles.h"

#include "Progress.h"
#include "Usage.h"

#include <hostkit/import/DrawingImport.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <initializer_list>
#include <map>

using usage::addValue;
using usage::chosen;

namespace {

const std::map<std::string, FillType> kHatches{
    {"none", FillType::None}, {"line", FillType::Line}, {"zigzag", FillType::ULine}};

const std::map<std::string, EShapeSortType> kOrders{
    {"none", EShapeSortType::ShapeSortNone},      {"nearest", EShapeSortType::ShapeSortNearest},
    {"x-min", EShapeSortType::ShapeSortXFromMin}, {"x-max", EShapeSortType::ShapeSortXFromMax},
    {"y-min", EShapeSortType::ShapeSortYFromMin}, {"y-max", EShapeSortType::ShapeSortYFromMax}};

constexpr int kLabelWidth = 15;
constexpr int kLeastDigits = 4; ///< of a part's number in a file name

QString millimetres(double length)
{
    return QString::number(length, 'f', 3) + QStringLiteral(" mm");
}

bool isAmong(const std::vector<std::string> &inputs, const QFileInfo &output)
{
    return std::any_of(inputs.begin(), inputs.end(), [&output](const std::string &input) {
        return input != "-" && output.exists() &&
               QFileInfo(absolutePath(QString::fromStdString(input))) == output;
    });
}

/** Why the output cannot be written; empty when nothing is known to stand against it. */
QString obstacleTo(const QFileInfo &output, const JobArguments::Inputs &inputs)
{
    if (output.isDir())
        return JobArguments::tr("is a folder");
    if (!output.dir().exists())
        return JobArguments::tr("the folder does not exist");
    if (isAmong(inputs.drawings, output))
        return JobArguments::tr("would overwrite the drawing it is made of");
    if (isAmong(inputs.others, output))
        return JobArguments::tr("would overwrite a file that it is made of");
    return {};
}

bool endsIn(const std::string &name, const char *extension)
{
    return QString::fromStdString(name).endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

/** Empty for a name whose extension tells a form; else what is wrong with it. */
std::string checkExtension(const std::string &name)
{
    if (endsIn(name, ".dxf") || hostkit::hasMarkGraphExtension(QString::fromStdString(name)))
        return {};
    const QStringList extensions =
        hostkit::markGraphExtensions() + QStringList{QStringLiteral(".dxf")};
    return JobArguments::tr("\"%1\" must end in one of %2")
        .arg(QString::fromStdString(name), extensions.join(QStringLiteral(", ")))
        .toStdString();
}

/** The marks as a job without a machine: pens in the colours in which the screen shows them. */
jobkit::JobFile marksOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units)
{
    jobkit::JobFile job;
    job.parts = {jobkit::planOf(jobkit::itemsOf(graph, units), {})};
    for (int number = 1; number <= hostkit::kScreenPens; ++number) {
        job.pens.append(jobkit::defaultPen(number));
        job.pens.last().color = hostkit::screenPenColor(number);
    }
    return job;
}

} // namespace

JobArguments::JobArguments(CLI::App *owner) : m_command(owner) {}

void JobArguments::addOutputs()
{
    m_command
        ->add_option("-o,--output", outputs,
                     tr("Write the paths to a file; its extension says how: .svg or .png\n"
                        "a picture, .json or .csv the paths, .dxf the marks as a drawing.\n"
                        "Can be given several times")
                         .toStdString())
        ->type_name("OUT")
        ->allow_extra_args(false)
        ->check(CLI::Validator([](std::string &name) { return checkExtension(name); }, ""));
    m_command->add_flag(
        "--marks-only", m_marksOnly,
        tr("An .svg holds the marks alone, as a drawing for other programs").toStdString());
    m_command->add_flag("--no-jumps", m_noJumps, tr("Pictures show no jumps").toStdString());
    m_command->add_flag("--arrows", m_arrows,
                        tr("Pictures show which way the marks run").toStdString());
    m_command->add_flag("--no-background", m_noBackground,
                        tr("Pictures are transparent where there is no mark").toStdString());
    m_command->add_flag("-q,--quiet", quiet,
                        tr("No summary and no progress; warnings stay").toStdString());
}

void JobArguments::addHatch()
{
    addValue(m_command, "--hatch",
             tr("Hatch style: none, line, or zigzag (lines joined end to end)"),
             [this](const std::string &text) { options.hatch = chosen(kHatches, text); })
        ->type_name("STYLE")
        ->default_str("none");
    addValue(
        m_command, "--spacing", tr("Distance of the hatch lines on the marked result"),
        [this](const std::string &text) { options.spacingMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0.5mm");
    addValue(m_command, "--angle", tr("Direction of the hatch lines, -360 to 360"),
             [this](const std::string &text) {
                 options.angleDeg = arguments::number(text, -360.0, 360.0);
             })
        ->type_name("DEGREES")
        ->default_str("0");
    m_command->add_flag(
        "--no-outline", [this](std::int64_t) { options.outline = false; },
        tr("Mark the hatch alone, without the outlines").toStdString());
}

void JobArguments::addLayout()
{
    addValue(m_command, "--order",
             tr("Order of the objects: none, nearest, or a sweep x-min, x-max, y-min,\ny-max from "
                "that side"),
             [this](const std::string &text) { options.order = chosen(kOrders, text); })
        ->type_name("ORDER")
        ->default_str("none");
    addValue(m_command, "--matrix", tr("Repeat the layout in columns x rows"),
             [this](const std::string &text) {
                 const QSize size = arguments::matrix(text);
                 options.columns = size.width();
                 options.rows = size.height();
             })
        ->type_name("CxR")
        ->default_str("1x1");
    addGap();
    addRotate();
}

void JobArguments::addGap()
{
    addValue(m_command, "--gap", tr("Space between copies and objects, across and down"),
             [this](const std::string &text) { options.gapMm = arguments::gapMm(text); })
        ->type_name("LENGTH[,LENGTH]")
        ->default_str("2mm,2mm");
}

void JobArguments::addRotate()
{
    addValue(m_command, "--rotate", tr("Turn each object, -360 to 360"),
             [this](const std::string &text) {
                 options.rotateDeg = arguments::number(text, -360.0, 360.0);
             })
        ->type_name("DEGREES")
        ->default_str("0");
}

void JobArguments::addScale()
{
    addValue(
        m_command, "--scale", tr("Enlarge the drawings, 0.001 to 1000"),
        [this](const std::string &text) { options.scale = arguments::number(text, 0.001, 1000.0); })
        ->type_name("FACTOR")
        ->default_str("1");
}

void JobArguments::checkOutputs() const
{
    const auto isAny = [this](std::initializer_list<const char *> extensions) {
        return std::any_of(outputs.begin(), outputs.end(), [&](const std::string &name) {
            return std::any_of(extensions.begin(), extensions.end(),
                               [&](const char *extension) { return endsIn(name, extension); });
        });
    };
    if (m_marksOnly && !isAny({".svg", ".dxf"}))
        usage::refuse("--marks-only", tr("nothing without an output .svg or .dxf"));
    const bool isPicture = isAny({".svg", ".png"});
    const std::initializer_list<std::pair<const char *, bool>> looks = {
        {"--no-jumps", m_noJumps}, {"--arrows", m_arrows}, {"--no-background", m_noBackground}};
    for (const auto &[option, isGiven] : looks) {
        if (isGiven && !isPicture)
            usage::refuse(option, tr("nothing without an output .svg or .png"));
    }
}

void JobArguments::checkTogether() const
{
    if (!options.outline && options.hatch == FillType::None)
        usage::refuse("--no-outline", tr("nothing to mark without --hatch line or zigzag"));
}

bool JobArguments::canWrite(const std::vector<std::string> &outputNames, const Inputs &inputs)
{
    for (const std::string &output : outputNames) {
        const QString obstacle = obstacleTo(QFileInfo(QString::fromStdString(output)), inputs);
        if (!obstacle.isEmpty()) {
            console::complain(output, obstacle);
            return false;
        }
    }
    return true;
}

bool JobArguments::write(const ZTMarkGraph &graph, const std::vector<std::string> &outputNames,
                         Progress &progress, const hostkit::MarkUnits &units) const
{
    bool written = true;
    for (const std::string &output : outputNames) {
        const QString path = QString::fromStdString(output);
        progress.begin(tr("writing %1").arg(path));
        hostkit::Failure failure;
        if (save(graph, units, path, &failure))
            continue;
        progress.finish();
        console::complain(output, failure.reason);
        written = false;
    }
    return written;
}

bool JobArguments::save(const ZTMarkGraph &graph, const hostkit::MarkUnits &units,
                        const QString &path, hostkit::Failure *failure) const
{
    const std::optional<jobkit::JobForm> form = jobkit::jobFormOf(path);
    const bool isForPrograms =
        form == jobkit::JobForm::Dxf || (form == jobkit::JobForm::Svg && m_marksOnly);
    if (!isForPrograms)
        return hostkit::saveMarkGraph(graph, units, path, failure,
                                      {!m_noJumps, m_arrows, !m_noBackground});
    return jobkit::saveJob(*form, marksOf(graph, units), path, failure);
}

std::string JobArguments::outputOfPart(std::string output, int part, int parts)
{
    if (parts == 1)
        return output;
    const int digits = std::max(kLeastDigits, QString::number(parts).size());
    const std::string number =
        '-' + QString::number(part).rightJustified(digits, QLatin1Char('0')).toStdString();
    const std::size_t folder = output.rfind('/');
    const std::size_t dot = output.rfind('.');
    const bool hasExtension =
        dot != std::string::npos && (folder == std::string::npos || dot > folder);
    return output.insert(hasExtension ? dot : output.size(), number);
}

std::vector<std::string> JobArguments::outputsOfPart(int part, int parts) const
{
    std::vector<std::string> names;
    for (const std::string &output : outputs)
        names.push_back(outputOfPart(output, part, parts));
    return names;
}

void JobArguments::warnOfEmptyHatch(const hostkit::MarkPathMeasure &measure) const
{
    if (options.hatch != FillType::None && measure.hatchSegments == 0)
        console::complain(
            tr("warning: the hatch is empty: no line meets the drawing").toStdString());
}

void JobArguments::printRow(const QString &name, const QString &value)
{
    console::printRow(name, value, kLabelWidth);
}

void JobArguments::printSummary(const hostkit::MarkPathMeasure &before,
                                const hostkit::MarkPathMeasure &after)
{
    printRow(tr("Objects:"), QString::number(after.objects));
    printRow(tr("Polylines:"), QString::number(after.polylines));
    printRow(tr("Hatch segments:"), QString::number(after.hatchSegments));
    printRow(tr("Mark length:"), millimetres(after.markMm));
    printRow(tr("Jump length:"), tr("%1 before ordering, %2 after")
                                     .arg(millimetres(before.jumpMm), millimetres(after.jumpMm)));
}
