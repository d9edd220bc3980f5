#include <hostkit/marks/MarkCheck_p.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/MarkReadiness.h>

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace hostkit {

namespace {

constexpr int kMostWords = 40; ///< characters

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::MarkFindings)
};

/** What sums of lengths are off by. */
constexpr double kHairMm = 1e-6;

bool isFinite(const QPointF &point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

/** A box that grows with each point; those that are no numbers are left out. */
class Box
{
public:
    void include(const QPointF &point)
    {
        if (!isFinite(point))
            return;
        m_least =
            m_isEmpty ? point : QPointF(qMin(m_least.x(), point.x()), qMin(m_least.y(), point.y()));
        m_most =
            m_isEmpty ? point : QPointF(qMax(m_most.x(), point.x()), qMax(m_most.y(), point.y()));
        m_isEmpty = false;
    }

    bool isEmpty() const { return m_isEmpty; }
    QRectF rect() const { return {m_least, m_most}; }

private:
    QPointF m_least;
    QPointF m_most;
    bool m_isEmpty = true;
};

Box boxOf(const ZTMarkObject &object)
{
    Box box;
    for (const QPolygonF &outline : object.lines) {
        for (const QPointF &point : outline)
            box.include(point);
    }
    for (const QLineF &line : object.fillLines) {
        box.include(line.p1());
        box.include(line.p2());
    }
    return box;
}

bool isFinite(const ZTMarkObject &object)
{
    const auto isOutline = [](const QPolygonF &outline) {
        return std::all_of(outline.begin(), outline.end(),
                           [](const QPointF &point) { return isFinite(point); });
    };
    return std::all_of(object.lines.begin(), object.lines.end(), isOutline) &&
           std::all_of(object.fillLines.begin(), object.fillLines.end(), [](const QLineF &line) {
               return isFinite(line.p1()) && isFinite(line.p2());
           });
}

bool hasLength(const QPolygonF &outline)
{
    const auto differs = [&outline](const QPointF &point) {
        return point.x() != outline.first().x() || point.y() != outline.first().y();
    };
    return std::any_of(outline.begin(), outline.end(), differs);
}

/** Spreads the bits of a number over all of them. */
quint64 mixed(quint64 bits)
{
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9ULL;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebULL;
    return bits ^ (bits >> 31);
}

quint64 bitsOf(double value)
{
    const double usual = value + 0.0; // no negative zero
    quint64 bits = 0;
    std::memcpy(&bits, &usual, sizeof bits);
    return bits;
}

quint64 keyOf(const QPointF &point)
{
    return mixed(bitsOf(point.x()) + 0x9e3779b97f4a7c15ULL * mixed(bitsOf(point.y())));
}

/**
 * The same for outlines that mark the same lines, wherever they begin and whichever way they run,
 * and for others by a chance that does not come up.
 */
quint64 keyOf(const QPolygonF &outline)
{
    quint64 key = 0;
    for (int i = 1; i < outline.size(); ++i) {
        const quint64 from = keyOf(outline[i - 1]);
        const quint64 to = keyOf(outline[i]);
        if (from != to)
            key += mixed(mixed(from + to) ^ (from * to));
    }
    return key;
}

QString nameOf(ShapeType kind)
{
    switch (kind) {
    case ShapeType::Rect:
        return Texts::tr("Rectangle %1");
    case ShapeType::Ellipse:
        return Texts::tr("Ellipse %1");
    case ShapeType::Polygon:
        return Texts::tr("Polygon %1");
    case ShapeType::Line:
        return Texts::tr("Line %1");
    case ShapeType::TDOT:
        return Texts::tr("TDOT figure %1");
    case ShapeType::Text:
        return Texts::tr("Text %1");
    case ShapeType::VecGraph:
        return Texts::tr("Path %1");
    case ShapeType::QRCode:
        return Texts::tr("Code %1");
    case ShapeType::BarCode:
        return Texts::tr("Bar code %1");
    default:
        return Texts::tr("Shape %1");
    }
}

/** A code can hold thousands of characters; a name of it is read in a sentence. */
QString shortened(const QString &words)
{
    if (words.size() <= kMostWords)
        return words;
    const bool isHalfLast = words[kMostWords - 1].isHighSurrogate();
    return words.left(kMostWords - (isHalfLast ? 1 : 0)) + QChar(0x2026);
}

QString listed(const QStringList &names)
{
    const QString first = QStringList(names.mid(0, kMostShapesNamed)).join(Texts::tr(", "));
    const int more = names.size() - kMostShapesNamed;
    return more > 0 ? Texts::tr("%1 and %2 more").arg(first).arg(more) : first;
}

QString millimetres(double length) { return QString::number(length, 'f', 1); }

} // namespace

MarkCheck::MarkCheck(const QRectF &fieldMm, float scaleX, float scaleY)
    : m_fieldMm(fieldMm), m_scaleX(scaleX), m_scaleY(scaleY)
{
}

void MarkCheck::look(const ZTAbstractGraphicsItem &item, const ZTMarkObject &object)
{
    lookForOutside(item, object);
    const QString reason = notReadyReason(item);
    if (!reason.isEmpty())
        findings.notReady << Texts::tr("%1: %2").arg(shapeName(item), reason);
    if (!isFinite(object))
        findings.notReady << Texts::tr("%1: %2").arg(shapeName(item),
                                                     Texts::tr("a coordinate is no number"));
    bool isWithout = false;
    bool isDoubled = false;
    for (const QPolygonF &outline : object.lines) {
        if (outline.isEmpty())
            continue;
        if (!hasLength(outline))
            isWithout = true;
        else if (isRepeated(outline, item))
            isDoubled = true;
    }
    if (isWithout)
        findings.withoutLength << shapeName(item);
    if (isDoubled)
        findings.doubled << shapeName(item);
}

void MarkCheck::lookForOutside(const ZTAbstractGraphicsItem &item, const ZTMarkObject &object)
{
    const Box boxMark = boxOf(object);
    if (boxMark.isEmpty() || m_scaleX == 0.0 || m_scaleY == 0.0)
        return;
    Box boxMm; // a negative scale turns the corners round
    boxMm.include(toMm(boxMark.rect().topLeft()));
    boxMm.include(toMm(boxMark.rect().bottomRight()));
    if (!isWithinField(boxMm.rect(), m_fieldMm))
        findings.outside.append({shapeName(item), boxMm.rect()});
}

/** A TDOT figure has doubled lines by its nature: only another shape's count for it. */
bool MarkCheck::isRepeated(const QPolygonF &outline, const ZTAbstractGraphicsItem &item)
{
    const auto [known, isNew] = m_outlines.emplace(keyOf(outline), &item);
    return !isNew && (known->second != &item || item.getShapeType() != ShapeType::TDOT);
}

QPointF MarkCheck::toMm(const QPointF &mark) const
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    return {coord.pix2mm(mark.x() / m_scaleX), coord.pix2mm(mark.y() / m_scaleY)};
}

bool isWithinField(const QRectF &boxMm, const QRectF &fieldMm)
{
    const QRectF field = fieldMm.adjusted(-kHairMm, -kHairMm, kHairMm, kHairMm);
    // By its edges: a flat box is contained in none.
    return boxMm.left() >= field.left() && boxMm.right() <= field.right() &&
           boxMm.top() >= field.top() && boxMm.bottom() <= field.bottom();
}

QString shapeName(const ZTAbstractGraphicsItem &item)
{
    QString given = itemExtras(item).name;
    if (!given.isEmpty())
        return given;
    const QString words = item.text().simplified();
    if (!words.isEmpty())
        return shortened(words);
    const ZTShapeBase *shape = item.getShapeBase();
    return nameOf(item.getShapeType()).arg(shape != nullptr ? shape->getId() : 0);
}

QString describeOutside(const MarkFindings &findings)
{
    QStringList names;
    for (const ShapeOutside &shape : findings.outside)
        names << Texts::tr("%1 (x %2 to %3, y %4 to %5 mm)")
                     .arg(shape.name, millimetres(shape.boxMm.left()),
                          millimetres(shape.boxMm.right()), millimetres(shape.boxMm.top()),
                          millimetres(shape.boxMm.bottom()));
    return names.isEmpty() ? QString() : Texts::tr("outside the work area: %1").arg(listed(names));
}

QString describeNotReady(const MarkFindings &findings)
{
    return findings.notReady.isEmpty()
               ? QString()
               : Texts::tr("shown otherwise than asked for: %1").arg(listed(findings.notReady));
}

QStringList describeFindings(const MarkFindings &findings)
{
    QStringList sentences;
    if (!findings.notReady.isEmpty())
        sentences << describeNotReady(findings);
    if (!findings.outside.isEmpty())
        sentences << describeOutside(findings);
    if (!findings.withoutLength.isEmpty())
        sentences
            << Texts::tr("outlines without any length: %1").arg(listed(findings.withoutLength));
    if (!findings.doubled.isEmpty())
        sentences << Texts::tr("outlines that are marked twice: %1").arg(listed(findings.doubled));
    return sentences;
}

} // namespace hostkit
