#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QRect>

class ZTGraphicsDocument;

namespace hostkit {

/**
 * What a drawing's numbers rest on and no shape holds: the figures of `ZTCoord`, the sort kind, the
 * tolerance of curves, the work area and the mark scale. The defaults are those of a fresh program.
 *
 * Frame: as `ZTCoord` names its figures; the work area in millimetres; the scale in mark units per
 * scene pixel.
 */
struct DrawingSetup
{
    double width = 1600.0;                                   ///< of the screen, in scene pixels
    double height = 900.0;                                   ///< of the screen, in scene pixels
    double physicalWidth = 343.126;                          ///< of the screen, in millimetres
    double physicalHeight = 193.0;                           ///< of the screen, in millimetres
    double displayRatio = 1.0;                               ///< scaling of the screen; 1: none
    double distance = 131070.0;                              ///< marking distance, in mark units
    EShapeSortType sortKind = EShapeSortType::ShapeSortNone; ///< order of the mark objects
    QRect workAreaMm{-300, -300, 600, 600};                  ///< where may be marked
    float markScaleX = 1.0F;                                 ///< mark units per scene pixel
    float markScaleY = 1.0F;                                 ///< likewise, downward
    double curveToleranceMm = 0.0;                           ///< of `ZTCurveTolerance`; 0: none

    /**
     * Whether lengths come out as lengths: every figure is a finite number, and a millimetre is
     * between a millionth and a million of scene pixels and of mark units.
     */
    bool isUsable() const;

    /** What holds now: of the process and of `document`. */
    static DrawingSetup of(const ZTGraphicsDocument &document);

    /** Makes it hold for the process, so for all documents: figures, sort kind, tolerance. */
    void applyToProcess() const;

    /** Makes it hold for the process, and work area and scale for `document`. */
    void applyTo(ZTGraphicsDocument &document) const;
};

bool operator==(const DrawingSetup &a, const DrawingSetup &b);
bool operator!=(const DrawingSetup &a, const DrawingSetup &b);

} // namespace hostkit
