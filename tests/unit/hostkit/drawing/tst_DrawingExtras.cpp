#include <support/DrawingBytes.h>
#include <support/ShapeState.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

using hostkit::DrawingExtras;
using hostkit::Failure;

namespace {

hostkit::DrawingItem slot(const QByteArray &name)
{
    hostkit::DrawingItem item;
    item.kind = "maker.Slot";
    item.type = ShapeType::Point;
    item.posPx = QPointF(3.0, 4.0);
    item.shape = "any bytes";
    item.fields["name"] = name;
    item.fields["maker.radius"] = "2";
    return item;
}

QList<QByteArray> namesOf(const hostkit::DrawingFile &drawing)
{
    QList<QByteArray> names;
    for (const hostkit::DrawingItem &item : drawing.items)
        names << item.fields.value("name", item.kind);
    return names;
}

ZTAbstractGraphicsItem *added(ZTGraphicsDocument &document, ShapeType type)
{
    return document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
}

} // namespace

/** What a document carries beside its items, and through a file. */
class tst_DrawingExtras : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void newDocument_carriesNothing()
    {
        ZTGraphicsDocument document;
        const DrawingExtras extras = hostkit::drawingExtras(document);
        QVERIFY(extras.groupNames.isEmpty() && extras.fields.isEmpty());
        QVERIFY(extras.sections.isEmpty() && extras.foreignItems.isEmpty());
    }

    void clearDrawing_leavesNothing()
    {
        ZTGraphicsDocument document;
        added(document, ShapeType::Rect);
        DrawingExtras extras;
        extras.fields["curve"] = "0.01";
        hostkit::setDrawingExtras(document, extras);
        QCOMPARE(hostkit::drawingExtras(document).fields.value("curve"), QByteArray("0.01"));
        hostkit::clearDrawing(document);
        QVERIFY(hostkit::drawingExtras(document).fields.isEmpty());
        QVERIFY(document.itemMag()->getShapeList().isEmpty());
    }

    void fieldsGroupsAndSections_comeThroughAFile()
    {
        ZTGraphicsDocument document;
        DrawingExtras extras;
        extras.fields["curve"] = QByteArray("0\0.01", 5);
        extras.fields[""] = "even without a key";
        extras.groupNames = {{-4, QStringLiteral("\u4F60")}, {9, QString()}};
        extras.sections << hostkit::DrawingSection{"NEW1", "content"};
        hostkit::setDrawingExtras(document, extras);
        ZTGraphicsDocument other;
        hostkit::setDrawingExtras(other, {{}, {{"of the old drawing", "x"}}, {}, {}});
        Failure failure;
        QVERIFY2(testsupport::load(testsupport::savedBytes(document), other, &failure),
                 qPrintable(failure.reason));
        const DrawingExtras loaded = hostkit::drawingExtras(other);
        QCOMPARE(loaded.fields, extras.fields);
        QCOMPARE(loaded.groupNames, extras.groupNames);
        QCOMPARE(loaded.sections.size(), 1);
        QCOMPARE(loaded.sections[0].bytes, QByteArray("content"));
    }

    void itemExtras_comeThroughAFile()
    {
        ZTGraphicsDocument document;
        hostkit::ItemExtras extras;
        extras.name = QStringLiteral("frame");
        extras.isMarked = false;
        extras.isLocked = true;
        extras.isHidden = true;
        extras.groupPath = {1, 2};
        extras.fields["maker.word"] = "content";
        extras.fields["mark"] = "no flag"; // what a newer program may have put there
        hostkit::setItemExtras(*added(document, ShapeType::Rect), extras);
        added(document, ShapeType::Ellipse);
        hostkit::ItemExtras wanted = extras;
        wanted.fields.remove("mark"); // the flag has the key
        ZTGraphicsDocument other;
        Failure failure;
        QVERIFY(testsupport::load(testsupport::savedBytes(document), other, &failure));
        const QVector<ZTAbstractGraphicsItem *> items = itemsOf(other);
        QCOMPARE(items.size(), 2);
        QVERIFY(hostkit::itemExtras(*items[0]) == wanted);
        QVERIFY(!items[0]->isVisible());
        QVERIFY(hostkit::itemExtras(*items[1]) == hostkit::ItemExtras());
        QCOMPARE(testsupport::savedBytes(other), testsupport::savedBytes(document));
    }

    void unknownKinds_areKeptUnseenAtTheirPlaces()
    {
        ZTGraphicsDocument document;
        added(document, ShapeType::Rect);
        added(document, ShapeType::Ellipse);
        hostkit::DrawingFile drawing = testsupport::captured(document);
        drawing.items.insert(0, slot("lowest"));
        drawing.items.insert(2, slot("between"));
        drawing.items << slot("highest") << slot("above");
        QPainterPath corner;
        corner.addPolygon(QPolygonF(QVector<QPointF>{{0, 20}, {40, 20}}));
        drawing.drawings << corner;
        drawing.items[2].fields["PLOT"] = QByteArray(4, '\0');
        const QList<QByteArray> names = namesOf(drawing);

        ZTGraphicsDocument other;
        Failure failure;
        hostkit::DrawingReport report;
        QVERIFY2(applyDrawing(drawing, other, {}, &report, &failure), qPrintable(failure.reason));
        QCOMPARE(report.unknownKinds, (QMap<QString, int>{{QStringLiteral("maker.Slot"), 4}}));
        QCOMPARE(itemsOf(other).size(), 2);
        QCOMPARE(other.itemMag()->getShapeLines().objects.size(), 2);
        const hostkit::DrawingFile saved = testsupport::captured(other);
        QCOMPARE(namesOf(saved), names);
        QCOMPARE(drawingToBytes(saved), drawingToBytes(drawing));
    }

    void unknownKinds_stayWhenTheOthersGo()
    {
        ZTGraphicsDocument document;
        added(document, ShapeType::Rect);
        hostkit::DrawingFile drawing = testsupport::captured(document);
        drawing.items << slot("kept");
        ZTGraphicsDocument other;
        Failure failure;
        QVERIFY(applyDrawing(drawing, other, {}, nullptr, &failure));
        itemsOf(other)[0]->setSelected(true);
        other.itemMag()->removeSelect();
        QCOMPARE(namesOf(testsupport::captured(other)), QList<QByteArray>{"kept"});
    }

private:
    static QVector<ZTAbstractGraphicsItem *> itemsOf(const ZTGraphicsDocument &document)
    {
        QVector<ZTAbstractGraphicsItem *> found;
        for (QGraphicsItem *item : document.itemMag()->scene()->items(Qt::AscendingOrder)) {
            if (auto *shape = dynamic_cast<ZTAbstractGraphicsItem *>(item))
                found << shape;
        }
        return found;
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingExtras)
#include "tst_DrawingExtras.moc"
