#pragma once

namespace studio {

/** The colours of the program. */
enum class Theme { System, Light, Dark };

/**
 * Gives the whole program its colours, at once; System: those that it was started with. The paper
 * of the canvas is white in every theme, because shapes are drawn in the colours of their pens.
 *
 * Order: after the application object.
 */
void applyTheme(Theme theme);

/** What was applied last; System before that. */
Theme appliedTheme();

} // namespace studio
