#pragma once

#include <studio/choices/Theme.h>
#include <studio/choices/Units.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QRect>

namespace studio {

/** What belongs to a drawing and is saved with it; lengths in millimetres. */
struct DrawingChoice
{
    QRect fieldMm{-300, -300, 600, 600};

    /** How far a marked chord may lie from its curve; 0: as drawings before had it. */
    double curveToleranceMm = ZTCurveTolerance::kUsualMm;

    bool isExportYUp = false; ///< of `hostkit::exportsYUp`
};

bool operator==(const DrawingChoice &a, const DrawingChoice &b);
bool operator!=(const DrawingChoice &a, const DrawingChoice &b);

/** What new shapes get; the hatch as its record has it, in millimetres and clockwise degrees. */
struct NewShapeChoice
{
    int pen = 1;
    ZTFillParam hatch;
};

/**
 * How a user likes the program. Language, snapping and the recovery files have settings of their
 * own, which the dialog shows beside these.
 */
struct Preferences
{
    LengthUnit unit = LengthUnit::Millimetre;
    bool isYUp = false;
    Theme theme = Theme::System;
    bool isGridShown = true;
    double gridMm = 0.0;     ///< between grid lines; 0: follows the zoom
    bool isToolKept = false; ///< after a shape was drawn
    int autosaveSeconds = 45;
    DrawingChoice newDrawing;
    NewShapeChoice newShape;

    /** Those that were kept; what was never kept, or makes no sense, is as above. */
    static Preferences kept();

    /** Keeps them for this user. */
    void keep() const;
};

/** Permitted values of what people type here. */
namespace preferencerange {
constexpr int kLeastFieldMm = 1;
constexpr int kMostFieldMm = 10000;
constexpr double kFinestToleranceMm = 0.0005;
constexpr double kCoarsestToleranceMm = 1.0;
constexpr double kFinestGridMm = 0.001;
constexpr double kCoarsestGridMm = 1000.0;
constexpr double kFinestHatchMm = 0.005;
constexpr double kCoarsestHatchMm = 1000.0;
constexpr int kLeastAutosaveSeconds = 5;
constexpr int kMostAutosaveSeconds = 60;
} // namespace preferencerange

} // namespace studio
