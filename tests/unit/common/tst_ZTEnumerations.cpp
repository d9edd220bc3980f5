#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QVariant>
#include <QtTest/QTest>

class tst_ZTEnumerations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapeType2String_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("name");
        const QList<QByteArray> names = {"Rect",    "Line", "Ellipse",  "Point",
                                         "Polygon", "Text", "QRCode",   "BarCode",
                                         "Pixmap",  "TDOT", "VecGraph", "None"};
        for (int value = 0; value < names.size(); ++value)
            QTest::addRow("%d", value) << value << names[value];
        for (int value : {12, 13, 128, 255})
            QTest::addRow("%d", value) << value << QByteArray("unknown");
    }

    void shapeType2String()
    {
        QFETCH(int, value);
        QFETCH(QByteArray, name);
        QCOMPARE(QByteArray(::ShapeType2String(static_cast<ShapeType>(value))), name);
    }

    void values_areThoseOfTheStream()
    {
        QCOMPARE(int(ShapeType::Rect), 0);
        QCOMPARE(int(ShapeType::Line), 1);
        QCOMPARE(int(ShapeType::Ellipse), 2);
        QCOMPARE(int(ShapeType::Point), 3);
        QCOMPARE(int(ShapeType::Polygon), 4);
        QCOMPARE(int(ShapeType::Text), 5);
        QCOMPARE(int(ShapeType::QRCode), 6);
        QCOMPARE(int(ShapeType::BarCode), 7);
        QCOMPARE(int(ShapeType::Pixmap), 8);
        QCOMPARE(int(ShapeType::TDOT), 9);
        QCOMPARE(int(ShapeType::VecGraph), 10);
        QCOMPARE(int(ShapeType::None), 11);
        QCOMPARE(int(FontType::singleLine), 0);
        QCOMPARE(int(FontType::doubleLine), 1);
        QCOMPARE(int(FontType::None), 2);
        QCOMPARE(int(FillType::Line), 0);
        QCOMPARE(int(FillType::ULine), 1);
        QCOMPARE(int(FillType::None), 2);
        QCOMPARE(int(EShapeSortType::ShapeSortNone), 0);
        QCOMPARE(int(EShapeSortType::ShapeSortNearest), 1);
        QCOMPARE(int(EShapeSortType::ShapeSortXFromMin), 2);
        QCOMPARE(int(EShapeSortType::ShapeSortXFromMax), 3);
        QCOMPARE(int(EShapeSortType::ShapeSortYFromMin), 4);
        QCOMPARE(int(EShapeSortType::ShapeSortYFromMax), 5);
    }

    void widths_areFixed()
    {
        QCOMPARE(sizeof(ShapeType), std::size_t(1));
        QCOMPARE(sizeof(FontType), std::size_t(1));
        QCOMPARE(sizeof(FillType), std::size_t(4));
        QCOMPARE(sizeof(EShapeSortType), std::size_t(4));
    }

    void fontType_isAMetaTypeOfThatName()
    {
        const int id = qMetaTypeId<FontType>();
        QCOMPARE(QByteArray(QMetaType::typeName(id)), QByteArray("FontType"));
        QCOMPARE(qMetaTypeId<FontType>(), id);
        const QVariant value = QVariant::fromValue(FontType::singleLine);
        QCOMPARE(value.userType(), id);
        QCOMPARE(value.value<FontType>(), FontType::singleLine);
    }
};

QTEST_GUILESS_MAIN(tst_ZTEnumerations)
#include "tst_ZTEnumerations.moc"
