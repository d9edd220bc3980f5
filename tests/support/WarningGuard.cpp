#include "WarningGuard.h"

#include <QtTest/QTest>

#include <utility>

namespace testsupport {

namespace {
WarningGuard *current = nullptr;
}

WarningGuard::WarningGuard()
{
    current = this;
    previous = qInstallMessageHandler(&WarningGuard::collect);
}

WarningGuard::~WarningGuard()
{
    qInstallMessageHandler(previous);
    current = nullptr;
    if (!messages.isEmpty())
        QTest::qFail(qPrintable(QStringLiteral("unexpected message: ") + messages.first()),
                     __FILE__, __LINE__);
}

QStringList WarningGuard::take() { return std::exchange(messages, {}); }

void WarningGuard::collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtFatalMsg)
        current->previous(type, context, text);
    current->messages << text;
}

} // namespace testsupport
