#include <hostkit/files/Failure.h>

#include <QtTest/QTest>

using hostkit::Failure;

class tst_Failure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newFailure_isNone()
    {
        const Failure failure;
        QCOMPARE(failure.kind, Failure::Kind::None);
        QVERIFY(failure.reason.isEmpty() && failure.advice.isEmpty());
    }

    void fail_saysAllAndIsFalse()
    {
        Failure failure;
        QVERIFY(!hostkit::fail(&failure, Failure::Kind::CannotWrite, QStringLiteral("no room"),
                               QStringLiteral("Save elsewhere.")));
        QCOMPARE(failure.kind, Failure::Kind::CannotWrite);
        QCOMPARE(failure.reason, QStringLiteral("no room"));
        QCOMPARE(failure.advice, QStringLiteral("Save elsewhere."));
    }

    void fail_withNobodyToTell_isFalse()
    {
        QVERIFY(!hostkit::fail(nullptr, Failure::Kind::Damaged, QStringLiteral("cut")));
    }
};

QTEST_GUILESS_MAIN(tst_Failure)
#include "tst_Failure.moc"
