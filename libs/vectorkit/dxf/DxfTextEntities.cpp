#include <vectorkit/dxf/DxfEntities_p.h>
#include <vectorkit/dxf/DxfText_p.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace vectorkit::dxf {

namespace {

/** Below the base line, in heights of capitals, reach the tails of letters. */
constexpr double kTail = 1.0 / 3.0;

/** A line of text in the plane it is written on. */
struct Line
{
    QString text;
    Vec3 anchor;
    Vec3 along{1.0, 0.0, 0.0}; ///< the way it runs, of length 1
    Vec3 up{0.0, 1.0, 0.0};
    double height = 0.0;
    double widthFactor = 1.0;
    double slant = 0.0; ///< radians
    TextAnchor side = TextAnchor::Left;
    QString font;
};

double product(const QPointF &a, const QPointF &b) { return a.x() * b.y() - a.y() * b.x(); }

Outcome addLine(const Line &line, const Frame &frame, EntityReader *out)
{
    if (line.text.trimmed().isEmpty())
        return Outcome::Done;
    const QPointF position = frame.flat(line.anchor);
    // With y up, so that turns count counter-clockwise.
    const auto upright = [&](const Vec3 &direction) {
        const QPointF flat = frame.flatDirection(direction);
        return QPointF(flat.x(), -flat.y());
    };
    const QPointF along = upright(line.along);
    const QPointF up = upright(line.up + line.along * std::tan(line.slant));
    const double length = std::hypot(along.x(), along.y());
    const double height = length > 0.0 ? product(along, up) / length : 0.0;
    if (!(std::abs(position.x()) <= 1e9 && std::abs(position.y()) <= 1e9))
        return Outcome::Damaged;
    if (!(std::abs(height) * line.height <= 1e9))
        return Outcome::Damaged;
    constexpr double kFromTheSide = 1e-9;
    if (!(std::abs(height) > kFromTheSide && length > kFromTheSide)) {
        out->note(VectorNote::Kind::Left,
                  QT_TRANSLATE_NOOP("vectorkit", "texts seen from the side"));
        return Outcome::Done;
    }
    if (!(std::abs(height) * line.height > 1e-9))
        return Outcome::Damaged;
    VectorText text;
    text.text = line.text;
    text.positionMm = position;
    text.heightMm = std::abs(height) * line.height;
    text.isMirrored = height < 0.0;
    const QPointF run = text.isMirrored ? -along : along;
    text.angleDeg = qRadiansToDegrees(std::atan2(run.y() + 0.0, run.x())); // 0 has no sign
    text.widthFactor = line.widthFactor * length / std::abs(height);
    const double lean = QPointF::dotProduct(along, up) / length;
    text.slantDeg = qRadiansToDegrees(std::atan2(lean, std::abs(height)));
    text.anchor = line.side;
    text.fontFamily = line.font;
    out->addText(text);
    return Outcome::Done;
}

TextAnchor sideOf(int column)
{
    return column == 1 ? TextAnchor::Middle : column == 2 ? TextAnchor::Right : TextAnchor::Left;
}

StyleEntry styleOf(const Record &record, const EntityReader &out)
{
    return out.file().styles.value(out.file().decoder.key(record.text(7)));
}

double heightOf(const Record &record, const EntityReader &out, bool *isSound)
{
    const double own = record.number(40, 0.0, isSound);
    const double ofStyle = styleOf(record, out).height;
    if (own > 0.0)
        return own;
    return ofStyle > 0.0 ? ofStyle : out.file().header.textSize;
}

/** The codes that place a text sideways and upwards. */
enum Sideways { AtLeft = 0, Centred = 1, AtRight = 2, Aligned = 3, InTheMiddle = 4, Fitted = 5 };
enum Upwards { OnBase = 0, OnBottom = 1, OnMiddle = 2, OnTop = 3 };

void place(const Record &record, int sideways, int upwards, bool *isSound, Line *line)
{
    const Vec3 first = pointOf(record, 10, isSound);
    const bool isPlaced = (sideways != AtLeft || upwards != OnBase) && record.has(11);
    line->anchor = isPlaced ? pointOf(record, 11, isSound) : first;
    if (isPlaced && (sideways == Aligned || sideways == Fitted)) {
        const Vec3 run = line->anchor - first;
        line->anchor = (line->anchor + first) * 0.5;
        line->side = TextAnchor::Middle;
        if (length(run) > 0.0) {
            line->along = run * (1.0 / length(run));
            line->up = cross({0.0, 0.0, 1.0}, line->along);
        }
        return;
    }
    line->side = sideOf(sideways == InTheMiddle ? Centred : sideways);
    const double rise = upwards == OnTop                                 ? -1.0
                        : upwards == OnMiddle || sideways == InTheMiddle ? -0.5
                        : upwards == OnBottom                            ? kTail
                                                                         : 0.0;
    line->anchor = line->anchor + line->up * (rise * line->height);
}

/** A text stands in one font, plain. */
void noteFonts(const Paragraph &paragraph, EntityReader *out)
{
    if (paragraph.hasMixedLines)
        out->note(
            VectorNote::Kind::Changed,
            QT_TRANSLATE_NOOP("vectorkit", "lines of text in several fonts: taken in their first"));
    if (paragraph.hasStyledFonts)
        out->note(VectorNote::Kind::Changed,
                  QT_TRANSLATE_NOOP("vectorkit", "bold or italic letters: taken as plain ones"));
}

} // namespace

Outcome drawText(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kBackward = 2;
    constexpr int kUpsideDown = 4;
    bool isSound = true;
    const Frame plane = frameOf(record, sheet, &isSound);
    Line line;
    line.text = plainLine(out->file().decoder.decode(record.text(1)));
    line.font = styleOf(record, *out).font;
    line.height = heightOf(record, *out, &isSound);
    line.widthFactor = std::abs(record.number(41, 1.0, &isSound));
    if (line.widthFactor == 0.0)
        line.widthFactor = 1.0;
    line.slant = qDegreesToRadians(std::clamp(record.number(51, 0.0, &isSound), -85.0, 85.0));
    const double angle = qDegreesToRadians(record.number(50, 0.0, &isSound));
    line.along = {std::cos(angle), std::sin(angle), 0.0};
    line.up = {-std::sin(angle), std::cos(angle), 0.0};
    const int upwards = record.integer(record.type == "TEXT" ? 73 : 74, 0);
    const int sideways = record.integer(72, 0);
    place(record, sideways, upwards, &isSound, &line);
    if (!isSound)
        return Outcome::Damaged;
    if (sideways == Aligned || sideways == Fitted)
        out->note(
            VectorNote::Kind::Changed,
            QT_TRANSLATE_NOOP("vectorkit", "texts stretched between two points: centred there"));
    const int turned = record.integer(71, 0);
    if ((turned & kBackward) != 0)
        line.along = line.along * -1.0;
    if ((turned & kUpsideDown) != 0)
        line.up = line.up * -1.0;
    return addLine(line, plane, out);
}

Outcome drawDefinition(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kInvisible = 1;
    constexpr int kConstant = 2;
    const int flags = record.integer(70, 0);
    if ((flags & kConstant) == 0 || (flags & kInvisible) != 0)
        return Outcome::Done; // what inserts fill in
    return drawText(record, sheet, out);
}

Outcome drawParagraph(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = true;
    std::string coded;
    for (const Tag &tag : record.tags) {
        if (tag.code == 3)
            coded.append(tag.value);
    }
    coded.append(record.text(1));
    Line line;
    const QString styleFont = styleOf(record, *out).font;
    line.height = heightOf(record, *out, &isSound);
    const Vec3 normal = pointOr(record, 210, {0.0, 0.0, 1.0}, &isSound);
    const Frame plane = objectFrame(normal);
    const double angle = qDegreesToRadians(record.number(50, 0.0, &isSound));
    Vec3 along = plane.direction({std::cos(angle), std::sin(angle), 0.0});
    if (record.has(11))
        along = pointOr(record, 11, along, &isSound);
    const Vec3 at = pointOf(record, 10, &isSound);
    const double spacing = line.height * 5.0 / 3.0 * record.number(44, 1.0, &isSound);
    if (!isSound || !(length(along) > 0.0))
        return Outcome::Damaged;
    line.along = along * (1.0 / length(along));
    line.up = cross(plane.z, line.along);
    const int place = std::clamp(record.integer(71, 1), 1, 9) - 1; // by rows of three from the top
    line.side = sideOf(place % 3);
    const Paragraph paragraph = paragraphOf(out->file().decoder.decode(coded));
    noteFonts(paragraph, out);
    const QVector<ParagraphLine> &lines = paragraph.lines;
    const double depth = line.height + spacing * (lines.size() - 1);
    const double top = place / 3 == 0 ? 0.0 : place / 3 == 1 ? depth / 2.0 : depth;
    for (int i = 0; i < lines.size(); ++i) {
        line.text = lines[i].text;
        line.font = lines[i].font.isEmpty() ? styleFont : lines[i].font;
        line.anchor = at + line.up * (top - line.height - spacing * i);
        if (addLine(line, sheet, out) == Outcome::Damaged)
            return Outcome::Damaged;
    }
    return Outcome::Done;
}

} // namespace vectorkit::dxf
