#include <studio/choices/Preferences.h>

#include <studio/shapes/PenColors.h>

#include <QtCore/QSettings>

#include <cmath>

namespace studio {

namespace {

const QString kUnitKey = QStringLiteral("preferences/unit");
const QString kYUpKey = QStringLiteral("preferences/yUp");
const QString kThemeKey = QStringLiteral("preferences/theme");
const QString kGridShownKey = QStringLiteral("preferences/gridShown");
const QString kGridKey = QStringLiteral("preferences/gridMm");
const QString kToolKey = QStringLiteral("preferences/keepTool");
const QString kAutosaveKey = QStringLiteral("drawing/autosaveSeconds");
const QString kFieldKey = QStringLiteral("preferences/field");
const QString kToleranceKey = QStringLiteral("preferences/curveToleranceMm");
const QString kPenKey = QStringLiteral("preferences/pen");
const QString kHatchKey = QStringLiteral("preferences/hatch");
const QString kHatchSpacingKey = QStringLiteral("preferences/hatchSpacingMm");
const QString kHatchAngleKey = QStringLiteral("preferences/hatchAngleDeg");
const QString kBorderKey = QStringLiteral("preferences/hatchBorder");

/** A number that was kept; the usual one if there is none in the range. */
template <class Number>
Number number(const QString &key, Number usual, Number least, Number most)
{
    bool isNumber = false;
    const double kept = QSettings().value(key, double(usual)).toDouble(&isNumber);
    const bool isSense = isNumber && kept >= double(least) && kept <= double(most);
    return isSense ? static_cast<Number>(kept) : usual;
}

template <class Choice>
Choice choice(const QString &key, Choice usual, Choice last)
{
    return static_cast<Choice>(number(key, int(usual), 0, int(last)));
}

bool flag(const QString &key, bool usual) { return QSettings().value(key, usual).toBool(); }

bool isField(const QRect &fieldMm)
{
    using namespace preferencerange;
    const auto isSide = [](int side) { return side >= kLeastFieldMm && side <= kMostFieldMm; };
    const auto isPlace = [](int at) { return std::abs(at) <= kMostFieldMm; };
    return isSide(fieldMm.width()) && isSide(fieldMm.height()) && isPlace(fieldMm.x()) &&
           isPlace(fieldMm.y());
}

DrawingChoice keptDrawing()
{
    using namespace preferencerange;
    DrawingChoice drawing;
    const QRect fieldMm = QSettings().value(kFieldKey, drawing.fieldMm).toRect();
    if (isField(fieldMm))
        drawing.fieldMm = fieldMm;
    drawing.curveToleranceMm =
        number(kToleranceKey, drawing.curveToleranceMm, kFinestToleranceMm, kCoarsestToleranceMm);
    return drawing;
}

NewShapeChoice keptShape()
{
    using namespace preferencerange;
    NewShapeChoice shape;
    shape.pen = number(kPenKey, shape.pen, 1, kPenCount);
    shape.hatch.fillType = choice(kHatchKey, shape.hatch.fillType, FillType::None);
    shape.hatch.spac = number(kHatchSpacingKey, shape.hatch.spac, kFinestHatchMm, kCoarsestHatchMm);
    shape.hatch.angle = number(kHatchAngleKey, shape.hatch.angle, -3600.0, 3600.0);
    shape.hatch.isEnableBorder = flag(kBorderKey, shape.hatch.isEnableBorder);
    return shape;
}

} // namespace

bool operator==(const DrawingChoice &a, const DrawingChoice &b)
{
    return a.fieldMm == b.fieldMm && a.curveToleranceMm == b.curveToleranceMm;
}

bool operator!=(const DrawingChoice &a, const DrawingChoice &b) { return !(a == b); }

Preferences Preferences::kept()
{
    using namespace preferencerange;
    Preferences kept;
    kept.unit = choice(kUnitKey, kept.unit, LengthUnit::Inch);
    kept.isYUp = flag(kYUpKey, kept.isYUp);
    kept.theme = choice(kThemeKey, kept.theme, Theme::Dark);
    kept.isGridShown = flag(kGridShownKey, kept.isGridShown);
    const double gridMm = number(kGridKey, 0.0, 0.0, kCoarsestGridMm);
    kept.gridMm = gridMm >= kFinestGridMm ? gridMm : 0.0;
    kept.isToolKept = flag(kToolKey, kept.isToolKept);
    kept.autosaveSeconds = number(kAutosaveKey, kept.autosaveSeconds, 1, kMostAutosaveSeconds);
    kept.newDrawing = keptDrawing();
    kept.newShape = keptShape();
    return kept;
}

void Preferences::keep() const
{
    QSettings settings;
    settings.setValue(kUnitKey, int(unit));
    settings.setValue(kYUpKey, isYUp);
    settings.setValue(kThemeKey, int(theme));
    settings.setValue(kGridShownKey, isGridShown);
    settings.setValue(kGridKey, gridMm);
    settings.setValue(kToolKey, isToolKept);
    settings.setValue(kAutosaveKey, autosaveSeconds);
    settings.setValue(kFieldKey, newDrawing.fieldMm);
    settings.setValue(kToleranceKey, newDrawing.curveToleranceMm);
    settings.setValue(kPenKey, newShape.pen);
    settings.setValue(kHatchKey, int(newShape.hatch.fillType));
    settings.setValue(kHatchSpacingKey, newShape.hatch.spac);
    settings.setValue(kHatchAngleKey, newShape.hatch.angle);
    settings.setValue(kBorderKey, newShape.hatch.isEnableBorder);
}

} // namespace studio
