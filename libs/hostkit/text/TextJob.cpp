#include <hostkit/text/TextJob.h>

#include <hostkit/marks/MarkLayout_p.h>
#include <hostkit/text/StrokeFont.h>

#include <algorithm>

namespace hostkit {

namespace {

/** Path units in the text height; the transform of the item brings them to millimetres. */
constexpr double kUnits = kStrokeFontUnits;

double unitsPerMm(const TextJobOptions &options) { return kUnits / options.heightMm; }

/**
 * The font at a height of `kUnits`. The shape turns spaces into pixels and then takes these for
 * path units, so they are turned back beforehand.
 */
ZTFontParam fontParam(const TextJobOptions &options)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    ZTFontParam param = options.font;
    param.font.setPixelSize(static_cast<int>(kUnits));
    param.wordSpac = coord.pix2mm(options.charSpacingMm * unitsPerMm(options));
    param.rowSpac = coord.pix2mm(options.lineSpacingMm * unitsPerMm(options));
    return param;
}

/** The shape takes its diameter as the distance of the letters from the centre. */
ZTRoundingParam roundingParam(const TextJobOptions &options)
{
    ZTRoundingParam param;
    param.isEnableRounding = options.arc.diameterMm > 0.0;
    param.startAngle = options.arc.startDeg;
    param.spanAngle = options.arc.spanDeg;
    param.diameter = options.arc.diameterMm / 2.0 * unitsPerMm(options);
    return param;
}

void shapeText(ZTGraphicsTextItem &item, ZTVariantText &text, const TextJobOptions &options)
{
    auto &shape = static_cast<ZTShapeText &>(*item.getShapeBase());
    const double scale = 1.0 / unitsPerMm(options);
    item.setTransformParam(QTransform::fromScale(scale, scale));
    item.setFontParam(fontParam(options));
    item.setRoundingParam(roundingParam(options));
    shape.cloneVariantText(&text);
    shape.setEnableVariantText(true);
    shape.fromVariantTextUpdateText();
    text = *shape.getVarTxt();
}

bool hasNothing(const ZTMarkGraph &graph)
{
    return std::all_of(graph.objects.begin(), graph.objects.end(), [](const ZTMarkObject &object) {
        return object.lines.isEmpty() && object.fillLines.isEmpty();
    });
}

} // namespace

bool buildTextJob(std::vector<ZTVariantText> *texts, const TextJobOptions &options,
                  MarkJobResult *result, MarkJobError *error)
{
    const auto addText = [&options](MarkLayout &layout, ZTVariantText &text) {
        return layout.add(ShapeType::Text, [&](ZTAbstractGraphicsItem &item) {
            shapeText(static_cast<ZTGraphicsTextItem &>(item), text, options);
        });
    };
    const auto addAll = [&](MarkLayout &layout) {
        return std::all_of(texts->begin(), texts->end(),
                           [&](ZTVariantText &text) { return addText(layout, text); });
    };
    if (!MarkLayout::build(options.layout, addAll, result, error))
        return false;
    if (!hasNothing(result->graph))
        return true;
    *error = MarkJobError{-1, MarkLayout::tr("nothing to mark: the text leaves no strokes")};
    return false;
}

} // namespace hostkit
