#include "support/OwnFolder.h"
#include "support/ShxWriter.h"
#include "support/TinyFonts.h"

#include <studio/text/StrokeFontList.h>
#include <studio/text/StrokeSamples.h>

#include <hostkit/text/StrokeFont.h>

#include <QtCore/QFile>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>

using studio::StrokeFontList;
using studio::StrokeSamples;

class tst_StrokeSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        samples = std::make_unique<StrokeSamples>();
    }

    void sample_comesLater_andIsDrawnInTheFont()
    {
        QSignalSpy ready(samples.get(), &StrokeSamples::ready);
        QVERIFY(samples->sample(tiny) == nullptr);
        QVERIFY(ready.wait());
        QCOMPARE(ready.size(), 1);
        const QPainterPath *path = samples->sample(tiny);
        QVERIFY(path != nullptr);
        // The font has "A" and "B" of the words: squares of 8 and 4 units, a unit
        // being 2, one and eleven units from the start.
        QCOMPARE(path->boundingRect(), QRectF(2, -16, 28, 16));
    }

    void bigFont_showsChinese()
    {
        const QPainterPath path = StrokeSamples::draw(pathOf("tinybig.shx"));
        // Two of the characters: squares of 8 and 4 units, one and eleven units from the start.
        QCOMPARE(path.boundingRect(), QRectF(2, -16, 28, 16));
    }

    void lastAskedFor_comesFirst_eachOnce()
    {
        QSignalSpy ready(samples.get(), &StrokeSamples::ready);
        samples->sample(tiny);
        samples->sample(QStringLiteral("tinybig.shx"));
        samples->sample(tiny);
        QTRY_COMPARE(ready.size(), 2);
        QCOMPARE(ready[0][0].toString(), tiny);
        QCOMPARE(ready[1][0].toString(), QStringLiteral("tinybig.shx"));
    }

    void fileThatIsNoFont_hasAnEmptySample()
    {
        testsupport::writeFile(pathOf("broken.shx"), QByteArrayLiteral("no font at all"));
        QVERIFY(StrokeSamples::draw(pathOf("broken.shx")).isEmpty());
        QVERIFY(StrokeSamples::draw(pathOf("missing.shx")).isEmpty());
    }

    void hugeFont_isCutOff()
    {
        testsupport::ShxWriter writer;
        writer.above = 1;
        QByteArray far;
        for (int i = 0; i < 300; ++i)
            far += testsupport::bytes({8, 127, 127});
        writer.glyphs = {{'A', far + testsupport::bytes({0}), {}}};
        testsupport::writeFile(pathOf("far.shx"), writer.shapes());
        const QPainterPath path = StrokeSamples::draw(pathOf("far.shx"));
        QVERIFY(path.boundingRect().width() <= 8000.0);
    }

    void heightsThatDrawingsShare_areLeftAlone()
    {
        ZTShxParser *shared = ZTShxFontManager::getFont("tiny.shx", 50);
        shared->setTextHeight(33.0);
        StrokeSamples::draw(pathOf("tiny.shx"));
        QCOMPARE(shared->getTextHeight(), 33.0);
    }

    void list_showsSamples_andTellsOnlyTheUsersChoice()
    {
        StrokeFontList list({QStringLiteral("broken.shx"), tiny}, *samples);
        QSignalSpy chosen(&list, &StrokeFontList::chosenByUser);
        list.resize(300, 200);
        list.show();
        list.choose(tiny);
        QCOMPARE(list.chosen(), tiny);
        list.choose(QStringLiteral("unknown.shx"));
        QCOMPARE(list.chosen(), QString());
        QCOMPARE(chosen.size(), 0);
        const QImage without = list.grab().toImage();
        QTRY_VERIFY(samples->sample(tiny) != nullptr);
        QVERIFY(list.grab().toImage() != without);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_Down);
        QVERIFY(chosen.size() > 0);
        QCOMPARE(chosen.last()[0].toString(), tiny);
    }

    void fiveHundredFonts_makeOnlyWhatIsSeen()
    {
        QStringList names;
        for (int i = 0; i < 500; ++i) {
            names << QStringLiteral("font%1.shx").arg(i, 3, 10, QLatin1Char('0'));
            QVERIFY(QFile::copy(pathOf("tiny.shx"), pathOf(names.last().toLatin1())));
        }
        StrokeFontList list(names, *samples);
        QSignalSpy ready(samples.get(), &StrokeSamples::ready);
        list.resize(300, 200);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QTRY_VERIFY(ready.size() > 0);
        QTest::qWait(100);
        QVERIFY(ready.size() < 20);
        list.scrollToBottom();
        QTRY_VERIFY(samples->sample(names.last()) != nullptr);
        QVERIFY(ready.size() < 40);
    }

private:
    static QString pathOf(const QByteArray &name)
    {
        return hostkit::strokeFontFolder() + QLatin1Char('/') + QString::fromLatin1(name);
    }

    const QString tiny = QStringLiteral("tiny.shx");
    std::unique_ptr<StrokeSamples> samples;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_StrokeSamples test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_StrokeSamples.moc"
