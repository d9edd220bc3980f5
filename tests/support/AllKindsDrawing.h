#pragma once

class ZTGraphicsDocument;

namespace testsupport {

/**
 * Adds one shape of every kind, texts of every sort, each with settings away from the defaults: the
 * drawing that the files in `tests/data/drawings` hold, one for each version of the format. Never
 * changed, so that those files stay what they are compared with.
 *
 * Order: after the factories and `makeTinyFonts`; the fonts' heights are the stroke texts'.
 */
void drawAllKinds(ZTGraphicsDocument &document);

} // namespace testsupport
