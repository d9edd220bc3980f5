#pragma once

#include <studio/program/Messages.h>

#include <hostkit/files/Failure.h>

namespace studio {

// What went wrong with a drawing's file, in the language of the program.

Message notOpened(const QString &path, const hostkit::Failure &error);
Message notSaved(const QString &path, const hostkit::Failure &error);
Message notRecovered(const QString &name, const hostkit::Failure &error);
Message fontsMissing(const QString &path, const QStringList &fonts);
Message kindsUnknown(const QString &path, const QMap<QString, int> &kinds);
Message recoveryDamaged(const QStringList &paths);
Message onlyOneOpened(const QString &path, const QStringList &others);

} // namespace studio
