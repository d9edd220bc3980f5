#pragma once

#include <studio/job/JobRun.h>

class QWidget;

namespace studio {

class PlanView;

/**
 * Writes what goes with a part into the archive: the picture of the whole plan, the machine and its
 * field, the size, the pens, the times and the findings; as PDF on A4, or the picture alone as PNG
 * where the name ends so.
 *
 * Failure: false with the reason, translated; what stood there before stays.
 */
bool saveReport(const Job &job, const PlanView &plan, const QString &path, QString *error);

/** The report's text, as HTML. */
QString reportText(const Job &job);

} // namespace studio
