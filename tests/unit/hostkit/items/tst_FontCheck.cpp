#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <hostkit/items/FontCheck.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <memory>

class tst_FontCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        testsupport::makeTinyFonts();
        hostkit::registerFactories();
        document = std::make_unique<ZTGraphicsDocument>();
        item = qobject_cast<ZTGraphicsTextItem *>(
            document->itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        QVERIFY(item != nullptr);
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void systemFont_isMissedByItsFamily()
    {
        hostkit::FontCheck check;
        item->setFontType(FontType::doubleLine);
        item->setFont(QFont(QStringLiteral("DejaVu Sans")));
        QCOMPARE(check.reasonFor(*item), QString());
        item->setFont(QFont(QStringLiteral("No Such Font")));
        QCOMPARE(check.reasonFor(*item), QStringLiteral("its font is not here: No Such Font"));
        QCOMPARE(check.missing(), QStringList{QStringLiteral("No Such Font")});
    }

    void strokeFonts_areMissedEach()
    {
        hostkit::FontCheck check;
        ZTShxFontParam pair;
        pair.enName = QStringLiteral("tiny.shx");
        pair.zhName = QStringLiteral("nobodys.shx");
        item->setShxFont(pair);
        item->setFontType(FontType::singleLine);
        QCOMPARE(check.reasonFor(*item), QStringLiteral("its font is not here: nobodys.shx"));
        pair.enName = QStringLiteral("neither.shx");
        item->setShxFont(pair);
        QCOMPARE(check.reasonFor(*item),
                 QStringLiteral("its font is not here: neither.shx, nobodys.shx"));
        QCOMPARE(check.missing(),
                 (QStringList{QStringLiteral("neither.shx"), QStringLiteral("nobodys.shx")}));
        pair.enName = QStringLiteral("tiny.shx");
        pair.zhName = QStringLiteral("tinybig.shx");
        item->setShxFont(pair);
        QCOMPARE(check.reasonFor(*item), QString());
    }

    // A stroke text keeps the system font that it had, and the other way round.
    void fontOfTheOtherKind_isNotMissed()
    {
        hostkit::FontCheck check;
        item->setFont(QFont(QStringLiteral("No Such Font")));
        ZTShxFontParam pair;
        pair.enName = QStringLiteral("tiny.shx");
        pair.zhName = QStringLiteral("tinybig.shx");
        item->setShxFont(pair);
        item->setFontType(FontType::singleLine);
        QCOMPARE(check.reasonFor(*item), QString());
    }

    void otherShapes_missNothing()
    {
        hostkit::FontCheck check;
        QCOMPARE(
            check.reasonFor(*document->itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10))),
            QString());
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
    ZTGraphicsTextItem *item = nullptr; ///< of the document
};

QTEST_MAIN(tst_FontCheck)
#include "tst_FontCheck.moc"
