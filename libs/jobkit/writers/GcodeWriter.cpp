#include <jobkit/writers/JobForms_p.h>

namespace jobkit {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kPowerDecimals = 3;
constexpr int kFeedDecimals = 3;
constexpr double kMsPerS = 1000.0;
constexpr int kDwellDecimals = 6;

/** Writes one program: the laser's power is 0 or the laser off wherever the head jumps. */
class Program
{
public:
    Program(const JobFile &file, JobText *target)
        : m_job(file), m_text(*target),
          m_perUnit(file.profile.unit == LengthUnit::Inch ? kMmPerInch : 1.0)
    {
    }

    void write()
    {
        m_text << "; " << plainText(m_job.title) << "\n; machine: " << plainText(m_job.profile.name)
               << "\n";
        off();
        lines(m_job.profile.head);
        // After the head, which may have changed all of it.
        m_text << (m_perUnit == 1.0 ? "G21\n" : "G20\n") << "G90\n";
        off();
        for (int part = 0; part < m_job.parts.size(); ++part) {
            if (part > 0)
                m_text << "; part " << part + 1 << " of " << m_job.parts.size() << "\nM0\n";
            writePart(m_job.parts[part]);
            off();
        }
        lines(m_job.profile.tail);
        off();
        m_text << "M2\n";
    }

private:
    void writePart(const JobPlan &plan)
    {
        const PlanPiece *before = nullptr;
        Pen pen;
        for (const PlanPiece &piece : plan.pieces) {
            if (before == nullptr || before->pen != piece.pen || before->pass != piece.pass) {
                pen = penOf(m_job.pens, piece.pen, m_job.profile);
                tell(pen, piece.pass);
            }
            writePiece(piece, pen);
            before = &piece;
        }
    }

    void tell(const Pen &pen, int pass)
    {
        m_text << "; pen " << pen.number;
        if (!pen.name.isEmpty())
            m_text << " " << plainText(pen.name);
        m_text << ", ";
        m_text.number(pen.speedMmPerS, 3) << " mm/s, ";
        m_text.number(pen.powerPercent, 3) << " %, pass " << pass << "\n";
    }

    /** With constant power: dynamic power is none where the head stands. */
    void writeDot(const QPointF &atMm, const Pen &pen, double power)
    {
        off();
        m_text << "G0";
        place(atMm);
        m_text << "\nM3 S0\nG1";
        place(atMm);
        m_text << " F";
        m_text.number(pen.speedMmPerS * 60.0 / m_perUnit, kFeedDecimals) << " S";
        m_text.number(power, kPowerDecimals) << "\nG4 P";
        m_text.number(pen.dotMs / kMsPerS, kDwellDecimals) << "\n";
        off();
    }

    void writePiece(const PlanPiece &piece, const Pen &pen)
    {
        if (piece.isDot()) {
            writeDot(piece.pointsMm.first(), pen, powerOf(pen));
            return;
        }
        if (m_job.profile.isLaserMode)
            switchTo(pen.powerMode);
        m_text << "G0";
        place(piece.pointsMm.first());
        m_text << (m_job.profile.isLaserMode ? " S0\n" : "\n");
        const double power = powerOf(pen);
        if (!m_job.profile.isLaserMode)
            on(pen.powerMode, power);
        const int last = piece.pointsMm.size() - 1;
        for (int i = 1; i <= last; ++i) {
            m_text << "G1";
            place(piece.pointsMm[i]);
            if (i < 2) {
                m_text << " F";
                m_text.number(pen.speedMmPerS * 60.0 / m_perUnit, kFeedDecimals) << " S";
                m_text.number(power, kPowerDecimals);
            }
            m_text << "\n";
        }
        if (!m_job.profile.isLaserMode)
            off();
    }

    double powerOf(const Pen &pen) const
    {
        return m_job.profile.mostPower * pen.powerPercent / 100.0;
    }

    void place(const QPointF &pointMm)
    {
        const QPointF at = m_job.profile.toMachine(pointMm) / m_perUnit;
        m_text << " X";
        m_text.number(at.x(), m_job.profile.decimals) << " Y";
        m_text.number(at.y(), m_job.profile.decimals);
    }

    /** In laser mode the laser is on at power 0 and takes its power from each move. */
    void switchTo(PowerMode mode)
    {
        if (m_isOn && m_current == mode)
            return;
        off();
        on(mode, 0.0);
    }

    void on(PowerMode mode, double power)
    {
        m_text << (mode == PowerMode::Dynamic ? "M4 S" : "M3 S");
        m_text.number(power, kPowerDecimals) << "\n";
        m_isOn = true;
        m_current = mode;
    }

    void off()
    {
        m_text << "M5 S0\n";
        m_isOn = false;
    }

    void lines(const QString &block)
    {
        const QStringList all = block.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString &line : all)
            m_text << plainText(line.trimmed()) << "\n";
    }

    const JobFile &m_job;
    JobText &m_text;
    double m_perUnit;
    bool m_isOn = false;
    PowerMode m_current = PowerMode::Constant;
};

} // namespace

void writeGcode(const JobFile &job, JobText *text) { Program(job, text).write(); }

} // namespace jobkit
