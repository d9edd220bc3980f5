#pragma once

#include <QtCore/QString>

namespace studio {

/** The text of an undo step for people: steps that the library records have technical names. */
QString readableUndoText(const QString &text);

} // namespace studio
