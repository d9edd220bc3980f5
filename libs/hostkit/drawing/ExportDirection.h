#pragma once

class ZTGraphicsDocument;

namespace hostkit {

/**
 * Whether the files that programs read of a drawing, JSON and CSV, of mark paths and of jobs, count
 * y upward. It belongs to the drawing and is saved with it; a drawing that says nothing counts
 * downward. Pictures, DXF, HP-GL and G-code count as their form or the machine does, whatever a
 * drawing says: they show or make the same part.
 */
bool exportsYUp(const ZTGraphicsDocument &document);

/** Lets a drawing say so. */
void setExportsYUp(ZTGraphicsDocument &document, bool isYUp);

} // namespace hostkit
