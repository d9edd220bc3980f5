#include <ZTDrawEngineLib/common/MovableText_p.h>

#include <support/TestFonts.h>

#include <QtGui/QFont>
#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <limits>
#include <random>

using testsupport::cubicFont;
using ztoutline::MovableText;

namespace {

/** What Qt lays out, with nothing moved. */
QPainterPath laidOutAt(const QPointF &position, const QFont &font, const QString &text)
{
    QPainterPath path;
    path.addText(position, font, text);
    return path;
}

QPainterPath movedTo(const QPointF &position, const MovableText &text)
{
    QPainterPath path;
    text.addTo(path, position);
    return path;
}

/** Exactly: fractions of a pixel's last bit are what is at stake. */
void compareToTheBit(const QPainterPath &ours, const QPainterPath &plain)
{
    QCOMPARE(ours.elementCount(), plain.elementCount());
    QCOMPARE(ours.fillRule(), plain.fillRule());
    for (int i = 0; i < plain.elementCount(); ++i) {
        QCOMPARE(ours.elementAt(i).type, plain.elementAt(i).type);
        QVERIFY2(ours.elementAt(i).x == plain.elementAt(i).x &&
                     ours.elementAt(i).y == plain.elementAt(i).y,
                 qPrintable(QStringLiteral("point %1: (%2, %3) instead of (%4, %5)")
                                .arg(i)
                                .arg(ours.elementAt(i).x, 0, 'g', 17)
                                .arg(ours.elementAt(i).y, 0, 'g', 17)
                                .arg(plain.elementAt(i).x, 0, 'g', 17)
                                .arg(plain.elementAt(i).y, 0, 'g', 17)));
    }
}

} // namespace

class tst_MovableText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addTo_anyPlace_asThePathDoes_data()
    {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QString>("text");
        const QFont small(QStringLiteral("DejaVu Sans"), 5);
        QTest::newRow("small") << small << QStringLiteral("down");
        QTest::newRow("large") << QFont(QStringLiteral("DejaVu Sans"), 90)
                               << QStringLiteral("gA8@");
        QFont italic = small;
        italic.setItalic(true);
        QTest::newRow("slanted") << italic << QStringLiteral("right");
        QFont underlined = small;
        underlined.setUnderline(true);
        QTest::newRow("underlined, which moves otherwise") << underlined << QStringLiteral("up");
        QFont stretched = small;
        stretched.setStretch(150);
        QTest::newRow("stretched") << stretched << QStringLiteral("left");
        QTest::newRow("several scripts")
            << small << QStringLiteral("a") + QChar(0x05D0) + QChar(0x4F60) + QStringLiteral("b");
        QFont capitals = small;
        capitals.setCapitalization(QFont::SmallCaps);
        QTest::newRow("small capitals") << capitals << QStringLiteral("aBcD");
        QTest::newRow("curves with two control points")
            << cubicFont(QStringLiteral("C059-Roman.otf"), 40) << QStringLiteral("S8g");
        QTest::newRow("the same, tiny")
            << cubicFont(QStringLiteral("C059-Roman.otf"), 5) << QStringLiteral("S8g");
        QTest::newRow("no text") << small << QString();
    }

    void addTo_anyPlace_asThePathDoes()
    {
        QFETCH(QFont, font);
        QFETCH(QString, text);
        const MovableText movable(font, text);
        std::mt19937 dice(7);
        std::uniform_real_distribution<double> some(-2000.0, 2000.0);
        std::uniform_real_distribution<double> few(-1.0, 1.0);
        for (int i = 0; i < 200; ++i) {
            const QPointF position =
                i % 2 == 0 ? QPointF(some(dice), some(dice)) : QPointF(few(dice), few(dice));
            compareToTheBit(movedTo(position, movable), laidOutAt(position, font, text));
            if (QTest::currentTestFailed())
                return;
        }
    }

    void addTo_pathThatHoldsSomething_addsBehindIt()
    {
        const QFont font(QStringLiteral("DejaVu Sans"), 11);
        const MovableText movable(font, QStringLiteral("up"));
        QPainterPath ours;
        ours.moveTo(1.0, 2.0);
        ours.lineTo(3.0, 4.0);
        QPainterPath plain = ours;
        movable.addTo(ours, {5.3, 6.7});
        plain.addText(5.3, 6.7, font, QStringLiteral("up"));
        QVERIFY(plain.elementCount() > 20);
        compareToTheBit(ours, plain);
    }

    void addTo_farOut_asThePathDoes()
    {
        const QFont font(QStringLiteral("DejaVu Sans"), 11);
        const MovableText movable(font, QStringLiteral("up"));
        for (const QPointF &position : {QPointF(999999.9, -999999.9), QPointF(1e7, -1e7)})
            compareToTheBit(movedTo(position, movable),
                            laidOutAt(position, font, QStringLiteral("up")));
    }

    void addTo_notANumber_doesNotCrash()
    {
        const double none = std::numeric_limits<double>::quiet_NaN();
        const MovableText movable(QFont(QStringLiteral("DejaVu Sans"), 11), QStringLiteral("up"));
        movedTo({none, 0.0}, movable);
        movedTo({0.0, std::numeric_limits<double>::infinity()}, movable);
    }
};

QTEST_MAIN(tst_MovableText)
#include "tst_MovableText.moc"
