#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>
#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>
#include <QtTest/QTest>

#include <memory>

namespace {

/** A text that keeps what it was told to show. */
class TestText : public ZTTextShapeBase
{
public:
    void paint() override { ++paints; }
    void setText(const QString &text) override
    {
        m_text = text;
        shown << text;
    }

    int paints = 0;
    QStringList shown;
};

/** A text with the base's own setText. */
class PlainText : public ZTTextShapeBase
{
public:
    void paint() override {}
};

ZTVariantText numbers(qint64 start)
{
    ZTCounterSegment counter;
    counter.start = start;
    ZTVariantText text;
    text.setSegments({counter});
    return text;
}

/** A text with variant text switched on that counts from `start`. */
void countFrom(ZTTextShapeBase &shape, qint64 start)
{
    ZTVariantText text = numbers(start);
    shape.cloneVariantText(&text);
    shape.setEnableVariantText(true);
}

QByteArray saved(const ZTTextShapeBase &shape)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    shape.save(stream);
    return bytes;
}

bool load(ZTTextShapeBase &shape, const QByteArray &bytes)
{
    QDataStream stream(bytes);
    return shape.load(stream);
}

constexpr int kBaseSize = 214;

} // namespace

class tst_ZTTextShapeBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        guard.reset();
    }

    void newShape_isEmptyAndFixed()
    {
        const PlainText shape;
        QCOMPARE(shape.text(), QString());
        QCOMPARE(shape.getFixedText(), QString());
        QVERIFY(!shape.isEnableVariantText());
        QVERIFY(shape.getVarTxt() == nullptr);
    }

    void getVarTxt_followsTheSwitch()
    {
        PlainText shape;
        shape.setEnableVariantText(true);
        ZTVariantText *text = shape.getVarTxt();
        QVERIFY(text != nullptr);
        QVERIFY(*text == ZTVariantText());
        shape.setEnableVariantText(false);
        QVERIFY(shape.getVarTxt() == nullptr);
        shape.setEnableVariantText(true);
        QCOMPARE(shape.getVarTxt(), text);
    }

    void setText_ofTheBase_doesNothing()
    {
        PlainText shape;
        shape.setText(QStringLiteral("x"));
        QCOMPARE(shape.text(), QString());
    }

    void switchAndFixedText_redrawNothing()
    {
        TestText shape;
        shape.setFixedText(QStringLiteral("typed"));
        shape.setEnableVariantText(true);
        shape.setEnableVariantText(false);
        QCOMPARE(shape.getFixedText(), QStringLiteral("typed"));
        QVERIFY(shape.shown.isEmpty());
        QCOMPARE(shape.text(), QString());
        QCOMPARE(shape.paints, 0);
        QVERIFY(!shape.isUpdate());
    }

    void fromVariantTextUpdateText_showsOneValueAfterTheOther()
    {
        TestText shape;
        countFrom(shape, 5);
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.text(), QStringLiteral("5"));
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.shown, QStringList({QStringLiteral("5"), QStringLiteral("6")}));
    }

    void fromVariantTextUpdateText_switchedOff_movesNothingOn()
    {
        TestText shape;
        countFrom(shape, 5);
        shape.setText(QStringLiteral("old"));
        shape.setEnableVariantText(false);
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.text(), QStringLiteral("old"));
        shape.setEnableVariantText(true);
        QVERIFY(*shape.getVarTxt() == numbers(5));
    }

    void fromVariantTextUpdateText_survivesASetTextThatReplacesTheVariantText()
    {
        class Replacing : public ZTTextShapeBase
        {
        public:
            void paint() override {}
            void setText(const QString &text) override
            {
                m_text = text;
                ZTVariantText other = numbers(100);
                cloneVariantText(&other);
            }
        } shape;
        countFrom(shape, 1);
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.text(), QStringLiteral("1"));
        shape.fromVariantTextUpdateText();
        QCOMPARE(shape.text(), QStringLiteral("100"));
    }

    void cloneVariantText_copiesAndLeavesTheTextShown()
    {
        TestText shape;
        shape.setText(QStringLiteral("old"));
        ZTVariantText source = numbers(3);
        shape.cloneVariantText(&source);
        source.update();
        source.update();
        shape.setEnableVariantText(true);
        QCOMPARE(shape.text(), QStringLiteral("old"));
        QVERIFY(shape.getVarTxt() != &source);
        QVERIFY(*shape.getVarTxt() == numbers(3));
    }

    void cloneVariantText_nullOrOwn_changesNothing()
    {
        TestText shape;
        countFrom(shape, 3);
        ZTVariantText *own = shape.getVarTxt();
        shape.cloneVariantText(nullptr);
        shape.cloneVariantText(own);
        QCOMPARE(shape.getVarTxt(), own);
        QVERIFY(*own == numbers(3));
    }

    void copy_isIndependent()
    {
        auto source = std::make_unique<TestText>();
        countFrom(*source, 3);
        source->setText(QStringLiteral("now"));
        source->setFixedText(QStringLiteral("typed"));
        source->setId(9);
        TestText copy(*source);
        QVERIFY(copy.getVarTxt() != source->getVarTxt());
        source->fromVariantTextUpdateText();
        source.reset();
        QCOMPARE(copy.text(), QStringLiteral("now"));
        QCOMPARE(copy.getFixedText(), QStringLiteral("typed"));
        QCOMPARE(copy.getId(), 9);
        QVERIFY(copy.isEnableVariantText());
        copy.fromVariantTextUpdateText();
        QCOMPARE(copy.text(), QStringLiteral("3"));
    }

    void copy_takenSwitchedOff_getsADefaultVariantTextWhenNeeded()
    {
        TestText source;
        countFrom(source, 3);
        source.setEnableVariantText(false);
        TestText copy(source);
        QVERIFY(copy.getVarTxt() == nullptr);
        copy.setEnableVariantText(true);
        QVERIFY(copy.getVarTxt() != nullptr);
        QVERIFY(*copy.getVarTxt() == ZTVariantText());

        TestText updated(source);
        updated.setEnableVariantText(true);
        updated.fromVariantTextUpdateText();
        QCOMPARE(updated.shown, QStringList(QString()));

        const TestText cloned(TestText{source});
        QVERIFY(cloned.getVarTxt() == nullptr);
        TestText filled(source);
        countFrom(filled, 8);
        QVERIFY(*filled.getVarTxt() == numbers(8));
    }

    void copy_ofACopySwitchedOnButNeverUsed()
    {
        const TestText off;
        TestText copy(off);
        copy.setEnableVariantText(true);
        const TestText second(copy);
        QVERIFY(*second.getVarTxt() == ZTVariantText());
    }

    void copy_takenSwitchedOff_savesADefaultVariantText()
    {
        TestText source;
        countFrom(source, 3);
        source.setEnableVariantText(false);
        const TestText copy(source);
        const PlainText fresh;
        QCOMPARE(saved(copy), saved(fresh));
        QVERIFY(saved(source) != saved(fresh));
    }

    void assignment_sharesTheVariantText()
    {
        auto source = std::make_unique<TestText>();
        countFrom(*source, 3);
        source->setText(QStringLiteral("now"));
        source->setFixedText(QStringLiteral("typed"));
        auto target = std::make_unique<TestText>();
        *target = *source;
        QCOMPARE(target->getVarTxt(), source->getVarTxt());
        QCOMPARE(target->text(), QStringLiteral("now"));
        QCOMPARE(target->getFixedText(), QStringLiteral("typed"));
        source->setId(4);
        QCOMPARE(target->getId(), 4);
        target->fromVariantTextUpdateText();
        QCOMPARE(target->text(), QStringLiteral("3"));
        source->fromVariantTextUpdateText();
        QCOMPARE(source->text(), QStringLiteral("4"));
        source.reset();
        target->fromVariantTextUpdateText();
        QCOMPARE(target->text(), QStringLiteral("5"));
    }

    void assignment_eitherSideMayGoFirst()
    {
        TestText kept;
        {
            TestText source;
            countFrom(source, 3);
            TestText target;
            target = source;
            kept = target;
            const TestText &self = kept;
            kept = self;
        }
        kept.fromVariantTextUpdateText();
        QCOMPARE(kept.text(), QStringLiteral("3"));
    }

    void assignment_ofACopyTakenSwitchedOff_sharesToo()
    {
        const TestText off;
        TestText source(off);
        TestText target;
        target = source;
        source.setEnableVariantText(true);
        target.setEnableVariantText(true);
        QCOMPARE(target.getVarTxt(), source.getVarTxt());
    }

    void assignment_cloneVariantTextEndsTheSharing()
    {
        TestText source;
        countFrom(source, 3);
        TestText target;
        target = source;
        countFrom(target, 8);
        QVERIFY(*source.getVarTxt() == numbers(3));
        QVERIFY(*target.getVarTxt() == numbers(8));
    }

    void save_defaultShape_bytes()
    {
        const PlainText shape;
        QCOMPARE(saved(shape).mid(kBaseSize).toHex(),
                 QByteArray("00"       // switched off
                            "ffffffff" // text shown
                            "ffffffff" // fixed text
                            "ffffffff" // registry id -1
                            "0001"
                            "00000008"
                            "ffffffff"
                            "00000000")); // variant text
    }

    void save_fieldsInOrder()
    {
        TestText shape;
        countFrom(shape, 3);
        shape.setText(QStringLiteral("a"));
        shape.setFixedText(QStringLiteral("bc"));
        QByteArray expected = QByteArray::fromHex("01"
                                                  "00000002"
                                                  "0061"
                                                  "00000004"
                                                  "00620063"
                                                  "ffffffff");
        QDataStream stream(&expected, QIODevice::Append);
        stream << numbers(3);
        QCOMPARE(saved(shape).mid(kBaseSize), expected);
    }

    void save_writesTheVariantTextAlsoSwitchedOff()
    {
        TestText shape;
        countFrom(shape, 3);
        shape.setEnableVariantText(false);
        TestText read;
        QVERIFY(load(read, saved(shape)));
        QVERIFY(!read.isEnableVariantText());
        read.setEnableVariantText(true);
        QVERIFY(*read.getVarTxt() == numbers(3));
    }

    void load_restoresAndMarks_showsNothing()
    {
        TestText shape;
        countFrom(shape, 3);
        shape.setText(QStringLiteral("now"));
        shape.setFixedText(QStringLiteral("typed"));
        shape.setRect(QRectF(1, 2, 3, 4));
        shape.setPenId(6);
        TestText read;
        QVERIFY(load(read, saved(shape)));
        QVERIFY(read.isUpdate());
        QCOMPARE(read.paints, 0);
        QVERIFY(read.shown.isEmpty());
        QCOMPARE(read.text(), QStringLiteral("now"));
        QCOMPARE(read.getFixedText(), QStringLiteral("typed"));
        QCOMPARE(read.getRect(), QRectF(1, 2, 3, 4));
        QCOMPARE(read.getPenId(), 6);
        QVERIFY(read.isEnableVariantText());
        QVERIFY(*read.getVarTxt() == numbers(3));
    }

    void load_keepsTheRegistryId_aCopyDoesNot()
    {
        QByteArray bytes = saved(PlainText());
        bytes.replace(kBaseSize + 9, 4, QByteArray::fromHex("0000002a"));
        PlainText shape;
        load(shape, bytes);
        QCOMPARE(saved(shape).mid(kBaseSize), bytes.mid(kBaseSize));
        const PlainText copy(shape);
        QCOMPARE(saved(copy).mid(kBaseSize + 9, 4).toHex(), QByteArray("ffffffff"));
        PlainText assigned;
        assigned = shape;
        QCOMPARE(saved(assigned).mid(kBaseSize + 9, 4).toHex(), QByteArray("0000002a"));
    }

    void load_endsTheSharing()
    {
        TestText source;
        countFrom(source, 3);
        TestText target;
        target = source;
        TestText other;
        countFrom(other, 8);
        load(target, saved(other));
        QVERIFY(*source.getVarTxt() == numbers(3));
        QVERIFY(*target.getVarTxt() == numbers(8));
    }

    void load_anyTruncation_returnsTrue()
    {
        TestText shape;
        countFrom(shape, 3);
        shape.setText(QStringLiteral("now"));
        const QByteArray bytes = saved(shape);
        for (int size = 0; size < bytes.size(); ++size) {
            TestText read;
            QVERIFY(load(read, bytes.left(size)));
            read.setEnableVariantText(true);
            QVERIFY(*read.getVarTxt() == ZTVariantText());
            read.fromVariantTextUpdateText();
        }
    }

    void load_switchesOffWhenTheStreamSaysSo()
    {
        TestText shape;
        shape.setEnableVariantText(true);
        QVERIFY(load(shape, saved(PlainText())));
        QVERIFY(!shape.isEnableVariantText());
    }

    void destroyed_makesNoRegistry()
    {
        ZTVariantTextManager::release();
        {
            const PlainText shape;
        }
        QVERIFY(ZTVariantTextManager::s_this == nullptr);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<testsupport::WarningGuard> warnings;
};

QTEST_GUILESS_MAIN(tst_ZTTextShapeBase)
#include "tst_ZTTextShapeBase.moc"
