#pragma once

#include <jobkit/values/MachineProfile.h>
#include <jobkit/values/Material.h>

#include <string>

/** Profiles and pens that commands are given by name. What is wrong is told on stderr. */
namespace machinefiles {

/** A profile on board, or one of a file. Failure: false, told on stderr. */
bool readProfile(const std::string &nameOrFile, jobkit::MachineProfile *profile);

/** The pens of a material's file. Failure: false, told on stderr. */
bool readPens(const std::string &file, QVector<jobkit::Pen> *pens);

} // namespace machinefiles
