#include <jobkit/writers/JobForms_p.h>

namespace jobkit {

namespace {

constexpr int kDecimals = 6;
constexpr double kStrokeMm = 0.05;

void place(JobText *text, const char *command, const QPointF &pointMm)
{
    *text << command;
    text->number(pointMm.x(), kDecimals) << " ";
    text->number(pointMm.y(), kDecimals);
}

void writePath(const PlanPiece &piece, JobText *text)
{
    *text << "<path d=\"";
    place(text, "M", piece.pointsMm.first());
    const int last = piece.pointsMm.size() - (piece.isClosed() ? 1 : 0);
    for (int i = 1; i < last; ++i)
        place(text, "L", piece.pointsMm[i]);
    if (piece.isClosed())
        *text << "Z";
    else if (last == 1)
        *text << "h0"; // seen as a dot, by the round ends
    *text << "\"/>\n";
}

/** An edge on each side that keeps the strokes whole. */
QRectF pageOf(const JobPlan &plan)
{
    return plan.boundsMm().adjusted(-kStrokeMm, -kStrokeMm, kStrokeMm, kStrokeMm);
}

} // namespace

void writeSvg(const JobFile &job, JobText *text)
{
    const JobPlan &plan = job.parts.first();
    const QRectF page = pageOf(plan);
    *text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
    text->number(page.width(), kDecimals) << "mm\" height=\"";
    text->number(page.height(), kDecimals) << "mm\" viewBox=\"";
    text->number(page.left(), kDecimals) << " ";
    text->number(page.top(), kDecimals) << " ";
    text->number(page.width(), kDecimals) << " ";
    text->number(page.height(), kDecimals)
        << "\">\n<title>" << job.title.toHtmlEscaped().toUtf8() << "</title>\n";
    const QVector<int> numbers = pensOf(plan);
    for (const int number : numbers) {
        const Pen pen = penOf(job.pens, number);
        *text << "<g id=\"pen-" << number << "\" fill=\"none\" stroke=\""
              << pen.color.name().toLatin1() << "\" stroke-width=\"";
        text->number(kStrokeMm, kDecimals)
            << "\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
        for (const PlanPiece &piece : plan.pieces) {
            if (piece.pen == number)
                writePath(piece, text);
        }
        *text << "</g>\n";
    }
    *text << "</svg>\n";
}

} // namespace jobkit
