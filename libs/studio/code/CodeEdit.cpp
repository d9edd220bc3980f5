#include <studio/code/CodeEdit.h>

#include <studio/commands/TextState.h>
#include <studio/text/StrokeFonts.h>

#include <hostkit/items/ItemExtras.h>

#include <cmath>

namespace studio {

namespace {

/** How much a code is enlarged along its rows; 1 for what cannot be measured. */
double enlargementOf(const QTransform &transform)
{
    const double factor = std::hypot(transform.m11(), transform.m12());
    return std::isfinite(factor) && factor > 0.0 ? factor : 1.0;
}

/** The same transform without its enlargement, rows and columns alike. */
QTransform withoutEnlargement(const QTransform &transform)
{
    const double across = enlargementOf(transform);
    const double down = std::hypot(transform.m21(), transform.m22());
    const bool isUsable = std::isfinite(down) && down > 0.0;
    return QTransform::fromScale(1.0 / across, isUsable ? 1.0 / down : 1.0) * transform;
}

bool isEnlarged(const QTransform &transform)
{
    const QTransform plain = withoutEnlargement(transform);
    return std::abs(plain.m11() - transform.m11()) + std::abs(plain.m12() - transform.m12()) +
               std::abs(plain.m21() - transform.m21()) + std::abs(plain.m22() - transform.m22()) >
           1e-9;
}

} // namespace

CodeEdit CodeEdit::of(const codekit::CodeItem &item)
{
    CodeEdit edit;
    edit.code = item.settings();
    const QTransform &transform = item.code().getTransformParam();
    if (isEnlarged(transform))
        edit.code = codekit::enlarged(edit.code, enlargementOf(transform));
    // What does not tell the size now begins, once it does, with the size that there is.
    const int columns = item.code().symbol().columns;
    if (edit.code.isSizedByWidth && columns > 0)
        edit.code.form.moduleMm = edit.code.widthMm / columns;
    else if (columns > 0)
        edit.code.widthMm = edit.code.form.moduleMm * columns;
    const codekit::HumanText &human = edit.code.human;
    TextSettings &words = edit.words;
    words.fixedText = item.getFixedText();
    words.isVariant = item.isEnableVariantText();
    words.variantText = storedVariantText(item);
    words.valuesPerPart = hostkit::itemExtras(item).valuesPerPart;
    words.kind = human.kind;
    words.font = human.font;
    words.enName = human.enName;
    words.zhName = human.zhName;
    words.heightMm = human.heightMm;
    words.widthFactor = human.widthFactor;
    words.charSpacingMm = human.charSpacingMm;
    words.fill = item.getFillParam();
    return edit;
}

void CodeEdit::applyTo(codekit::CodeItem &item) const
{
    const CodeEdit present = of(item);
    codekit::CodeSettings wanted = code;
    wanted.human.kind = words.kind;
    wanted.human.font = words.font;
    wanted.human.enName = words.enName;
    wanted.human.zhName = words.zhName;
    wanted.human.heightMm = words.heightMm;
    wanted.human.widthFactor = words.widthFactor;
    wanted.human.charSpacingMm = words.charSpacingMm;
    if (words.variantText != present.words.variantText) {
        ZTVariantText source(words.variantText);
        item.code().cloneVariantText(&source);
    }
    // Content and settings together: neither has to go with what the other was before.
    const QString content = words.isVariant ? words.variantText.getText() : words.fixedText;
    if (wanted != present.code) {
        const QTransform transform = item.getTransformParam();
        if (isEnlarged(transform))
            item.getTransformParam() = withoutEnlargement(transform); // shown with what follows
        item.setCode(wanted, content);
        // The last good code is shown at the size that it had, as long as there is no other.
        if (isEnlarged(transform) && !item.code().notReadyReason().isEmpty()) {
            item.getTransformParam() = transform;
            item.setCode(codekit::enlarged(wanted, 1.0 / enlargementOf(transform)), content);
        }
    }
    item.setFixedText(words.fixedText);
    item.setEnableVariantText(words.isVariant);
    if (words.fill != item.getFillParam())
        item.setFillParam(words.fill);
    showChanged(item);
}

void setUpNewCode(codekit::CodeItem &item)
{
    codekit::CodeSettings settings = item.settings();
    settings.human.enName = usualRegularFont({});
    settings.human.zhName = usualBigFont({});
    item.setSettings(settings);
}

} // namespace studio
