#include <hostkit/marks/TextJob.h>

#include <hostkit/marks/MarkLayout_p.h>
#include <hostkit/text/StrokeFont.h>

#include <algorithm>

namespace hostkit {

namespace {

/** The font as it is laid out: at `kStrokeFontUnits`, whatever size it came in. */
ZTFontParam sizedFont(const TextJobOptions &options)
{
    ZTFontParam param = options.font;
    param.font.setPixelSize(static_cast<int>(kStrokeFontUnits));
    param.shxFont.height = kStrokeFontUnits;
    return param;
}

/** A job's fonts and how many units of their paths make a millimetre. */
struct Layout
{
    explicit Layout(const TextJobOptions &job)
        : options(job), font(sizedFont(job)), unitsPerMm(capitalHeight(font) / job.heightMm)
    {
    }

    const TextJobOptions &options;
    const ZTFontParam font;
    const double unitsPerMm;
};

/**
 * The font with its spaces. The shape turns spaces into pixels and then takes these for path units,
 * so they are turned back beforehand.
 */
ZTFontParam fontParam(const Layout &layout)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    ZTFontParam param = layout.font;
    param.wordSpac = coord.pix2mm(layout.options.charSpacingMm * layout.unitsPerMm);
    param.rowSpac = coord.pix2mm(layout.options.lineSpacingMm * layout.unitsPerMm);
    return param;
}

/** The shape takes its diameter as the distance of the letters from the centre. */
ZTRoundingParam roundingParam(const Layout &layout)
{
    const TextArc &arc = layout.options.arc;
    ZTRoundingParam param;
    param.isEnableRounding = arc.diameterMm > 0.0;
    param.startAngle = arc.startDeg;
    param.spanAngle = arc.spanDeg;
    param.diameter = arc.diameterMm / 2.0 * layout.unitsPerMm;
    return param;
}

void shapeText(ZTGraphicsTextItem &item, ZTVariantText &text, const Layout &layout)
{
    auto &shape = static_cast<ZTShapeText &>(*item.getShapeBase());
    const double scale = 1.0 / layout.unitsPerMm;
    item.setTransformParam(QTransform::fromScale(scale, scale));
    item.setFontParam(fontParam(layout));
    item.setRoundingParam(roundingParam(layout));
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
                  MarkJobResult *result, MarkJobFailure *failure)
{
    const Layout sizes(options);
    const auto addText = [&sizes](MarkLayout &surface, ZTVariantText &text) {
        return surface.add(ShapeType::Text, [&](ZTAbstractGraphicsItem &item) {
            shapeText(static_cast<ZTGraphicsTextItem &>(item), text, sizes);
        });
    };
    const auto addAll = [&](MarkLayout &surface) {
        return std::all_of(texts->begin(), texts->end(),
                           [&](ZTVariantText &text) { return addText(surface, text); });
    };
    if (!MarkLayout::build(options.layout, addAll, result, failure))
        return false;
    if (!hasNothing(result->graph))
        return true;
    return fail(failure, Failure::Kind::NotPossible,
                MarkLayout::tr("nothing to mark: the text leaves no strokes"));
}

} // namespace hostkit
