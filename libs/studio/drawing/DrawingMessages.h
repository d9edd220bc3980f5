#pragma once

#include <studio/Messages.h>

#include <hostkit/drawing/DrawingError.h>

namespace studio {

// What went wrong with a drawing's file, in the language of the program.

Message notOpened(const QString &path, const hostkit::DrawingError &error);
Message notSaved(const QString &path, const hostkit::DrawingError &error);
Message notRecovered(const QString &name, const hostkit::DrawingError &error);
Message fontsMissing(const QString &path, const QStringList &fonts);
Message recoveryDamaged(const QStringList &paths);
Message onlyOneOpened(const QString &path, const QStringList &others);

} // namespace studio
