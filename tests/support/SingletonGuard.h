#pragma once

namespace testsupport {

/** Gives a test fresh process-wide singletons, and leaves none behind. */
class SingletonGuard
{
public:
    SingletonGuard();
    ~SingletonGuard();
    SingletonGuard(const SingletonGuard &) = delete;
    SingletonGuard &operator=(const SingletonGuard &) = delete;
};

} // namespace testsupport
