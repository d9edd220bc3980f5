#include "StudioTest.h"

#include <studio/shapes/PenColors.h>

#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QStyleOptionGraphicsItem>

class tst_PenColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void colour_isTheOneTheItemPaintsItselfIn_data()
    {
        QTest::addColumn<int>("pen");
        for (int pen = 0; pen <= studio::kPenCount + 1; ++pen)
            QTest::newRow(QByteArray::number(pen).constData()) << pen;
    }

    void colour_isTheOneTheItemPaintsItselfIn()
    {
        QFETCH(int, pen);
        studio::ShapeItem *item = test->addRect(0, 0);
        item->setPenId(pen);
        QImage image(200, 200, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.translate(50, 50);
        const QStyleOptionGraphicsItem option;
        item->paint(&painter, &option);
        painter.end();
        int painted = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) == 0)
                    continue;
                ++painted;
                QCOMPARE(QColor(image.pixel(x, y)), studio::penColor(pen));
            }
        }
        QVERIFY(painted > 0);
    }

    void swatch_showsTheColour()
    {
        for (int pen = 1; pen <= studio::kPenCount; ++pen) {
            const QImage swatch = studio::penSwatch(pen).pixmap(16, 16).toImage();
            QCOMPARE(QColor(swatch.pixel(8, 8)), studio::penColor(pen));
            const QImage selected =
                studio::penSwatch(pen).pixmap(QSize(16, 16), QIcon::Selected).toImage();
            QCOMPARE(QColor(selected.pixel(8, 8)), studio::penColor(pen));
        }
    }

private:
    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_PenColors)
#include "tst_PenColors.moc"
