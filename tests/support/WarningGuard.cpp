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
    // The offscreen platform says so of any window that has a least size.
    if (text.startsWith(QLatin1String("This plugin does not support")))
        return;
    current->messages << text;
}

} // namespace testsupport
