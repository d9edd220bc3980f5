#pragma once

#include <QtGui/QCursor>

namespace studio {

/** A cross whose middle is the place, with the small icon of that name beside it. */
QCursor toolCursor(const char *iconName);

} // namespace studio
