#include <QtCore/QLibrary>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

/** A program that was not linked with the library, and loads it when it is needed. */
class tst_lateLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void library_worksWhenItComesLate()
    {
        QWidget early; // the program has shown windows before
        early.show();
        QVERIFY(QTest::qWaitForWindowExposed(&early));

        QLibrary plugin(QStringLiteral(ZT_LATE_HOST));
        plugin.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
        QVERIFY2(plugin.load(), qPrintable(plugin.errorString()));
        using Count = int (*)();
        const auto hatchSegments =
            reinterpret_cast<Count>(plugin.resolve("latehost_hatchSegments"));
        QVERIFY(hatchSegments != nullptr);
        // Lines 2 mm apart over 10 mm: at 2, 4, 6 and 8 mm or, shifted by less, five of them.
        const int first = hatchSegments();
        QVERIFY(first == 4 || first == 5);
        QCOMPARE(hatchSegments(), first);
    }
};

QTEST_MAIN(tst_lateLoad)

#include "tst_lateLoad.moc"
