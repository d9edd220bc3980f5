#include <hostkit/items/MarkReadiness.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QtTest>

#include <limits>

namespace {

class DoubtfulShape : public ZTRectShape, public hostkit::MarkReadiness
{
public:
    QString notReadyReason() const override { return reason; }

    QString reason;
};

class DoubtfulItem : public ZTGraphicsRectItem
{
public:
    DoubtfulItem() { replaceShape(doubtful); }

    DoubtfulShape *doubtful = new DoubtfulShape;
};

} // namespace

class TestMarkReadiness : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainShape_isAlwaysReady()
    {
        const ZTGraphicsRectItem rect;
        QCOMPARE(hostkit::notReadyReason(rect), QString());
    }

    void reasonOfAShape_isAFinding()
    {
        ZTGraphicsDocument document;
        auto *item = new DoubtfulItem;
        item->setShapeType(ShapeType::Rect);
        document.scene()->addItem(item); // the scene's from here on
        QVERIFY(hostkit::drawingMarks(document).findings.isEmpty());
        item->doubtful->reason = QStringLiteral("it has no content");
        QCOMPARE(hostkit::notReadyReason(*item), QStringLiteral("it has no content"));
        const hostkit::MarkFindings findings = hostkit::drawingMarks(document).findings;
        QCOMPARE(findings.notReady, QStringList{QStringLiteral("Rectangle 0: it has no content")});
        QCOMPARE(hostkit::describeNotReady(findings),
                 QStringLiteral("shown otherwise than asked for: Rectangle 0: it has no content"));
        QCOMPARE(hostkit::describeFindings(findings),
                 QStringList{hostkit::describeNotReady(findings)});
    }

    void coordinateThatIsNoNumber_isAFinding()
    {
        hostkit::registerFactories();
        ZTGraphicsDocument document;
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        QVERIFY(hostkit::drawingMarks(document).findings.notReady.isEmpty());
        document.itemMag()->setScale(std::numeric_limits<float>::quiet_NaN(), 1.0F);
        QCOMPARE(hostkit::drawingMarks(document).findings.notReady,
                 QStringList{QStringLiteral("Rectangle 0: a coordinate is no number")});
    }
};

QTEST_MAIN(TestMarkReadiness)

#include "tst_MarkReadiness.moc"
