#pragma once

#include <jobkit/plan/JobTimes.h>

#include <hostkit/files/Failure.h>

#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace jobkit {

/** What a file of a job holds. The passes of its plans are laid out. */
struct JobFile
{
    QVector<JobPlan> parts;        ///< what is marked on each part; one in most forms
    QVector<Pen> pens;             ///< those that the plans name
    MachineProfile profile;        ///< of the machine that is to run it
    QString title;                 ///< for people: comments; may be empty
    std::optional<QPointF> headMm; ///< where the head stands before, for the times in JSON and CSV
    bool isYUp = false;            ///< JSON and CSV count y upward; every other form as it does
};

/** The extensions of machine files, with their points: ".nc", ".plt", ... */
QStringList jobExtensions();

/** The form that a file's name asks for by its extension, in any case; none for any other. */
std::optional<JobForm> jobFormOf(const QString &path);

/** Whether a form can hold several parts with a pause between them: G-code alone. */
bool canPause(JobForm form);

/**
 * Writes a job in one of the forms of `docs/formats/job-files.md`, piece by piece.
 *
 * Whatever the plan: the laser is off during every jump and at every end of the file.
 *
 * Failure: false where the device does, where there are several parts and the form knows no pause,
 * or where a coordinate is no number; then the file must not be kept.
 */
bool writeJob(JobForm form, const JobFile &job, QIODevice &device);

/**
 * Writes a job to a file that appears whole or not at all.
 *
 * Failure: false with the reason, and what stood there before stays.
 */
bool saveJob(JobForm form, const JobFile &job, const QString &path, hostkit::Failure *failure);

} // namespace jobkit
