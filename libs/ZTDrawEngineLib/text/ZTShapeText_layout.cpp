#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <ZTDrawEngineLib/common/SystemText_p.h>
#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/Reach_p.h>
#include <ZTDrawEngineLib/shx/ZTPathGlyphCallback.h>

#include <QtCore/QPointF>
#include <QtCore/QStringList>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <cmath>
#include <limits>

// Lines of text, one below the other, and what all kinds of text have in common.

namespace {

/** Limit: beyond what a font's fixed-point advances can add up. */
constexpr double kMaxLetterSpacingPx = 1000000.0;

/**
 * Height of a path that only grows at its end: the height of its control-point rectangle, found
 * without looking at any element twice, so that many lines cost no more than their elements.
 */
class GrowingHeight
{
public:
    double of(const QPainterPath &path)
    {
        // A closing move does not stay: whatever is appended replaces it.
        const int count = path.elementCount();
        const bool endsInMove = count > 0 && path.elementAt(count - 1).isMoveTo();
        const int kept = endsInMove ? count - 1 : count;
        for (; m_known < kept; ++m_known)
            m_staying.include(path.elementAt(m_known).y);
        Extent now = m_staying;
        if (endsInMove)
            now.include(path.elementAt(kept).y);
        return count > 0 ? now.max - now.min : 0.0;
    }

private:
    struct Extent
    {
        void include(double value)
        {
            min = std::min(min, value);
            max = std::max(max, value);
        }
        double min = std::numeric_limits<double>::max();
        double max = std::numeric_limits<double>::lowest();
    };

    Extent m_staying; ///< of the elements that stay
    int m_known = 0;  ///< how many those are
};

/** A distance as whole pixels, cut off; 0 for what is no number. */
int truncated(double distancePx)
{
    using Int = std::numeric_limits<int>;
    if (!std::isfinite(distancePx))
        return 0;
    return static_cast<int>(
        qBound(static_cast<double>(Int::min()), distancePx, static_cast<double>(Int::max())));
}

/** Text as stroke fonts have it; what GBK does not know becomes the codec's replacement. */
QByteArray toGbk(const QString &text)
{
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    return codec != nullptr ? codec->fromUnicode(text) : QByteArray();
}

/** Moves a path to (0, 0). One that reaches too far becomes empty. */
void moveToOrigin(QPainterPath &path)
{
    const QRectF rectMm = path.controlPointRect();
    if (isWithinReach(rectMm))
        path.translate(-rectMm.left(), -rectMm.top());
    else
        path = QPainterPath();
}

} // namespace

void ZTShapeText::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    setLetterSpacing();
    QPainterPath path = layOut();
    moveToOrigin(path);
    getPath() = path;
    path2Lines(true);
    if (m_fontParam.fontType == FontType::doubleLine)
        fill();
    else
        setFillLines({});
}

// Kept: sets the font that the shape holds, whichever font is drawn; getFont() shows it.
void ZTShapeText::setLetterSpacing()
{
    const double spacingPx = ZTCoord::getInstance()->mm2pix(m_fontParam.wordSpac);
    const double usablePx = std::isfinite(spacingPx) ? spacingPx : 0.0;
    m_fontParam.font.setLetterSpacing(QFont::AbsoluteSpacing,
                                      qBound(-kMaxLetterSpacingPx, usablePx, kMaxLetterSpacingPx));
}

QPainterPath ZTShapeText::layOut()
{
    QString text = m_text;
    if (m_roundingParam.isEnableRounding) // text on an arc is one line
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::KeepEmptyParts, Qt::CaseSensitive);
    const double lineSpanPx = ZTCoord::getInstance()->mm2pix(m_fontParam.rowSpac);

    QPainterPath path;
    GrowingHeight height;
    int lineOffsetPx = 0;
    for (const QString &line : lines) {
        paintLine(path, line, lineOffsetPx);
        // Kept: below all that is drawn so far, not a line of the font's own height.
        lineOffsetPx = truncated(height.of(path) + lineSpanPx);
    }
    return path;
}

void ZTShapeText::paintLine(QPainterPath &path, const QString &line, int lineOffsetPx)
{
    const bool isRound = m_roundingParam.isEnableRounding;
    switch (m_fontParam.fontType) {
    case FontType::doubleLine:
        if (isRound)
            paintDlineRound(path, line);
        else
            ztoutline::addText(path, QPointF(0.0, lineOffsetPx), m_fontParam.font, line);
        break;
    case FontType::singleLine:
        if (isRound)
            paintSlineRound(path, line);
        else
            paintSline(path, line, lineOffsetPx);
        break;
    case FontType::None:
        break;
    }
}

void ZTShapeText::paintSline(QPainterPath &path, const QString &line, int lineOffsetPx)
{
    const QRectF rectMm = getRect();
    // The strokes come back upside down, so that going down means a smaller y here.
    const QPointF pos(rectMm.left(), -rectMm.top() - lineOffsetPx);
    const double wordSpanPx = ZTCoord::getInstance()->mm2pix(m_fontParam.wordSpac);
    const QVector<QPainterPath> glyphs = strokeGlyphs(line, pos, wordSpanPx);
    for (const QPainterPath &glyph : glyphs)
        path.addPath(glyph);
}

/** One path for each character of the encoded line. */
QVector<QPainterPath> ZTShapeText::strokeGlyphs(const QString &line, const QPointF &pos,
                                                double wordSpan)
{
    const ZTCurveTolerance::Enlarged enlarged(getTransformParam());
    ZTPathGlyphCallback callback;
    m_fontParam.shxFont.parser.drawText(&callback, toGbk(line).constData(), pos.x(), pos.y(),
                                        wordSpan);
    return callback.getPath();
}
