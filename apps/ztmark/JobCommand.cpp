#include "JobCommand.h"

#include "Console.h"
#include "JobSource.h"
#include "MachineFiles.h"
#include "Progress.h"
#include "Usage.h"

#include <jobkit/checks/JobChecks.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <array>
#include <map>

using jobkit::FindingKind;
using jobkit::JobFinding;
using jobkit::OrderKind;
using jobkit::TimeSums;

namespace {

constexpr int kMostParts = 10000;
constexpr int kMostTold = 10; ///< findings of a kind
constexpr int kTableLabelWidth = 15;
constexpr int kNumberWidth = 11;
constexpr int kOrderMs = 20000; ///< for all parts together
constexpr int kLeastOrderMs = 200;

const std::map<std::string, OrderKind> kOrderKinds{
    {"none", OrderKind::AsDrawn}, {"nearest", OrderKind::Nearest}, {"best", OrderKind::Best}};

const std::map<std::string, jobkit::HatchPlace> kHatchPlaces{
    {"any", jobkit::HatchPlace::Any},
    {"before", jobkit::HatchPlace::BeforeOutlines},
    {"after", jobkit::HatchPlace::AfterOutlines}};

const std::map<std::string, jobkit::FrameKind> kFrames{{"box", jobkit::FrameKind::Box},
                                                       {"hull", jobkit::FrameKind::Hull}};

/** What hatches or lays out foreign drawings, and a drawing has of its own. */
constexpr std::array<const char *, 7> kOnlyForeign{
    "--hatch", "--spacing", "--angle", "--no-outline", "--scale", "--rotate", "--gap"};

QString cell(const QString &text)
{
    return QString(qMax(0, kNumberWidth - console::columnsOf(text)), QLatin1Char(' ')) + text;
}

/** Any extension will do for a machine, but none that names a drawing or what stands beside it. */
std::string checkName(const std::string &name)
{
    for (const char *extension : {".ztd", ".numbers", ".lock"}) {
        if (QString::fromStdString(name).endsWith(QLatin1String(extension), Qt::CaseInsensitive))
            return JobCommand::tr("\"%1\" names no job: %2 belongs to drawings")
                .arg(QString::fromStdString(name), QLatin1String(extension))
                .toStdString();
    }
    return {};
}

QString seconds(double value) { return QString::number(value, 'f', 3); }

void printSums(const QString &name, const TimeSums &sums)
{
    console::print(console::filledUp(name, kTableLabelWidth) + cell(seconds(sums.totalS())) +
                   cell(seconds(sums.markS)) + cell(seconds(sums.jumpS)) +
                   cell(seconds(sums.delayS)));
}

QJsonObject jsonOf(const TimeSums &sums)
{
    return {{QStringLiteral("markS"), sums.markS},
            {QStringLiteral("jumpS"), sums.jumpS},
            {QStringLiteral("delayS"), sums.delayS},
            {QStringLiteral("totalS"), sums.totalS()}};
}

} // namespace

JobCommand::JobCommand(CLI::App &app)
    : Command(app, "job",
              tr("Turn a drawing, or SVG, DXF and plotter drawings, into files for machines")),
      m_job(m_command)
{
    m_files.addOption(m_command);
    addMachine();
    addWork();
    addOutput();
    m_job.addHatch();
    m_job.addGap();
    m_job.addScale();
    m_job.addRotate();
    m_foreign.addOptions(m_command);
    m_fonts.addOption(m_command);
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("A drawing, .ztd, is marked where it lies, its (0, 0) in the middle of the machine's "
           "field.\n"
           "SVG, DXF and plotter drawings come in at true size, side by side, in the middle of "
           "the\n"
           "field; options that size, hatch, turn or mend them are those of ztmark mark.\n"
           "\n"
           "Each part gets the next numbers of the drawing's serial numbers and lists, and today's "
           "date.\n"
           "When all files are whole, the numbers are kept in the drawing: none comes twice. When "
           "one\n"
           "fails, the others are taken back and the numbers stay. Without an output nothing is "
           "used up.\n"
           "\n"
           "Several parts stand in one file with a pause before each where the form has one "
           "(G-code);\n"
           "else, and with --separate, part 3 of OUT.svg is written to OUT-0003.svg.\n"
           "\n"
           "Examples:\n"
           "  ztmark job plate.ztd --profile grbl-diode -o plate.nc --parts 50\n"
           "  ztmark job plate.ztd --frame box -o frame.nc\n"
           "  ztmark job part.dxf --clean join=0.05mm,duplicates --profile galvo-fiber --time")
            .toStdString());
}

void JobCommand::addMachine()
{
    m_command
        ->add_option("--profile", m_profileName,
                     tr("The machine: a name of ztmark profile list, or a file").toStdString())
        ->type_name("NAME|FILE")
        ->default_str("grbl-diode");
    m_command
        ->add_option("--pens", m_pensFile,
                     tr("The pens, a JSON file; without it those of the drawing. Pens that\n"
                        "nobody gave values mark with 50 % and 500 mm/s, or as fast as the\n"
                        "machine is, after a warning")
                         .toStdString())
        ->type_name("FILE");
}

void JobCommand::addWork()
{
    usage::addValue(m_command, "--optimize", tr("Order of the pieces: none, nearest, or best"),
                    [this](const std::string &text) { m_order = usage::chosen(kOrderKinds, text); })
        ->type_name("ORDER")
        ->default_str("best");
    m_command->add_flag("--pen-by-pen", m_isPenByPen,
                        tr("Mark all of a pen, by its number, before the next").toStdString());
    m_command->add_flag("--inner-first", m_isInnerFirst,
                        tr("Mark outlines inside others before those around them").toStdString());
    usage::addValue(
        m_command, "--hatches", tr("Hatches before or after the outlines: any, before, or after"),
        [this](const std::string &text) { m_hatchPlace = usage::chosen(kHatchPlaces, text); })
        ->type_name("WHEN")
        ->default_str("any");
    usage::addValue(
        m_command, "--parts", tr("Parts to be marked, 1 to 10000"),
        [this](const std::string &text) { m_count = arguments::count(text, 1, kMostParts); })
        ->type_name("N")
        ->default_str("1");
    m_command->add_flag("--separate", m_isSeparate,
                        tr("A file for each part, also where one can hold them all").toStdString());
    usage::addValue(m_command, "--frame",
                    tr("Instead of the job its frame, box or hull, to be run without power"),
                    [this](const std::string &text) { m_frame = usage::chosen(kFrames, text); })
        ->type_name("SHAPE");
    m_command->add_flag("--outside", m_marksOutside,
                        tr("Write also what reaches out of the machine's field").toStdString());
    m_command->add_flag("--as-shown", m_marksAsShown,
                        tr("Write also what does not show what it was given, such as a code that "
                           "cannot\nhold its content, or a text without its font")
                            .toStdString());
}

void JobCommand::addOutput()
{
    m_command
        ->add_option("-o,--output", m_outputs,
                     tr("A file to write; its extension says how: .nc or .gcode, .plt or .hpgl,\n"
                        ".dxf, .svg, .json, .csv; any other gets the form of the profile. Can be\n"
                        "given several times")
                         .toStdString())
        ->type_name("OUT")
        ->allow_extra_args(false)
        ->check(CLI::Validator(checkName, ""));
    m_command->add_flag("--time", m_showsTime, tr("Print how long the job takes").toStdString());
    m_command->add_flag("--json", m_asJson, tr("Print the times as JSON").toStdString());
    m_command->add_flag("-q,--quiet", m_job.quiet,
                        tr("No summary and no progress; warnings stay").toStdString());
}

void JobCommand::checkTogether() const
{
    m_files.checkTogether();
    if (m_files.isDrawing()) {
        checkDrawing();
    } else {
        m_job.checkTogether();
        m_foreign.checkTogether();
    }
    if (m_frame && m_count > 1)
        usage::refuse("--frame", tr("cannot be given together with --parts"));
    if (m_isSeparate && m_outputs.empty())
        usage::refuse("--separate", tr("nothing without --output"));
}

void JobCommand::checkDrawing() const
{
    const QString why = tr("not for a drawing, which has its own layout and hatch");
    for (const char *option : kOnlyForeign) {
        if (m_command->get_option(option)->count() > 0)
            usage::refuse(option, why);
    }
    if (const char *option = m_foreign.givenOption())
        usage::refuse(option, why);
}

int JobCommand::run()
{
    if (!m_fonts.makeKnown() || !readMachine() ||
        !canWriteAll({m_files.names, {m_profileName, m_pensFile}}))
        return console::Failed;
    Progress progress(!m_job.quiet);
    m_files.readStandardInput(progress);
    if (m_files.isDrawing())
        checkDrawing(); // what standard input holds is known only now
    JobSource source;
    if (!m_outputs.empty() && !m_frame)
        source.lockBeforehand(m_files, progress);
    if (!source.open(m_files, m_foreign, m_job.options, progress) ||
        !canWriteAll({{}, source.textFiles()}))
        return console::Failed;
    m_isYUp = source.isYUp();
    if (m_pensFile.empty())
        m_pens = source.pens();
    if (!takesNumbers(source))
        source.unlock();
    else if (!source.isLocked(m_files) || !source.passInterrupted())
        return console::Failed;
    if (!makeParts(source, progress) || !writeAndKeep(source, progress))
        return console::Failed;
    progress.finish();
    if (m_asJson) {
        printJson();
    } else {
        if (!m_job.quiet) {
            m_foreign.printCleaning();
            printNumbers(source);
        }
        if (m_showsTime || m_outputs.empty())
            printTimes();
    }
    return console::finishOutput() && source.isWhole() ? console::Done : console::Failed;
}

/** The numbers are noted before the first file is there, and kept in the drawing after the last. */
bool JobCommand::writeAndKeep(JobSource &source, Progress &progress)
{
    const bool takes = takesNumbers(source);
    if (takes && !source.noteTaken(m_count, m_parts.front().variants, m_parts.back().variants))
        return false;
    const bool isWritten = write(progress);
    if (!takes)
        return isWritten;
    if (isWritten && source.next() && source.store(progress))
        return true;
    if (isWritten)
        takeBack();
    source.forgetTaken();
    return false;
}

QVector<jobkit::Pen> JobCommand::jobPens() const
{
    return m_frame ? QVector<jobkit::Pen>{jobkit::framePen()} : m_pens;
}

bool JobCommand::readMachine()
{
    return machinefiles::readProfile(m_profileName, &m_profile) && readPens();
}

bool JobCommand::readPens()
{
    return m_pensFile.empty() || machinefiles::readPens(m_pensFile, &m_pens);
}

/** A frame and a look at the time use up nothing. */
bool JobCommand::takesNumbers(const JobSource &source) const
{
    return source.hasVariants() && !m_outputs.empty() && !m_frame;
}

/** All parts before the first is written: none is marked when a later one cannot be. */
bool JobCommand::makeParts(JobSource &source, Progress &progress)
{
    progress.begin(tr("ordering"));
    if (!m_frame && !source.hasEnough(m_count))
        return false;
    const int different = source.hasVariants() ? m_count : 1;
    for (int part = 1; part <= different; ++part) {
        if (part > 1 && !source.next())
            return false;
        QVector<jobkit::JobItem> items = source.items();
        for (jobkit::JobItem &item : items) {
            if (!m_job.options.outline)
                item.outlinesMm.clear();
        }
        const bool lacksFonts = !source.hasItsFonts() && !m_marksAsShown && !m_outputs.empty();
        if (!source.isReady(m_marksAsShown) || lacksFonts) {
            console::complain(m_files.names.front(),
                              tr("nothing written: what does not show what it was given is written "
                                 "with --as-shown alone"));
            return false;
        }
        if (!check(items))
            return false;
        warnOfEmptyHatch(items);
        m_parts.push_back({planOf(items), source.variants()});
    }
    return true;
}

/** As `ztmark mark` does. */
void JobCommand::warnOfEmptyHatch(const QVector<jobkit::JobItem> &items) const
{
    hostkit::MarkPathMeasure measure;
    for (const jobkit::JobItem &item : items)
        measure.hatchSegments += item.hatches.size();
    m_job.warnOfEmptyHatch(measure);
}

/** Tells what was found; false where the job must not be written. */
bool JobCommand::check(const QVector<jobkit::JobItem> &items)
{
    bool isFit = true;
    std::map<FindingKind, int> counts;
    for (const JobFinding &finding : jobkit::checkJob(items, m_pens, m_profile)) {
        if (m_frame && finding.kind == FindingKind::PenWithoutValues)
            continue; // a frame has a pen of its own
        const bool isOutside = finding.kind == FindingKind::OutsideField;
        const bool isFatal = finding.kind == FindingKind::NothingToMark ||
                             finding.kind == FindingKind::NotANumber ||
                             (isOutside && !m_marksOutside && !m_outputs.empty());
        isFit = isFit && !isFatal;
        if (m_told.contains(finding.text) || ++counts[finding.kind] > kMostTold)
            continue;
        m_told.insert(finding.text);
        console::complain(m_files.names.front(),
                          isFatal ? finding.text : tr("warning: %1").arg(finding.text));
    }
    for (const auto &[kind, count] : counts) {
        if (count > kMostTold)
            console::complain(m_files.names.front(),
                              tr("and %1 more of this kind").arg(count - kMostTold));
    }
    if (!isFit && !m_outputs.empty())
        console::complain(m_files.names.front(), tr("nothing written"));
    return isFit;
}

jobkit::JobPlan JobCommand::planOf(const QVector<jobkit::JobItem> &items) const
{
    jobkit::JobPlan plan = jobkit::planOf(items, m_pens);
    jobkit::OrderOptions options;
    options.kind = m_order;
    options.isPenByPen = m_isPenByPen;
    options.isInnerFirst = m_isInnerFirst;
    options.hatchPlace = m_hatchPlace;
    options.headMm = head();
    options.budgetMs = std::max(kLeastOrderMs, kOrderMs / m_count);
    jobkit::orderPlan(&plan, options);
    jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
    return m_frame ? jobkit::framePlan(plan, *m_frame) : plan;
}

jobkit::JobForm JobCommand::formOf(const std::string &name) const
{
    return jobkit::jobFormOf(QString::fromStdString(name)).value_or(m_profile.form);
}

bool JobCommand::isOneFile(const std::string &name) const
{
    return m_count == 1 || (!m_isSeparate && jobkit::canPause(formOf(name)));
}

bool JobCommand::canWriteAll(const JobArguments::Inputs &inputs) const
{
    for (const std::string &output : m_outputs) {
        const int files = isOneFile(output) ? 1 : m_count;
        for (int part = 1; part <= files; ++part) {
            if (!JobArguments::canWrite({JobArguments::outputOfPart(output, part, files)}, inputs))
                return false;
        }
    }
    return true;
}

bool JobCommand::write(Progress &progress)
{
    const auto planOfPart = [this](int part) {
        return m_parts[m_parts.size() == 1 ? 0 : std::size_t(part - 1)].plan;
    };
    QVector<jobkit::JobPlan> all;
    for (int part = 1; part <= m_count; ++part)
        all.append(planOfPart(part));
    for (const std::string &output : m_outputs) {
        bool isWritten = true;
        if (isOneFile(output))
            isWritten = writeFile(output, all, progress);
        for (int part = 1; !isOneFile(output) && isWritten && part <= m_count; ++part)
            isWritten = writeFile(JobArguments::outputOfPart(output, part, m_count),
                                  {all[part - 1]}, progress);
        if (isWritten)
            continue;
        takeBack();
        return false;
    }
    return true;
}

bool JobCommand::writeFile(const std::string &name, const QVector<jobkit::JobPlan> &plans,
                           Progress &progress)
{
    const QString path = QString::fromStdString(name);
    progress.begin(tr("writing %1").arg(path));
    jobkit::JobFile job;
    job.parts = plans;
    job.pens = jobPens();
    job.profile = m_profile;
    job.title = QFileInfo(QString::fromStdString(m_files.names.front())).fileName();
    job.headMm = head();
    job.isYUp = m_isYUp;
    hostkit::Failure failure;
    if (jobkit::saveJob(formOf(name), job, path, &failure)) {
        m_written.push_back(name);
        return true;
    }
    progress.finish();
    console::complain(name, failure.reason);
    return false;
}

/** No file of a job that failed is left for a machine to run. */
void JobCommand::takeBack() const
{
    for (const std::string &name : m_written) {
        QFile file(QString::fromStdString(name));
        const QString what = file.remove() ? tr("taken back, as the job is not whole")
                                           : tr("must not be run, as the job is not whole");
        console::complain(name, what);
    }
}

/** Which numbers the parts have, and which one comes next. */
void JobCommand::printNumbers(const JobSource &source) const
{
    const auto row = [](const QString &name, const QString &value) {
        console::printRow(name, value, kTableLabelWidth);
    };
    if (m_count > 1)
        row(tr("Parts:"), QString::number(m_count));
    if (!source.hasVariants() || m_frame)
        return;
    row(m_count > 1 ? tr("First part:") : tr("Part:"), m_parts.front().variants);
    if (m_count > 1)
        row(tr("Last part:"), m_parts.back().variants);
    if (!takesNumbers(source))
        return;
    const QString next = source.nextVariants();
    row(tr("Next part:"), next.isEmpty() ? tr("none, the numbers are used up") : next);
}

/** The parts one after the other, the head going on from each to the next. */
TimeSums JobCommand::allTimes() const
{
    if (m_parts.size() == 1)
        return jobkit::partsTime(m_parts.front().plan, jobPens(), m_profile, head(), m_count);
    TimeSums sums;
    QPointF at = head();
    for (const Part &part : m_parts) {
        sums += jobkit::jobTimes(part.plan, jobPens(), m_profile, at).all;
        if (!part.plan.pieces.isEmpty())
            at = part.plan.pieces.last().pointsMm.last();
    }
    return sums;
}

void JobCommand::printTimes() const
{
    const jobkit::JobTimes times =
        jobkit::jobTimes(m_parts.front().plan, jobPens(), m_profile, head());
    console::print(console::filledUp(tr("Seconds"), kTableLabelWidth) + cell(tr("total")) +
                   cell(tr("marking")) + cell(tr("jumps")) + cell(tr("delays")));
    printSums(m_count > 1 ? tr("First part") : tr("Part"), times.all);
    for (const auto &[pen, sums] : times.byPen)
        printSums(tr("  pen %1").arg(pen), sums);
    if (m_count > 1)
        printSums(tr("%1 parts").arg(m_count), allTimes());
}

void JobCommand::printJson() const
{
    const jobkit::JobTimes times =
        jobkit::jobTimes(m_parts.front().plan, jobPens(), m_profile, head());
    QJsonObject byPen;
    for (const auto &[pen, sums] : times.byPen)
        byPen.insert(QString::number(pen), jsonOf(sums));
    QJsonArray variants;
    for (const Part &part : m_parts) {
        if (!part.variants.isEmpty())
            variants.append(part.variants);
    }
    const QJsonObject result{{QStringLiteral("format"), QStringLiteral("job-times")},
                             {QStringLiteral("version"), 1},
                             {QStringLiteral("profile"), m_profile.name},
                             {QStringLiteral("parts"), m_count},
                             {QStringLiteral("part"), jsonOf(times.all)},
                             {QStringLiteral("byPen"), byPen},
                             {QStringLiteral("total"), jsonOf(allTimes())},
                             {QStringLiteral("texts"), variants}};
    console::print(QString::fromUtf8(QJsonDocument(result).toJson(QJsonDocument::Compact)));
}
