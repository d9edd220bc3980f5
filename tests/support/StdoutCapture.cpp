#include "StdoutCapture.h"

#include <QtCore/QTemporaryFile>

#include <cstdio>
#include <unistd.h>

namespace testsupport {

QByteArray stdoutOf(const std::function<void()> &action)
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("no temporary file");
    std::fflush(stdout);
    const int original = dup(STDOUT_FILENO);
    dup2(file.handle(), STDOUT_FILENO);
    action();
    std::fflush(stdout);
    dup2(original, STDOUT_FILENO);
    close(original);
    file.seek(0);
    return file.readAll();
}

} // namespace testsupport
