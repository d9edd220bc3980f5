#pragma once

#include <QtCore/QByteArray>

#include <functional>

namespace testsupport {

/** What the process prints on standard output while `action` runs; check results after it. */
QByteArray stdoutOf(const std::function<void()> &action);

} // namespace testsupport
