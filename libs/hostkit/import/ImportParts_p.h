#pragma once

#include <hostkit/import/DrawingImport.h>

namespace hostkit {

/** What becomes one vector graphic. */
struct ImportPart
{
    QString name;
    int pen = 1;
    int layer = -1;      ///< of the drawing; -1: several
    bool isOpen = false; ///< holds open outlines alone, kept apart from the closed ones
    bool hasOtherPens = false;
    QVector<vectorkit::VectorPath> paths;
};

/**
 * A drawing taken apart as the options say, from the lowest up. False when `progress`, told how
 * much is done, 0 to 1, cancels; it may be empty.
 */
bool importParts(const vectorkit::VectorDrawing &drawing, const ImportOptions &options,
                 const std::function<bool(double)> &progress, QVector<ImportPart> *parts);

} // namespace hostkit
