#include <vectorkit/hpgl/HpglInterpreter_p.h>

#include <vectorkit/hpgl/HpglPacked_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

constexpr double kUnitMm = 0.025;

constexpr int code(const char (&name)[3]) { return hpglCode(name[0], name[1]); }

bool isOneOf(int wanted, const char *names)
{
    for (; *names != '\0'; names += 3) {
        if (wanted == hpglCode(names[0], names[1]))
            return true;
    }
    return false;
}

} // namespace

HpglInterpreter::HpglInterpreter(const QByteArray &bytes, const ReadOptions &readOptions,
                                 VectorDrawing *target)
    : options(readOptions), drawing(target),
      scanner(bytes.constData(), bytes.constData() + bytes.size()),
      frame(readOptions.unitMm > 0.0 ? readOptions.unitMm : kUnitMm), plotter(target, &frame)
{
}

bool HpglInterpreter::run(ReadFailure *failure)
{
    while (scanner.next()) {
        ++commands;
        const int wanted = scanner.code();
        if (!carryOutMove(wanted) && !carryOutPen(wanted) && !carryOutArea(wanted) &&
            !carryOutArc(wanted) && !carryOutLettering(wanted) && !carryOutFrame(wanted) &&
            !carryOutPage(wanted) && !passOver(wanted)) {
            ++unknownCommands;
            note(VectorNote::Kind::Left,
                 QCoreApplication::translate("vectorkit", "unknown command %1").arg(commandName()));
            scanner.readNumbers();
        }
        if (commands % 1024 == 0 && !checkLimits(failure))
            return false;
    }
    const bool isUnused = plotter.isInPolygon() || plotter.isPolygonUnused();
    plotter.finish();
    if (isUnused)
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "polygon neither filled nor drawn"));
    noteRemains();
    if (!checkLimits(failure))
        return false;
    describe();
    if ((damagedCommands)*10 > commands + scanner.strayRuns() || unknownCommands * 2 > commands) {
        *failure = {
            ReadFailure::Kind::Damaged,
            QCoreApplication::translate("vectorkit", "%1 of %2 commands are damaged or unknown.")
                .arg(damagedCommands + unknownCommands)
                .arg(commands + scanner.strayRuns()),
            QCoreApplication::translate("vectorkit", "Write the file anew as HP-GL.")};
        return false;
    }
    if (drawing->isEmpty()) {
        *failure = {ReadFailure::Kind::Empty,
                    QCoreApplication::translate("vectorkit", "The file draws nothing."), QString()};
        return false;
    }
    return true;
}

bool HpglInterpreter::checkLimits(ReadFailure *failure)
{
    if (plotter.pieceCount() > options.mostPieces) {
        *failure = {ReadFailure::Kind::TooLarge,
                    QCoreApplication::translate("vectorkit",
                                                "The drawing has more than %1 lines, the limit.")
                        .arg(options.mostPieces),
                    QString()};
        return false;
    }
    if (options.progress && scanner.size() > 0 &&
        !options.progress(double(scanner.place()) / double(scanner.size()))) {
        *failure = {ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."), QString()};
        return false;
    }
    return true;
}

QString HpglInterpreter::commandName() const
{
    const int wanted = scanner.code();
    return QString(QLatin1Char(static_cast<char>(wanted / 256))) +
           QLatin1Char(static_cast<char>(wanted % 256));
}

void HpglInterpreter::note(VectorNote::Kind kind, const QString &what)
{
    drawing->note(kind, what,
                  QCoreApplication::translate("vectorkit", "byte %1").arg(scanner.place()));
}

void HpglInterpreter::damaged(const QString &what, qint64 place, qint64 count)
{
    damagedCommands += count;
    drawing->note(VectorNote::Kind::Damaged, what,
                  QCoreApplication::translate("vectorkit", "byte %1").arg(place), count);
}

void HpglInterpreter::noteRemains()
{
    const auto byte = [](qint64 place) {
        return QCoreApplication::translate("vectorkit", "byte %1").arg(place);
    };
    if (scanner.strayRuns() > 0) {
        damagedCommands += scanner.strayRuns();
        drawing->note(VectorNote::Kind::Damaged,
                      QCoreApplication::translate("vectorkit", "text that is no command"),
                      byte(scanner.firstStray()), scanner.strayRuns());
    }
    if (plotter.farCount() > 0)
        damaged(QCoreApplication::translate("vectorkit", "points beyond all sheets"), 0,
                plotter.farCount());
    if (plotter.drawnWithoutPen() > 0)
        drawing->note(
            VectorNote::Kind::Changed,
            QCoreApplication::translate("vectorkit", "drawn although the pen was put away (SP0)"),
            QString(), plotter.drawnWithoutPen());
}

/** Version, sheet, size and how it is known, names of the pages. */
void HpglInterpreter::describe()
{
    drawing->format = VectorFormat::Hpgl;
    drawing->formatVersion = isSecondLanguage || scanner.isWrapped() ? QStringLiteral("HP-GL/2")
                                                                     : QStringLiteral("HP-GL");
    drawing->unitMm = frame.unit();
    drawing->declaredSizeMm = sheet * frame.unit();
    if (options.unitMm > 0.0) {
        drawing->sizeSource = SizeSource::Chosen;
        drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The plotter's unit was chosen as %1 mm.")
                .arg(options.unitMm);
    } else if (frame.isGuessed()) {
        drawing->sizeSource = SizeSource::Guessed;
        drawing->sizeReason = QCoreApplication::translate(
            "vectorkit",
            "The drawing is scaled to the plotter's sheet, which the file does not name; A4 is "
            "taken.");
    } else {
        drawing->sizeSource = SizeSource::Format;
        drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "A plotter's unit is 0.025 mm.");
    }
    if (drawing->layers.size() < 2)
        return;
    int number = 0;
    for (VectorLayer &page : drawing->layers)
        page.name = QCoreApplication::translate("vectorkit", "Page %1").arg(++number);
}

bool HpglInterpreter::take(std::size_t least)
{
    if (scanner.readNumbers() && (numbers().empty() || numbers().size() >= least))
        return numbers().size() >= least;
    damaged(QCoreApplication::translate("vectorkit", "numbers of command %1").arg(commandName()),
            scanner.place());
    return false;
}

void HpglInterpreter::require(bool isSensible)
{
    if (!isSensible)
        damaged(
            QCoreApplication::translate("vectorkit", "numbers of command %1").arg(commandName()),
            scanner.place());
}

double HpglInterpreter::number(std::size_t index, double otherwise) const
{
    return index < numbers().size() ? numbers()[index] : otherwise;
}

QPointF HpglInterpreter::point(std::size_t index, bool isRelative) const
{
    const QPointF place(numbers()[index], numbers()[index + 1]);
    return isRelative ? plotter.position() + place : place;
}

double HpglInterpreter::chord(std::size_t index) const
{
    return isChordLength ? 0.0 : std::abs(number(index, 0.0));
}

void HpglInterpreter::reset()
{
    plotter.setDown(false);
    plotter.endPolygon();
    plotter.setWindowMm(QRectF());
    plotter.setRelative(false);
    plotter.setPenWidth(0.0);
    plotter.resetPenColors();
    frame.reset();
    lettering.reset();
    labelEnd = '\x03';
    symbol = '\0';
    isChordLength = false;
}

void HpglInterpreter::moves()
{
    require(scanner.readNumbers() && numbers().size() % 2 == 0);
    for (std::size_t i = 0; i + 1 < numbers().size(); i += 2) {
        const QPointF to = point(i, plotter.isRelative());
        plotter.moveTo(to.x(), to.y());
        if (symbol != '\0' && !plotter.isInPolygon())
            plotter.addText(lettering.symbol(symbol, frame, plotter.positionMm()));
    }
    lineStartMm = plotter.positionMm();
}

bool HpglInterpreter::carryOutMove(int wanted)
{
    switch (wanted) {
    case code("PU"):
        plotter.setDown(false);
        break;
    case code("PD"):
        plotter.setDown(true);
        break;
    case code("PA"):
        plotter.setRelative(false);
        break;
    case code("PR"):
        plotter.setRelative(true);
        break;
    case code("PE"):
        packed();
        return true;
    default:
        return false;
    }
    moves();
    return true;
}

void HpglInterpreter::packed()
{
    isSecondLanguage = true;
    const PackedLine line = unpackedLine(scanner.readToSemicolon());
    for (const PackedStep &step : line.steps) {
        if (step.kind == PackedStep::Kind::Pen) {
            plotter.selectPen(step.pen);
            continue;
        }
        const QPointF base = step.isAbsolute ? QPointF() : plotter.position();
        plotter.setDown(!step.isPenUp);
        plotter.moveTo(base.x() + step.x, base.y() + step.y);
    }
    lineStartMm = plotter.positionMm();
    if (line.isRecoded)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "packed lines written as UTF-8"));
    if (line.restIsCommand) {
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "packed lines without their end"));
        scanner.stepBack(line.rest);
    }
    require(line.rest == 0 || line.restIsCommand);
}

bool HpglInterpreter::carryOutArc(int wanted)
{
    switch (wanted) {
    case code("AA"):
    case code("AR"):
        arc(wanted == code("AR"));
        return true;
    case code("AT"):
    case code("RT"):
        arcThrough(wanted == code("RT"));
        return true;
    case code("BZ"):
    case code("BR"):
        curves(wanted == code("BR"));
        return true;
    case code("CI"):
        if (take(1))
            plotter.circle(numbers()[0], chord(1));
        return true;
    case code("CT"):
        if (scanner.readNumbers())
            isChordLength = number(0, 0.0) == 1.0;
        return true;
    default:
        return false;
    }
}

void HpglInterpreter::arc(bool isRelative)
{
    if (!take(3))
        return;
    const QPointF centre = point(0, isRelative);
    plotter.arcAbout(centre.x(), centre.y(), numbers()[2], chord(3));
}

void HpglInterpreter::arcThrough(bool isRelative)
{
    if (take(4))
        plotter.arcThrough(point(0, isRelative), point(2, isRelative), chord(4));
}

void HpglInterpreter::curves(bool isRelative)
{
    isSecondLanguage = true;
    if (!take(6))
        return;
    require(numbers().size() % 6 == 0);
    for (std::size_t i = 0; i + 5 < numbers().size(); i += 6)
        plotter.curveTo(point(i, isRelative), point(i + 2, isRelative), point(i + 4, isRelative));
}

bool HpglInterpreter::carryOutArea(int wanted)
{
    switch (wanted) {
    case code("EA"):
    case code("ER"):
    case code("RA"):
    case code("RR"):
        if (take(2)) {
            const QPointF to = point(0, wanted == code("ER") || wanted == code("RR"));
            plotter.rectangleTo(to.x(), to.y(), wanted == code("RA") || wanted == code("RR"));
        }
        return true;
    case code("EW"):
    case code("WG"):
        if (take(3))
            plotter.wedge(numbers()[0], numbers()[1], numbers()[2], chord(3), wanted == code("WG"));
        return true;
    case code("PM"):
        if (!scanner.readNumbers() || number(0, 0.0) < 0.0 || number(0, 0.0) > 2.0)
            require(false);
        else if (number(0, 0.0) == 1.0)
            plotter.endSubpolygon();
        else if (number(0, 0.0) == 2.0)
            plotter.endPolygon();
        else
            plotter.beginPolygon();
        return true;
    case code("FP"):
        require(scanner.readNumbers());
        plotter.fillPolygon(number(0, 0.0) == 1.0 ? Qt::WindingFill : Qt::OddEvenFill);
        return true;
    case code("EP"):
        require(scanner.readNumbers());
        plotter.edgePolygon();
        return true;
    default:
        return false;
    }
}

bool HpglInterpreter::carryOutFrame(int wanted)
{
    const auto change = [&](bool (HpglFrame::*set)(const std::vector<double> &)) {
        require(scanner.readNumbers() &&
                plotter.changeFrame([&] { return (frame.*set)(numbers()); }));
    };
    switch (wanted) {
    case code("IN"):
    case code("DF"):
        require(scanner.readNumbers());
        if (wanted == code("IN")) {
            reset();
            plotter.jumpToMm(frame.toMm(0.0, 0.0));
        } else {
            plotter.changeFrame([&] {
                reset();
                return true;
            });
        }
        return true;
    case code("SC"):
        change(&HpglFrame::setScale);
        return true;
    case code("IP"):
        change(&HpglFrame::setPoints);
        return true;
    case code("IR"):
        change(&HpglFrame::setPointsPercent);
        return true;
    case code("RO"):
        change(&HpglFrame::setTurn);
        return true;
    case code("PS"):
        isSecondLanguage = true;
        change(&HpglFrame::setPageSize);
        sheet = frame.page();
        return true;
    case code("IW"):
        window();
        return true;
    default:
        return false;
    }
}

void HpglInterpreter::window()
{
    if (!take(4)) {
        if (numbers().empty())
            plotter.setWindowMm(QRectF());
        return;
    }
    const QPointF a = frame.toMm(numbers()[0], numbers()[1]);
    const QPointF b = frame.toMm(numbers()[2], numbers()[3]);
    const QRectF box = QRectF(a, b).normalized();
    if (box.width() > 0.0 && box.height() > 0.0)
        plotter.setWindowMm(box);
    else
        require(false);
}

bool HpglInterpreter::carryOutLettering(int wanted)
{
    const auto set = [&](bool (HpglLettering::*setter)(const std::vector<double> &)) {
        require(scanner.readNumbers() && (lettering.*setter)(numbers()));
    };
    switch (wanted) {
    case code("LB"):
        label();
        return true;
    case code("SI"):
        set(&HpglLettering::setSize);
        return true;
    case code("SR"):
        set(&HpglLettering::setRelativeSize);
        return true;
    case code("SL"):
        set(&HpglLettering::setSlant);
        return true;
    case code("LO"):
        set(&HpglLettering::setOrigin);
        return true;
    case code("ES"):
        set(&HpglLettering::setExtraSpace);
        return true;
    case code("DI"):
    case code("DR"):
        require(scanner.readNumbers() &&
                lettering.setDirection(numbers(), wanted == code("DR") ? &frame : nullptr));
        return true;
    case code("DT"):
        terminator();
        return true;
    case code("SM"):
        symbolMode();
        return true;
    case code("CP"):
        movePenByLetters();
        return true;
    default:
        return false;
    }
}

void HpglInterpreter::label()
{
    bool isMended = false;
    const QByteArray text = scanner.readLabel(labelEnd, &isMended);
    if (isMended)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "labels without their end"));
    QPointF at = plotter.positionMm();
    const QVector<VectorText> texts = lettering.place(text, frame, &at, &lineStartMm);
    for (const VectorText &line : texts)
        plotter.addText(line);
    plotter.jumpToMm(at);
}

void HpglInterpreter::terminator()
{
    labelEnd = scanner.readByte();
    if (labelEnd == '\0')
        labelEnd = '\x03';
    scanner.readNumbers();
}

void HpglInterpreter::symbolMode()
{
    symbol = scanner.readByte();
    if (static_cast<unsigned char>(symbol) <= ' ')
        symbol = '\0';
}

void HpglInterpreter::movePenByLetters()
{
    if (!scanner.readNumbers() || numbers().size() == 1) {
        require(false);
        return;
    }
    if (numbers().empty()) { // a new line
        lineStartMm = lettering.moved(lineStartMm, frame, 0.0, -1.0);
        plotter.jumpToMm(lineStartMm);
        return;
    }
    lineStartMm = lettering.moved(lineStartMm, frame, 0.0, numbers()[1]);
    plotter.jumpToMm(lettering.moved(plotter.positionMm(), frame, numbers()[0], numbers()[1]));
}

bool HpglInterpreter::carryOutPen(int wanted)
{
    constexpr double kMostPens = 32767.0;
    switch (wanted) {
    case code("SP"):
        if (!scanner.readNumbers() || !(number(0, 0.0) >= 0.0 && number(0, 0.0) <= kMostPens))
            require(false);
        else
            plotter.selectPen(static_cast<int>(number(0, 0.0)));
        return true;
    case code("PW"):
        if (!scanner.readNumbers() || !(number(0, 0.35) >= 0.0 && number(0, 0.35) <= 1e6))
            require(false);
        else if (!isWidthRelative)
            plotter.setPenWidth(number(0, 0.35));
        return true;
    case code("WU"):
        require(scanner.readNumbers());
        isWidthRelative = number(0, 0.0) == 1.0;
        plotter.setPenWidth(0.0);
        return true;
    case code("PC"):
        penColor();
        return true;
    default:
        return false;
    }
}

void HpglInterpreter::penColor()
{
    isSecondLanguage = true;
    const bool isRead = scanner.readNumbers();
    const auto isByte = [&](std::size_t index) {
        return number(index, -1.0) >= 0.0 && number(index, -1.0) <= 255.0;
    };
    if (!isRead || number(0, 0.0) < 0.0 || number(0, 0.0) > 32767.0) {
        require(false);
    } else if (numbers().size() >= 4) {
        if (isByte(1) && isByte(2) && isByte(3))
            plotter.setPenColor(
                static_cast<int>(numbers()[0]),
                QColor(qRound(numbers()[1]), qRound(numbers()[2]), qRound(numbers()[3])));
        else
            require(false);
    }
}

bool HpglInterpreter::carryOutPage(int wanted)
{
    if (!isOneOf(wanted, "PG AF AH FR "))
        return false;
    require(scanner.readNumbers());
    plotter.endPage();
    return true;
}

/** Commands that draw nothing, and those that are left out with a note. */
bool HpglInterpreter::passOver(int wanted)
{
    if (isOneOf(wanted, "CO BP ")) {
        isSecondLanguage = isSecondLanguage || wanted == code("BP");
        scanner.skipQuoted();
        return true;
    }
    if (isOneOf(wanted, "BL PB WD ")) {
        bool isMended = false;
        if (wanted != code("PB"))
            scanner.readLabel(labelEnd, &isMended);
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "command %1").arg(commandName()));
        return true;
    }
    if (wanted == code("LT")) {
        if (scanner.readNumbers() && !numbers().empty())
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "line types, drawn solid (LT)"));
        return true;
    }
    if (isOneOf(wanted, "UC DV ") && scanner.readNumbers()) {
        if (!numbers().empty() && numbers()[0] != 0.0)
            note(VectorNote::Kind::Left,
                 QCoreApplication::translate("vectorkit", "command %1").arg(commandName()));
        return true;
    }
    // Of the machine, of answers to the computer, of how areas and letters look.
    static const char kWithoutMarks[] =
        "UC DV FT PT UL LA AC AD SD SS SA CS CA CM CC DS FI FN IV SB TD LM DL RF SV TR MC MG MT NP "
        "CR NR VS VN VA AS FS AP EC OA OC OD OE OF OG OH OI OK OL OO OP OS OT OW QL RO RP RQ BF BR "
        "GM GC IM IC KY PP PR CV DC DP EC ES GP ST RF TL XT YT WG EN CE ";
    if (!isOneOf(wanted, kWithoutMarks))
        return false;
    isSecondLanguage = isSecondLanguage || isOneOf(wanted, "NP MC TR AC SD UL LA ");
    scanner.readNumbers();
    return true;
}

} // namespace vectorkit
