#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/items/TextItem.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QBuffer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>

using testsupport::tinyFont;

// At a text height of 10 a unit of the tiny fonts is a unit of the path and "A" a square of 8.

class tst_TextItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        singletons.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
        hostkit::registerFactories();
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        singletons.reset();
        warnings.reset();
    }

    void constructor_hasTheOutlineThatPaintingOnceMoreGives()
    {
        hostkit::TextItem item;
        ZTShapeBase *shape = item.getShapeBase();
        QVERIFY(!shape->isUpdate());
        const QPainterPath lines = shape->getLines();
        const QRectF rectPx = shape->controlPointRect();
        QVERIFY(!lines.isEmpty());
        shape->setUpdate(1);
        shape->paint();
        QCOMPARE(shape->getLines(), lines);
        QCOMPARE(shape->controlPointRect(), rectPx);
    }

    void textsOfOneFont_eachHaveTheirOwnHeight()
    {
        ZTGraphicsTextItem *small = addText(5.0);
        ZTGraphicsTextItem *large = addText(20.0);
        QCOMPARE(heightOnScreen(small), 4.0);
        QCOMPARE(heightOnScreen(large), 16.0);
        QCOMPARE(heightOfMarks(small), 4.0);
        QCOMPARE(heightOfMarks(large), 16.0);
    }

    void changedHeight_leavesTheOtherText()
    {
        ZTGraphicsTextItem *changed = addText(10.0);
        ZTGraphicsTextItem *other = addText(10.0);
        changed->setShxFont(tinyFont(5.0));
        QCOMPARE(heightOfMarks(other), 8.0);
        other->setText(QStringLiteral("AA"));
        QCOMPARE(heightOnScreen(other), 8.0);
        QCOMPARE(heightOfMarks(changed), 4.0);
    }

    void undoOfAHeight_bringsItBackForItsTextAlone()
    {
        ZTGraphicsTextItem *changed = addText(10.0);
        ZTGraphicsTextItem *other = addText(30.0);
        ZTItemPropertyCommand command(changed, QStringLiteral("shxFont"),
                                      QVariant::fromValue(tinyFont(5.0)));
        command.redo();
        QCOMPARE(heightOfMarks(changed), 4.0);
        command.undo();
        QCOMPARE(heightOfMarks(changed), 8.0);
        QCOMPARE(heightOfMarks(other), 24.0);
        command.redo();
        QCOMPARE(heightOnScreen(changed), 4.0);
        QCOMPARE(heightOnScreen(other), 24.0);
    }

    void savedAndLoaded_eachHasItsOwnHeight()
    {
        addText(5.0);
        addText(20.0);
        QByteArray bytes;
        QDataStream writing(&bytes, QIODevice::WriteOnly);
        document->itemMag()->save(writing);
        ZTGraphicsDocument loaded;
        QDataStream reading(bytes);
        loaded.itemMag()->load(reading);
        QVector<double> heights;
        for (QGraphicsItem *item : loaded.scene()->items(Qt::AscendingOrder)) {
            if (auto *text = dynamic_cast<ZTGraphicsTextItem *>(item))
                heights << heightOfMarks(text, &loaded);
        }
        QCOMPARE(heights, (QVector<double>{4.0, 16.0}));
    }

    void copy_keepsTheHeightOfItsSource()
    {
        ZTGraphicsTextItem *source = addText(5.0);
        addText(40.0);
        const std::unique_ptr<ZTAbstractGraphicsItem> copy(ZTGraphicsItemFactory::create("Text"));
        copy->copy(source);
        QVERIFY(dynamic_cast<hostkit::TextShape *>(copy->getShapeBase()) != nullptr);
        QCOMPARE(copy->boundingRect().height(), source->boundingRect().height());
        auto *text = dynamic_cast<ZTGraphicsTextItem *>(copy.get());
        text->setText(QStringLiteral("AA"));
        QCOMPARE(text->shxFont().height, 5.0);
        QCOMPARE(heightOnScreen(text), 4.0);
    }

    void copy_ofAPlainText_isOfThisKind()
    {
        ZTGraphicsTextItem plain;
        plain.setText(QStringLiteral("A"));
        hostkit::TextItem copy;
        copy.copy(&plain);
        QCOMPARE(copy.text(), QStringLiteral("A"));
        QVERIFY(dynamic_cast<hostkit::TextShape *>(copy.getShapeBase()) != nullptr);
        copy.copy(nullptr);
        QCOMPARE(copy.text(), QStringLiteral("A"));
    }

    void heightThatIsNoUse_leavesTheFontsAlone()
    {
        addText(10.0);
        for (const double height : {0.0, qQNaN(), qInf(), 1e300}) {
            ZTShxFontParam font = tinyFont(10.0);
            font.height = height;
            hostkit::setStrokeHeight(&font);
            QCOMPARE(font.parser.getTextHeight(), tinyFont(10.0).parser.getTextHeight());
        }
    }

    void fontWithoutItsReferenceCharacter_takesTheNumberItself()
    {
        testsupport::ShxWriter writer; // "A" alone, two units wide
        writer.glyphs = {{65, testsupport::bytes({0x20}), {}}};
        QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/font/bare.shx"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(writer.shapes());
        file.close();
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
        ZTShxFontParam font;
        font.enName = QStringLiteral("bare.shx");
        font.zhName = QStringLiteral("tinybig.shx");
        font.height = 12.0;
        font.parser.init("bare.shx", "tinybig.shx");
        hostkit::setStrokeHeight(&font);
        QCOMPARE(font.parser.getTextHeight(), 12.0);
        QVERIFY(file.remove());
    }

    void capitalHeight_isThatOfWhatIsDrawn()
    {
        ZTFontParam font;
        font.fontType = FontType::singleLine;
        font.shxFont = tinyFont(10.0); // has no "H": "A" tells
        font.shxFont.height = 25.0;    // and the parser stands at 10
        QCOMPARE(hostkit::capitalHeight(font), 20.0);
        font.fontType = FontType::doubleLine;
        font.font.setPixelSize(100);
        QPainterPath letter;
        letter.addText(0.0, 0.0, font.font, QStringLiteral("H"));
        QCOMPARE(hostkit::capitalHeight(font), letter.boundingRect().height());
    }

private:
    ZTGraphicsTextItem *addText(double height)
    {
        auto *item = dynamic_cast<ZTGraphicsTextItem *>(
            document->itemMag()->addShape(ShapeType::Text, QRectF(0, 0, 10, 10)));
        item->setTransformParam(QTransform());
        item->setShxFont(tinyFont(height));
        item->setFontType(FontType::singleLine);
        item->setText(QStringLiteral("A"));
        return item;
    }

    static double rounded(double value) { return qRound64(value * 1e6) / 1e6; }

    /** In millimetres, from what the item shows. */
    static double heightOnScreen(const ZTGraphicsTextItem *item)
    {
        return rounded(ZTCoord::getInstance()->pix2mm(item->boundingRect().height()));
    }

    double heightOfMarks(ZTGraphicsTextItem *item, ZTGraphicsDocument *owner = nullptr)
    {
        ZTShapeManager &manager = *(owner != nullptr ? *owner : *document).itemMag();
        manager.setScale(1.0F, 1.0F);
        ZTMarkObject object;
        manager.genMarkObject(item, item->getShapeBase(), object);
        QRectF boxPx;
        for (const QPolygonF &line : object.lines)
            boxPx |= line.boundingRect();
        return rounded(ZTCoord::getInstance()->pix2mm(boxPx.height()));
    }

    QScopedPointer<testsupport::WarningGuard> warnings;
    QScopedPointer<testsupport::SingletonGuard> singletons;
    std::unique_ptr<ZTGraphicsDocument> document;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_TextItem test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TextItem.moc"
