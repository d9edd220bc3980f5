#include "CodeCommand.h"

#include "Console.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/marks/ShapeJob.h>
#include <hostkit/text/TextPlaces.h>

using codekit::CodeKindInfo;
using codekit::CodeVerdict;
using usage::addValue;

namespace {

constexpr int kMostParts = 10000;
constexpr int kListWidth = 17;
constexpr double kNearModules = 12.0; ///< further than any kind needs free around it

QString millimetres(double length) { return QString::number(length, 'f', 3); }

/** The content as ZTVariantText shows it: with the present value of its counter. */
QString shown(ZTVariantText &text)
{
    text.update();
    return text.getText();
}

/** The objects of a graph that come near one of them. */
QVector<ZTMarkObject> neighboursOf(const ZTMarkGraph &graph, int index, double nearMark)
{
    const QRectF field =
        graph.objects[index].rect.adjusted(-nearMark, -nearMark, nearMark, nearMark);
    QVector<ZTMarkObject> near;
    for (int other = 0; other < graph.objects.size(); ++other) {
        if (other != index && graph.objects[other].rect.intersects(field))
            near.append(graph.objects[other]);
    }
    return near;
}

} // namespace

CodeCommand::CodeCommand(CLI::App &app)
    : Command(app, "code", tr("Make a QR, Data Matrix or bar code")), m_job(m_command),
      m_code(m_command)
{
    addContent();
    m_job.addOutputs();
    m_code.addSize();
    m_code.addOptions();
    m_code.addForm();
    m_code.addHumanText();
    addVerify();
    addSerial();
    m_job.addHatch();
    m_job.addLayout();
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("In the content, {serial} or {} is the place of the serial number and {date} or\n"
           "{date:yyyy-MM-dd} that of the date; \\n is a line feed, \\\\ a backslash, \\{ a "
           "brace.\n"
           "With --escapes \\G and \\R separate groups and records, \\E ends a message, \\xHH and "
           "\\uHHHH\n"
           "are characters by their numbers, \\t \\r \\e \\0 \\a \\b \\f \\v as programmers know "
           "them.\n"
           "The digits of EAN and UPC stand under their bars, unless characters are given a "
           "spacing.\n"
           "A content that the symbology cannot hold is refused, and nothing is written.\n"
           "\n"
           "Examples:\n"
           "  ztmark code datamatrix SN-0001 --module 0.5mm --hatch line --spacing 0.05mm -o "
           "sn.svg\n"
           "  ztmark code ean13 400638133393 --text below --hatch line --spacing 0.05mm -o "
           "ean.svg\n"
           "  ztmark code datamatrix \"[)>\\R06\\G17VABC\\GSSN-1\\R\\E\" --escapes -o dm.svg\n"
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

void CodeCommand::addVerify()
{
    m_command->add_flag(
        "--verify", m_wantsVerify,
        tr("Read the code back from its marks; what reads otherwise fails").toStdString());
    addValue(m_command, "--beam",
             tr("Width of the beam for --verify; else the growth, or the spacing of the hatch"),
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
    m_code.checkKind(*info);
    if (!m_job.options.outline)
        m_code.checkWithoutOutline();
    if (m_beamMm > 0.0 && !m_wantsVerify)
        usage::refuse("--beam", tr("nothing without --verify"));
    readContent();
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
    if (m_code.settings.spec.hasEscapes) // a backslash that is none stays two, for the code
        decoded.replace(QStringLiteral("\\\\"), QStringLiteral("\\\\\\\\"));
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
        return console::finishOutput() ? console::Done : console::Failed;
    }
    std::vector<Part> all;
    if (!m_code.chooseFont() || !encodeParts(&all))
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
        return most < least ? tr("none") : tr("%1 to %2").arg(least).arg(most);
    };
    const auto yesOrNo = [](bool isSo) { return isSo ? tr("yes") : tr("no"); };
    QStringList levels;
    for (const codekit::CodeLevel &level : info.levels)
        levels << level.name;
    row(tr("Code:"), QLatin1String(info.label));
    row(tr("Holds:"), codekit::limitsOf(info.kind));
    row(tr("Levels:"), levels.isEmpty() ? tr("none") : levels.join(QStringLiteral(", ")));
    row(tr("Sizes:"), range(1, info.mostVersion));
    row(tr("Rectangular:"), yesOrNo(info.canBeRectangular));
    row(tr("Columns:"), range(1, info.mostColumns));
    row(tr("Masks:"), range(0, info.mostMask));
    row(tr("Check digit:"), info.hasCheckChoice ? tr("as wanted") : tr("by itself"));
    row(tr("Character sets:"),
        info.hasCharsets ? QStringLiteral("auto, utf8, gbk") : tr("its own"));
    row(tr("Escapes:"), yesOrNo(info.hasControls));
    row(tr("Quiet zone:"), tr("%1 modules left, %2 right, %3 above and below")
                               .arg(info.quietModules.left())
                               .arg(info.quietModules.right())
                               .arg(info.quietModules.top()));
    row(tr("Can be verified:"), yesOrNo(codekit::canReadBack(info.kind)));
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
        const QString text = shown(m_content);
        codekit::CodeItem item(m_code.settings.spec.kind);
        item.setCode(m_code.settings, text);
        const QString reason = item.code().notReadyReason();
        if (!reason.isEmpty()) {
            console::complain(
                m_parts == 1
                    ? reason.toStdString()
                    : tr("part %1, \"%2\": %3").arg(number).arg(text, reason).toStdString());
            return false;
        }
        all->push_back({text, item.code().symbol(), item.code().form()});
    }
    return true;
}

bool CodeCommand::markPart(const Part &part, hostkit::MarkJobResult *result,
                           Progress &progress) const
{
    const hostkit::JobShape shape{codekit::shapeTypeOf(m_code.settings.spec.kind),
                                  [&](ZTAbstractGraphicsItem &item) {
                                      if (codekit::CodeItem *code = codekit::codeItem(&item))
                                          code->setCode(m_code.settings, part.content);
                                  }};
    hostkit::MarkJobFailure failure;
    if (hostkit::buildShapeJob({shape}, m_job.options, result, &failure))
        return true;
    progress.finish();
    console::complain(failure.reason.toStdString());
    return false;
}

/** Reads each copy of a code from its marks, those of the others around it. */
bool CodeCommand::verify(const Part &part, const ZTMarkGraph &graph) const
{
    codekit::CodeItem item(m_code.settings.spec.kind);
    item.setCode(m_code.settings, part.content);
    ZTFillParam fill;
    fill.fillType = m_job.options.hatch;
    fill.spac = m_job.options.spacingMm;
    item.setFillParam(fill);
    item.setTransformParam(QTransform().rotate(m_job.options.rotateDeg));
    codekit::CodeSurroundings around;
    around.units = hostkit::MarkUnits::current();
    around.beamMm = m_beamMm;
    const double nearMark = kNearModules * part.form.moduleMm * around.units.perMm;
    for (int copy = 0; copy < graph.objects.size(); ++copy) {
        around.marks = graph.objects[copy];
        around.others = neighboursOf(graph, copy, nearMark);
        if (!tellReading(codekit::readCode(item, around)))
            return false;
    }
    return true;
}

/** Whether a code reads as it is to; says so where it does not. */
bool CodeCommand::tellReading(const codekit::CodeReading &reading) const
{
    const QString label = QLatin1String(codekit::infoOf(m_code.settings.spec.kind).label);
    const bool areDots = m_code.settings.form.style == codekit::CodeStyle::Points;
    const bool isOpen = m_job.options.hatch == FillType::None && m_code.hasAreas();
    QString what;
    switch (reading.verdict) {
    case CodeVerdict::Good:
        return true;
    case CodeVerdict::NoReader:
        what = tr("there is no reader for %1 to verify it").arg(label);
        break;
    case CodeVerdict::Nothing:
        what = areDots && m_beamMm <= 0.0
                   ? tr("the marks read as nothing: dots are as wide as the beam, give --beam")
               : isOpen ? tr("the marks read as nothing: outlines alone are no code, give --hatch")
                        : tr("the marks read as nothing: try a larger module or a closer hatch");
        break;
    default:
        what = codekit::describe(reading);
        break;
    }
    console::complain(what.toStdString());
    return false;
}

void CodeCommand::printSummary(const Part &part, const hostkit::MarkJobResult &result) const
{
    const QSizeF size = codekit::codeSizeMm(part.symbol, part.form);
    JobArguments::printRow(tr("Code:"),
                           tr("%1, %2 x %3 modules")
                               .arg(QLatin1String(codekit::infoOf(part.symbol.kind).label))
                               .arg(part.symbol.columns)
                               .arg(part.symbol.rows));
    if (m_parts > 1)
        JobArguments::printRow(tr("Parts:"), QString::number(m_parts));
    JobArguments::printRow(m_wantsVerify ? tr("Verified:") : tr("Reads:"), part.symbol.reads);
    JobArguments::printRow(
        tr("Size:"), tr("%1 x %2 mm").arg(millimetres(size.width()), millimetres(size.height())));
    JobArguments::printRow(tr("Module:"), tr("%1 mm").arg(millimetres(part.form.moduleMm)));
    JobArguments::printSummary(result.before, result.after);
}
