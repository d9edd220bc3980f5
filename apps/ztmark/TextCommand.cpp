#include "TextCommand.h"

#include "Console.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/text/StrokeFont.h>

#include <CLI/CLI.hpp>

#include <QtCore/QFileInfo>

#include <algorithm>

using usage::addValue;

namespace {

constexpr int kMaxParts = 10000;
constexpr double kUsualLineSpacing = 0.3; // of the text height
constexpr double kTopDeg = -90.0;
constexpr int kMostCharactersNamed = 20;

QString millimetres(double length) { return QString::number(length, 'f', 3); }

/** "é" (U+00E9), ... */
QString named(const QStringList &characters)
{
    QStringList names;
    for (const QString &character : characters.mid(0, kMostCharactersNamed))
        names << QStringLiteral("\"%1\" (U+%2)")
                     .arg(character, QString::number(character.toUcs4().first(), 16)
                                         .toUpper()
                                         .rightJustified(4, QLatin1Char('0')));
    const int more = characters.size() - names.size();
    if (more > 0)
        names << TextCommand::tr("and %1 more").arg(more);
    return names.join(QStringLiteral(", "));
}

void addNew(QStringList *all, const QStringList &more)
{
    for (const QString &text : more) {
        if (!all->contains(text))
            all->append(text);
    }
}

void addMeasure(hostkit::MarkPathMeasure *sum, const hostkit::MarkPathMeasure &more)
{
    sum->objects += more.objects;
    sum->polylines += more.polylines;
    sum->hatchSegments += more.hatchSegments;
    sum->markMm += more.markMm;
    sum->jumpMm += more.jumpMm;
}

QRectF markedRect(const ZTMarkGraph &graph)
{
    QRectF rectMark;
    for (const ZTMarkObject &object : graph.objects) {
        for (const QPolygonF &polygon : object.lines)
            rectMark |= polygon.boundingRect();
        for (const QLineF &line : object.fillLines)
            rectMark |= QRectF(line.p1(), line.p2()).normalized();
    }
    return rectMark;
}

} // namespace

TextCommand::TextCommand(CLI::App &app)
    : Command(app, "text", tr("Turn texts into ordered mark paths")), m_job(m_command)
{
    addTexts();
    m_job.addOutputs();
    addFont();
    addArc();
    addSerial();
    m_job.addHatch();
    m_job.addLayout();
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("Several texts stand side by side, a gap apart, each one object. In a text, \\n begins "
           "a new\n"
           "line, {serial} or {} is the place of the serial number and {date} or "
           "{date:yyyy-MM-dd}\n"
           "that of the date; \\\\ is a backslash and \\{ a brace.\n"
           "\n"
           "Stroke fonts are drawn in single strokes and are not hatched. On an arc the letters of "
           "a\n"
           "stroke font hang by their upper left corners, each height of letter from a circle of "
           "its\n"
           "own; those of a system font are centred on one circle. --order x-min also brings the\n"
           "strokes of a text in order from left to right.\n"
           "\n"
           "With --count, part 3 of OUT.svg is written to OUT-0003.svg.\n"
           "\n"
           "Examples:\n"
           "  ztmark text \"ABC 123\" --font-pair hershey-simplex.shx,gb-strokes.shx -o abc.svg\n"
           "  ztmark text \"SN-{serial}\" --serial start=1,width=4 --count 50 -o sn.svg")
            .toStdString());
}

void TextCommand::addTexts()
{
    // "[A,B]" would be taken apart where extra arguments are allowed, so all are expected ones;
    // and the texts are read raw afterwards, because a conversion has its own idea of "{}".
    const int any = CLI::detail::expected_max_vector_size;
    const auto ignore = [](const std::vector<std::string> &) {};
    m_typed = m_command
                  ->add_option_function<std::vector<std::string>>("TEXT", ignore,
                                                                  tr("Texts to mark").toStdString())
                  ->type_name("")
                  ->expected(any, any)
                  ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
                  ->allow_extra_args(false);
}

void TextCommand::addFont()
{
    m_font.addOptions(m_command);
    addValue(
        m_command, "--height", tr("Text height: how high capital letters are"),
        [this](const std::string &text) { m_options.heightMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("10mm");
    addValue(
        m_command, "--char-spacing", tr("Space added between characters"),
        [this](const std::string &text) { m_options.charSpacingMm = arguments::lengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0");
    addValue(m_command, "--line-spacing",
             tr("Space between a line and the base line of the next, letters left\nout; 0.3 of "
                "the height else"),
             [this](const std::string &text) { m_lineSpacingMm = arguments::lengthMm(text); })
        ->type_name("LENGTH");
}

void TextCommand::addArc()
{
    const auto angle = [this](const std::string &text) {
        m_hasArcOption = true;
        return arguments::number(text, -360.0, 360.0);
    };
    addValue(m_command, "--arc", tr("Run the text along a circle of this diameter"),
             [this](const std::string &text) {
                 m_options.arc.diameterMm = arguments::positiveLengthMm(text);
             })
        ->type_name("DIAMETER");
    addValue(m_command, "--arc-start",
             tr("Where the arc starts, 0 is three o'clock; else it is centred at the\ntop"),
             [this, angle](const std::string &text) { m_arcStartDeg = angle(text); })
        ->type_name("DEGREES");
    addValue(m_command, "--arc-span",
             tr("Angle that the characters share, -360 to 360, positive is clockwise"),
             [this, angle](const std::string &text) { m_options.arc.spanDeg = angle(text); })
        ->type_name("DEGREES")
        ->default_str("90");
}

void TextCommand::addSerial()
{
    m_serial =
        addValue(m_command, "--serial",
                 tr("Serial number: start=1,step=1,last=99,width=4,base=10 or some of them;\nbase "
                    "16 and 26 (letters) too. Without a place for it, it ends the last\ntext"),
                 [this](const std::string &text) { m_counter = arguments::serial(text); })
            ->type_name("COUNTER");
    addValue(m_command, "--count", tr("Write so many parts, 1 to 10000, each with its own number"),
             [this](const std::string &text) { m_count = arguments::count(text, 1, kMaxParts); })
        ->type_name("N")
        ->default_str("1");
}

void TextCommand::checkTogether()
{
    m_job.checkTogether();
    m_job.checkOutputs();
    m_font.checkTogether();
    if (m_font.isStrokeFont() && m_job.options.hatch != FillType::None)
        usage::refuse("--hatch", tr("stroke fonts are not hatched"));
    checkArc();
    readTexts();
    checkOutputNames();
}

void TextCommand::checkArc() const
{
    if (m_options.arc.diameterMm == 0.0 && m_hasArcOption)
        usage::refuse("--arc-start, --arc-span", tr("nothing without --arc"));
    if (m_options.arc.diameterMm == 0.0)
        return;
    if (m_options.charSpacingMm > 0.0)
        usage::refuse("--char-spacing", tr("nothing on an arc, --arc-span spreads the text"));
    if (m_lineSpacingMm)
        usage::refuse("--line-spacing", tr("nothing on an arc, its text is one line"));
}

/** Without a place for it, the serial number follows the last text. */
void TextCommand::readTexts()
{
    std::vector<QVector<ZTVariantTextSegment>> all;
    bool hasSerial = false;
    for (const std::string &text : m_typed->results()) {
        QString decoded;
        try {
            decoded = arguments::text(text);
        } catch (const arguments::ArgumentError &error) {
            throw CLI::ValidationError("TEXT", error.what);
        }
        const hostkit::TextPlaces places = hostkit::readTextPlaces(decoded, m_counter);
        all.push_back(places.segments);
        hasSerial = hasSerial || places.hasSerial;
    }
    if (all.empty() && m_serial->count() == 0)
        throw CLI::RequiredError("TEXT");
    if (m_serial->count() > 0 && !hasSerial) {
        if (all.empty())
            all.emplace_back();
        all.back().append(m_counter);
        hasSerial = true;
    }
    if (m_count > 1 && !hasSerial)
        usage::refuse("--count", tr("all parts would be the same without --serial or {serial}"));
    for (const QVector<ZTVariantTextSegment> &segments : all) {
        m_texts.emplace_back();
        if (!m_texts.back().setSegments(segments))
            usage::refuse("TEXT", tr("has more than %1 places").arg(ZTVariantText::kMaxSegments));
    }
}

void TextCommand::checkOutputNames() const
{
    QStringList paths;
    for (const std::string &output : m_job.outputs) {
        const QString path = QFileInfo(QString::fromStdString(output)).absoluteFilePath();
        if (paths.contains(path))
            usage::refuse("--output",
                          tr("\"%1\" is named twice").arg(QString::fromStdString(output)));
        paths << path;
    }
}

int TextCommand::run()
{
    m_options.layout = m_job.options;
    m_options.lineSpacingMm = m_lineSpacingMm.value_or(kUsualLineSpacing * m_options.heightMm);
    m_options.arc.startDeg = m_arcStartDeg.value_or(kTopDeg - m_options.arc.spanDeg / 2.0);
    if (!m_font.choose(&m_options.font) || !hasEnoughValues() || !m_job.canWrite(allOutputs(), {}))
        return console::Failed;

    Progress progress(!m_job.quiet);
    Sum sum;
    bool made = true;
    for (int part = 1; made && part <= m_count; ++part)
        made = makePart(part, &sum, progress);
    progress.finish();
    warn(sum);
    if (made && !m_job.quiet)
        printSummary(sum);
    const bool printed = console::finishOutput();
    return made && printed ? console::Done : console::Failed;
}

/** Tried on copies: no part is written when the last one would have no number of its own. */
bool TextCommand::hasEnoughValues() const
{
    if (m_count == 1)
        return true;
    for (ZTVariantText text : m_texts) {
        for (int part = 0; part < m_count; ++part, text.update()) {
            if (text.isExhausted()) {
                console::complain(tr("the serial number ends after part %1 of %2")
                                      .arg(part)
                                      .arg(m_count)
                                      .toStdString());
                return false;
            }
        }
    }
    return true;
}

std::vector<std::string> TextCommand::outputsOf(int part) const
{
    return m_job.outputsOfPart(part, m_count);
}

std::vector<std::string> TextCommand::allOutputs() const
{
    std::vector<std::string> all;
    for (int part = 1; part <= m_count; ++part) {
        const std::vector<std::string> names = outputsOf(part);
        all.insert(all.end(), names.begin(), names.end());
    }
    return all;
}

bool TextCommand::makePart(int part, Sum *sum, Progress &progress)
{
    if (m_count > 1)
        progress.begin(tr("part %1 of %2").arg(part).arg(m_count));
    else
        m_options.layout.progress = [&progress](const QString &step) { progress.begin(step); };
    hostkit::MarkJobResult result;
    hostkit::MarkJobFailure error;
    const bool built = hostkit::buildTextJob(&m_texts, m_options, &result, &error);
    m_options.layout.progress = nullptr;
    add(result, sum);
    if (built)
        return m_job.write(result.graph, outputsOf(part), progress);
    progress.finish();
    console::complain(error.reason.toStdString());
    return false;
}

QStringList TextCommand::values() const
{
    QStringList shown;
    for (const ZTVariantText &text : m_texts)
        shown << text.getText();
    return shown;
}

void TextCommand::add(const hostkit::MarkJobResult &result, Sum *sum) const
{
    addMeasure(&sum->before, result.before);
    addMeasure(&sum->after, result.after);
    const hostkit::MarkUnits units = hostkit::MarkUnits::current();
    sum->sizeMm = markedRect(result.graph).size() / units.perMm;
    if (sum->firstValues.isEmpty())
        sum->firstValues = values();
    sum->lastValues = values();
    const hostkit::MissingCharacters missing =
        hostkit::missingCharacters(sum->lastValues.join(QLatin1Char('\n')), m_options.font);
    addNew(&sum->noGlyph, missing.noGlyph);
    addNew(&sum->notEncoded, missing.notEncoded);
}

void TextCommand::warn(const Sum &sum) const
{
    if (!sum.notEncoded.isEmpty())
        console::complain(tr("warning: not among the characters of stroke fonts, marked as \"?\": "
                             "%1")
                              .arg(named(sum.notEncoded))
                              .toStdString());
    if (!sum.noGlyph.isEmpty())
        console::complain(
            tr("warning: the font has no glyph for %1").arg(named(sum.noGlyph)).toStdString());
    m_job.warnOfEmptyHatch(sum.after);
}

void TextCommand::printSummary(const Sum &sum) const
{
    const auto joined = [](const QStringList &parts) {
        return QString(parts.join(QLatin1Char(' '))).replace(QLatin1Char('\n'), QLatin1Char(' '));
    };
    if (m_count > 1) {
        JobArguments::printRow(tr("Parts:"), QString::number(m_count));
        JobArguments::printRow(tr("First part:"), joined(sum.firstValues));
        JobArguments::printRow(tr("Last part:"), joined(sum.lastValues));
    } else {
        JobArguments::printRow(tr("Size:"), tr("%1 x %2 mm")
                                                .arg(millimetres(sum.sizeMm.width()),
                                                     millimetres(sum.sizeMm.height())));
    }
    JobArguments::printSummary(sum.before, sum.after);
}
