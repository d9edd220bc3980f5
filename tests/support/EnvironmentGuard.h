#pragma once

#include <QtCore/QByteArray>

namespace testsupport {

/** Sets an environment variable while it lives. */
class EnvironmentGuard
{
public:
    EnvironmentGuard(const char *variableName, const QByteArray &value)
        : name(variableName), before(qgetenv(variableName)), wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentGuard()
    {
        if (wasSet)
            qputenv(name, before);
        else
            qunsetenv(name);
    }
    EnvironmentGuard(const EnvironmentGuard &) = delete;
    EnvironmentGuard &operator=(const EnvironmentGuard &) = delete;

private:
    const char *name;
    QByteArray before;
    bool wasSet;
};

} // namespace testsupport
