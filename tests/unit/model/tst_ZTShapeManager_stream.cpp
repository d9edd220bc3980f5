#include <support/Factories.h>
#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

namespace {

/** Bytes in front of the items: no variant texts, then the next id and the number of items. */
constexpr int kHeaderBytes = 16;

QByteArray saved(ZTShapeManager &manager)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    manager.save(out);
    return bytes;
}

/** Four numbers: no variant texts, next id 1, one item. */
const char kOneItem[] = "00000000"
                        "00000000"
                        "00000001"
                        "00000001";

/** A rectangle with every field different, big endian; the shape type has bits above the low 8. */
QByteArray distinctRectangle()
{
    return QByteArray::fromHex("00"               // kind
                               "4008000000000000" // position 3, -4
                               "c010000000000000"
                               "3ff0000000000000" // rectangle 1, 2, 5, 6
                               "4000000000000000"
                               "4014000000000000"
                               "4018000000000000"
                               "3ff0000000000000" // m11 1
                               "3fe0000000000000" // m12 0.5
                               "0000000000000000" // m13 0
                               "bfe0000000000000" // m21 -0.5
                               "4000000000000000" // m22 2
                               "0000000000000000" // m23 0
                               "4024000000000000" // m31 10
                               "4034000000000000" // m32 20
                               "3ff0000000000000" // m33 1
                               "4000000000000000" // rounding transform: scaled by 2 and 4
                               "0000000000000000"
                               "0000000000000000"
                               "0000000000000000"
                               "4010000000000000"
                               "0000000000000000"
                               "0000000000000000"
                               "0000000000000000"
                               "3ff0000000000000"
                               "00000001"         // zigzag
                               "3fd0000000000000" // spacing 0.25
                               "403e000000000000" // angle 30
                               "00"               // no border
                               "12345602"         // shape type, of which 02 counts
                               "00000007"         // mark
                               "0000002a"         // id
                               "01"               // aspect lock
                               "0000000b");       // pen
}

template <class Value>
QByteArray bytesOf(const Value &value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << value;
    return bytes;
}

bool load(ZTShapeManager &manager, const QByteArray &bytes)
{
    QDataStream in(bytes);
    return manager.load(in);
}

} // namespace

class tst_ZTShapeManager_stream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { testsupport::registerFactories(); }

    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        ZTCoord::getInstance()->setHeight(1930.0); // ten pixels a millimetre
        manager = std::make_unique<ZTShapeManager>(nullptr);
    }

    void cleanup()
    {
        manager.reset();
        guard.reset();
    }

    void save_emptyDrawing_isFourNumbers()
    {
        QCOMPARE(saved(*manager).toHex(), QByteArray("00000000"    // last variant text id
                                                     "00000000"    // variant texts
                                                     "00000000"    // next id
                                                     "00000000")); // items
        add(ShapeType::Rect)->setSelected(true);
        manager->removeSelect();
        QCOMPARE(saved(*manager).toHex(), QByteArray("00000000"
                                                     "00000000"
                                                     "00000001"
                                                     "00000000"));
    }

    void save_rectangle_isItsWholeRecord()
    {
        addRectangleForBytes();
        const QByteArray bytes = saved(*manager);
        QCOMPARE(bytes.size(), kHeaderBytes + 231);
        QCOMPARE(bytes.mid(8, 8).toHex(), QByteArray("00000001"
                                                     "00000001"));
        const QByteArray one = "3ff0000000000000";
        const QByteArray zero = "0000000000000000";
        const QByteArray ten = "4024000000000000";
        const QByteArray identity = one + zero + zero + zero + one + zero + zero + zero + one;
        QCOMPARE(bytes.mid(kHeaderBytes).toHex(),
                 "00"                           // kind
                     + one + "c000000000000000" // position
                     + zero + zero + ten + ten  // rectangle
                     + identity + identity      // transform, rounding transform
                     + "00000002"               // no hatch
                     + "4000000000000000"       // spacing 2
                     + zero                     // angle
                     + "01"                     // border
                     + "00000000"               // shape type
                     + "00000001"               // mark
                     + "00000000"               // id
                     + "00"                     // aspect lock
                     + "00000003");             // pen
    }

    void save_littleEndian_turnsEveryNumber()
    {
        addRectangleForBytes();
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        manager->save(out);
        QCOMPARE(out.byteOrder(), QDataStream::LittleEndian);
        const QByteArray one = "000000000000f03f";
        const QByteArray zero = "0000000000000000";
        const QByteArray ten = "0000000000002440";
        const QByteArray identity = one + zero + zero + zero + one + zero + zero + zero + one;
        QCOMPARE(bytes.toHex(), "00000000" // variant texts
                                "00000000"
                                "01000000" // next id
                                "01000000" // items
                                "00" +
                                    one + "00000000000000c0" // kind, position
                                    + zero + zero + ten + ten + identity + identity + "02000000" +
                                    "0000000000000040" + zero + "01" + "00000000" + "01000000" +
                                    "00000000" + "00" + "03000000");
    }

    void save_singlePrecision_halvesEveryNumber()
    {
        addRectangleForBytes();
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        manager->save(out);
        QCOMPARE(out.floatingPointPrecision(), QDataStream::SinglePrecision);
        const QByteArray one = "3f800000";
        const QByteArray zero = "00000000";
        const QByteArray ten = "41200000";
        const QByteArray identity = one + zero + zero + zero + one + zero + zero + zero + one;
        QCOMPARE(bytes.mid(kHeaderBytes).toHex(), "00" + one + "c0000000" + zero + zero + ten +
                                                      ten + identity + identity + "00000002" +
                                                      "40000000" + zero + "01" + "00000000" +
                                                      "00000001" + "00000000" + "00" + "00000003");
    }

    void load_rectangle_everyFieldFromItsPlace()
    {
        QVERIFY(load(*manager, QByteArray::fromHex(kOneItem) + distinctRectangle()));
        const ZTAbstractGraphicsItem *item = firstItem();
        ZTShapeBase &shape = *item->getShapeBase();
        QCOMPARE(item->getShapeType(), ShapeType::Rect);
        QCOMPARE(item->pos(), QPointF(3, -4));
        QCOMPARE(shape.getRect(), QRectF(1, 2, 5, 6));
        QCOMPARE(shape.getTransformParam(), QTransform(1, 0.5, -0.5, 2, 10, 20));
        QCOMPARE(shape.getRoundingTransformParam(), QTransform::fromScale(2, 4));
        QVERIFY(shape.getFillParam() == (ZTFillParam{FillType::ULine, 0.25, 30.0, false}));
        QCOMPARE(shape.getShapeType(), ShapeType::Ellipse);
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.getId(), 42);
        QVERIFY(shape.getLockAspectRatio());
        QCOMPARE(shape.getPenId(), 11);
        // What is written anew differs by the mark, and by the bits that no type has.
        QByteArray expected = distinctRectangle();
        expected.replace(1 + 16 + 32 + 72 + 72 + 21, 8, QByteArray::fromHex("0000000200000000"));
        QCOMPARE(saved(*manager).mid(kHeaderBytes).toHex(), expected.toHex());
    }

    void textRecord_bothWays()
    {
        QFont font(QStringLiteral("F"));
        font.setPixelSize(20);
        // As painting leaves it, at ten pixels a millimetre.
        font.setLetterSpacing(QFont::AbsoluteSpacing, 15.0);
        ZTVariantText variant;
        variant.setSegments({ZTFixedTextSegment{QStringLiteral("v")}});
        QByteArray record = distinctRectangle();
        record[0] = 5;
        record.replace(1 + 16 + 32 + 72 + 72 + 21, 8, QByteArray::fromHex("0000000500000000"));
        record += QByteArray::fromHex("01"       // variant text in use
                                      "00000004" // text "ab"
                                      "00610062"
                                      "00000002" // fixed text "c"
                                      "0063"
                                      "00000009") + // registry id
                  bytesOf(variant) +
                  QByteArray::fromHex("00000002"            // no font
                                      "3ff8000000000000"    // word space 1.5
                                      "4004000000000000") + // row space 2.5
                  bytesOf(font) +
                  QByteArray::fromHex("00000002" // big font "z"
                                      "007a"
                                      "00000002" // regular font "e"
                                      "0065"
                                      "4034000000000000" // height 20
                                      "01"               // on an arc
                                      "3ff0000000000000" // start angle 1
                                      "4000000000000000" // span angle 2
                                      "4008000000000000" // diameter 3
                                      "4010000000000000" // item rotation 4
                                      "00000006");       // flag
        QVERIFY(load(*manager, QByteArray::fromHex(kOneItem) + record));
        auto &shape = dynamic_cast<ZTShapeText &>(*firstItem()->getShapeBase());
        QVERIFY(shape.isEnableVariantText());
        QVERIFY(*shape.getVarTxt() == variant);
        QCOMPARE(shape.text(), QStringLiteral("ab"));
        QCOMPARE(shape.getFixedText(), QStringLiteral("c"));
        QCOMPARE(shape.getFont().fontType, FontType::None);
        QCOMPARE(shape.getFont().wordSpac, 1.5);
        QCOMPARE(shape.getFont().rowSpac, 2.5);
        QCOMPARE(shape.getFont().font, font);
        QCOMPARE(shape.getFont().shxFont.zhName, QStringLiteral("z"));
        QCOMPARE(shape.getFont().shxFont.enName, QStringLiteral("e"));
        QCOMPARE(shape.getFont().shxFont.height, 20.0);
        QVERIFY(shape.getRoundingParam() == (ZTRoundingParam{true, 1.0, 2.0, 3.0, 4.0, 6}));
        QCOMPARE(saved(*manager).mid(kHeaderBytes).toHex(), record.toHex());
    }

    void load_vectorGraphic_bringsBackPositionAndPathOnly()
    {
        const QByteArray record = QByteArray::fromHex("0a"
                                                      "4008000000000000" // position 3, -4
                                                      "c010000000000000"
                                                      "00000008" // ".plt", which names no file
                                                      "002e0070006c0074");
        ZTVecGraphItemFactory::getInstance()->setPath(QStringLiteral(".plt")); // says nothing
        load(*manager, QByteArray::fromHex(kOneItem) + record);
        QCOMPARE(firstItem()->pos(), QPointF(3, -4));
        auto &shape = dynamic_cast<ZTVecGraph &>(*firstItem()->getShapeBase());
        QCOMPARE(shape.getImagePath(), QStringLiteral(".plt"));
        QCOMPARE(shape.getRect(), QRectF(0, 0, 100, 100));
        QVERIFY(shape.getFillParam() == ZTFillParam());
        QCOMPARE(shape.getId(), 0);
        QCOMPARE(shape.getPenId(), 1);
        QCOMPARE(saved(*manager).mid(kHeaderBytes).toHex(), record.toHex());
    }

    void load_kindsWithoutAFactory_areOneByteEach()
    {
        // Point, QR code, bar code, pixmap, none, two outside the enumeration; then a polygon.
        const QByteArray bytes = QByteArray::fromHex("00000000000000000000000000000008"
                                                     "030607080b0cff"
                                                     "04") +
                                 QByteArray(16, '\0') + QByteArray::fromHex("00000006");
        QDataStream in(bytes);
        QVERIFY(manager->load(in));
        QVERIFY(in.atEnd());
        QCOMPARE(in.status(), QDataStream::Ok);
        QCOMPARE(manager->getShapeList().size(), 1);
        QCOMPARE(dynamic_cast<ZTGraphicsPolygonItem &>(*firstItem()).getSideCount(), 6);
    }

    void save_polygon_isItsSideCountAlone()
    {
        ZTAbstractGraphicsItem *item = add(ShapeType::Polygon);
        item->setPos(0, 0);
        const QByteArray record = saved(*manager).mid(kHeaderBytes);
        QCOMPARE(record.toHex(), QByteArray("04") + QByteArray(32, '0') + "00000005");
        QCOMPARE(record.size(), 21);
    }

    void save_otherPlainKinds_areWholeRecords_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("Line") << int(ShapeType::Line);
        QTest::newRow("Ellipse") << int(ShapeType::Ellipse);
        QTest::newRow("TDOT") << int(ShapeType::TDOT);
    }

    void save_otherPlainKinds_areWholeRecords()
    {
        QFETCH(int, type);
        add(static_cast<ShapeType>(type));
        const QByteArray record = saved(*manager).mid(kHeaderBytes);
        QCOMPARE(record.size(), 231);
        QCOMPARE(int(record[0]), type);
    }

    void save_selectionFrameAndForeignItems_areNotWritten()
    {
        ZTAbstractGraphicsItem *item = add(ShapeType::Rect);
        item->getShapeBase()->paint();
        const QByteArray before = saved(*manager);
        item->setSelected(true);
        manager->scene()->addRect(0, 0, 5, 5);
        QCOMPARE(saved(*manager), before);
    }

    void save_itemType_isTheItemsOwn()
    {
        // A vector graphic's shape says TDOT of itself; the item's kind is what is written.
        add(ShapeType::VecGraph);
        const QByteArray record = saved(*manager).mid(kHeaderBytes);
        QCOMPARE(int(record[0]), int(ShapeType::VecGraph));
        QCOMPARE(record.size(), 1 + 16 + 4);
    }

    void load_rectangle_bringsEverythingBackPainted()
    {
        ZTAbstractGraphicsItem *item = add(ShapeType::Rect);
        ZTShapeBase &shape = *item->getShapeBase();
        shape.setRect(QRectF(1, 2, 3, 4));
        shape.setFillParam({FillType::Line, 0.25, 30.0, true});
        shape.setRoundingTransformParam(QTransform::fromScale(2, 1));
        item->setTransformParam(QTransform::fromScale(1, 2));
        shape.setPenId(7);
        shape.setLockAspectRatio(true);
        item->setPos(11, 12);
        const QPainterPath lines = shape.getLines();
        const QByteArray bytes = saved(*manager);
        manager->clear();

        QVERIFY(load(*manager, bytes));
        const auto *loaded =
            dynamic_cast<ZTAbstractGraphicsItem *>(manager->scene()->getItemById(0));
        QVERIFY(loaded != nullptr);
        ZTShapeBase &back = *loaded->getShapeBase();
        QCOMPARE(loaded->pos(), QPointF(11, 12));
        QCOMPARE(loaded->getShapeType(), ShapeType::Rect);
        QCOMPARE(back.getRect(), QRectF(1, 2, 3, 4));
        QCOMPARE(back.getTransformParam(), QTransform::fromScale(1, 2));
        QCOMPARE(back.getRoundingTransformParam(), QTransform::fromScale(2, 1));
        QVERIFY(back.getFillParam() == (ZTFillParam{FillType::Line, 0.25, 30.0, true}));
        QCOMPARE(back.getPenId(), 7);
        QVERIFY(back.getLockAspectRatio());
        QVERIFY(!back.isUpdate());
        QCOMPARE(back.getLines(), lines);
        QVERIFY(!back.getFillLines().isEmpty());
    }

    void load_polygon_bringsBackPositionAndSidesOnly()
    {
        ZTAbstractGraphicsItem *item = add(ShapeType::Polygon);
        dynamic_cast<ZTGraphicsPolygonItem &>(*item).setSideCount(7);
        item->setFillParam({FillType::Line, 1.0, 0.0, true});
        item->setTransformParam(QTransform::fromScale(3, 3));
        item->getShapeBase()->setId(9);
        item->getShapeBase()->setPenId(4);
        item->setPos(5, 6);
        const QByteArray bytes = saved(*manager);
        manager->clear();
        load(*manager, bytes);
        auto *back = firstItem();
        QCOMPARE(dynamic_cast<ZTGraphicsPolygonItem &>(*back).getSideCount(), 7);
        QCOMPARE(back->pos(), QPointF(5, 6));
        QVERIFY(back->getFillParam() == ZTFillParam());
        QVERIFY(back->getTransformParam().isIdentity());
        QCOMPARE(back->getShapeBase()->getId(), 0);
        QCOMPARE(back->getPenId(), 1);
        QCOMPARE(testsupport::polygonsOf(back->getShapeBase()->getLines())[0].size(), 8);
    }

    void load_ontoShapes_addsAndTakesOverTheCounter()
    {
        add(ShapeType::Rect);
        const QByteArray bytes = saved(*manager); // one rectangle with id 0, next id 1
        add(ShapeType::Ellipse);
        QSignalSpy added(manager.get(), &ZTShapeManager::sigAddedShape);
        load(*manager, bytes);
        QCOMPARE(manager->getShapeList().size(), 3);
        QCOMPARE(manager->itemModel()->rowCount(), 3);
        QCOMPARE(add(ShapeType::Rect)->getShapeBase()->getId(), 1);
        QCOMPARE(added.count(), 0);
    }

    void load_keepsTheStackingOrder()
    {
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Line, ShapeType::Ellipse})
            add(type);
        manager->scene()->getItemById(0)->setZValue(5);
        manager->getShapeLines(); // paints all, as loading does
        const QByteArray bytes = saved(*manager);
        manager->clear();
        load(*manager, bytes);
        QList<int> types;
        for (ZTShapeBase *shape : manager->getShapeList())
            types << int(shape->getShapeType());
        QCOMPARE(types,
                 (QList<int>{int(ShapeType::Rect), int(ShapeType::Ellipse), int(ShapeType::Line)}));
        QCOMPARE(saved(*manager), bytes);
    }

    void load_truncated_yieldsEmptyRectangles()
    {
        const QByteArray bytes = QByteArray::fromHex("00000000"
                                                     "00000000"
                                                     "00000007"
                                                     "00000003");
        QVERIFY(load(*manager, bytes));
        QCOMPARE(manager->getShapeList().size(), 3);
        for (ZTShapeBase *shape : manager->getShapeList())
            QCOMPARE(shape->getRect(), QRectF());
        QCOMPARE(add(ShapeType::Rect)->getShapeBase()->getId(), 7);
    }

    void load_negativeCount_loadsNothing()
    {
        QVERIFY(load(*manager, QByteArray::fromHex("00000000"
                                                   "00000000"
                                                   "00000000"
                                                   "ffffffff")));
        QVERIFY(manager->getShapeList().isEmpty());
    }

    void load_kindWithoutAFactory_leavesItsRecordUnread()
    {
        // A QR code, then a polygon of 6 sides at (0, 0).
        const QByteArray bytes = QByteArray::fromHex("00000000000000000000000000000002"
                                                     "06"
                                                     "04") +
                                 QByteArray(16, '\0') + QByteArray::fromHex("00000006");
        QVERIFY(load(*manager, bytes));
        QCOMPARE(manager->getShapeList().size(), 1);
        QCOMPARE(dynamic_cast<ZTGraphicsPolygonItem &>(*firstItem()).getSideCount(), 6);
    }

    void load_status_isLeftAlone()
    {
        QDataStream in(QByteArray{});
        in.setVersion(QDataStream::Qt_4_8);
        in.setByteOrder(QDataStream::LittleEndian);
        QVERIFY(manager->load(in));
        QCOMPARE(in.status(), QDataStream::ReadPastEnd);
        QCOMPARE(in.version(), int(QDataStream::Qt_4_8));
        QCOMPARE(in.byteOrder(), QDataStream::LittleEndian);
    }

    void variantTexts_areWrittenFirstAndAppended()
    {
        ZTVariantTextManager &texts = *ZTVariantTextManager::getInstance();
        texts.load(*std::make_unique<QDataStream>(QByteArray::fromHex("0000000500000000")));
        QCOMPARE(saved(*manager).left(8).toHex(), QByteArray("0000000500000000"));
    }

    void roundTrip_everyKind_marksAlike()
    {
        for (const ShapeType type :
             {ShapeType::Rect, ShapeType::Line, ShapeType::Ellipse, ShapeType::TDOT}) {
            ZTAbstractGraphicsItem *item = add(type);
            item->setFillParam({FillType::ULine, 0.5, 20.0, true});
            item->setTransformParam(QTransform().rotate(33));
        }
        const ZTMarkGraph before = manager->getShapeLines();
        const QByteArray bytes = saved(*manager);
        manager->clear();
        load(*manager, bytes);
        const ZTMarkGraph after = manager->getShapeLines();
        QCOMPARE(after.objects.size(), before.objects.size());
        for (int i = 0; i < before.objects.size(); ++i) {
            QVERIFY(testsupport::same(after.objects[i].lines, before.objects[i].lines));
            QCOMPARE(after.objects[i].fillLines, before.objects[i].fillLines);
        }
    }

private:
    ZTAbstractGraphicsItem *add(ShapeType type)
    {
        return manager->addShape(type, QRectF(0, 0, 10, 10));
    }

    void addRectangleForBytes()
    {
        ZTAbstractGraphicsItem *item = add(ShapeType::Rect);
        item->setPos(1, -2);
        item->getShapeBase()->setPenId(3);
        item->getShapeBase()->setUpdate(1);
    }

    ZTAbstractGraphicsItem *firstItem()
    {
        return manager->itemModel()
            ->index(0, 1)
            .data(ZTItemModel::kItemRole)
            .value<ZTAbstractGraphicsItem *>();
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTShapeManager> manager;
};

QTEST_MAIN(tst_ZTShapeManager_stream)
#include "tst_ZTShapeManager_stream.moc"
