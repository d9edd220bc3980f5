#include <jobkit/writers/JobForms_p.h>

namespace jobkit {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kPowerDecimals = 3;
constexpr int kFeedDecimals = 3;

/** Writes one program: the laser's power is 0 or the laser off wherever the head jumps. */
class Program
{
public:
    Program(const JobFile &file, JobText *target)
        : job(file), text(*target),
          perUnit(file.profile.unit == LengthUnit::Inch ? kMmPerInch : 1.0)
    {
    }

    void write()
    {
        text << "; " << plainText(job.title) << "\n; machine: " << plainText(job.profile.name)
             << "\n";
        off();
        lines(job.profile.head);
        // After the head, which may have changed all of it.
        text << (perUnit == 1.0 ? "G21\n" : "G20\n") << "G90\n";
        off();
        for (int part = 0; part < job.parts.size(); ++part) {
            if (part > 0)
                text << "; part " << part + 1 << " of " << job.parts.size() << "\nM0\n";
            writePart(job.parts[part]);
            off();
        }
        lines(job.profile.tail);
        off();
        text << "M2\n";
    }

private:
    void writePart(const JobPlan &plan)
    {
        const PlanPiece *before = nullptr;
        Pen pen;
        for (const PlanPiece &piece : plan.pieces) {
            if (before == nullptr || before->pen != piece.pen || before->pass != piece.pass) {
                pen = penOf(job.pens, piece.pen);
                tell(pen, piece.pass);
                switchTo(pen.powerMode);
            }
            writePiece(piece, pen);
            before = &piece;
        }
    }

    void tell(const Pen &pen, int pass)
    {
        text << "; pen " << pen.number;
        if (!pen.name.isEmpty())
            text << " " << plainText(pen.name);
        text << ", ";
        text.number(pen.speedMmPerS, 3) << " mm/s, ";
        text.number(pen.powerPercent, 3) << " %, pass " << pass << "\n";
    }

    void writePiece(const PlanPiece &piece, const Pen &pen)
    {
        text << "G0";
        place(piece.pointsMm.first());
        text << (job.profile.isLaserMode ? " S0\n" : "\n");
        const double power = job.profile.mostPower * pen.powerPercent / 100.0;
        if (!job.profile.isLaserMode)
            on(pen.powerMode, power);
        const int last = piece.pointsMm.size() - 1;
        for (int i = last == 0 ? 0 : 1; i <= last; ++i) {
            text << "G1";
            place(piece.pointsMm[i]);
            if (i < 2) {
                text << " F";
                text.number(pen.speedMmPerS * 60.0 / perUnit, kFeedDecimals) << " S";
                text.number(power, kPowerDecimals);
            }
            text << "\n";
        }
        if (!job.profile.isLaserMode)
            off();
    }

    void place(const QPointF &pointMm)
    {
        const QPointF at = job.profile.toMachine(pointMm) / perUnit;
        text << " X";
        text.number(at.x(), job.profile.decimals) << " Y";
        text.number(at.y(), job.profile.decimals);
    }

    /** In laser mode the laser is on at power 0 and takes its power from each move. */
    void switchTo(PowerMode mode)
    {
        if (!job.profile.isLaserMode || (isOn && current == mode))
            return;
        off();
        on(mode, 0.0);
    }

    void on(PowerMode mode, double power)
    {
        text << (mode == PowerMode::Dynamic ? "M4 S" : "M3 S");
        text.number(power, kPowerDecimals) << "\n";
        isOn = true;
        current = mode;
    }

    void off()
    {
        text << "M5 S0\n";
        isOn = false;
    }

    void lines(const QString &block)
    {
        const QStringList all = block.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString &line : all)
            text << plainText(line.trimmed()) << "\n";
    }

    const JobFile &job;
    JobText &text;
    double perUnit;
    bool isOn = false;
    PowerMode current = PowerMode::Constant;
};

} // namespace

void writeGcode(const JobFile &job, JobText *text) { Program(job, text).write(); }

} // namespace jobkit
