#include <jobkit/writers/JobForms_p.h>

namespace jobkit {

namespace {

constexpr double kUnitsPerMm = 40.0;
constexpr int kPointsOnALine = 50; // plotters hold a command of a few hundred characters

void place(const MachineProfile &profile, const QPointF &pointMm, JobText *text)
{
    const QPointF at = profile.toMachine(pointMm) * kUnitsPerMm;
    text->number(at.x(), 0) << ",";
    text->number(at.y(), 0);
}

} // namespace

void writeHpgl(const JobFile &job, JobText *text)
{
    *text << "IN;\nPU;\n";
    int pen = 0;
    for (const PlanPiece &piece : job.parts.first().pieces) {
        if (piece.pen != pen)
            *text << "SP" << piece.pen << ";\n";
        pen = piece.pen;
        *text << "PU";
        place(job.profile, piece.pointsMm.first(), text);
        *text << ";\nPD";
        const int last = piece.pointsMm.size() - 1;
        int onLine = 0;
        for (int i = last == 0 ? 0 : 1; i <= last; ++i) {
            if (onLine == kPointsOnALine) {
                *text << ";\nPD";
                onLine = 0;
            }
            *text << (onLine++ > 0 ? "," : "");
            place(job.profile, piece.pointsMm[i], text);
        }
        *text << ";\nPU;\n";
    }
    *text << "PU;\nSP0;\n";
}

} // namespace jobkit
