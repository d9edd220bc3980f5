#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QMetaProperty>
#include <QtCore/QTranslator>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

#include <functional>
#include <memory>

using testsupport::tinyFont;

namespace {

using Setter = std::function<void(ZTGraphicsTextItem &)>;

ZTShapeText &shapeOf(const ZTGraphicsTextItem &item)
{
    return dynamic_cast<ZTShapeText &>(*item.getShapeBase());
}

QString fontPath(const char *name)
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/font/") + QLatin1String(name);
}

class OneWordTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        const bool isIt =
            QByteArray(context) == "ZTGraphicsTextItem" && QByteArray(source) == "TEXT";
        return isIt ? QStringLiteral("WORD") : QString();
    }
};

ZTRoundingParam arc()
{
    ZTRoundingParam param;
    param.isEnableRounding = true;
    param.spanAngle = 60;
    return param;
}

} // namespace

Q_DECLARE_METATYPE(Setter)

class tst_ZTGraphicsTextItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons = std::make_unique<testsupport::SingletonGuard>();
        warnings = std::make_unique<testsupport::WarningGuard>();
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
        testsupport::makeTinyFonts();
    }
    void cleanup()
    {
        warnings.reset();
        singletons.reset();
    }

    void newItem_showsTextAtATenthOf100Pixels()
    {
        const ZTGraphicsTextItem item;
        QCOMPARE(item.text(), QStringLiteral("TEXT"));
        QCOMPARE(item.getFixedText(), QStringLiteral("TEXT"));
        QVERIFY(!item.isEnableVariantText());
        QVERIFY(item.fontType() == FontType::doubleLine);
        QCOMPARE(item.font().family(), QApplication::font().family());
        QCOMPARE(item.font().pixelSize(), 100);
        QCOMPARE(item.getShapeBase()->getTransformParam(), QTransform::fromScale(0.1, 0.1));
        QVERIFY(item.getShapeType() == ShapeType::None);
        QVERIFY(item.getShapeBase()->getShapeType() == ShapeType::Text);

        QPainterPath outline;
        QFont font = QApplication::font();
        font.setPixelSize(100);
        outline.addText(0, 0, font, QStringLiteral("TEXT"));
        // A tenth of it in millimetres, ten pixels each.
        const QSizeF sizePx = item.boundingRect().size();
        QVERIFY(qAbs(sizePx.width() - outline.controlPointRect().width()) < 1e-6);
        QVERIFY(qAbs(sizePx.height() - outline.controlPointRect().height()) < 1e-6);
    }

    void newItem_hasTheFirstStrokeFonts_readyToDraw()
    {
        const ZTGraphicsTextItem item;
        ZTShxFontParam param = item.shxFont();
        QCOMPARE(param.enName, QStringLiteral("tiny.shx"));
        QCOMPARE(param.zhName, QStringLiteral("tinybig.shx"));
        QCOMPARE(param.height, 100.0);
        QCOMPARE(param.parser.getTextExtent("W"), 100.0);
        QCOMPARE(param.parser.getTextExtent("\xC4\xE3"), 100.0);
    }

    void newItem_takesTheFirstOfSeveral()
    {
        // Smaller files come first.
        QFile file(fontPath("tiny.shx"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QFile larger(fontPath("a-larger.shx"));
        QVERIFY(larger.open(QIODevice::WriteOnly));
        larger.write(file.readAll() + "and more");
        larger.close();
        ZTShxFontManager::release();
        const ZTGraphicsTextItem item;
        QCOMPARE(ZTShxFontManager::regFonts().size(), std::size_t(2));
        QCOMPARE(item.shxFont().enName, QStringLiteral("tiny.shx"));
    }

    void newItem_textIsTranslated()
    {
        OneWordTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        const ZTGraphicsTextItem item;
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(item.text(), QStringLiteral("WORD"));
        QCOMPARE(item.getFixedText(), QStringLiteral("WORD"));
    }

    void newItem_withoutRegularFonts_isEmptyButUsable()
    {
        testsupport::emptyFontFolder();
        checkWithoutFonts(QStringLiteral("ShxFont regFonts empty"));
    }

    void newItem_withoutBigFonts_isEmptyButUsable()
    {
        QVERIFY(QFile::remove(fontPath("tinybig.shx")));
        ZTShxFontManager::release();
        checkWithoutFonts(QStringLiteral("ShxFont bigFonts empty"));
    }

    void newItem_withoutRegularFonts_doesNotAskForBigOnes()
    {
        QVERIFY(QFile::remove(fontPath("tiny.shx")));
        ZTShxFontManager::release();
        checkWithoutFonts(QStringLiteral("ShxFont regFonts empty"));
    }

    void newItem_recordsItsSize()
    {
        testsupport::emptyFontFolder();
        const ZTGraphicsTextItem item;
        QCOMPARE(warnings->take().size(), 1);
        QVERIFY(item.getSize().isValid()); // that of the empty text, from setting the transform
        QCOMPARE(item.getSize(), QSizeF(0, 0));
    }

    void metaObject_hasThePropertiesInOrder()
    {
        const QMetaObject &meta = ZTGraphicsTextItem::staticMetaObject;
        const QVector<QPair<QByteArray, QByteArray>> expected = {
            {"roundingParam", "ZTRoundingParam"},
            {"lineSpan", "double"},
            {"font", "QFont"},
            {"shxFont", "ZTShxFontParam"},
            {"fontType", "FontType"}};
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            const QMetaProperty property = meta.property(meta.propertyOffset() + i);
            QCOMPARE(QByteArray(property.name()), expected[i].first);
            QCOMPARE(QByteArray(property.typeName()), expected[i].second);
            QVERIFY(property.isReadable() && property.isWritable());
            QVERIFY(!property.hasNotifySignal() && !property.isFinal());
        }
        QCOMPARE(meta.superClass(), &ZTAbstractGraphicsTextItem::staticMetaObject);
    }

    void properties_readAndWriteTheShape()
    {
        ZTGraphicsTextItem item;
        QVERIFY(item.setProperty("roundingParam", QVariant::fromValue(arc())));
        QVERIFY(item.property("roundingParam").value<ZTRoundingParam>() == arc());
        QVERIFY(shapeOf(item).getRoundingParam() == arc());

        QVERIFY(item.setProperty("lineSpan", 2.5));
        QCOMPARE(item.property("lineSpan").toDouble(), 2.5);

        QFont font = item.font();
        font.setPixelSize(33);
        QVERIFY(item.setProperty("font", font));
        QCOMPARE(item.property("font").value<QFont>().pixelSize(), 33);
        QCOMPARE(shapeOf(item).getFont().font, font);

        QVERIFY(item.setProperty("shxFont", QVariant::fromValue(tinyFont(20.0))));
        QVERIFY(item.property("shxFont").value<ZTShxFontParam>() == tinyFont(20.0));
        QVERIFY(shapeOf(item).getFont().shxFont == tinyFont(20.0));

        QVERIFY(item.setProperty("fontType", QVariant::fromValue(FontType::singleLine)));
        QVERIFY(item.fontType() == FontType::singleLine);
        const QVariant type = item.property("fontType");
        QCOMPARE(type.userType(), qMetaTypeId<FontType>());
        QVERIFY(type.value<FontType>() == FontType::singleLine);
    }

    void lineSpan_isConvertedInTheItem()
    {
        ZTGraphicsTextItem item;
        QCOMPARE(item.getLineSpan(), 1.0); // the pixels of one millimetre that a new shape has
        item.setLineSpan(2.0);
        QCOMPARE(shapeOf(item).getLineSpan(), 20.0);
        QCOMPARE(item.getLineSpan(), 2.0);
    }

    void setText_leavesTheFixedText()
    {
        ZTGraphicsTextItem item;
        item.setText(QStringLiteral("II"));
        QCOMPARE(item.text(), QStringLiteral("II"));
        QCOMPARE(item.getFixedText(), QStringLiteral("TEXT"));
        QVERIFY(!item.getShapeBase()->isUpdate());
    }

    void unchangedValues_doNothing()
    {
        ZTGraphicsTextItem item;
        QGraphicsScene scene;
        scene.addItem(&item);
        ZTGraphicsResizeItem frame{QRectF()};
        scene.addItem(&frame);
        frame.setSelectItem({&item});
        frame.setRect(QRectF(0, 0, 3, 3)); // a setter that does anything fits it again
        item.setText(QStringLiteral("TEXT"));
        item.setFontType(FontType::doubleLine);
        QCOMPARE(frame.rect(), QRectF(0, 0, 3, 3));
        scene.removeItem(&item);
        scene.removeItem(&frame);
    }

    void eachSetter_keepsSceneAndFrameInStep_data()
    {
        QTest::addColumn<Setter>("set");
        QTest::newRow("setText") << Setter(
            [](ZTGraphicsTextItem &item) { item.setText(QStringLiteral("longer than before")); });
        QTest::newRow("setFixedText") << Setter([](ZTGraphicsTextItem &item) {
            item.setFixedText(QStringLiteral("longer than before"));
        });
        QTest::newRow("setFontType")
            << Setter([](ZTGraphicsTextItem &item) { item.setFontType(FontType::singleLine); });
        QTest::newRow("setFont") << Setter([](ZTGraphicsTextItem &item) {
            QFont font;
            font.setPixelSize(250);
            item.setFont(font);
        });
        QTest::newRow("setShxFont") << Setter([](ZTGraphicsTextItem &item) {
            item.setFontType(FontType::singleLine);
            item.setShxFont(tinyFont(300.0));
        });
        QTest::newRow("setRoundingParam")
            << Setter([](ZTGraphicsTextItem &item) { item.setRoundingParam(arc()); });
        QTest::newRow("setFontParam") << Setter([](ZTGraphicsTextItem &item) {
            ZTFontParam param = item.getFontParam();
            param.font.setPixelSize(250);
            item.setFontParam(param);
        });
        QTest::newRow("setLineSpan") << Setter([](ZTGraphicsTextItem &item) {
            item.setText(QStringLiteral("A\nA"));
            item.setLineSpan(50.0);
        });
    }
    void eachSetter_keepsSceneAndFrameInStep()
    {
        QFETCH(Setter, set);
        auto *item = new ZTGraphicsTextItem;
        item->setFixedText(QStringLiteral("AW")); // what both fonts have
        QGraphicsScene scene;
        scene.addItem(item);
        ZTGraphicsResizeItem frame{QRectF()};
        scene.addItem(&frame);
        frame.setSelectItem({item});
        const QRectF before = item->sceneBoundingRect();
        QCOMPARE(frame.mapRectToScene(frame.rect()), before);
        QCoreApplication::processEvents();
        QSignalSpy changed(&scene, &QGraphicsScene::changed);
        scene.items(before); // the index has been built

        set(*item);
        const QRectF after = item->sceneBoundingRect();
        QVERIFY(after != before);
        QCOMPARE(frame.mapRectToScene(frame.rect()), after);
        QVERIFY(scene.items(QRectF(after.center(), QSizeF(0.1, 0.1))).contains(item));
        QVERIFY(changed.wait(1000));
        scene.removeItem(&frame);
    }

    void setFontParam_takesTheWholeRecord()
    {
        ZTGraphicsTextItem item;
        ZTFontParam param;
        param.fontType = FontType::singleLine;
        param.wordSpac = 2.0;
        param.rowSpac = 3.0;
        param.shxFont = tinyFont(20.0);
        item.setFontParam(param);
        param.font = item.font(); // the drawing sets its letter spacing
        QVERIFY(item.getFontParam() == param);
        QCOMPARE(item.font().letterSpacing(), 20.0);
    }

    void variantText_isShownAndTakenBack()
    {
        ZTGraphicsTextItem item;
        ZTCounterSegment counter;
        counter.start = 41;
        ZTVariantText source;
        source.setSegments({counter});
        shapeOf(item).cloneVariantText(&source);
        item.setEnableVariantText(true);
        QCOMPARE(item.text(), source.getText());
        QVERIFY(item.text() != QStringLiteral("TEXT"));
        item.setFixedText(QStringLiteral("typed"));
        QCOMPARE(item.text(), source.getText());
        item.setEnableVariantText(false);
        QCOMPARE(item.text(), QStringLiteral("typed"));
    }

    void copy_takesAllButTheId()
    {
        ZTGraphicsTextItem source;
        source.getShapeBase()->setId(5);
        source.setFixedText(QStringLiteral("AB"));
        source.setFontType(FontType::singleLine);
        source.setRoundingParam(arc());
        ZTGraphicsTextItem item;
        item.getShapeBase()->setId(9);
        item.copy(&source);
        QCOMPARE(item.getShapeBase()->getId(), 9);
        QCOMPARE(item.text(), QStringLiteral("AB"));
        QCOMPARE(item.getFixedText(), QStringLiteral("AB"));
        QVERIFY(item.getFontParam() == source.getFontParam());
        QVERIFY(item.getRoundingParam() == arc());
        QCOMPARE(item.getShapeBase()->getLines(), source.getShapeBase()->getLines());
    }

    void copy_setterAfterwards_worksOnTheNewShape()
    {
        ZTGraphicsTextItem source;
        ZTGraphicsTextItem item;
        item.copy(&source);
        item.setText(QStringLiteral("II"));
        QCOMPARE(shapeOf(item).text(), QStringLiteral("II"));
        QCOMPARE(source.text(), QStringLiteral("TEXT"));
    }

    void copy_ofItselfOrAnotherKind_isHarmless()
    {
        ZTGraphicsTextItem item;
        item.copy(&item);
        ZTGraphicsRectItem other;
        item.copy(&other);
        item.copy(nullptr);
        QCOMPARE(item.text(), QStringLiteral("TEXT"));
        item.setText(QStringLiteral("II"));
        QCOMPARE(item.text(), QStringLiteral("II"));
    }

    void document_savesAndLoadsTexts()
    {
        ZTGraphicsTextItem item;
        item.setFixedText(QStringLiteral("AB\nB"));
        item.setFontType(FontType::singleLine);
        item.setLineSpan(0.5);
        item.setPenId(3);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        item.getShapeBase()->save(out);

        ZTGraphicsTextItem loaded;
        QDataStream in(bytes);
        QVERIFY(loaded.load(in));
        QVERIFY(in.atEnd());
        QCOMPARE(loaded.text(), item.text());
        QCOMPARE(loaded.getFixedText(), item.getFixedText());
        QVERIFY(loaded.getFontParam() == item.getFontParam());
        QCOMPARE(loaded.getPenId(), 3);
        QCOMPARE(loaded.getShapeBase()->getLines(), item.getShapeBase()->getLines());
        QVERIFY(!loaded.getShapeBase()->isUpdate());
    }

private:
    void checkWithoutFonts(const QString &message)
    {
        ZTGraphicsTextItem item;
        QCOMPARE(warnings->take(), QStringList{message});
        QCOMPARE(item.text(), QString());
        QCOMPARE(item.getFixedText(), QString());
        QVERIFY(item.fontType() == FontType::doubleLine);
        QVERIFY(item.shxFont() == ZTShxFontParam());
        QCOMPARE(item.font().pixelSize(), 100);
        QCOMPARE(item.getTransformParam(), QTransform::fromScale(0.1, 0.1));
        QVERIFY(item.boundingRect().isEmpty());
        item.setFixedText(QStringLiteral("I"));
        QCOMPARE(item.text(), QStringLiteral("I"));
        QVERIFY(!item.boundingRect().isEmpty());
        item.setFontType(FontType::singleLine);
        QVERIFY(item.boundingRect().isEmpty());
    }

    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_ZTGraphicsTextItem test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTGraphicsTextItem.moc"
