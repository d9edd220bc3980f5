#pragma once

#include <jobkit/plan/JobOrder.h>
#include <jobkit/values/MachineProfile.h>

namespace studio {

/** How the user's jobs are made: the machine and the order. Kept among the user's settings. */
struct JobSettings
{
    QString profile; ///< a name on board, or the path of a file
    jobkit::OrderKind order = jobkit::OrderKind::Best;
    jobkit::HatchPlace hatchPlace = jobkit::HatchPlace::Any;
    bool isPenByPen = false; ///< as `ztmark job` has them, so that it writes the same bytes
    bool isInnerFirst = false;

    static JobSettings load();
    void save() const;

    /**
     * Reads the profile that is named.
     *
     * Failure: false, with the reason as a translated sentence, and `machine` stays.
     */
    bool readProfile(jobkit::MachineProfile *machine, QString *error) const;
};

bool operator==(const JobSettings &a, const JobSettings &b);

} // namespace studio
