// The plan with its times, for programs: JSON and CSV.

#include <jobkit/writers/JobForms_p.h>

#include <jobkit/values/PenFields_p.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace jobkit {

namespace {

/** A text as JSON, with its quotes. */
QByteArray quoted(const QString &text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

void writeSums(const char *name, const TimeSums &sums, JobText *text)
{
    *text << "\"" << name << "\":{\"markS\":";
    text->exact(sums.markS) << ",\"jumpS\":";
    text->exact(sums.jumpS) << ",\"delayS\":";
    text->exact(sums.delayS) << ",\"totalS\":";
    text->exact(sums.totalS()) << "}";
}

/** A y as the file counts it. */
double counted(double downMm, bool isYUp) { return isYUp ? 0.0 - downMm : downMm; }

void writePieceJson(const PlanPiece &piece, const double *vertexS, bool isYUp, JobText *text)
{
    *text << "{\"object\":" << piece.object << ",\"pen\":" << piece.pen
          << ",\"hatch\":" << piece.hatch << ",\"pass\":" << piece.pass
          << ",\"isReversed\":" << (piece.isReversed ? "true" : "false") << ",\"points\":[";
    for (int i = 0; i < piece.pointsMm.size(); ++i) {
        *text << (i > 0 ? ",[" : "[");
        text->exact(piece.pointsMm[i].x()) << ",";
        text->exact(counted(piece.pointsMm[i].y(), isYUp)) << ",";
        text->exact(vertexS[i]) << "]";
    }
    *text << "]}";
}

} // namespace

void writeJson(const JobFile &job, JobText *text)
{
    const JobPlan &plan = job.parts.first();
    const JobTimes times = jobTimes(plan, job.pens, job.profile, job.headMm);
    *text << "{\"format\":\"job-plan\",\"version\":1,\"unit\":\"mm\",\"title\":"
          << quoted(job.title) << ",\"profile\":" << quoted(job.profile.name) << ",\n"
          << (job.isYUp ? "\"yAxis\":\"up\",\n" : "");
    writeSums("time", times.all, text);
    *text << ",\n\"pens\":[";
    const QVector<int> numbers = pensOf(plan);
    for (int i = 0; i < numbers.size(); ++i) {
        const QJsonObject pen = penToJson(penOf(job.pens, numbers[i], job.profile));
        *text << (i > 0 ? ",\n" : "\n") << QJsonDocument(pen).toJson(QJsonDocument::Compact);
    }
    *text << "],\n\"pieces\":[";
    for (int i = 0; i < plan.pieces.size(); ++i) {
        *text << (i > 0 ? ",\n" : "\n");
        writePieceJson(plan.pieces[i], &times.vertexS[static_cast<size_t>(times.firstVertex[i])],
                       job.isYUp, text);
    }
    *text << "]}\n";
}

void writeCsv(const JobFile &job, JobText *text)
{
    const JobPlan &plan = job.parts.first();
    const JobTimes times = jobTimes(plan, job.pens, job.profile, job.headMm);
    *text << "piece,object,pen,hatch,pass,point,x_mm,y_mm,time_s"
          << (job.isYUp ? ",y_axis\n" : "\n");
    size_t vertex = 0;
    for (int i = 0; i < plan.pieces.size(); ++i) {
        const PlanPiece &piece = plan.pieces[i];
        for (int k = 0; k < piece.pointsMm.size(); ++k) {
            *text << i << "," << piece.object << "," << piece.pen << "," << piece.hatch << ","
                  << piece.pass << "," << k << ",";
            text->exact(piece.pointsMm[k].x()) << ",";
            text->exact(counted(piece.pointsMm[k].y(), job.isYUp)) << ",";
            text->exact(times.vertexS[vertex++]) << (job.isYUp ? ",up\n" : "\n");
        }
    }
}

} // namespace jobkit
