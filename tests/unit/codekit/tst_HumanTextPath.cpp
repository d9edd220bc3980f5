#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <codekit/shape/HumanTextPath.h>

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

#include <cmath>

using namespace codekit;

namespace {

HumanText tiny()
{
    HumanText how;
    how.place = HumanPlace::Below;
    how.kind = FontType::singleLine;
    how.enName = QStringLiteral("tiny.shx");
    how.zhName = QStringLiteral("tinybig.shx");
    how.heightMm = 4.0;
    return how;
}

bool isAbout(double actual, double expected) { return std::abs(actual - expected) < 1e-6; }

} // namespace

// The "A" of the tiny fonts is a square of 8 units, the next letter begins 10 units behind it.

class TestHumanTextPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
    }
    void cleanup()
    {
        singletons.reset();
        warnings.reset();
    }

    void strokes_areAsHighAsAsked_andNothingToHatch()
    {
        HumanTextPath path;
        QString reason;
        QVERIFY2(layOutHumanText(tiny(), QStringLiteral("AA"), &path, &reason), qPrintable(reason));
        QVERIFY(path.outlines.isEmpty());
        QVERIFY(isAbout(path.boxMm.left(), 0.0) && isAbout(path.boxMm.top(), 0.0));
        QVERIFY(isAbout(path.boxMm.height(), 4.0));
        QVERIFY(isAbout(path.boxMm.width(), 9.0)); // 8 units are 4 mm, and 18 units wide
    }

    void widthAndSpacing_areMillimetres()
    {
        HumanText how = tiny();
        how.widthFactor = 0.5;
        how.charSpacingMm = 1.0;
        HumanTextPath path;
        QString reason;
        QVERIFY(layOutHumanText(how, QStringLiteral("AA"), &path, &reason));
        QVERIFY(isAbout(path.boxMm.height(), 4.0));
        QVERIFY(isAbout(path.boxMm.width(), 5.5));
    }

    void outlines_areClosedAndAsHighAsAsked()
    {
        HumanText how;
        how.font = QFont(QStringLiteral("DejaVu Sans"));
        how.heightMm = 3.0;
        HumanTextPath path;
        QString reason;
        QVERIFY(layOutHumanText(how, QStringLiteral("H"), &path, &reason));
        QVERIFY(path.strokes.isEmpty());
        QVERIFY(isAbout(path.boxMm.height(), 3.0));
        for (const QPolygonF &polygon : path.outlines.toSubpathPolygons())
            QVERIFY(polygon.isClosed());
    }

    void controlCharacters_areBlanks()
    {
        HumanTextPath path;
        QString reason;
        QVERIFY(layOutHumanText(tiny(), QStringLiteral("A\nA"), &path, &reason));
        QVERIFY(isAbout(path.boxMm.height(), 4.0));
    }

    void missingFont_isSaidByName()
    {
        HumanText how = tiny();
        how.enName = QStringLiteral("nowhere.shx");
        HumanTextPath path;
        QString reason;
        QVERIFY(!layOutHumanText(how, QStringLiteral("A"), &path, &reason));
        QVERIFY2(reason.contains(QStringLiteral("nowhere.shx")), qPrintable(reason));
    }

    void textWithoutLines_isRefused()
    {
        HumanTextPath path;
        QString reason;
        QVERIFY(!layOutHumanText(tiny(), QStringLiteral(" "), &path, &reason));
        QVERIFY(!reason.isEmpty());
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    TestHumanTextPath test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_HumanTextPath.moc"
