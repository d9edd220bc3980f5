#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace studio {

/**
 * The text of an undo step as the step keeps it: in no language yet, so that a change of language
 * reaches the steps that stand on the stack.
 *
 * @param source marked with QT_TRANSLATE_NOOP("studio::UndoTexts", ...)
 * @param arguments stand in for %1 and on
 */
QString undoText(const char *source, const QStringList &arguments = {});

/**
 * The text of an undo step for people, in the language of the program. Steps that the library
 * records have technical names; a text that is unknown comes back as it is.
 */
QString readableUndoText(const QString &text);

} // namespace studio
