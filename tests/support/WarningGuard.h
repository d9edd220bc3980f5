#pragma once

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

namespace testsupport {

/**
 * Collects every message that Qt or the library logs while it lives; a test that ends with one it
 * did not take fails. One at a time.
 */
class WarningGuard
{
public:
    WarningGuard();
    ~WarningGuard();
    WarningGuard(const WarningGuard &) = delete;
    WarningGuard &operator=(const WarningGuard &) = delete;

    /** The messages so far, oldest first; taken messages no longer fail the test. */
    QStringList take();

private:
    static void collect(QtMsgType type, const QMessageLogContext &context, const QString &text);

    QtMessageHandler previous = nullptr;
    QStringList messages;
};

} // namespace testsupport
