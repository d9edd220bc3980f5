#pragma once

#include <studio/shapes/ShapeItems.h>

#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/ItemExtras.h>

#include <vectorkit/clean/DrawingCleaning.h>

#include <optional>

namespace studio {

/**
 * Where a shape came from and how, so that it can be brought in once more when its file has
 * changed. The shape carries it among its extras, in drawing files and in copies too.
 */
struct ImportSource
{
    QString file;        ///< absolute
    QString import;      ///< the same for all that came in together, and for no others
    QString part;        ///< which of them
    QPointF originMm;    ///< of the shape's own frame in the drawing as it came in
    double scaleX = 1.0; ///< from the file's true size to the chosen one
    double scaleY = 1.0;
    hostkit::ImportOptions options;   ///< split, hatch of open outlines, pens
    vectorkit::CleanOptions cleaning; ///< without progress
};

/** What a shape carries; none for one that came from no file. */
std::optional<ImportSource> importSourceOf(const ShapeItem &item);

void setImportSource(ShapeItem &item, const ImportSource &source);

/** Of extras: the shape stands for no part of a file any more. */
void dropImportSource(hostkit::ItemExtras *extras);

/**
 * Names for what an import made: the same for the same part of a changed file. Order: as imported,
 * with the names and pens that the import gave.
 */
QStringList importParts(const ShapeItems &imported);

/**
 * Marks what an import made as parts of its file. Order: before the shapes are moved; `source`
 * without part and origin, `shiftMm` as the import gave it.
 */
void markImported(const ShapeItems &imported, const ImportSource &source, const QPointF &shiftMm);

} // namespace studio
