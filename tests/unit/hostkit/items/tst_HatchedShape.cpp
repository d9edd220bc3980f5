#include <support/SingletonGuard.h>

#include <hostkit/items/HatchedShape.h>

#include <QtTest/QTest>

#include <cmath>

using hostkit::HatchDrawing;
using hostkit::HatchLayer;
using hostkit::ShapeHatch;

namespace {

/** A rectangle that marks one more line after its hatch, as some shapes do. */
class LinedRect : public ZTRectShape
{
public:
    void fill() override { ZTRectShape::fill(); }

    void paint() override
    {
        ZTRectShape::paint();
        QVector<QLineF> lines = getFillLines();
        lines.append(QLineF(1, 2, 3, 4));
        setFillLines(lines);
    }
};

/** Each hatch is one line, at its number. */
HatchDrawing oneLineEach(const QPainterPath &, const QVector<ShapeHatch> &hatches,
                         const std::optional<QVector<QLineF>> &firstPx)
{
    HatchDrawing drawing;
    drawing.linesPx = firstPx.value_or(QVector<QLineF>{});
    for (int i = 0; i < hatches.size(); ++i) {
        HatchLayer layer;
        layer.hatch = i + 1;
        layer.pen = hatches[i].pen;
        layer.passes = hatches[i].passes;
        layer.lines = drawing.linesPx.size();
        if (i > 0 || !firstPx) {
            layer.firstLine = drawing.linesPx.size();
            layer.lines = 1;
            drawing.linesPx.append(QLineF(i, 0, i, 1));
        }
        drawing.layers.append(layer);
    }
    return drawing;
}

int g_drawn = 0;
int g_united = 0;

HatchDrawing countedLines(const QPainterPath &outlinePx, const QVector<ShapeHatch> &hatches,
                          const std::optional<QVector<QLineF>> &firstPx)
{
    ++g_drawn;
    return oneLineEach(outlinePx, hatches, firstPx);
}

QPainterPath movedAway(const QPainterPath &outlinePx)
{
    ++g_united;
    return outlinePx.translated(1000, 0);
}

class Owner : public ZTGraphicsRectItem
{
public:
    void take(ZTShapeBase *taken) { replaceShape(taken); }
};

} // namespace

/** A shape asks whoever draws hatches in this process, without knowing who that is. */
class tst_HatchedShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_item = std::make_unique<Owner>();
        m_shape = new hostkit::HatchedShape<LinedRect>(*m_item, LinedRect());
        m_item->take(m_shape);
        m_shape->setRect(QRectF(0, 0, 10, 10));
        m_shape->setPenId(2);
    }
    void cleanup()
    {
        m_item.reset();
        hostkit::setHatchDrawer({});
    }

    void withoutADrawer_theFirstHatchIsDrawn_andThereAreNoLayers()
    {
        give(twoHatches());
        const QVector<QLineF> drawn = m_shape->getFillLines();
        QVERIFY(m_shape->hatchLayers().isEmpty());
        LinedRect plain;
        plain.setRect(QRectF(0, 0, 10, 10));
        plain.setFillParam(m_shape->getFillParam());
        plain.paint();
        QVERIFY(drawn.size() > 2);
        QCOMPARE(drawn, plain.getFillLines());
    }

    void theDrawerDrawsAllHatches_andWhatTheShapeAddsIsItsOwn()
    {
        hostkit::setHatchDrawer({&oneLineEach, nullptr});
        give(twoHatches());
        const QVector<HatchLayer> layers = m_shape->hatchLayers();
        QCOMPARE(layers.size(), 3);
        QCOMPARE(layers[0].pen, 2); // 0 is the shape's
        QCOMPARE(layers[1].pen, 5);
        QCOMPARE(layers[1].passes, 4);
        QCOMPARE(layers[1].lines, 1);
        QCOMPARE(m_shape->getFillLines().at(layers[1].firstLine), QLineF(1, 0, 1, 1));
        QCOMPARE(layers[2].pen, 2);
        QCOMPARE(layers[2].passes, 1);
        QCOMPARE(layers[2].lines, 1);
        QCOMPARE(m_shape->getFillLines().at(layers[2].firstLine), QLineF(1, 2, 3, 4));
    }

    void outlinesAreUnited_whereTheItemSaysSo()
    {
        hostkit::setHatchDrawer({nullptr, &movedAway});
        give({});
        const QRectF before = m_shape->getLines().boundingRect();
        hostkit::ItemExtras extras;
        extras.outlineUnion = hostkit::OutlineUnion::Always;
        hostkit::setItemExtras(*m_item, extras);
        m_shape->paint();
        QCOMPARE(m_shape->getLines().boundingRect(), before.translated(1000, 0));
    }

    void filledAnewAsItWas_nothingIsDrawnAnew()
    {
        hostkit::setHatchDrawer({&countedLines, &movedAway});
        giveUnited(twoHatches());
        const QVector<QLineF> lines = m_shape->getFillLines();
        const QPainterPath outline = m_shape->getLines();
        const auto layers = m_shape->hatchLayers();
        g_drawn = 0;
        g_united = 0;
        rebuild();
        QCOMPARE(g_drawn, 0);
        QCOMPARE(g_united, 0);
        QCOMPARE(m_shape->getFillLines(), lines);
        QCOMPARE(m_shape->getLines(), outline);
        QCOMPARE(m_shape->hatchLayers().size(), layers.size());
        QCOMPARE(m_shape->hatchLayers().at(1).pen, 5);
    }

    void whateverTheHatchesDependOnChanges_theyAreDrawnAnew_data()
    {
        QTest::addColumn<int>("change");
        QTest::newRow("outline") << 0;
        QTest::newRow("spacing") << 1;
        QTest::newRow("a hatch") << 2;
        QTest::newRow("pixels a millimetre") << 3;
    }

    void whateverTheHatchesDependOnChanges_theyAreDrawnAnew()
    {
        QFETCH(int, change);
        const testsupport::SingletonGuard guard;
        ZTCoord::getInstance()->setHeight(1000.0);
        hostkit::setHatchDrawer({&countedLines, &movedAway});
        giveUnited(twoHatches());
        g_drawn = 0;
        switch (change) {
        case 0:
            m_shape->getTransformParam() = QTransform::fromScale(1.0 + 1e-9, 1.0);
            break;
        case 1: {
            ZTFillParam fill = m_shape->getFillParam();
            fill.spac = std::nextafter(fill.spac, 100.0);
            m_shape->setFillParam(fill);
            break;
        }
        case 2: {
            hostkit::ItemExtras extras = hostkit::itemExtras(*m_item);
            extras.hatches[1].passes = 3;
            hostkit::setItemExtras(*m_item, extras);
            break;
        }
        default:
            m_shape->setRect(QRectF());
            m_shape->setTransformParam(QTransform::fromScale(0, 0));
            g_drawn = 0;
            ZTCoord::getInstance()->setHeight(500.0);
        }
        rebuild();
        QCOMPARE(g_drawn, 1);
    }

    void anotherDrawer_drawsAnew()
    {
        hostkit::setHatchDrawer({&oneLineEach, nullptr});
        give(twoHatches());
        g_drawn = 0;
        hostkit::setHatchDrawer({&countedLines, nullptr});
        rebuild();
        QCOMPARE(g_drawn, 1);
    }

private:
    void giveUnited(const QVector<ShapeHatch> &hatches)
    {
        give(hatches);
        hostkit::ItemExtras extras = hostkit::itemExtras(*m_item);
        extras.outlineUnion = hostkit::OutlineUnion::Always;
        hostkit::setItemExtras(*m_item, extras);
        rebuild();
    }

    void rebuild()
    {
        m_shape->setUpdate(1);
        m_shape->paint();
    }

    static QVector<ShapeHatch> twoHatches()
    {
        ShapeHatch second;
        second.pen = 5;
        second.passes = 4;
        return {ShapeHatch(), second};
    }

    void give(const QVector<ShapeHatch> &hatches)
    {
        ZTFillParam fill;
        hostkit::ItemExtras extras;
        hostkit::setHatches(hatches, &fill, &extras);
        hostkit::setItemExtras(*m_item, extras);
        m_shape->setFillParam(fill);
        m_shape->setUpdate(1);
        m_shape->paint();
    }

    std::unique_ptr<Owner> m_item;
    hostkit::HatchedShape<LinedRect> *m_shape = nullptr; ///< of the item
};

QTEST_MAIN(tst_HatchedShape)
#include "tst_HatchedShape.moc"
