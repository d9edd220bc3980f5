#include "PlainStream.h"

#include <QtCore/QDataStream>

namespace testsupport {

namespace {

enum Kind : quint8 { Rect = 0, Line = 1, Ellipse = 2, Polygon = 4, Text = 5, Tdot = 9, Image = 10 };

void write(QDataStream &stream, const PlainBase &base)
{
    stream << base.rect;
    stream << base.transform;
    stream << base.roundingTransform;
    stream << base.fillType;
    stream << base.spac;
    stream << base.angle;
    stream << base.isEnableBorder;
    stream << base.shapeType;
    stream << base.update;
    stream << base.id;
    stream << base.lockAspectRatio;
    stream << base.penId;
}

void read(QDataStream &stream, PlainBase &base)
{
    stream >> base.rect;
    stream >> base.transform;
    stream >> base.roundingTransform;
    stream >> base.fillType;
    stream >> base.spac;
    stream >> base.angle;
    stream >> base.isEnableBorder;
    stream >> base.shapeType;
    stream >> base.update;
    stream >> base.id;
    stream >> base.lockAspectRatio;
    stream >> base.penId;
}

void write(QDataStream &stream, const PlainText &text)
{
    stream << text.enableVariantText << text.text << text.fixedText << text.variantTextId
           << text.variantText;
    stream << text.fontType << text.wordSpac << text.rowSpac << text.font;
    stream << text.zhName << text.enName << text.height;
    stream << text.isEnableRounding << text.startAngle << text.spanAngle << text.diameter
           << text.itemRotate << text.roundingFlag;
}

void read(QDataStream &stream, PlainText &text)
{
    stream >> text.enableVariantText >> text.text >> text.fixedText >> text.variantTextId >>
        text.variantText;
    stream >> text.fontType >> text.wordSpac >> text.rowSpac >> text.font;
    stream >> text.zhName >> text.enName >> text.height;
    stream >> text.isEnableRounding >> text.startAngle >> text.spanAngle >> text.diameter >>
        text.itemRotate >> text.roundingFlag;
}

void write(QDataStream &stream, const PlainItem &item)
{
    stream << item.kind;
    stream << item.posPx;
    switch (item.kind) {
    case Polygon:
        stream << item.sideCount;
        break;
    case Image:
        stream << item.imagePath;
        break;
    default:
        write(stream, item.base);
        if (item.kind == Text)
            write(stream, *item.text);
        break;
    }
}

void read(QDataStream &stream, PlainItem &item)
{
    stream >> item.kind;
    stream >> item.posPx;
    switch (item.kind) {
    case Polygon:
        stream >> item.sideCount;
        break;
    case Image:
        stream >> item.imagePath;
        break;
    default:
        read(stream, item.base);
        if (item.kind == Text) {
            item.text = std::make_shared<PlainText>();
            read(stream, *item.text);
        }
        break;
    }
}

/** Numbers that look random and are the same everywhere. */
class Dice
{
public:
    explicit Dice(quint32 seed) : state(seed * 2654435761U + 1U) {}

    quint32 below(quint32 limit)
    {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<quint32>(state >> 33) % limit;
    }
    double number(double from, double to)
    {
        return from + (to - from) * below(1U << 30) / (1U << 30);
    }
    bool coin() { return below(2) == 1; }

private:
    quint64 state;
};

QTransform randomTransform(Dice &dice)
{
    QTransform transform;
    if (dice.coin())
        transform.rotate(dice.number(-180, 180));
    if (dice.coin())
        transform.scale(dice.number(-3, 3), dice.number(0.1, 3));
    if (dice.coin())
        transform.shear(dice.number(-1, 1), 0);
    return transform;
}

PlainBase randomBase(Dice &dice, quint8 kind, int id)
{
    PlainBase base;
    base.rect = {dice.number(-50, 50), dice.number(-50, 50), dice.number(0, 40),
                 dice.number(0, 40)};
    base.transform = randomTransform(dice);
    if (dice.below(4) == 0)
        base.roundingTransform = randomTransform(dice);
    base.fillType = static_cast<qint32>(dice.below(3));
    base.spac = dice.number(0.5, 3);
    base.angle = dice.number(-200, 200);
    base.isEnableBorder = dice.below(4) != 0;
    base.shapeType = kind;
    base.id = id;
    base.lockAspectRatio = dice.coin();
    base.penId = static_cast<qint32>(dice.below(18)) - 1;
    return base;
}

QString randomWord(Dice &dice)
{
    QString word;
    for (quint32 i = dice.below(6); i > 0; --i)
        word += dice.below(5) == 0 ? QChar(0x4F60 + dice.below(40)) : QChar('A' + dice.below(26));
    if (dice.below(4) == 0)
        word += QLatin1Char('\n');
    return word;
}

ZTVariantText randomVariantText(Dice &dice)
{
    ZTVariantText text;
    ZTCounterSegment counter;
    counter.start = dice.below(1000);
    counter.updates = dice.below(10);
    if (dice.coin())
        text.setSegments({ZTFixedTextSegment{randomWord(dice)}, counter});
    return text;
}

std::shared_ptr<PlainText> randomText(Dice &dice)
{
    auto text = std::make_shared<PlainText>();
    text->enableVariantText = dice.coin();
    text->text = randomWord(dice);
    text->fixedText = randomWord(dice);
    text->variantTextId = static_cast<qint32>(dice.below(5)) - 1;
    text->variantText = randomVariantText(dice);
    text->fontType = static_cast<qint32>(dice.below(3));
    text->wordSpac = dice.coin() ? dice.number(0, 2) : 0.0;
    text->rowSpac = dice.number(0, 2);
    text->font.setPixelSize(static_cast<int>(10 + dice.below(100)));
    text->font.setItalic(dice.coin());
    if (dice.coin()) {
        text->zhName = QStringLiteral("tinybig.shx");
        text->enName = QStringLiteral("tiny.shx");
    }
    text->height = dice.number(1, 50);
    text->isEnableRounding = dice.below(4) == 0;
    text->startAngle = dice.number(-360, 360);
    text->spanAngle = dice.number(-360, 360);
    text->diameter = dice.number(0, 300);
    text->itemRotate = dice.number(0, 360);
    text->roundingFlag = static_cast<qint32>(dice.below(3));
    return text;
}

PlainItem randomItem(Dice &dice, quint8 kind, int id)
{
    PlainItem item;
    item.kind = kind;
    item.posPx = {dice.number(-3000, 3000), dice.number(-3000, 3000)};
    item.base = randomBase(dice, kind, id);
    if (kind == Tdot && dice.coin())
        item.base.rect = {0, 0, 100, 100}; // nothing gives the figure another one
    item.sideCount = static_cast<qint32>(dice.below(12));
    if (kind == Image)
        item.imagePath = QStringLiteral(".plt"); // nothing that a file could be behind
    if (kind == Text)
        item.text = randomText(dice);
    return item;
}

constexpr quint8 kKinds[] = {Rect, Line, Ellipse, Polygon, Text, Tdot, Image};

QPointF onGrid(int index, int columns)
{
    constexpr double kPitchPx = 60.0;
    return {(index % columns - columns / 2) * kPitchPx, (index / columns - columns / 2) * kPitchPx};
}

PlainDrawing onGrid(PlainDrawing drawing)
{
    int columns = 1;
    while (columns * columns < drawing.items.size())
        ++columns;
    for (int i = 0; i < drawing.items.size(); ++i)
        drawing.items[i].posPx = onGrid(i, columns);
    return drawing;
}

} // namespace

void writePlainly(QDataStream &stream, const PlainDrawing &drawing)
{
    stream << drawing.lastVariantTextId << static_cast<qint32>(drawing.variantTexts.size());
    for (const auto &entry : drawing.variantTexts)
        stream << entry.first << entry.second;
    stream << drawing.nextShapeId << static_cast<qint32>(drawing.items.size());
    for (const PlainItem &item : drawing.items)
        write(stream, item);
}

PlainDrawing readPlainly(QDataStream &stream)
{
    PlainDrawing drawing;
    qint32 count = 0;
    stream >> drawing.lastVariantTextId >> count;
    for (qint32 i = 0; i < count; ++i) {
        QPair<qint32, ZTVariantText> entry;
        stream >> entry.first >> entry.second;
        drawing.variantTexts.append(entry);
    }
    stream >> drawing.nextShapeId >> count;
    for (qint32 i = 0; i < count; ++i) {
        drawing.items.append(PlainItem());
        read(stream, drawing.items.last());
    }
    return drawing;
}

PlainDrawing rectanglesDrawing(int count)
{
    PlainDrawing drawing;
    drawing.nextShapeId = count;
    for (int i = 0; i < count; ++i) {
        PlainItem item;
        item.base.rect = {0, 0, 10, 10};
        item.base.id = i;
        item.base.penId = 1 + i % 16;
        item.base.lockAspectRatio = i % 2 == 1;
        drawing.items.append(item);
    }
    return onGrid(drawing);
}

PlainDrawing mixedDrawing(int count)
{
    PlainDrawing drawing;
    drawing.nextShapeId = count;
    Dice dice(1);
    for (int i = 0; i < count; ++i)
        drawing.items.append(randomItem(dice, kKinds[i % 7], i));
    return onGrid(drawing);
}

PlainDrawing randomDrawing(quint32 seed, int count)
{
    Dice dice(seed);
    PlainDrawing drawing;
    drawing.lastVariantTextId = static_cast<qint32>(dice.below(10));
    for (quint32 i = dice.below(3); i > 0; --i)
        drawing.variantTexts.append({static_cast<qint32>(i), randomVariantText(dice)});
    drawing.nextShapeId = count;
    for (int i = 0; i < count; ++i)
        drawing.items.append(randomItem(dice, kKinds[dice.below(7)], i));
    return drawing;
}

} // namespace testsupport
