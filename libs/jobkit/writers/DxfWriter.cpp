#include <jobkit/writers/JobForms_p.h>

#include <algorithm>

namespace jobkit {

namespace {

constexpr int kDecimals = 6;

struct IndexedColor
{
    int index;
    QRgb rgb;
};

// The first of the 255 colours that the format knows; 7 is black on white and white on black.
constexpr IndexedColor kColors[] = {
    {1, 0xffff0000}, {2, 0xffffff00}, {3, 0xff00ff00}, {4, 0xff00ffff}, {5, 0xff0000ff},
    {6, 0xffff00ff}, {7, 0xff000000}, {7, 0xffffffff}, {8, 0xff808080}, {9, 0xffc0c0c0},
};

int nearestIndex(const QColor &color)
{
    const auto off = [&](const IndexedColor &known) {
        const int red = qRed(known.rgb) - color.red();
        const int green = qGreen(known.rgb) - color.green();
        const int blue = qBlue(known.rgb) - color.blue();
        return red * red + green * green + blue * blue;
    };
    return std::min_element(std::begin(kColors), std::end(kColors),
                            [&](const auto &a, const auto &b) { return off(a) < off(b); })
        ->index;
}

void group(JobText *text, int code, const QByteArray &value)
{
    *text << code << "\n" << value << "\n";
}

void group(JobText *text, int code, double value)
{
    *text << code << "\n";
    text->number(value, kDecimals) << "\n";
}

/** The format's y grows upward. */
void place(JobText *text, const QPointF &pointMm)
{
    group(text, 10, pointMm.x());
    group(text, 20, -pointMm.y());
    group(text, 30, 0.0);
}

QByteArray layerOf(int pen) { return "PEN_" + QByteArray::number(pen); }

void writeLayers(const JobFile &job, JobText *text)
{
    const QVector<int> numbers = pensOf(job.parts.first());
    group(text, 0, "SECTION");
    group(text, 2, "TABLES");
    group(text, 0, "TABLE");
    group(text, 2, "LAYER");
    group(text, 70, QByteArray::number(numbers.size()));
    for (const int number : numbers) {
        group(text, 0, "LAYER");
        group(text, 2, layerOf(number));
        group(text, 70, "0");
        group(text, 62, QByteArray::number(nearestIndex(penOf(job.pens, number).color)));
        group(text, 6, "CONTINUOUS");
    }
    group(text, 0, "ENDTAB");
    group(text, 0, "ENDSEC");
}

void writePiece(const PlanPiece &piece, JobText *text)
{
    const QByteArray layer = layerOf(piece.pen);
    if (piece.isDot()) {
        group(text, 0, "POINT");
        group(text, 8, layer);
        place(text, piece.pointsMm.first());
        return;
    }
    group(text, 0, "POLYLINE");
    group(text, 8, layer);
    group(text, 66, "1");
    place(text, {});
    group(text, 70, piece.isClosed() ? "1" : "0");
    const int count = piece.pointsMm.size() - (piece.isClosed() ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        group(text, 0, "VERTEX");
        group(text, 8, layer);
        place(text, piece.pointsMm[i]);
    }
    group(text, 0, "SEQEND");
    group(text, 8, layer);
}

} // namespace

void writeDxf(const JobFile &job, JobText *text)
{
    group(text, 0, "SECTION");
    group(text, 2, "HEADER");
    group(text, 9, "$ACADVER");
    group(text, 1, "AC1009");
    group(text, 0, "ENDSEC");
    writeLayers(job, text);
    group(text, 0, "SECTION");
    group(text, 2, "ENTITIES");
    for (const PlanPiece &piece : job.parts.first().pieces)
        writePiece(piece, text);
    group(text, 0, "ENDSEC");
    group(text, 0, "EOF");
}

} // namespace jobkit
