#include "StudioTest.h"

#include <studio/drawing/LongWork.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

#include <atomic>

using studio::LongWork;

namespace {
constexpr int kLongMs = 1000000;
}

class tst_LongWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioTest>();
        window = std::make_unique<QWidget>();
        window->show();
    }
    void cleanup()
    {
        window.reset();
        studio.reset();
    }

    void shortWork_showsNothingAndRunsNoEvents()
    {
        bool hasRun = false;
        QTimer::singleShot(0, window.get(), [&] { hasRun = true; });
        LongWork work(*window, QStringLiteral("Working..."), LongWork::Cancel::Possible, kLongMs);
        for (int i = 1; i <= 100; ++i)
            QVERIFY(work.step(i, 100));
        bool isDone = false;
        QVERIFY(work.run([&] { isDone = true; }));
        QVERIFY(isDone);
        QVERIFY(dialog() == nullptr);
        QVERIFY(!hasRun);
    }

    void job_runsInAnotherThread()
    {
        const QThread *thread = QThread::currentThread();
        LongWork work(*window, QString(), LongWork::Cancel::Impossible);
        QVERIFY(work.run([&] { thread = QThread::currentThread(); }));
        QVERIFY(thread != QThread::currentThread());
    }

    void longWork_showsHowFarItIs_andGoesAway()
    {
        {
            LongWork work(*window, QStringLiteral("Working..."), LongWork::Cancel::Possible, 0);
            QVERIFY(work.step(3, 10));
            QVERIFY(dialog() != nullptr);
            QVERIFY(dialog()->isVisible());
            QCOMPARE(dialog()->labelText(), QStringLiteral("Working..."));
            QCOMPARE(dialog()->value(), 3);
            QCOMPARE(dialog()->maximum(), 10);
            QCOMPARE(dialog()->windowModality(), Qt::WindowModal);
            QVERIFY(work.step(10, 10));
            QCOMPARE(dialog()->value(), 10);
            QVERIFY(QGuiApplication::overrideCursor() != nullptr);
        }
        QVERIFY(dialog() == nullptr);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void cancelledWork_isToldAtTheNextStep()
    {
        LongWork work(*window, QString(), LongWork::Cancel::Possible, 0);
        QVERIFY(work.step(1, 10));
        QTest::mouseClick(dialog()->findChild<QPushButton *>(), Qt::LeftButton);
        QVERIFY(!work.step(2, 10));
    }

    void cancelledJob_isNotWaitedFor()
    {
        std::atomic<bool> mayEnd{false};
        std::atomic<bool> hasEnded{false};
        {
            LongWork work(*window, QString(), LongWork::Cancel::Possible, 0);
            QTimer timer;
            QObject::connect(&timer, &QTimer::timeout, window.get(), [&] {
                if (dialog() != nullptr)
                    QTest::mouseClick(dialog()->findChild<QPushButton *>(), Qt::LeftButton);
            });
            timer.start(5);
            QVERIFY(!work.run([&] {
                while (!mayEnd)
                    QThread::msleep(1);
                hasEnded = true;
            }));
            QVERIFY(!hasEnded);
        }
        mayEnd = true;
        QTRY_VERIFY(hasEnded.load());
    }

    void workThatCannotBeCancelled_hasNoButton_andEscapeDoesNotHelp()
    {
        LongWork work(*window, QString(), LongWork::Cancel::Impossible, 0);
        QVERIFY(work.step(1, 10));
        QVERIFY(dialog()->findChild<QPushButton *>() == nullptr);
        QTest::keyClick(dialog(), Qt::Key_Escape);
        QVERIFY(dialog()->isVisible());
        QVERIFY(!dialog()->close());
        QVERIFY(dialog()->isVisible());
        QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget *>(dialog()));
        QVERIFY(work.step(2, 10));
    }

private:
    QProgressDialog *dialog() const { return window->findChild<QProgressDialog *>(); }

    std::unique_ptr<StudioTest> studio;
    std::unique_ptr<QWidget> window;
};

QTEST_MAIN(tst_LongWork)
#include "tst_LongWork.moc"
