#pragma once

#include <hostkit/import/DrawingImport.h>

#include <vectorkit/clean/DrawingCleaning.h>

namespace studio {

/** How the user lets drawings come in: kept from one import to the next. */
hostkit::ImportOptions rememberedImportOptions();

/** Keeps split, hatch of open outlines and the table of pens. */
void rememberImportOptions(const hostkit::ImportOptions &options);

/** What the user had cleaned last; nothing at first. Without progress. */
vectorkit::CleanOptions rememberedCleaning();

void rememberCleaning(const vectorkit::CleanOptions &options);

} // namespace studio
