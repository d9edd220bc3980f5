#include <support/SingletonGuard.h>

#include <codekit/shape/CodeItem.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/items/HatchedItems.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <algorithm>
#include <limits>
#include <memory>

using namespace codekit;
using hostkit::HatchKind;
using hostkit::HatchLayer;
using hostkit::ShapeHatch;

namespace {

ShapeHatch hatchOf(HatchKind kind, double spacingMm, int pen = 0)
{
    ShapeHatch hatch;
    hatch.kind = kind;
    hatch.spacingMm = spacingMm;
    hatch.pen = pen;
    return hatch;
}

void give(CodeItem &item, const QVector<ShapeHatch> &hatches)
{
    ZTFillParam fill = item.getFillParam();
    hostkit::ItemExtras extras = hostkit::itemExtras(item);
    hostkit::setHatches(hatches, &fill, &extras);
    hostkit::setItemExtras(item, extras);
    item.setFillParam(fill);
    item.code().setUpdate(1);
    item.code().paint();
}

/** The code's own rows, rows of pen 3 that are marked four times, and contours. */
QVector<ShapeHatch> rowsAndContours()
{
    ShapeHatch rows = hatchOf(HatchKind::Lines, 0.1, 3);
    rows.insetMm = 0.02;
    rows.passes = 4;
    return {hatchOf(HatchKind::Lines, 0.05), rows, hatchOf(HatchKind::Contours, 0.1)};
}

} // namespace

/** Codes are hatched by all hatches that a shape can have. */
class tst_CodeHatches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        jobkit::registerHatchedFactories();
        hostkit::registerFactories();
        registerCodeFactories();
    }
    void init()
    {
        m_singletons = std::make_unique<testsupport::SingletonGuard>();
        m_document = std::make_unique<ZTGraphicsDocument>();
        m_item = codeItem(m_document->itemMag()->addShape(ShapeType::QRCode, {0, 0, 10, 10}));
        QVERIFY(m_item != nullptr);
    }
    void cleanup()
    {
        m_document.reset();
        m_singletons.reset();
    }

    // Drawings that have the one hatch stay the same, to the last bit.
    void oneHatch_isThatOfAPlainCode()
    {
        CodeShape plain(CodeKind::DataMatrix);
        plain.paint();
        QVERIFY(plain.getFillLines().size() > 100);
        QCOMPARE(m_item->code().getFillLines(), plain.getFillLines());
        QCOMPARE(m_item->code().getLines(), plain.getLines());
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(*m_item);
        QCOMPARE(layers.size(), 1);
        QCOMPARE(layers.first().lines, plain.getFillLines().size());
        QByteArray plainBytes;
        QByteArray bytes;
        QDataStream plainOut(&plainBytes, QIODevice::WriteOnly);
        QDataStream out(&bytes, QIODevice::WriteOnly);
        plain.setId(m_item->code().getId());
        plain.save(plainOut);
        m_item->code().save(out);
        QCOMPARE(bytes, plainBytes);
    }

    void allHatches_haveTheirLinesWithinTheModules()
    {
        const QVector<QLineF> first = m_item->code().getFillLines();
        give(*m_item, rowsAndContours());
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(*m_item);
        QCOMPARE(layers.size(), 3);
        const QVector<QLineF> lines = m_item->code().getFillLines();
        QCOMPARE(lines.mid(0, layers[0].lines), first);
        QCOMPARE(layers[1].pen, 3);
        QCOMPARE(layers[1].passes, 4);
        QCOMPARE(layers[2].pen, 1);
        for (const HatchLayer &layer : layers.mid(1)) {
            QVERIFY(layer.lines > 100);
            for (const QLineF &line : lines.mid(layer.firstLine, layer.lines)) {
                QVERIFY(isOnModule(line.center()));
            }
        }
    }

    void marks_areThoseLines_inTheirPens()
    {
        give(*m_item, rowsAndContours());
        hostkit::MarkGraphBuilder builder(*m_document, hostkit::markedItems(*m_document),
                                          EShapeSortType::ShapeSortNone);
        builder.work(std::numeric_limits<int>::max());
        const ZTMarkGraph graph = builder.takeUnordered();
        const auto items = jobkit::itemsOf(graph, hostkit::MarkUnits::of(*m_document->itemMag()),
                                           builder.layers());
        QCOMPARE(items.size(), 1);
        QCOMPARE(items.first().hatches.size(), 3);
        QCOMPARE(items.first().hatches[1].pen, 3);
        QCOMPARE(items.first().hatches[1].passes, 4);
        QVERIFY(!items.first().hatches[2].runsMm.isEmpty());
    }

    void screen_showsEachHatchInItsPen()
    {
        QVERIFY(pixelsOfPen(3) == 0);
        give(*m_item, rowsAndContours());
        QVERIFY(pixelsOfPen(3) > 100);
    }

    void anotherContent_isHatchedAnew()
    {
        give(*m_item, rowsAndContours());
        m_item->setText(QStringLiteral("A LONGER CONTENT WITH MORE MODULES 0123456789"));
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(*m_item);
        QCOMPARE(layers.size(), 3);
        QCOMPARE(layers[2].firstLine + layers[2].lines, m_item->code().getFillLines().size());
    }

    void copies_andTheFile_keepThem()
    {
        give(*m_item, rowsAndContours());
        CodeItem copy;
        copy.copy(m_item);
        hostkit::copyItemExtras(*m_item, copy);
        copy.code().paint();
        QCOMPARE(copy.code().getFillLines(), m_item->code().getFillLines());
        QCOMPARE(hostkit::hatchesOf(copy), rowsAndContours());

        hostkit::DrawingCapture how;
        how.withPreview = false;
        hostkit::DrawingFile drawing;
        hostkit::Failure failure;
        QVERIFY(hostkit::captureDrawing(*m_document, how, &drawing, &failure));
        const QVector<QLineF> lines = m_item->code().getFillLines();
        hostkit::DrawingReport report;
        QVERIFY(hostkit::applyDrawing(drawing, *m_document, {}, &report, &failure));
        const QList<QGraphicsItem *> items = m_document->scene()->items();
        const auto found = std::find_if(items.begin(), items.end(), [](QGraphicsItem *item) {
            return dynamic_cast<CodeItem *>(item) != nullptr;
        });
        QVERIFY(found != items.end());
        auto *loaded = dynamic_cast<CodeItem *>(*found);
        QCOMPARE(hostkit::hatchesOf(*loaded), rowsAndContours());
        loaded->code().paint();
        QCOMPARE(loaded->code().getFillLines(), lines);
    }

private:
    /** Whether a place is on what the code marks dark, or within a thousandth of a millimetre. */
    bool isOnModule(const QPointF &placePx) const
    {
        const double nearPx = ZTCoord::getInstance()->mm2pix(0.002);
        const QPainterPath &outlines = m_item->code().getLines();
        for (const QPointF &off : {QPointF(0, 0), QPointF(nearPx, 0), QPointF(-nearPx, 0),
                                   QPointF(0, nearPx), QPointF(0, -nearPx)}) {
            if (outlines.contains(placePx + off))
                return true;
        }
        return false;
    }

    int pixelsOfPen(int pen)
    {
        QImage image(800, 800, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const QRectF boxPx = m_item->boundingRect();
        painter.scale(800 / boxPx.width(), 800 / boxPx.height());
        painter.translate(-boxPx.topLeft());
        m_item->paint(&painter, nullptr);
        painter.end();
        const QRgb wanted = ZTAbstractGraphicsItem::screenPen(pen).color().rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == wanted ? 1 : 0;
        }
        return count;
    }

    std::unique_ptr<testsupport::SingletonGuard> m_singletons;
    std::unique_ptr<ZTGraphicsDocument> m_document;
    CodeItem *m_item = nullptr; ///< of the document
};

QTEST_MAIN(tst_CodeHatches)
#include "tst_CodeHatches.moc"
