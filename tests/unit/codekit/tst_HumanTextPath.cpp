#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <codekit/shape/HumanTextPath.h>

#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

#include <algorithm>
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

/** Digits in "DejaVu Sans", whose ink is narrower than seven modules of a millimetre. */
HumanText digits(double heightMm)
{
    HumanText how;
    how.place = HumanPlace::Below;
    how.font = QFont(QStringLiteral("DejaVu Sans"));
    how.heightMm = heightMm;
    return how;
}

struct Code
{
    CodeSymbol symbol;
    CodeForm form;
    CodeMarks marks;
};

Code code(CodeKind kind, const char *content)
{
    Code made;
    CodeSpec spec;
    spec.kind = kind;
    spec.content = QString::fromLatin1(content);
    made.form.moduleMm = 1.0;
    made.form.heightMm = 30.0;
    QString reason;
    if (!encodeCode(spec, &made.symbol, &reason) ||
        !markCode(made.symbol, made.form, &made.marks, &reason))
        qWarning("%s", qPrintable(reason));
    return made;
}

/** Boxes of the letters, from the left; outlines within a letter belong to it. */
QVector<QRectF> boxesOf(const HumanTextPath &path)
{
    QVector<QRectF> boxes;
    for (const QPolygonF &polygon : path.outlines.toSubpathPolygons()) {
        const QRectF box = polygon.boundingRect();
        const auto same = std::find_if(boxes.begin(), boxes.end(), [&](const QRectF &other) {
            return other.left() < box.right() && box.left() < other.right();
        });
        if (same == boxes.end())
            boxes.append(box);
        else
            *same |= box;
    }
    std::sort(boxes.begin(), boxes.end(),
              [](const QRectF &a, const QRectF &b) { return a.left() < b.left(); });
    return boxes;
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

    void letters_areInTheOrderOfReading_whateverIsMarkedFirst()
    {
        HumanTextPath plain;
        QString reason;
        QVERIFY(layOutHumanText(tiny(), QStringLiteral("ABA"), &plain, &reason));
        ZTPointSort *sort = ZTPointSort::getInstance();
        sort->setShapeMarkSort(EShapeSortType::ShapeSortXFromMax);
        HumanTextPath sorted;
        QVERIFY(layOutHumanText(tiny(), QStringLiteral("ABA"), &sorted, &reason));
        QCOMPARE(sorted.strokes, plain.strokes);
        QVERIFY(sort->getShapeMarkSort() == EShapeSortType::ShapeSortXFromMax);
    }

    void controlCharacters_areBlanks()
    {
        HumanTextPath path;
        QString reason;
        QVERIFY(layOutHumanText(tiny(), QStringLiteral("A\nA"), &path, &reason));
        QVERIFY(isAbout(path.boxMm.height(), 4.0));
    }

    void retailDigits_standUnderTheirBars_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QVector<double>>("centres");
        // Three modules of guard, seven a digit, five between the halves; what the bars do not
        // spell stands in the middle of its quiet zone: 11 modules of EAN-13, 9 of UPC, 7 right of
        // UPC-E.
        QTest::newRow("ean13") << int(CodeKind::Ean13) << QByteArrayLiteral("4006381333931")
                               << QVector<double>{-5.5, 6.5,  13.5, 20.5, 27.5, 34.5, 41.5,
                                                  53.5, 60.5, 67.5, 74.5, 81.5, 88.5};
        QTest::newRow("ean8") << int(CodeKind::Ean8) << QByteArrayLiteral("73513537")
                              << QVector<double>{6.5, 13.5, 20.5, 27.5, 39.5, 46.5, 53.5, 60.5};
        QTest::newRow("upca") << int(CodeKind::UpcA) << QByteArrayLiteral("036000291452")
                              << QVector<double>{-4.5, 13.5, 20.5, 27.5, 34.5, 41.5,
                                                 53.5, 60.5, 67.5, 74.5, 81.5, 99.5};
        QTest::newRow("upce") << int(CodeKind::UpcE) << QByteArrayLiteral("01234565")
                              << QVector<double>{-4.5, 6.5, 13.5, 20.5, 27.5, 34.5, 41.5, 54.5};
    }

    void retailDigits_standUnderTheirBars()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, content);
        QFETCH(QVector<double>, centres);
        const Code made = code(CodeKind(kind), content.constData());
        HumanTextPath path;
        QString reason;
        QVERIFY2(layOutCodeText(digits(4.0), made.symbol, made.form, made.marks, &path, &reason),
                 qPrintable(reason));
        const QVector<QRectF> boxes = boxesOf(path);
        QCOMPARE(boxes.size(), centres.size());
        for (int at = 0; at < centres.size(); ++at)
            QVERIFY2(std::abs(boxes[at].center().x() - centres[at]) < 0.01,
                     qPrintable(QString::number(at)));
        QVERIFY(std::abs(path.boxMm.top() - 31.0) < 1e-6); // a module below the bars
    }

    void addOn_hasItsDigitsAboveItsBars()
    {
        const Code made = code(CodeKind::Ean13, "4006381333931+12");
        HumanTextPath path;
        QString reason;
        QVERIFY(layOutCodeText(digits(4.0), made.symbol, made.form, made.marks, &path, &reason));
        const QVector<QRectF> boxes = boxesOf(path);
        QCOMPARE(boxes.size(), 15);
        // The add-on is 20 modules wide and ends the code: four of start, then 7, 2 and 7.
        const double first = made.symbol.columns - 20.0 + 4.0;
        QVERIFY(std::abs(boxes[13].center().x() - (first + 3.5)) < 0.01);
        QVERIFY(std::abs(boxes[14].center().x() - (first + 12.5)) < 0.01);
        for (int at = 0; at < boxes.size(); ++at)
            QVERIFY(at < 13 ? boxes[at].top() > 30.9 : boxes[at].bottom() < -0.9);
    }

    void wideOrSpacedDigits_andOtherKinds_areOneLine()
    {
        const Code ean = code(CodeKind::Ean13, "4006381333931");
        HumanTextPath path;
        QString reason;
        // Digits of 12 mm are about as wide: there is no room for one over seven modules.
        QVERIFY(layOutCodeText(digits(12.0), ean.symbol, ean.form, ean.marks, &path, &reason));
        QVERIFY(std::abs(path.boxMm.center().x() - 47.5) < 1e-6);
        QVERIFY(path.boxMm.width() > 110.0);
        HumanText spaced = digits(4.0);
        spaced.charSpacingMm = 0.5;
        QVERIFY(layOutCodeText(spaced, ean.symbol, ean.form, ean.marks, &path, &reason));
        QVERIFY(path.boxMm.width() < 60.0);
        const Code plain = code(CodeKind::Code128, "SN-1");
        HumanText above = digits(4.0);
        above.place = HumanPlace::Above;
        QVERIFY(layOutCodeText(above, plain.symbol, plain.form, plain.marks, &path, &reason));
        QVERIFY(std::abs(path.boxMm.center().x() - plain.marks.symbolMm.center().x()) < 1e-6);
        QVERIFY(std::abs(path.boxMm.bottom() + 1.0) < 1e-6);
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
