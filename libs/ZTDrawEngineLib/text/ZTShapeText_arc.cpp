#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <ZTDrawEngineLib/common/SystemText_p.h>
#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>

#include <QtCore/QHash>

#include <algorithm>
#include <cmath>

// One line of text on an arc. Every character gets the same share of the span.

namespace {

/** Angles of the characters, each in the middle of its share. */
class ArcSteps
{
public:
    ArcSteps(const ZTRoundingParam &param, int characterCount)
        : m_angleDeg(param.startAngle), m_stepDeg(param.spanAngle / (2.0 * characterCount))
    {
    }

    double next()
    {
        m_angleDeg += m_stepDeg;
        const double middleDeg = m_angleDeg;
        m_angleDeg += m_stepDeg;
        return middleDeg;
    }

private:
    double m_angleDeg;
    double m_stepDeg;
};

bool isFinite(const ZTRoundingParam &param)
{
    return std::isfinite(param.startAngle) && std::isfinite(param.spanAngle) &&
           std::isfinite(param.diameter);
}

bool isFinite(const QPolygonF &polygon)
{
    return std::all_of(polygon.cbegin(), polygon.cend(), [](const QPointF &point) {
        return std::isfinite(point.x()) && std::isfinite(point.y());
    });
}

/**
 * Turns about the pivot to the angle on the circle, and a quarter more: the top faces outward.
 *
 * Kept: the diameter is applied as it stands, so that it is the distance from the centre.
 */
void turnOntoCircle(QTransform &transform, double angleDeg, double diameter)
{
    transform.rotate(angleDeg, Qt::ZAxis);
    transform.translate(diameter, 0);
    transform.rotate(90.0, Qt::ZAxis);
}

/** Puts the glyph's own centre on the circle. */
QTransform centreOnCircle(const QPainterPath &glyph, double angleDeg, double diameter)
{
    const QPointF centre = glyph.controlPointRect().center();
    QTransform transform;
    transform.translate(centre.x(), centre.y());
    turnOntoCircle(transform, angleDeg, diameter);
    transform.translate(-centre.x(), -centre.y());
    return transform;
}

/**
 * Puts the glyph's own top-left corner on the circle.
 *
 * Kept: unlike `centreOnCircle`, so that a stroke glyph begins in the middle of its share.
 */
QTransform cornerOnCircle(const QPainterPath &glyph, double angleDeg, double diameter)
{
    const QPointF corner = glyph.controlPointRect().topLeft();
    QTransform transform;
    transform.translate(-corner.x(), 0);
    transform.translate(corner.x(), corner.y());
    turnOntoCircle(transform, angleDeg, diameter);
    transform.translate(-corner.x(), -corner.y());
    return transform;
}

/** Units of the path that make a millimetre once the shape has enlarged it. */
double unitsPerMm(const QTransform &later) { return 1.0 / ZTCurveTolerance::largestScale(later); }

/** Adds the glyph as polygons: here its curves are flattened. */
void addGlyph(QPainterPath &path, const QPainterPath &glyph, const QTransform &transform,
              double outputPerMm)
{
    const QList<QPolygonF> polygons = ZTCurveTolerance::polygons(glyph, transform, outputPerMm);
    for (const QPolygonF &polygon : polygons) {
        if (isFinite(polygon))
            path.addPolygon(polygon);
    }
}

/** Outlines of single characters, each made once. */
class CharacterOutlines
{
public:
    explicit CharacterOutlines(const QFont &usedFont) : m_font(usedFont) {}

    const QPainterPath &of(QChar character)
    {
        const auto found = m_outlines.constFind(character);
        if (found != m_outlines.constEnd())
            return *found;
        QPainterPath outline;
        ztoutline::addText(outline, {0.0, 0.0}, m_font, QString(character));
        return *m_outlines.insert(character, outline);
    }

private:
    QFont m_font;
    QHash<QChar, QPainterPath> m_outlines;
};

} // namespace

// Kept: surrogate pairs are taken apart, each half a character of its own.
void ZTShapeText::paintDlineRound(QPainterPath &path, QString line)
{
    if (line.isEmpty() || !isFinite(m_roundingParam))
        return;
    CharacterOutlines outlines(m_fontParam.font);
    ArcSteps steps(m_roundingParam, line.size());
    for (const QChar character : qAsConst(line)) {
        const QPainterPath &glyph = outlines.of(character);
        addGlyph(path, glyph, centreOnCircle(glyph, steps.next(), m_roundingParam.diameter),
                 unitsPerMm(getTransformParam()));
    }
}

// Kept: the word span is not converted to pixels here, and the rectangle's top keeps its sign,
// unlike on straight lines. Both shift a glyph only before it is put on the circle.
void ZTShapeText::paintSlineRound(QPainterPath &path, QString line)
{
    if (line.isEmpty() || !isFinite(m_roundingParam))
        return;
    const QPointF pos(0.0, getRect().top());
    const QVector<QPainterPath> glyphs = strokeGlyphs(line, pos, m_fontParam.wordSpac);
    ArcSteps steps(m_roundingParam, line.size());
    for (const QPainterPath &glyph : glyphs)
        addGlyph(path, glyph, cornerOnCircle(glyph, steps.next(), m_roundingParam.diameter),
                 unitsPerMm(getTransformParam()));
}
