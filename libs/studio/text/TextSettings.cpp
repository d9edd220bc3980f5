#include <studio/text/TextSettings.h>

#include <studio/commands/TextState.h>
#include <studio/text/StrokeFonts.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/text/StrokeFont.h>

#include <cmath>

namespace studio {

namespace {

// Lines stand at whole units, cut off: rounding must not turn what was meant into a unit less.
constexpr double kHairMore = 1.0 + 1e-12;

/** Lengths of what the unit vectors of a text become; 1 for what cannot be scaled. */
struct Scale
{
    explicit Scale(const QTransform &transform)
        : across(usable(std::hypot(transform.m11(), transform.m12()))),
          down(usable(std::hypot(transform.m21(), transform.m22())))
    {
    }

    static double usable(double length)
    {
        return std::isfinite(length) && length > 0.0 ? length : 1.0;
    }

    double across;
    double down;
};

/** The wanted number; the present one where they differ by no more than sums were rounded. */
double settled(double wanted, double present)
{
    return std::abs(wanted - present) <= 1e-9 * qMax(1.0, std::abs(present)) ? present : wanted;
}

QFont restyled(QFont font, const QFont &wanted)
{
    if (font.family() != wanted.family())
        font.setFamily(wanted.family());
    if (font.bold() != wanted.bold())
        font.setBold(wanted.bold());
    if (font.italic() != wanted.italic())
        font.setItalic(wanted.italic());
    return font;
}

ZTShxFontParam chosenPair(const ZTShxFontParam &present, const TextSettings &settings)
{
    if (present.enName == settings.enName && present.zhName == settings.zhName)
        return present;
    return strokeFontPair(settings.enName, settings.zhName);
}

QTransform sized(const QTransform &present, double across, double down)
{
    const Scale scale(present);
    const double widthFactor = settled(across / scale.across, 1.0);
    const double heightFactor = settled(down / scale.down, 1.0);
    if (widthFactor == 1.0 && heightFactor == 1.0)
        return present;
    return QTransform::fromScale(widthFactor, heightFactor) * present;
}

void applyWords(const TextSettings &settings, ZTGraphicsTextItem &item)
{
    ZTShapeText &shape = textShapeOf(item);
    if (settings.variantText != storedVariantText(item)) {
        ZTVariantText source(settings.variantText);
        shape.cloneVariantText(&source);
    }
    item.setFixedText(settings.fixedText);
    item.setEnableVariantText(settings.isVariant);
}

void applyArc(const TextSettings &settings, double unitMm, ZTGraphicsTextItem &item)
{
    const ZTRoundingParam present = item.getRoundingParam();
    ZTRoundingParam arc = present;
    arc.isEnableRounding = settings.isOnArc;
    arc.startAngle = settings.startDeg;
    arc.spanAngle = settings.spanDeg;
    // The record's diameter is the distance from the centre.
    arc.diameter = settled(settings.diameterMm / 2.0 / unitMm, present.diameter);
    if (arc != present)
        item.setRoundingParam(arc);
}

} // namespace

void TextSettings::putOnArc()
{
    // A new text has the arc from three o'clock down to six; the upper half is what people expect.
    const bool isUntouched = startDeg == 0.0 && spanDeg == 90.0;
    if (isUntouched) {
        startDeg = -180.0;
        spanDeg = 180.0;
    }
    isOnArc = true;
}

TextSettings TextSettings::of(const ZTGraphicsTextItem &item)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const ZTFontParam param = item.getFontParam();
    const ZTRoundingParam arc = item.getRoundingParam();
    const Scale scale(textShapeOf(item).getTransformParam());
    TextSettings settings;
    settings.fixedText = item.getFixedText();
    settings.isVariant = item.isEnableVariantText();
    settings.variantText = storedVariantText(item);
    settings.valuesPerPart = hostkit::itemExtras(item).valuesPerPart;
    settings.kind = param.fontType;
    settings.font = param.font;
    settings.enName = param.shxFont.enName;
    settings.zhName = param.shxFont.zhName;
    settings.heightMm = hostkit::capitalHeight(param) * scale.down;
    settings.widthFactor = scale.across / scale.down;
    settings.charSpacingMm = coord.mm2pix(param.wordSpac) * scale.across;
    settings.lineSpacingMm = coord.mm2pix(param.rowSpac) * scale.down;
    settings.isOnArc = arc.isEnableRounding;
    settings.startDeg = arc.startAngle;
    settings.spanDeg = arc.spanAngle;
    settings.diameterMm = 2.0 * arc.diameter * scale.down;
    settings.fill = item.getFillParam();
    return settings;
}

void TextSettings::applyTo(ZTGraphicsTextItem &item) const
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    applyWords(*this, item);

    const ZTFontParam present = item.getFontParam();
    ZTFontParam param = present;
    param.fontType = kind;
    param.font = restyled(param.font, font);
    param.shxFont = chosenPair(param.shxFont, *this);
    const QTransform before = item.getTransformParam();
    const double down = heightMm / hostkit::capitalHeight(param);
    const QTransform after = sized(before, down * widthFactor, down);
    const Scale scale(after);
    param.wordSpac = settled(coord.pix2mm(charSpacingMm / scale.across), present.wordSpac);
    param.rowSpac = settled(coord.pix2mm(lineSpacingMm / scale.down) * kHairMore, present.rowSpac);
    if (param != present)
        item.setFontParam(param);
    applyArc(*this, scale.down, item);
    if (after != before)
        item.setTransformParam(after);
    if (fill != item.getFillParam())
        item.setFillParam(fill);
    showChanged(item);
}

} // namespace studio
