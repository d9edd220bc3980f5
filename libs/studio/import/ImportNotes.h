#pragma once

#include <vectorkit/VectorReader.h>

#include <QtCore/QStringList>

namespace studio {

/** "left out: pictures (bitmaps) (3), first at line 12" */
QString noteText(const vectorkit::VectorNote &note);

/** The notes of a drawing that tell of something missing or damaged. */
QStringList lossesOf(const vectorkit::VectorDrawing &drawing);

} // namespace studio
