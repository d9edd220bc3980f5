#include <vectorkit/svg/SvgScan_p.h>
#include <vectorkit/svg/SvgWalker_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QtMath>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

constexpr int kProbePixels = 1000;

/** Without fonts: what most of them measure. */
constexpr double kUsualCapital = 0.7;
constexpr double kUsualAdvance = 0.55;

bool hasFonts() { return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr; }

QFont probeFont(const SvgStyle &style)
{
    QFont font;
    if (!style.fontFamily.isEmpty())
        font.setFamily(style.fontFamily);
    font.setPixelSize(kProbePixels);
    return font;
}

/** Height of capitals in user units. */
double capitalHeight(const SvgStyle &style)
{
    const double part =
        hasFonts() ? QFontMetricsF(probeFont(style)).capHeight() / kProbePixels : kUsualCapital;
    return style.fontSize * (part > 0.0 ? part : kUsualCapital);
}

/** Length of a text in user units. */
double advanceOf(const QString &text, const SvgStyle &style)
{
    if (!hasFonts())
        return text.size() * kUsualAdvance * style.fontSize;
    return QFontMetricsF(probeFont(style)).horizontalAdvance(text) * style.fontSize / kProbePixels;
}

/** Blanks as the format wants them: runs of them one, unless they are to be kept. */
QString withBlanks(const QString &text, const SvgStyle &style, bool isAfterBlank)
{
    QString result;
    for (const QChar c : text) {
        const bool isBlank = c == QLatin1Char(' ') || c == QLatin1Char('\t') ||
                             c == QLatin1Char('\n') || c == QLatin1Char('\r');
        if (!isBlank) {
            result += c;
            isAfterBlank = false;
        } else if (style.keepsSpaces || !isAfterBlank) {
            result += QLatin1Char(' ');
            isAfterBlank = true;
        }
    }
    return result;
}

} // namespace

void SvgWalker::addText(int node, const SvgPlace &place)
{
    if (!place.style.isVisible) {
        note(VectorNote::Kind::Left, QCoreApplication::translate("vectorkit", "hidden elements"),
             node);
        return;
    }
    QVector<SvgTextRun> runs;
    QPointF pen;
    collectRuns(node, place, &runs, &pen);
    placeRuns(node, place, runs);
}

/** Gathers the characters of an element and of those in it, with the place of each run. */
void SvgWalker::collectRuns(int node, const SvgPlace &place, QVector<SvgTextRun> *runs,
                            QPointF *pen)
{
    const auto list = [&](SvgName name) {
        QVector<double> values;
        for (const QString &part : m_tree.attribute(node, name)
                                       .replace(QLatin1Char(','), QLatin1Char(' '))
                                       .simplified()
                                       .split(QLatin1Char(' '))) {
            SvgLength length;
            if (parseSvgLength(part, &length))
                values.append(length.toUser(m_pixelsPerInch,
                                            name == SvgName::X ? place.viewport.width()
                                                               : place.viewport.height(),
                                            place.style.fontSize));
        }
        return values;
    };
    const QVector<double> xs = list(SvgName::X);
    const QVector<double> ys = list(SvgName::Y);
    if (!xs.isEmpty())
        pen->setX(xs.first());
    if (!ys.isEmpty())
        pen->setY(ys.first());
    *pen += QPointF(list(SvgName::Dx).value(0, 0.0), list(SvgName::Dy).value(0, 0.0));
    if (!list(SvgName::Rotate).isEmpty())
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "turned letters in a text, kept upright"),
             node);
    const bool isText = m_tree.nodes[node].element == SvgElement::Text;
    bool startsChunk = isText || !xs.isEmpty() || !ys.isEmpty();
    double widthWanted = xs.size() > 1 ? -1.0 : 0.0;
    const QVector<double> lengthWanted = list(SvgName::TextLength);
    if (!lengthWanted.isEmpty())
        widthWanted = lengthWanted.first();
    for (int child = m_tree.nodes[node].firstChild; child >= 0;
         child = m_tree.nodes[child].nextSibling) {
        switch (m_tree.nodes[child].element) {
        case SvgElement::Characters: {
            const bool isAfterBlank =
                startsChunk || runs->isEmpty() || runs->last().text.endsWith(QLatin1Char(' '));
            SvgTextRun run;
            run.text = withBlanks(m_tree.nodes[child].text, place.style, isAfterBlank);
            if (run.text.isEmpty())
                break;
            run.at = *pen;
            run.style = place.style;
            run.startsChunk = startsChunk;
            // Blanks at the end stand for themselves only while something follows them.
            const QString seen = run.text.trimmed();
            const double natural = advanceOf(seen, run.style);
            if (widthWanted > 0.0 && natural > 0.0) {
                run.widthFactor = widthWanted / natural;
            } else if (widthWanted < 0.0 && seen.size() > 1) {
                const int placed = std::min(xs.size(), seen.size());
                const double part = advanceOf(seen.left(placed - 1), run.style);
                const double wide = xs[placed - 1] - xs.first();
                if (part > 0.0 && wide > 0.0)
                    run.widthFactor = wide / part;
                note(VectorNote::Kind::Changed,
                     QCoreApplication::translate("vectorkit",
                                                 "letters placed one by one, now evenly"),
                     child);
            }
            *pen += QPointF(advanceOf(run.text, run.style) * run.widthFactor, 0.0);
            runs->append(run);
            startsChunk = false;
            break;
        }
        case SvgElement::TextPath:
            note(VectorNote::Kind::Changed,
                 QCoreApplication::translate("vectorkit", "texts along a path, set straight"),
                 child);
            Q_FALLTHROUGH();
        case SvgElement::Tspan:
        case SvgElement::A: {
            SvgPlace inner;
            if (place.depth > 400 || !enter(child, place, &inner))
                break;
            if (inner.style.isVisible)
                collectRuns(child, inner, runs, pen);
            startsChunk = false;
            break;
        }
        case SvgElement::Tref:
            note(VectorNote::Kind::Left,
                 QCoreApplication::translate("vectorkit", "texts taken from elsewhere"), child);
            break;
        default:
            break;
        }
    }
}

/** Makes texts of runs; a chunk of several styles is placed from its left end. */
void SvgWalker::placeRuns(int node, const SvgPlace &place, const QVector<SvgTextRun> &runs)
{
    for (int first = 0; first < runs.size();) {
        int end = first + 1;
        while (end < runs.size() && !runs[end].startsChunk)
            ++end;
        double total = 0.0;
        int seen = 0;
        for (int index = first; index < end; ++index) {
            const QString &text = runs[index].text;
            const bool isLast = index == end - 1;
            total += advanceOf(isLast ? text.trimmed() : text, runs[index].style) *
                     runs[index].widthFactor;
            seen += text.trimmed().isEmpty() ? 0 : 1;
        }
        const TextAnchor anchor = runs[first].style.anchor;
        const double shift = seen == 1 || anchor == TextAnchor::Left ? 0.0
                             : anchor == TextAnchor::Middle          ? -total / 2.0
                                                                     : -total;
        for (int index = first; index < end; ++index) {
            SvgTextRun run = runs[index];
            run.at.rx() += shift;
            if (seen > 1)
                run.style.anchor = TextAnchor::Left;
            placeRun(node, place, run);
        }
        first = end;
    }
}

void SvgWalker::placeRun(int node, const SvgPlace &place, const SvgTextRun &run)
{
    VectorText text;
    text.text = run.style.keepsSpaces ? run.text : run.text.trimmed();
    if (text.text.trimmed().isEmpty())
        return;
    text.color = colorOf(run.style.fill, run.style.fillOpacity);
    if (!text.color.isValid())
        text.color = colorOf(run.style.stroke, run.style.strokeOpacity);
    if (!text.color.isValid()) {
        note(VectorNote::Kind::Left,
             QCoreApplication::translate("vectorkit", "shapes without stroke and fill"), node);
        return;
    }
    const QTransform &m = place.toMm;
    const double along = std::hypot(m.m11(), m.m12());
    const double across = std::abs(m.determinant()) / along;
    text.positionMm = m.map(run.at);
    text.heightMm = capitalHeight(run.style) * across;
    text.isMirrored = m.determinant() < 0.0;
    const double sense = text.isMirrored ? -1.0 : 1.0;
    text.angleDeg = -qRadiansToDegrees(std::atan2(sense * m.m12(), sense * m.m11()));
    text.widthFactor = run.widthFactor * along / across;
    const double lean = -(m.m21() * m.m11() + m.m22() * m.m12()) / along;
    text.slantDeg = qRadiansToDegrees(std::atan2(lean, across));
    text.anchor = run.style.anchor;
    text.fontFamily = run.style.fontFamily;
    const bool isGood = std::isfinite(text.heightMm) && text.heightMm > 0.0 &&
                        text.heightMm <= 1e9 && std::isfinite(text.widthFactor) &&
                        std::abs(text.positionMm.x()) <= 1e9 &&
                        std::abs(text.positionMm.y()) <= 1e9;
    if (!isGood) {
        note(VectorNote::Kind::Damaged,
             QCoreApplication::translate("vectorkit", "texts without a size or out of range"),
             node);
        return;
    }
    if (place.clip &&
        place.clip->coverOf(QRectF(text.positionMm, QSizeF())) != SvgClip::Cover::Whole)
        note(VectorNote::Kind::Changed,
             QCoreApplication::translate("vectorkit", "texts under a clip path, kept whole"), node);
    m_pieces += text.text.size();
    m_isTooLarge = m_isTooLarge || m_pieces > m_options.mostPieces;
    if (!m_isTooLarge)
        layer().texts.append(text);
}

/** Paragraphs of flowed text, one a line from the top left of their region. */
void SvgWalker::addFlowedText(int node, const SvgPlace &place)
{
    note(VectorNote::Kind::Changed,
         QCoreApplication::translate("vectorkit", "flowed text, its lines not broken"), node);
    QPointF corner;
    double y = 0.0;
    for (int child = m_tree.nodes[node].firstChild; child >= 0;
         child = m_tree.nodes[child].nextSibling) {
        const SvgElement element = m_tree.nodes[child].element;
        const int region = m_tree.nodes[child].firstChild;
        if (element == SvgElement::FlowRegion && region >= 0) {
            corner =
                QPointF(lengthX(region, SvgName::X, place), lengthY(region, SvgName::Y, place));
        } else if (element == SvgElement::FlowPara || element == SvgElement::FlowDiv) {
            SvgPlace inner;
            if (!enter(child, place, &inner))
                continue;
            y += y == 0.0 ? inner.style.fontSize : inner.style.fontSize * 1.25;
            SvgTextRun run;
            run.text = withBlanks(m_tree.charactersOf(child), inner.style, true);
            run.at = corner + QPointF(0.0, y);
            run.style = inner.style;
            run.style.anchor = TextAnchor::Left;
            placeRun(child, inner, run);
        }
    }
}

} // namespace vectorkit
