#include "ShapeState.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QDebug>

#include <typeinfo>

namespace testsupport {

namespace {

QString shown(double value) { return QString::number(value, 'g', 17); }
QString shown(int value) { return QString::number(value); }
QString shown(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }
QString shown(const QPointF &p) { return shown(p.x()) + QLatin1Char(' ') + shown(p.y()); }
QString shown(const QSizeF &s) { return shown(s.width()) + QLatin1Char(' ') + shown(s.height()); }
QString shown(const QRectF &r) { return shown(r.topLeft()) + QLatin1Char(' ') + shown(r.size()); }

QString shown(const QString &text)
{
    return QString::fromLatin1(text.toUtf8().toPercentEncoding(QByteArrayLiteral(" ")));
}

QString shown(const QTransform &t)
{
    QStringList values;
    for (const double value :
         {t.m11(), t.m12(), t.m13(), t.m21(), t.m22(), t.m23(), t.m31(), t.m32(), t.m33()})
        values << shown(value);
    return values.join(QLatin1Char(' '));
}

QString shown(const QPainterPath &path)
{
    QStringList elements;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        elements << QString::number(element.type) + QLatin1Char(' ') + shown(QPointF(element));
    }
    return elements.join(QLatin1Char(','));
}

QString shown(const ZTVariantText &text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << text;
    return QString::fromLatin1(bytes.toHex());
}

class Lines
{
public:
    template <class Value>
    void add(const char *name, const Value &value)
    {
        lines << QString::fromLatin1(name) + QStringLiteral(": ") + shown(value);
    }

    QStringList lines;
};

void addBase(ZTShapeBase &shape, Lines *out)
{
    const ZTFillParam fill = shape.getFillParam();
    out->add("rect", shape.getRect());
    out->add("transform", shape.getTransformParam());
    out->add("rounding transform", shape.getRoundingTransformParam());
    out->add("fill type", static_cast<int>(fill.fillType));
    out->add("fill spac", fill.spac);
    out->add("fill angle", fill.angle);
    out->add("fill border", fill.isEnableBorder);
    out->add("shape type", static_cast<int>(shape.getShapeType()));
    out->add("pen", shape.getPenId());
    out->add("id", shape.getId());
    out->add("aspect lock", shape.getLockAspectRatio());
}

void addText(ZTShapeText &text, Lines *out)
{
    const ZTFontParam font = text.getFont();
    const ZTRoundingParam arc = text.getRoundingParam();
    ZTShxFontParam strokes = font.shxFont;
    out->add("text", text.text());
    out->add("fixed text", text.getFixedText());
    out->add("variant", text.isEnableVariantText());
    // Also the one that is switched off.
    const bool isEnabled = text.isEnableVariantText();
    text.setEnableVariantText(true);
    out->add("variant text", *text.getVarTxt());
    text.setEnableVariantText(isEnabled);
    out->add("font type", static_cast<int>(font.fontType));
    out->add("word span", font.wordSpac);
    out->add("row span", font.rowSpac);
    out->add("font", font.font.toString());
    out->add("font families", font.font.families().join(QLatin1Char(';')));
    out->add("font letter spacing", font.font.letterSpacing());
    out->add("font word spacing", font.font.wordSpacing());
    out->add("font capitals", static_cast<int>(font.font.capitalization()));
    out->add("font hinting", static_cast<int>(font.font.hintingPreference()));
    out->add("font strategy", static_cast<int>(font.font.styleStrategy()));
    out->add("font stretch", font.font.stretch());
    out->add("regular stroke font", strokes.enName);
    out->add("big stroke font", strokes.zhName);
    out->add("stroke height", strokes.height);
    // A host's text that sets its own height has none of the height that the fonts' users share.
    if (typeid(text) == typeid(ZTShapeText))
        out->add("parser's height", strokes.parser.getTextHeight());
    out->add("arc on", arc.isEnableRounding);
    out->add("arc start", arc.startAngle);
    out->add("arc span", arc.spanAngle);
    out->add("arc diameter", arc.diameter);
    out->add("arc rotate", arc.itemRotate);
    out->add("arc flag", arc.roundingFlag);
}

void addKind(ZTShapeBase &shape, Lines *out)
{
    if (auto *line = dynamic_cast<ZTLineShape *>(&shape)) {
        out->add("line from", line->getLine().p1());
        out->add("line to", line->getLine().p2());
        out->add("angle", line->angle());
        out->add("length", line->length());
    }
    if (auto *polygon = dynamic_cast<ZTPolygonShape *>(&shape))
        out->add("sides", polygon->getSideCount());
    if (auto *graphic = dynamic_cast<ZTVecGraph *>(&shape)) {
        out->add("image path", graphic->getImagePath());
        out->add("drawing", graphic->getDrawing());
    }
    if (auto *text = dynamic_cast<ZTShapeText *>(&shape))
        addText(*text, out);
}

} // namespace

QStringList stateOf(const ZTAbstractGraphicsItem &item)
{
    Lines out;
    ZTShapeBase &shape = *item.getShapeBase();
    out.add("item type", static_cast<int>(item.getShapeType()));
    out.add("pos", item.pos());
    out.add("z", item.zValue());
    out.add("size", item.getSize());
    out.add("visible", item.isVisible());
    out.add("selectable", bool(item.flags() & QGraphicsItem::ItemIsSelectable));
    addBase(shape, &out);
    addKind(shape, &out);
    out.add("lines", shape.getLines());
    out.add("hatch lines", shape.getFillLines().size());
    for (const QLineF &line : shape.getFillLines()) {
        out.add("hatch from", line.p1());
        out.add("hatch to", line.p2());
    }
    return out.lines;
}

QStringList stateOf(const ZTGraphicsDocument &document)
{
    const auto items = document.itemMag()->scene()->items(Qt::AscendingOrder);
    Lines out;
    QVector<const ZTShapeBase *> shapes;
    for (QGraphicsItem *candidate : items) {
        if (const auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate)) {
            out.add("item", shapes.size());
            shapes << item->getShapeBase();
            out.lines << stateOf(*item);
        }
    }
    const ZTVariantTextManager &registry = *ZTVariantTextManager::getInstance();
    for (const int id : registry.getIds()) {
        out.add("registry entry", id);
        for (const ZTShapeBase *shape : registry.getShapes(id))
            out.add("used by item", shapes.indexOf(shape));
    }
    out.add("next id", document.itemMag()->getNextShapeId());
    return out.lines;
}

QString difference(const QStringList &actual, const QStringList &expected)
{
    QString item;
    for (int i = 0; i < qMax(actual.size(), expected.size()); ++i) {
        const QString is = actual.value(i, QStringLiteral("nothing"));
        const QString wanted = expected.value(i, QStringLiteral("nothing"));
        if (is != wanted)
            return QStringLiteral("%1: \"%2\" instead of \"%3\"").arg(item, is, wanted);
        if (is.startsWith(QLatin1String("item: ")))
            item = is;
    }
    return {};
}

} // namespace testsupport
