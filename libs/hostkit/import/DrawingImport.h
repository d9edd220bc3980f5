#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <vectorkit/VectorDrawing.h>

#include <QtCore/QMap>
#include <QtGui/QPainterPath>

#include <functional>
#include <optional>

namespace hostkit {

/** What becomes one shape. */
enum class ImportSplit : quint8 {
    None,   ///< the whole drawing
    Layer,  ///< each layer
    Color,  ///< each colour, or each pen of a plotter
    Outline ///< each outline with the holes in it, and the islands in those apart
};

/** How a foreign drawing comes in. */
struct ImportOptions
{
    ImportSplit split = ImportSplit::Color; ///< what becomes one shape

    /** Curves become straight pieces within this many mm; 0: they stay curves. */
    double toleranceMm = 0.0;

    /**
     * Open outlines of more than one piece are closed by a straight line, which is marked too, and
     * hatched. Else they come in shapes of their own, which are left without a hatch.
     */
    bool fillsOpen = false;

    QMap<QRgb, int> pens;            ///< pen of a colour; others go to the pen nearest in colour,
                                     ///< and what a plotter drew keeps its pen
    std::optional<ZTFillParam> fill; ///< hatch of closed outlines; none: the library's default

    /**
     * Where on the scene the middle of the drawing comes to; none, or one that is not finite: as
     * it lies in the file, or, where that is beyond the scene, in the middle of it. A scene smaller
     * than the drawing grows.
     */
    std::optional<QPointF> centreMm;

    /** Told how much is done, 0 to 1; false cancels. May be empty. */
    std::function<bool(double done)> progress;
};

/** What came in. */
struct ImportResult
{
    QList<ZTAbstractGraphicsItem *> items; ///< from the lowest up. Owner: the scene
    int texts = 0;                         ///< of the items
    int openShapes = 0;                    ///< of the items: those of open outlines
    int dots = 0;                          ///< runs without length, which became short lines
    int mergedPens = 0;       ///< shapes that hold more than one colour and show the first of them
    QPointF shiftMm;          ///< by which all of it stands beside where it lies in the file
    bool isCancelled = false; ///< nothing came in
};

/**
 * Length of the line that a dot becomes, a run without length: the library's paths hold no points,
 * and on the part both are a spot.
 */
constexpr double kDotMm = 0.01;

/** Colours in which items show the pens 1 to 16. */
constexpr int kScreenPens = 16;
QColor screenPenColor(int pen);

/** The pen for a colour: as the table says, else the one nearest in colour; 1 for an invalid one.
 */
int penForColor(const QColor &color, const QMap<QRgb, int> &pens);

/**
 * Box of all that comes in: of the paths, and of the texts' letters as the document lays them out;
 * null for a drawing of neither. `letters` (may be null) gets the outlines of each text's letters
 * in the order of layers and texts, empty for a text that does not come in, as one of spaces alone.
 *
 * Frame: millimetres of the drawing. Order: GUI thread, as fonts are asked.
 */
QRectF arrivingBoxMm(const vectorkit::VectorDrawing &drawing,
                     QVector<QPainterPath> *letters = nullptr);

/**
 * Notes each font of a drawing's texts that is not installed here, with how many texts name it and
 * what stands in for it. The texts keep the name. Order: as `arrivingBoxMm`.
 */
void noteMissingFonts(vectorkit::VectorDrawing *drawing);

/**
 * Stretches a drawing so that `arrivingBoxMm` gets this size. A width or height that is not
 * above 0 follows the other one; with neither above 0, or without a box, nothing changes.
 *
 * Failure: false, and no change, where the box has no extent in a direction that is asked for, or
 * the factor is not finite.
 */
bool fitDrawing(vectorkit::VectorDrawing *drawing, const QSizeF &sizeMm);

/** Stretches a drawing about (0, 0). Range: both greater than 0. */
void scaleDrawing(vectorkit::VectorDrawing *drawing, double scaleX, double scaleY);

/**
 * Brings a drawing into a document at true size: shapes as vector graphics, texts as texts.
 *
 * Each vector graphic holds its own piece of the drawing, named by what it was split by, moved so
 * that its box begins at the shape's origin; dots become lines `kDotMm` long. Where a drawing has
 * several layers, the shapes of `ImportSplit::Outline` are grouped by them. No undo command is
 * pushed and nothing is selected: the caller has the items. The drawing is in the shapes and in
 * drawing files; the library's own stream of documents has no room for it.
 *
 * Order: GUI thread, after `registerFactories`.
 */
ImportResult importDrawing(ZTGraphicsDocument &document, const vectorkit::VectorDrawing &drawing,
                           const ImportOptions &options);
/**
 * Closed outlines gathered with the holes in them: indices of paths, the outer outline first.
 * An island in a hole begins a group of its own. Range: `progress` may be empty; it is told how
 * much is done, 0 to 1, and cancels with false. Failure: when cancelled, no groups.
 */
QVector<QVector<int>> outlinesWithHoles(const QVector<vectorkit::VectorPath> &closed,
                                        const std::function<bool(double)> &progress = {});

} // namespace hostkit
