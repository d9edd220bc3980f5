#include "CodeCommand.h"

#include "Console.h"
#include "Progress.h"
#include "Usage.h"

#include <codekit/CodeReadback.h>
#include <hostkit/marks/MarkUnits.h>
#include <hostkit/text/TextPlaces.h>

#include <QtGui/QFontMetricsF>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <map>

using codekit::CodeKindInfo;
using codekit::CodeStyle;
using usage::addValue;
using usage::chosen;

namespace {

constexpr int kMostParts = 10000;
constexpr int kListWidth = 17;
constexpr int kFontPx = 1000;
constexpr double kUsualBeamMm = 0.05;

const std::map<std::string, CodeStyle> kStyles{{"merged", CodeStyle::Merged},
                                               {"squares", CodeStyle::Squares},
                                               {"dots", CodeStyle::Dots},
                                               {"bars", CodeStyle::Bars},
                                               {"lines", CodeStyle::BarLines}};

QString millimetres(double length) { return QString::number(length, 'f', 3); }

/** The content as ZTVariantText shows it: with the present value of its counter. */
QString shown(ZTVariantText &text)
{
    text.update();
    return text.getText();
}

/** Marks in millimetres, as a beam runs along them. */
codekit::MarkedLines linesOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units)
{
    codekit::MarkedLines lines;
    for (const ZTMarkObject &object : graph.objects) {
        for (const QPolygonF &polygon : object.lines) {
            QVector<QPointF> line;
            for (const QPointF &point : polygon)
                line.append(point / units.perMm);
            lines.linesMm.append(line);
        }
        for (const QLineF &line : object.fillLines)
            lines.linesMm.append({line.p1() / units.perMm, line.p2() / units.perMm});
    }
    return lines;
}

} // namespace

CodeCommand::CodeCommand(CLI::App &app)
    : Command(app, "code", tr("Make a QR, Data Matrix or bar code")), m_job(m_command)
{
    addContent();
    m_job.addOutputs();
    addSize();
    addForm();
    addSerial();
    m_job.addHatch();
    m_job.addLayout();
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("In the content, {serial} or {} is the place of the serial number and {date} or\n"
           "{date:yyyy-MM-dd} that of the date; \\n is a line feed, \\\\ a backslash, \\{ a "
           "brace.\n"
           "A content that the symbology cannot hold is refused, and nothing is written.\n"
           "\n"
           "Examples:\n"
           "  ztmark code datamatrix SN-0001 --module 0.5mm --hatch line --spacing 0.05mm -o "
           "sn.svg\n"
           "  ztmark code ean13 400638133393 --text below --hatch line --spacing 0.05mm -o "
           "ean.svg\n"
           "  ztmark code qr \"SN-{serial}\" --serial start=1,width=4 --parts 50 -o sn.json\n"
           "  ztmark code --list")
            .toStdString());
}

void CodeCommand::addContent()
{
    m_command
        ->add_option("SYMBOLOGY", m_symbology, tr("Kind of code, as --list tells").toStdString())
        ->type_name("");
    const auto ignore = [](const std::string &) {};
    m_typed = m_command
                  ->add_option_function<std::string>("TEXT", ignore,
                                                     tr("What the code holds").toStdString())
                  ->type_name("");
    m_command->add_flag(
        "--list", m_wantsList,
        tr("Tell all symbologies, or more about one: what it can hold").toStdString());
}

void CodeCommand::addSize()
{
    addValue(
        m_command, "--module", tr("Width of a module, the narrowest bar"),
        [this](const std::string &text) { m_form.moduleMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0.5mm");
    addValue(m_command, "--width", tr("Width of the code without its quiet zone"),
             [this](const std::string &text) { m_widthMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH");
    addValue(
        m_command, "--height", tr("Height of the bars of a bar code"),
        [this](const std::string &text) { m_form.heightMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("10mm");
    addValue(m_command, "--level", tr("Error correction, 1 to 4 in QR and Aztec, 1 to 9 in PDF417"),
             [this](const std::string &text) { m_spec.level = arguments::count(text, 1, 9); })
        ->type_name("LEVEL");
    addValue(m_command, "--size", tr("Size by its number in the symbology; else the smallest"),
             [this](const std::string &text) { m_spec.version = arguments::count(text, 1, 40); })
        ->type_name("N");
    m_command->add_flag("--rectangular", m_spec.isRectangular,
                        tr("A Data Matrix that is not square").toStdString());
    m_command->add_flag(
        "--check-digit", m_spec.hasCheckDigit,
        tr("Add the check digit that Code 39, Codabar and i25 may have").toStdString());
}

void CodeCommand::addForm()
{
    addValue(m_command, "--style",
             tr("What is marked: merged (outlines of dark areas), squares, dots, bars\nor lines"),
             [this](const std::string &text) { m_form.style = chosen(kStyles, text); })
        ->type_name("STYLE")
        ->default_str("merged");
    m_command->add_flag("--inverse", m_form.isInverse,
                        tr("Mark what is light, for dark material").toStdString());
    addValue(m_command, "--growth", tr("Width of the beam, taken off each dark area"),
             [this](const std::string &text) { m_form.growthMm = arguments::lengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("0");
    const std::map<std::string, HumanText> places{
        {"none", HumanText::None}, {"above", HumanText::Above}, {"below", HumanText::Below}};
    addValue(m_command, "--text", tr("Text for people: none, above or below the code"),
             [this, places](const std::string &text) { m_humanText = chosen(places, text); })
        ->type_name("PLACE")
        ->default_str("none");
    addValue(
        m_command, "--text-height", tr("Height of its capital letters"),
        [this](const std::string &text) { m_textHeightMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH")
        ->default_str("2mm");
    m_command->add_flag(
        "--verify", m_wantsVerify,
        tr("Read the code back from its marks; what reads otherwise fails").toStdString());
    addValue(m_command, "--beam",
             tr("Width of the beam for --verify; else the spacing of the hatch"),
             [this](const std::string &text) { m_beamMm = arguments::positiveLengthMm(text); })
        ->type_name("LENGTH");
}

void CodeCommand::addSerial()
{
    m_serial = addValue(m_command, "--serial",
                        tr("Serial number: start=1,step=1,last=99,width=4,base=10 or some of them"),
                        [this](const std::string &text) { m_counter = arguments::serial(text); })
                   ->type_name("COUNTER");
    addValue(m_command, "--parts", tr("Write so many parts, 1 to 10000, each with its own number"),
             [this](const std::string &text) { m_parts = arguments::count(text, 1, kMostParts); })
        ->type_name("N")
        ->default_str("1");
}

void CodeCommand::checkTogether()
{
    const QString name = QString::fromStdString(m_symbology);
    const CodeKindInfo *info = codekit::kindNamed(name);
    if (info == nullptr && !name.isEmpty())
        usage::refuse("SYMBOLOGY",
                      tr("\"%1\" is no symbology, ztmark code --list tells them").arg(name));
    if (m_wantsList)
        return;
    m_job.checkTogether();
    m_job.checkOutputs();
    if (info == nullptr)
        throw CLI::RequiredError("SYMBOLOGY");
    m_spec.kind = info->kind;
    checkKind(*info);
    if (m_widthMm && m_command->get_option("--module")->count() > 0)
        usage::refuse("--width", tr("cannot be given together with --module"));
    readContent();
}

/** Throws a usage error for an option that this symbology lacks. */
void CodeCommand::checkKind(const CodeKindInfo &info) const
{
    const QString label = QLatin1String(info.label);
    const auto isGiven = [this](const char *option) {
        return m_command->get_option(option)->count() > 0;
    };
    const auto check = [&](const char *option, codekit::CodeSpec spec) {
        spec.kind = info.kind;
        const QString why = isGiven(option) ? codekit::lackingOption(spec) : QString();
        if (!why.isEmpty())
            usage::refuse(option, why);
    };
    codekit::CodeSpec alone;
    alone.level = m_spec.level;
    check("--level", alone);
    alone = {};
    alone.version = m_spec.version;
    check("--size", alone);
    alone = {};
    alone.isRectangular = m_spec.isRectangular;
    check("--rectangular", alone);
    alone = {};
    alone.hasCheckDigit = m_spec.hasCheckDigit;
    check("--check-digit", alone);
    if (isGiven("--size") && isGiven("--rectangular"))
        usage::refuse("--rectangular", tr("cannot be given together with --size"));
    if (isGiven("--height") && !info.isLinear)
        usage::refuse("--height", tr("%1 has no bars, it is as high as its modules").arg(label));
    if (m_form.style == CodeStyle::Dots && info.isLinear)
        usage::refuse("--style", tr("%1 has bars, which are no dots").arg(label));
    if (isGiven("--text-height") && m_humanText == HumanText::None)
        usage::refuse("--text-height", tr("nothing without --text"));
    if (isGiven("--beam") && !m_wantsVerify)
        usage::refuse("--beam", tr("nothing without --verify"));
}

/** Without a place for it, the serial number follows the content. */
void CodeCommand::readContent()
{
    if (m_typed->count() == 0 && m_serial->count() == 0)
        throw CLI::RequiredError("TEXT");
    QString decoded;
    try {
        if (m_typed->count() > 0)
            decoded = arguments::text(m_typed->results().front());
    } catch (const arguments::ArgumentError &error) {
        throw CLI::ValidationError("TEXT", error.what);
    }
    hostkit::TextPlaces places = hostkit::readTextPlaces(decoded, m_counter);
    if (m_serial->count() > 0 && !places.hasSerial) {
        places.segments.append(m_counter);
        places.hasSerial = true;
    }
    if (m_parts > 1 && !places.hasSerial)
        usage::refuse("--parts", tr("all parts would be the same without --serial or {serial}"));
    if (!m_content.setSegments(places.segments))
        usage::refuse("TEXT", tr("has more than %1 places").arg(ZTVariantText::kMaxSegments));
}

int CodeCommand::run()
{
    if (m_wantsList) {
        listKinds();
        return console::Done;
    }
    std::vector<Part> all;
    if (!encodeParts(&all))
        return console::Failed;
    for (int part = 1; part <= m_parts; ++part) {
        if (!JobArguments::canWrite(m_job.outputsOfPart(part, m_parts), {}))
            return console::Failed;
    }
    Progress progress(!m_job.quiet);
    if (m_wantsVerify && !verifyAll(all, progress))
        return console::Failed;
    hostkit::MarkJobResult result;
    for (int number = 1; number <= m_parts; ++number) {
        if (m_parts > 1)
            progress.begin(tr("part %1 of %2").arg(number).arg(m_parts));
        if (!markPart(all[std::size_t(number - 1)], &result, progress) ||
            !m_job.write(result.graph, m_job.outputsOfPart(number, m_parts), progress))
            return console::Failed;
    }
    progress.finish();
    m_job.warnOfEmptyHatch(result.after);
    if (!m_job.quiet)
        printSummary(all.back(), result);
    return console::finishOutput() ? console::Done : console::Failed;
}

/** All of them, each with its marks, before the first is written. */
bool CodeCommand::verifyAll(const std::vector<Part> &all, Progress &progress) const
{
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (m_parts > 1)
            progress.begin(tr("verifying part %1 of %2").arg(i + 1).arg(m_parts));
        hostkit::MarkJobResult result;
        if (!markPart(all[i], &result, progress))
            return false;
        if (verify(all[i], result.graph))
            continue;
        progress.finish();
        if (m_parts > 1)
            console::complain(tr("part %1 of %2 is not as it should be: nothing written")
                                  .arg(i + 1)
                                  .arg(m_parts)
                                  .toStdString());
        return false;
    }
    return true;
}

void CodeCommand::listKinds() const
{
    if (const CodeKindInfo *info = codekit::kindNamed(QString::fromStdString(m_symbology))) {
        describeKind(*info);
        return;
    }
    for (const CodeKindInfo &info : codekit::codeKinds()) {
        console::printRow(QLatin1String(info.name),
                          QLatin1String(info.label) + QStringLiteral(": ") +
                              codekit::limitsOf(info.kind),
                          kListWidth);
    }
}

void CodeCommand::describeKind(const CodeKindInfo &info)
{
    const auto row = [](const QString &name, const QString &value) {
        console::printRow(name, value, kListWidth);
    };
    const auto range = [](int least, int most) {
        return most == 0 ? tr("none") : tr("%1 to %2").arg(least).arg(most);
    };
    row(tr("Code:"), QLatin1String(info.label));
    row(tr("Holds:"), codekit::limitsOf(info.kind));
    row(tr("Levels:"), range(info.leastLevel, info.mostLevel));
    row(tr("Sizes:"), range(1, info.mostVersion));
    row(tr("Quiet zone:"), tr("%1 modules left, %2 right, %3 above and below")
                               .arg(info.quietModules.left())
                               .arg(info.quietModules.right())
                               .arg(info.quietModules.top()));
    row(tr("Can be verified:"), codekit::canReadBack(info.kind) ? tr("yes") : tr("no"));
}

/** All of them before the first is written: no part is marked when a later one cannot be. */
bool CodeCommand::encodeParts(std::vector<Part> *all)
{
    for (int number = 1; number <= m_parts; ++number) {
        if (m_content.isExhausted()) {
            console::complain(tr("the serial number ends after part %1 of %2")
                                  .arg(number - 1)
                                  .arg(m_parts)
                                  .toStdString());
            return false;
        }
        Part part;
        QString reason;
        const QString text = shown(m_content);
        if (!makePart(text, &part, &reason)) {
            console::complain(
                m_parts == 1
                    ? reason.toStdString()
                    : tr("part %1, \"%2\": %3").arg(number).arg(text, reason).toStdString());
            return false;
        }
        all->push_back(part);
    }
    return true;
}

bool CodeCommand::makePart(const QString &text, Part *part, QString *reason)
{
    m_spec.content = text;
    if (!codekit::encodeCode(m_spec, &part->symbol, reason))
        return false;
    if (m_widthMm)
        m_form.moduleMm = codekit::moduleForWidth(part->symbol, *m_widthMm);
    if (!codekit::markCode(part->symbol, m_form, &part->marks, reason))
        return false;
    part->path = part->marks.areas;
    for (const QLineF &line : part->marks.lines) {
        part->path.moveTo(line.p1());
        part->path.lineTo(line.p2());
    }
    if (m_humanText != HumanText::None)
        addHumanText(part);
    return true;
}

/** In the middle above or below the field that the code keeps free, at least a module away. */
void CodeCommand::addHumanText(Part *part) const
{
    QFont font = QApplication::font();
    font.setPixelSize(kFontPx);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath letters;
    letters.addText(0.0, 0.0, font, part->symbol.humanText);
    const double scale = m_textHeightMm / QFontMetricsF(font).capHeight();
    letters = QTransform::fromScale(scale, scale).map(letters);
    const QRectF box = letters.boundingRect();
    const QRectF field = part->marks.fieldMm;
    const double y = m_humanText == HumanText::Below ? field.bottom() + m_form.moduleMm - box.top()
                                                     : field.top() - m_form.moduleMm - box.bottom();
    letters.translate(part->marks.symbolMm.center().x() - box.center().x(), y);
    part->path.addPath(letters);
}

bool CodeCommand::markPart(const Part &part, hostkit::MarkJobResult *result,
                           Progress &progress) const
{
    hostkit::MarkJobFailure error;
    if (hostkit::buildPathJob({part.path}, m_job.options, result, &error))
        return true;
    progress.finish();
    console::complain(error.reason.toStdString());
    return false;
}

bool CodeCommand::verify(const Part &part, const ZTMarkGraph &graph) const
{
    const QString label = QLatin1String(codekit::infoOf(m_spec.kind).label);
    if (!codekit::canReadBack(m_spec.kind)) {
        console::complain(tr("there is no reader for %1 to verify it").arg(label).toStdString());
        return false;
    }
    codekit::MarkedLines lines = linesOf(graph, hostkit::MarkUnits::current());
    const bool isHatched = m_job.options.hatch != FillType::None;
    lines.beamMm = m_beamMm > 0.0 ? m_beamMm : isHatched ? m_job.options.spacingMm : kUsualBeamMm;
    if (m_beamMm == 0.0 && m_form.style == CodeStyle::BarLines)
        lines.beamMm = m_form.moduleMm;
    lines.isInverse = m_form.isInverse;
    lines.quietMm = 11.0 * m_form.moduleMm;
    const codekit::ReadCode read = codekit::readMarks(lines, m_spec.kind, m_form.moduleMm);
    if (!read.isRead) {
        console::complain(
            (isHatched ? tr("the marks read as nothing: try a larger module or a closer hatch")
                       : tr("the marks read as nothing: outlines alone are no code, give --hatch"))
                .toStdString());
        return false;
    }
    if (read.isMirrored) {
        console::complain(tr("the code is mirrored").toStdString());
        return false;
    }
    if (codekit::isSameContent(m_spec.kind, read.text, part.symbol.reads))
        return true;
    console::complain(tr("the marks read as \"%1\", not as \"%2\"")
                          .arg(read.text, part.symbol.reads)
                          .toStdString());
    return false;
}

void CodeCommand::printSummary(const Part &part, const hostkit::MarkJobResult &result) const
{
    const QSizeF size = part.marks.symbolMm.size();
    JobArguments::printRow(tr("Code:"), tr("%1, %2 x %3 modules")
                                            .arg(QLatin1String(codekit::infoOf(m_spec.kind).label))
                                            .arg(part.symbol.columns)
                                            .arg(part.symbol.rows));
    if (m_parts > 1)
        JobArguments::printRow(tr("Parts:"), QString::number(m_parts));
    JobArguments::printRow(m_wantsVerify ? tr("Verified:") : tr("Reads:"), part.symbol.reads);
    JobArguments::printRow(
        tr("Size:"), tr("%1 x %2 mm").arg(millimetres(size.width()), millimetres(size.height())));
    JobArguments::printRow(tr("Module:"), tr("%1 mm").arg(millimetres(m_form.moduleMm)));
    JobArguments::printSummary(result.before, result.after);
}
