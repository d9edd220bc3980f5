#pragma once

#include <studio/job/JobRun.h>

namespace studio {

class PlanView;

/**
 * Writes what goes with a part into the archive: the picture of the whole plan, the drawing's name,
 * the day, the machine and its field, the size, the pens, the times and all findings; as PDF on as
 * many pages of A4 as that takes, black on white in every theme, or the picture alone as PNG where
 * the name ends so.
 *
 * `drawing`: the name of its file; empty where it was never saved.
 * Failure: false with the reason, translated; what stood there before stays.
 */
bool saveReport(const Job &job, const QString &drawing, const PlanView &plan, const QString &path,
                QString *error);

/** The report's text, as HTML. */
QString reportText(const Job &job, const QString &drawing);

} // namespace studio
