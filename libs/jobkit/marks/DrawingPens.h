#pragma once

#include <jobkit/values/Pen.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace jobkit {

/**
 * The pens that a drawing carries, and its drawing file with it. A drawing without any has those of
 * `defaultPens`.
 *
 * Failure: pens that cannot be read give the same; `error` (if given) then says why, in one
 * translated sentence, and is empty otherwise. The drawing keeps what it has.
 */
QVector<Pen> drawingPens(const ZTGraphicsDocument &document, QString *error = nullptr);

/**
 * The pens that a drawing was given: what its job is planned, checked and written with. Empty for a
 * drawing without any, and where they cannot be read; then a job tells that its pens lack values.
 */
QVector<Pen> givenPens(const ZTGraphicsDocument &document, QString *error = nullptr);

/** Whether a drawing carries pens of its own. */
bool hasDrawingPens(const ZTGraphicsDocument &document);

/**
 * Gives a drawing pens; without any it goes back to the defaults. Undo is the caller's business.
 *
 * Range: each pen without a `problem`, and each number once.
 */
void setDrawingPens(ZTGraphicsDocument &document, const QVector<Pen> &pens);

} // namespace jobkit
