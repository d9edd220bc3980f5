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
    : m_options(readOptions), m_drawing(target),
      m_scanner(bytes.constData(), bytes.constData() + bytes.size()),
      m_frame(readOptions.unitMm > 0.0 ? readOptions.unitMm : kUnitMm), m_plotter(target, &m_frame)
{
}

bool HpglInterpreter::run(ReadFailure *failure)
{
    while (m_scanner.next()) {
        ++m_commands;
        const int wanted = m_scanner.code();
        if (!carryOutMove(wanted) && !carryOutPen(wanted) && !carryOutArea(wanted) &&
            !carryOutArc(wanted) && !carryOutLettering(wanted) && !carryOutFrame(wanted) &&
            !carryOutPage(wanted) && !passOver(wanted)) {
            ++m_unknownCommands;
            note(VectorNote::Kind::Left,
                 QCoreApplication::translate("vectorkit", "unknown command %1").arg(commandName()));
            m_scanner.readNumbers();
        }
        if (m_commands % 1024 == 0 && !checkLimits(failure))
            return false;
    }
    const bool isUnused = m_plotter.isInPolygon() || m_plotter.isPolygonUnused();
    m_plotter.finish();
    if (isUnused)
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "polygon neither filled nor drawn"));
    noteRemains();
    noteCut();
    if (!checkLimits(failure))
        return false;
    describe();
    if ((m_damagedCommands)*10 > m_commands + m_scanner.strayRuns() ||
        m_unknownCommands * 2 > m_commands) {
        *failure = {
            ReadFailure::Kind::Damaged,
            QCoreApplication::translate("vectorkit", "%1 of %2 commands are damaged or unknown.")
                .arg(m_damagedCommands + m_unknownCommands)
                .arg(m_commands + m_scanner.strayRuns()),
            QCoreApplication::translate("vectorkit", "Write the file anew as HP-GL.")};
        return false;
    }
    if (m_drawing->isEmpty()) {
        *failure = {ReadFailure::Kind::Empty,
                    QCoreApplication::translate("vectorkit", "The file draws nothing."), QString()};
        return false;
    }
    return true;
}

bool HpglInterpreter::checkLimits(ReadFailure *failure)
{
    if (m_plotter.pieceCount() > m_options.mostPieces) {
        *failure = {ReadFailure::Kind::TooLarge,
                    QCoreApplication::translate("vectorkit",
                                                "The drawing has more than %1 lines, the limit.")
                        .arg(m_options.mostPieces),
                    QString()};
        return false;
    }
    if (m_options.progress && m_scanner.size() > 0 &&
        !m_options.progress(double(m_scanner.place()) / double(m_scanner.size()))) {
        *failure = {ReadFailure::Kind::Cancelled,
                    QCoreApplication::translate("vectorkit", "Reading was cancelled."), QString()};
        return false;
    }
    return true;
}

QString HpglInterpreter::commandName() const
{
    const int wanted = m_scanner.code();
    return QString(QLatin1Char(static_cast<char>(wanted / 256))) +
           QLatin1Char(static_cast<char>(wanted % 256));
}

void HpglInterpreter::note(VectorNote::Kind kind, const QString &what)
{
    m_drawing->note(kind, what,
                    QCoreApplication::translate("vectorkit", "byte %1").arg(m_scanner.place()));
}

void HpglInterpreter::damaged(const QString &what, qint64 place, qint64 count)
{
    m_damagedCommands += count;
    m_drawing->note(VectorNote::Kind::Damaged, what,
                    QCoreApplication::translate("vectorkit", "byte %1").arg(place), count);
}

void HpglInterpreter::noteRemains()
{
    const auto byte = [](qint64 place) {
        return QCoreApplication::translate("vectorkit", "byte %1").arg(place);
    };
    if (m_scanner.strayRuns() > 0) {
        m_damagedCommands += m_scanner.strayRuns();
        m_drawing->note(VectorNote::Kind::Damaged,
                        QCoreApplication::translate("vectorkit", "text that is no command"),
                        byte(m_scanner.firstStray()), m_scanner.strayRuns());
    }
    if (m_plotter.farCount() > 0)
        damaged(QCoreApplication::translate("vectorkit", "points beyond all sheets"), 0,
                m_plotter.farCount());
    if (m_plotter.drawnWithoutPen() > 0)
        m_drawing->note(
            VectorNote::Kind::Changed,
            QCoreApplication::translate("vectorkit", "drawn although the pen was put away (SP0)"),
            QString(), m_plotter.drawnWithoutPen());
}

/**
 * A last number that lost digits looks like a whole one, and files may end without a semicolon:
 * what it draws is kept, and noted for the eye. A move that draws nothing is not worth a note.
 */
void HpglInterpreter::noteCut()
{
    const int last = m_scanner.code();
    const bool isMove = isOneOf(last, "PD PA PR AA AR AT RT BZ BR ");
    const bool draws = (isMove && m_plotter.isDown()) || isOneOf(last, "CI EA ER RA RR EW WG ");
    if (m_scanner.cut() == HpglScanner::Cut::Certain ||
        (m_scanner.cut() == HpglScanner::Cut::Possible && draws))
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "the file ends within command %1")
                 .arg(commandName()));
}

/** Version, sheet, size and how it is known, names of the pages. */
void HpglInterpreter::describe()
{
    m_drawing->format = VectorFormat::Hpgl;
    m_drawing->formatVersion = m_isSecondLanguage || m_scanner.isWrapped()
                                   ? QStringLiteral("HP-GL/2")
                                   : QStringLiteral("HP-GL");
    m_drawing->unitMm = m_frame.unit();
    m_drawing->declaredSizeMm = m_sheet * m_frame.unit();
    if (m_options.unitMm > 0.0) {
        m_drawing->sizeSource = SizeSource::Chosen;
        m_drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "The plotter's unit was chosen as %1 mm.")
                .arg(m_options.unitMm);
    } else if (m_frame.isGuessed()) {
        m_drawing->sizeSource = SizeSource::Guessed;
        m_drawing->sizeReason = QCoreApplication::translate(
            "vectorkit",
            "The drawing is scaled to the plotter's sheet, which the file does not name; A4 is "
            "taken.");
    } else {
        m_drawing->sizeSource = SizeSource::Format;
        m_drawing->sizeReason =
            QCoreApplication::translate("vectorkit", "A plotter's unit is 0.025 mm.");
    }
    if (m_drawing->layers.size() < 2)
        return;
    int number = 0;
    for (VectorLayer &page : m_drawing->layers)
        page.name = QCoreApplication::translate("vectorkit", "Page %1").arg(++number);
}

bool HpglInterpreter::take(std::size_t least)
{
    if (m_scanner.readNumbers() && (numbers().empty() || numbers().size() >= least))
        return numbers().size() >= least;
    damaged(QCoreApplication::translate("vectorkit", "numbers of command %1").arg(commandName()),
            m_scanner.place());
    return false;
}

void HpglInterpreter::require(bool isSensible)
{
    if (!isSensible)
        damaged(
            QCoreApplication::translate("vectorkit", "numbers of command %1").arg(commandName()),
            m_scanner.place());
}

double HpglInterpreter::number(std::size_t index, double otherwise) const
{
    return index < numbers().size() ? numbers()[index] : otherwise;
}

QPointF HpglInterpreter::point(std::size_t index, bool isRelative) const
{
    const QPointF place(numbers()[index], numbers()[index + 1]);
    return isRelative ? m_plotter.position() + place : place;
}

double HpglInterpreter::chord(std::size_t index) const
{
    return m_isChordLength ? 0.0 : std::abs(number(index, 0.0));
}

void HpglInterpreter::reset()
{
    m_plotter.setDown(false);
    m_plotter.endPolygon();
    m_plotter.setWindowMm(QRectF());
    m_plotter.setRelative(false);
    m_plotter.setPenWidth(0.0);
    m_plotter.resetPenColors();
    m_frame.reset();
    m_lettering.reset();
    m_labelEnd = '\x03';
    m_symbol = '\0';
    m_isChordLength = false;
}

void HpglInterpreter::moves()
{
    require(m_scanner.readNumbers() && numbers().size() % 2 == 0);
    for (std::size_t i = 0; i + 1 < numbers().size(); i += 2) {
        const QPointF to = point(i, m_plotter.isRelative());
        m_plotter.moveTo(to.x(), to.y());
        if (m_symbol != '\0' && !m_plotter.isInPolygon())
            m_plotter.addText(m_lettering.symbol(m_symbol, m_frame, m_plotter.positionMm()));
    }
    m_lineStartMm = m_plotter.positionMm();
}

bool HpglInterpreter::carryOutMove(int wanted)
{
    switch (wanted) {
    case code("PU"):
        m_plotter.setDown(false);
        break;
    case code("PD"):
        m_plotter.setDown(true);
        break;
    case code("PA"):
        m_plotter.setRelative(false);
        break;
    case code("PR"):
        m_plotter.setRelative(true);
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
    m_isSecondLanguage = true;
    const PackedLine line = unpackedLine(m_scanner.readToSemicolon());
    for (const PackedStep &step : line.steps) {
        if (step.kind == PackedStep::Kind::Pen) {
            m_plotter.selectPen(step.pen);
            continue;
        }
        const QPointF base = step.isAbsolute ? QPointF() : m_plotter.position();
        m_plotter.setDown(!step.isPenUp);
        m_plotter.moveTo(base.x() + step.x, base.y() + step.y);
    }
    m_lineStartMm = m_plotter.positionMm();
    if (line.isRecoded)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "packed lines written as UTF-8"));
    if (line.restIsCommand) {
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "packed lines without their end"));
        m_scanner.stepBack(line.rest);
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
            m_plotter.circle(numbers()[0], chord(1));
        return true;
    case code("CT"):
        if (m_scanner.readNumbers())
            m_isChordLength = number(0, 0.0) == 1.0;
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
    m_plotter.arcAbout(centre.x(), centre.y(), numbers()[2], chord(3));
}

void HpglInterpreter::arcThrough(bool isRelative)
{
    if (take(4))
        m_plotter.arcThrough(point(0, isRelative), point(2, isRelative), chord(4));
}

void HpglInterpreter::curves(bool isRelative)
{
    m_isSecondLanguage = true;
    if (!take(6))
        return;
    require(numbers().size() % 6 == 0);
    for (std::size_t i = 0; i + 5 < numbers().size(); i += 6)
        m_plotter.curveTo(point(i, isRelative), point(i + 2, isRelative), point(i + 4, isRelative));
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
            m_plotter.rectangleTo(to.x(), to.y(), wanted == code("RA") || wanted == code("RR"));
        }
        return true;
    case code("EW"):
    case code("WG"):
        if (take(3))
            m_plotter.wedge(numbers()[0], numbers()[1], numbers()[2], chord(3),
                            wanted == code("WG"));
        return true;
    case code("PM"):
        if (!m_scanner.readNumbers() || number(0, 0.0) < 0.0 || number(0, 0.0) > 2.0)
            require(false);
        else if (number(0, 0.0) == 1.0)
            m_plotter.endSubpolygon();
        else if (number(0, 0.0) == 2.0)
            m_plotter.endPolygon();
        else
            m_plotter.beginPolygon();
        return true;
    case code("FP"):
        require(m_scanner.readNumbers());
        m_plotter.fillPolygon(number(0, 0.0) == 1.0 ? Qt::WindingFill : Qt::OddEvenFill);
        return true;
    case code("EP"):
        require(m_scanner.readNumbers());
        m_plotter.edgePolygon();
        return true;
    default:
        return false;
    }
}

bool HpglInterpreter::carryOutFrame(int wanted)
{
    const auto change = [&](bool (HpglFrame::*set)(const std::vector<double> &)) {
        require(m_scanner.readNumbers() &&
                m_plotter.changeFrame([&] { return (m_frame.*set)(numbers()); }));
    };
    switch (wanted) {
    case code("IN"):
    case code("DF"):
        require(m_scanner.readNumbers());
        if (wanted == code("IN")) {
            reset();
            m_plotter.jumpToMm(m_frame.toMm(0.0, 0.0));
        } else {
            m_plotter.changeFrame([&] {
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
        m_isSecondLanguage = true;
        change(&HpglFrame::setPageSize);
        m_sheet = m_frame.page();
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
            m_plotter.setWindowMm(QRectF());
        return;
    }
    const QPointF a = m_frame.toMm(numbers()[0], numbers()[1]);
    const QPointF b = m_frame.toMm(numbers()[2], numbers()[3]);
    const QRectF box = QRectF(a, b).normalized();
    if (box.width() > 0.0 && box.height() > 0.0)
        m_plotter.setWindowMm(box);
    else
        require(false);
}

bool HpglInterpreter::carryOutLettering(int wanted)
{
    const auto set = [&](bool (HpglLettering::*setter)(const std::vector<double> &)) {
        require(m_scanner.readNumbers() && (m_lettering.*setter)(numbers()));
    };
    switch (wanted) {
    case code("LB"):
        write(readLabel());
        return true;
    case code("BL"):
        m_heldLabel = readLabel();
        return true;
    case code("PB"):
        m_scanner.readNumbers();
        write(m_heldLabel);
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
        require(m_scanner.readNumbers() &&
                m_lettering.setDirection(numbers(), wanted == code("DR") ? &m_frame : nullptr));
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

QByteArray HpglInterpreter::readLabel()
{
    bool isMended = false;
    QByteArray text = m_scanner.readLabel(m_labelEnd, &isMended);
    if (isMended)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "labels without their end"));
    return text;
}

void HpglInterpreter::write(const QByteArray &text)
{
    QPointF at = m_plotter.positionMm();
    const QVector<VectorText> texts = m_lettering.place(text, m_frame, &at, &m_lineStartMm);
    for (const VectorText &line : texts)
        m_plotter.addText(line);
    m_plotter.jumpToMm(at);
}

void HpglInterpreter::terminator()
{
    m_labelEnd = m_scanner.readByte();
    if (m_labelEnd == '\0')
        m_labelEnd = '\x03';
    m_scanner.readNumbers();
}

void HpglInterpreter::symbolMode()
{
    m_symbol = m_scanner.readByte();
    if (static_cast<unsigned char>(m_symbol) <= ' ')
        m_symbol = '\0';
}

void HpglInterpreter::movePenByLetters()
{
    if (!m_scanner.readNumbers() || numbers().size() == 1) {
        require(false);
        return;
    }
    if (numbers().empty()) { // a new line
        m_lineStartMm = m_lettering.moved(m_lineStartMm, m_frame, 0.0, -1.0);
        m_plotter.jumpToMm(m_lineStartMm);
        return;
    }
    m_lineStartMm = m_lettering.moved(m_lineStartMm, m_frame, 0.0, numbers()[1]);
    m_plotter.jumpToMm(
        m_lettering.moved(m_plotter.positionMm(), m_frame, numbers()[0], numbers()[1]));
}

bool HpglInterpreter::carryOutPen(int wanted)
{
    constexpr double kMostPens = 32767.0;
    switch (wanted) {
    case code("SP"):
        if (!m_scanner.readNumbers() || !(number(0, 0.0) >= 0.0 && number(0, 0.0) <= kMostPens))
            require(false);
        else
            m_plotter.selectPen(static_cast<int>(number(0, 0.0)));
        return true;
    case code("PW"):
        if (!m_scanner.readNumbers() || !(number(0, 0.35) >= 0.0 && number(0, 0.35) <= 1e6))
            require(false);
        else if (!m_isWidthRelative)
            m_plotter.setPenWidth(number(0, 0.35));
        return true;
    case code("WU"):
        require(m_scanner.readNumbers());
        m_isWidthRelative = number(0, 0.0) == 1.0;
        m_plotter.setPenWidth(0.0);
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
    m_isSecondLanguage = true;
    const bool isRead = m_scanner.readNumbers();
    const auto isByte = [&](std::size_t index) {
        return number(index, -1.0) >= 0.0 && number(index, -1.0) <= 255.0;
    };
    if (!isRead || number(0, 0.0) < 0.0 || number(0, 0.0) > 32767.0) {
        require(false);
    } else if (numbers().size() >= 4) {
        if (isByte(1) && isByte(2) && isByte(3))
            m_plotter.setPenColor(
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
    require(m_scanner.readNumbers());
    m_plotter.endPage();
    return true;
}

/** Commands that draw nothing, and those that are left out with a note. */
bool HpglInterpreter::passOver(int wanted)
{
    if (wanted == code("CO")) {
        m_scanner.skipComment();
        return true;
    }
    if (wanted == code("BP")) {
        m_isSecondLanguage = true;
        m_scanner.skipQuoted();
        return true;
    }
    if (wanted == code("WD")) { // onto the plotter's own display
        bool isMended = false;
        m_scanner.readLabel(m_labelEnd, &isMended);
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "command %1").arg(commandName()));
        return true;
    }
    if (wanted == code("LT")) {
        if (m_scanner.readNumbers() && !numbers().empty())
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "line types, drawn solid (LT)"));
        return true;
    }
    if (isOneOf(wanted, "UC DV ") && m_scanner.readNumbers()) {
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
    m_isSecondLanguage = m_isSecondLanguage || isOneOf(wanted, "NP MC TR AC SD UL LA ");
    m_scanner.readNumbers();
    return true;
}

} // namespace vectorkit
