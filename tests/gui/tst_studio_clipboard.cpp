#include "TextWindow.h"

#include "support/DrawingBytes.h"

#include <studio/clipboard/ClipboardActions.h>
#include <studio/clipboard/ClipboardContent.h>

#include <hostkit/items/ItemExtras.h>

#include <vectorkit/VectorReader.h>

#include <QtGui/QClipboard>
#include <QtWidgets/QStatusBar>

using studio::ShapeItem;

namespace {

QClipboard &clipboard() { return *QGuiApplication::clipboard(); }

/** What a shape is marked as, without the place where it stands. */
ZTMarkObject marksOf(ZTGraphicsDocument &document, ShapeItem &item)
{
    const QPointF before = item.pos();
    item.setPos(0, 0);
    ZTMarkObject object;
    document.itemMag()->genMarkObject(&item, item.getShapeBase(), object);
    item.setPos(before);
    return object;
}

} // namespace

/** Cut, copy and paste, within a window and between windows. */
class tst_studio_clipboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        clipboard().clear();
        studio = std::make_unique<TextWindow>();
    }
    void cleanup() { studio.reset(); }

    void copyAndPaste_makesAnEqualShapeFiveMillimetresAside()
    {
        ShapeItem *source = fullRect(20, 30);
        studio->select({source});
        copy();
        paste();
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
        QCOMPARE(studio->selected(), QVector<int>{1});
        ShapeItem *copy = item(1);
        const double aside = 5.0 * 900.0 / 193.0;
        QVERIFY((copy->pos() - QPointF(20 + aside, 30 + aside)).manhattanLength() < 1e-9);
        QVERIFY(hostkit::itemExtras(*copy) == hostkit::itemExtras(*source));
        QCOMPARE(copy->getPenId(), 7);
        const ZTMarkObject was = marksOf(studio->document(), *source);
        const ZTMarkObject is = marksOf(studio->document(), *copy);
        QCOMPARE(is.lines, was.lines);
        QCOMPARE(is.fillLines, was.fillLines);
        QVERIFY(!was.fillLines.isEmpty());
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Paste"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(studio->selected(), QVector<int>{0});
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
    }

    void pasteOnceMore_goesOnAside()
    {
        studio->select({studio->addRect(20, 30)});
        copy();
        paste();
        paste();
        const double aside = 5.0 * 900.0 / 193.0;
        QVERIFY((item(2)->pos() - QPointF(20 + 2 * aside, 30 + 2 * aside)).manhattanLength() <
                1e-9);
    }

    void cutAndPaste_comesBackToTheSamePlace()
    {
        studio->select({studio->addRect(20, 30), studio->addRect(100, 30)});
        studio->key(Qt::Key_X, Qt::ControlModifier);
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Cut"));
        paste();
        QCOMPARE(item(2)->pos(), QPointF(20, 30));
        QCOMPARE(item(3)->pos(), QPointF(100, 30));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
    }

    void pasteInPlace_standsExactlyUponTheSource()
    {
        studio->select({studio->addRect(20.125, 30)});
        copy();
        studio->key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(item(1)->pos(), QPointF(20.125, 30));
    }

    void pasteHere_putsTheMiddleAtTheMouse()
    {
        ShapeItem *source = studio->addRect(20, 30);
        studio->select({source});
        copy();
        QVERIFY(studio->driver->chooseFromMenu({-180, -120}, QStringLiteral("Paste &here")));
        QCoreApplication::processEvents();
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
        QVERIFY((studio::sceneBox(*item(1)).center() - QPointF(-180, -120)).manhattanLength() <
                1e-9);
    }

    void outOfSight_comesToTheMiddleOfTheView()
    {
        studio->select({studio->addRect(20, 30)});
        copy();
        studio->view().centerOn(9000, 0);
        paste();
        const QPointF middle =
            studio->view().mapToScene(studio->view().viewport()->rect()).boundingRect().center();
        QVERIFY((studio::sceneBox(*item(1)).center() - middle).manhattanLength() < 1e-6);
    }

    void betweenWindows_andAfterTheFirstHasClosed()
    {
        ShapeItem *source = fullRect(20, 30);
        const ZTMarkObject was = marksOf(studio->document(), *source);
        const hostkit::ItemExtras extras = hostkit::itemExtras(*source);
        studio->select({source});
        copy();
        studio.reset();
        studio = std::make_unique<TextWindow>();
        paste();
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(item(0)->pos(), QPointF(20, 30));
        const ZTMarkObject is = marksOf(studio->document(), *item(0));
        QCOMPARE(is.lines, was.lines);
        QCOMPARE(is.fillLines, was.fillLines);
        QCOMPARE(is.penId, 7);
        QVERIFY(hostkit::itemExtras(*item(0)) == extras);
    }

    void intoADrawingOfAnotherScale_keepsMillimetres()
    {
        studio->select({studio->addRect(90, 45)}); // 19.3, 9.65 mm
        copy();
        studio->run("file.new");
        ZTCoord::getInstance()->setHeight(1800.0); // twice as many pixels to a millimetre
        studio->key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY((item(0)->pos() - QPointF(180, 90)).manhattanLength() < 1e-9);
        QVERIFY(std::abs(studio::sceneBox(*item(0)).width() - 10.0 * 1800.0 / 193.0) < 1e-9);
    }

    void text_comesWithFontVariantAndWords()
    {
        ZTGraphicsTextItem *source = studio->addText(QStringLiteral("Serial"), 10, 10);
        ZTVariantText variant;
        source->setEnableVariantText(true);
        const studio::TextState state(*source);
        studio->select({source});
        copy();
        QCOMPARE(clipboard().mimeData()->text(), source->text());
        paste();
        auto *pasted = dynamic_cast<ZTGraphicsTextItem *>(item(1));
        QVERIFY(pasted != nullptr);
        QVERIFY(pasted->isEnableVariantText());
        QCOMPARE(pasted->getFixedText(), QStringLiteral("Serial"));
        QCOMPARE(pasted->text(), source->text());
        QCOMPARE(pasted->font(), source->font());
    }

    void groups_arePastedAsGroupsOfTheirOwn()
    {
        const studio::ShapeItems sources = {studio->addRect(0, 0), studio->addRect(80, 0)};
        for (ShapeItem *source : sources) {
            hostkit::ItemExtras extras;
            extras.groupPath = {4};
            hostkit::setItemExtras(*source, extras);
        }
        hostkit::DrawingExtras named;
        named.groupNames[4] = QStringLiteral("Pair");
        hostkit::setDrawingExtras(studio->document(), named);
        studio->select(sources);
        copy();
        paste();
        const QVector<qint32> path = hostkit::itemExtras(*item(2)).groupPath;
        QCOMPARE(path.size(), 1);
        QVERIFY(path.first() != 4);
        QCOMPARE(hostkit::itemExtras(*item(3)).groupPath, path);
        QCOMPARE(hostkit::itemExtras(*item(0)).groupPath, QVector<qint32>{4});
        const auto names = [this] { return hostkit::drawingExtras(studio->document()).groupNames; };
        QCOMPARE(names().value(path.first()), QStringLiteral("Pair"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(names(), named.groupNames);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
    }

    void copy_offersOutlinesAsSvgAtTrueSize()
    {
        studio->select({studio->addRect(0, 0)});
        copy();
        const QByteArray svg = clipboard().mimeData()->data(studio::kSvgType);
        QVERIFY(svg.contains("10mm"));
        vectorkit::VectorDrawing drawing;
        QVERIFY(vectorkit::readDrawing(svg, {}, &drawing, nullptr));
        QCOMPARE(drawing.shapeCount(), 1);
        QVERIFY(std::abs(drawing.boundsMm().width() - 10.0) < 1e-4);
        QVERIFY(std::abs(drawing.boundsMm().height() - 10.0) < 1e-4);
    }

    void svgOfOthers_comesInAtTrueSize()
    {
        auto *held = new QMimeData;
        held->setData(studio::kSvgType,
                      "<svg xmlns='http://www.w3.org/2000/svg' width='20mm' height='10mm' "
                      "viewBox='0 0 20 10'><rect x='0' y='0' width='20' height='10' fill='none' "
                      "stroke='#000'/></svg>");
        clipboard().setMimeData(held);
        paste();
        QCOMPARE(studio->ids().size(), 1);
        const QRectF box = studio::sceneBox(*item(0));
        QVERIFY(std::abs(box.width() * 193.0 / 900.0 - 20.0) < 1e-6);
        QVERIFY(std::abs(box.height() * 193.0 / 900.0 - 10.0) < 1e-6);
    }

    void svgAsText_isADrawingToo()
    {
        clipboard().setText(QStringLiteral(
            "<?xml version='1.0'?>\n<svg xmlns='http://www.w3.org/2000/svg' width='5mm' "
            "height='5mm' viewBox='0 0 5 5'><path d='M0 0L5 5' stroke='#000'/></svg>"));
        paste();
        QCOMPARE(studio->ids().size(), 1);
        QCOMPARE(int(item(0)->getShapeType()), int(ShapeType::VecGraph));
    }

    void plainText_becomesATextShape()
    {
        clipboard().setText(QStringLiteral("Line 1\r\nLine\t2\r\n"));
        paste();
        const auto *text = dynamic_cast<ZTGraphicsTextItem *>(item(0));
        QVERIFY(text != nullptr);
        QCOMPARE(text->text(), QStringLiteral("Line 1\nLine 2"));
        QVERIFY(studio->editor() == nullptr);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Paste"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(studio->ids().isEmpty());
    }

    void tooMuchText_isRefusedWithTheLimit()
    {
        clipboard().setText(QString(10001, QLatin1Char('a')));
        paste();
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.first().details.isEmpty());
    }

    void damagedShapes_areRefusedWithTheReason()
    {
        auto *held = new QMimeData;
        held->setData(studio::kShapesType, QByteArray("\x89ZTD nonsense"));
        clipboard().setMimeData(held);
        const DrawingSnapshot before = studio->snapshot();
        paste();
        QCOMPARE(studio->messages->failures.size(), 1);
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(studio->stack().count(), 0);
    }

    void emptyClipboard_isToldOf()
    {
        paste();
        QVERIFY(studio->window->statusBar()->currentMessage().startsWith(
            QStringLiteral("The clipboard holds nothing")));
        QCOMPARE(studio->stack().count(), 0);
    }

    void withoutSelection_copyAndCutAreGrey_andKeepTheClipboard()
    {
        studio->addRect(0, 0);
        clipboard().setText(QStringLiteral("kept"));
        QVERIFY(!studio->isEnabled("edit.copy"));
        QVERIFY(!studio->isEnabled("edit.cut"));
        copy();
        QCOMPARE(clipboard().text(), QStringLiteral("kept"));
    }

    void copyDoesNotChangeTheDrawing()
    {
        studio->select({fullRect(0, 0), studio->addRect(60, 60)});
        const QByteArray before = testsupport::savedBytes(studio->document());
        copy();
        QCOMPARE(testsupport::savedBytes(studio->document()), before);
        QVERIFY(!studio->window->isWindowModified());
    }

private:
    void copy() { studio->key(Qt::Key_C, Qt::ControlModifier); }
    void paste() { studio->key(Qt::Key_V, Qt::ControlModifier); }
    ShapeItem *item(int id) const { return studio->document().scene()->getItemById(id); }

    /** A rectangle with a pen, a hatch, a name and a switch that are not the usual ones. */
    ShapeItem *fullRect(double xPx, double yPx)
    {
        ShapeItem *item = studio->addRect(xPx, yPx);
        item->setTransformParam(QTransform().rotate(30.0).scale(2.0, 1.5));
        item->setPenId(7);
        ZTFillParam fill;
        fill.fillType = FillType::ULine;
        fill.spac = 1.5;
        fill.angle = 20.0;
        item->setFillParam(fill);
        hostkit::ItemExtras extras;
        extras.name = QStringLiteral("Plate");
        extras.isMarked = false;
        extras.fields["maker.word"] = "kept";
        hostkit::setItemExtras(*item, extras);
        return item;
    }

    std::unique_ptr<TextWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_clipboard>(argc, argv); }
#include "tst_studio_clipboard.moc"
