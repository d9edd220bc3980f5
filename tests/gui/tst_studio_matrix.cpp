#include "TextWindow.h"

#include <studio/edit/MatrixDialog.h>
#include <studio/edit/MatrixPreview.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using studio::MatrixDialog;
using studio::MatrixPreview;
using studio::ShapeItem;

class tst_studio_matrix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        studio = std::make_unique<StudioWindow>();
        source = studio->addRect(0, 0);
        side = source->boundingRect().width();
    }
    void cleanup() { studio.reset(); }

    void preview_showsTheCopiesAndMakesNone()
    {
        const QPointF inSecondColumn(1.5 * side + gapPx(), side / 2);
        open();
        set("gapAcross", 1.0);
        const QImage withPreview = studio->view().grab().toImage();
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(preview()->sceneBoundingRect().contains(inSecondColumn));
        dialog()->close();
        QVERIFY(preview() == nullptr);
        studio->view().viewport()->update();
        const QImage without = studio->view().grab().toImage();
        QVERIFY(withPreview != without);
        QCOMPARE(studio->ids(), QVector<int>{0});
        QCOMPARE(studio->addRect(5, 5)->getShapeBase()->getId(), 1);
    }

    void create_makesRowsAndColumns_asOneStep()
    {
        open();
        set("rows", 2);
        set("columns", 3);
        set("gapAcross", 1.0);
        set("gapDown", 2.0);
        const DrawingSnapshot before = studio->snapshot();
        click("create");
        QCOMPARE(studio->ids().size(), 6);
        QCOMPARE(studio->stack().count(), 1);
        const ShapeItem *last = studio->document().scene()->getItemById(5);
        const ZTCoord &coord = *ZTCoord::getInstance();
        QCOMPARE(last->pos(), QPointF(2 * (side + coord.mm2pix(1.0)), side + coord.mm2pix(2.0)));
        QCOMPARE(studio->selected(), (QVector<int>{1, 2, 3, 4, 5}));
        QVERIFY(dialog()->isVisible());
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
        QCOMPARE(studio->selected(), QVector<int>{0});
    }

    void preview_matchesWhatIsCreated()
    {
        source->scale(1.5, 0.5);
        open();
        set("rows", 3);
        set("columns", 2);
        set("gapAcross", -1.0);
        const QRectF expected = preview()->sceneBoundingRect().adjusted(1, 1, -1, -1);
        click("create");
        const QRectF made = studio::sceneBox(studio::shapeItemsOf(*studio->document().scene()));
        QVERIFY((expected.topLeft() - made.topLeft()).manhattanLength() < 1e-9);
        QVERIFY((expected.bottomRight() - made.bottomRight()).manhattanLength() < 1e-9);
    }

    void dialog_followsTheSelection()
    {
        open();
        QVERIFY(button("create")->isEnabled());
        studio->edit().clearSelection();
        QVERIFY(!button("create")->isEnabled());
        QVERIFY(hint().startsWith(QStringLiteral("Select what is to be repeated")));
        QVERIFY(preview()->boundingRect().isNull());
        ShapeItem *other = studio->addRect(100, 100);
        studio->select({other, source});
        QVERIFY(button("create")->isEnabled());
        studio->select({other});
        QVERIFY(button("create")->isEnabled());
        QCOMPARE(preview()->pos(), QPointF(100, 100));
        studio->edit().nudge({1.0, 0});
        QCOMPARE(preview()->pos(), other->pos());
        studio->edit().removeSelected();
        QVERIFY(!button("create")->isEnabled());
    }

    void several_areRepeatedAsOneBlock()
    {
        ShapeItem *other = studio->addRect(100, 20);
        studio->select({source, other});
        QVERIFY(studio->run("arrange.matrix"));
        set("rows", 1);
        set("columns", 2);
        set("gapAcross", 1.0);
        const QRectF expected = preview()->sceneBoundingRect().adjusted(1, 1, -1, -1);
        const DrawingSnapshot before = studio->snapshot();
        click("create");
        QCOMPARE(studio->ids(), (QVector<int>{0, 1, 2, 3}));
        // The block is as wide as from the first one's left edge to the second one's right edge.
        const double pitch = 100 + side + gapPx();
        QCOMPARE(studio->document().scene()->getItemById(2)->pos(), QPointF(pitch, 0));
        QCOMPARE(studio->document().scene()->getItemById(3)->pos(), QPointF(100 + pitch, 20));
        const QRectF made = studio::sceneBox(studio::shapeItemsOf(*studio->document().scene()));
        QVERIFY((expected.topLeft() - made.topLeft()).manhattanLength() < 1e-9);
        QVERIFY((expected.bottomRight() - made.bottomRight()).manhattanLength() < 1e-9);
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
    }

    void preview_letsTheMouseThrough()
    {
        open();
        ShapeItem *beneath = studio->addRect(1.1 * side + gapPx(), 0);
        studio->driver->click(studio::sceneBox(*beneath).center().toPoint());
        QCOMPARE(studio->selected(), QVector<int>{1});
    }

    void buttons_stayWhereTheyAre_whenTheCopiesAreSelected()
    {
        source->setSelected(false);
        auto *text = qobject_cast<ZTGraphicsTextItem *>(
            studio->document().itemMag()->addShape(ShapeType::Text, QRectF(0, 0, 10, 10)));
        text->setText(QStringLiteral("SN"));
        text->setEnableVariantText(true);
        studio->select({text});
        QVERIFY(studio->run("arrange.matrix"));
        auto *numbered = child<QCheckBox>("numbered");
        QVERIFY(numbered->isVisible());
        const QRect before = button("create")->geometry();
        const QSize size = dialog()->size();
        studio->select({source}); // nothing to number
        QCoreApplication::processEvents();
        QVERIFY(!numbered->isVisible());
        QCOMPARE(button("create")->geometry(), before);
        QCOMPARE(dialog()->size(), size);
    }

    void wrongGap_isSaid_andNothingIsMade()
    {
        open();
        auto *gap = child<QDoubleSpinBox>("gapAcross");
        gap->setFocus();
        gap->selectAll();
        QTest::keyClicks(gap, QStringLiteral("1001"));
        QVERIFY(!button("create")->isEnabled());
        QVERIFY2(hint().contains(QStringLiteral("-1000 to 1000 mm")), qPrintable(hint()));
        QTest::keyClick(gap, Qt::Key_Return);
        QCOMPARE(studio->ids().size(), 1);
        gap->selectAll();
        QTest::keyClicks(gap, QStringLiteral("1in/2"));
        QVERIFY(button("create")->isEnabled());
        click("create");
        QCOMPARE(studio->ids().size(), 12);
        // From the left edge to the next one: the rectangle and half an inch.
        const QRectF first = studio::sceneBox(*source);
        const QRectF second = studio::sceneBox(*studio->document().scene()->getItemById(1));
        QVERIFY(qAbs(second.left() - first.right() - 12.7 * gapPx()) < 1e-9);
    }

    void firstCount_isSelected_wheneverTheDialogOpens()
    {
        open();
        for (const char *typed : {"7", "6"}) {
            auto *rows = child<QDoubleSpinBox>("rows");
            QCOMPARE(dialog()->focusWidget(), rows);
            QTest::keyClicks(rows, QLatin1String(typed));
            QCOMPARE(rows->text(), QLatin1String(typed));
            QVERIFY(hint().startsWith(
                QStringLiteral("Shapes: %1,").arg(4 * QByteArray(typed).toInt())));
            child<QDoubleSpinBox>("gapDown")->setFocus();
            dialog()->close();
            open();
        }
    }

    void wrongCount_isSaid_andNothingIsMade_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("nothing of it") << "0";
        QTest::newRow("below") << "-3";
        QTest::newRow("large") << "1e9";
        QTest::newRow("part of one") << "1.5";
        QTest::newRow("words") << "x";
        QTest::newRow("empty") << "";
    }

    void wrongCount_isSaid_andNothingIsMade()
    {
        QFETCH(QString, typed);
        open();
        auto *columns = child<QDoubleSpinBox>("columns");
        columns->setFocus();
        columns->selectAll();
        QTest::keyClick(columns, Qt::Key_Delete);
        QTest::keyClicks(columns, typed);
        QVERIFY(!button("create")->isEnabled());
        QVERIFY2(hint().contains(QStringLiteral("Permitted: 1 to 10000")), qPrintable(hint()));
        QTest::keyClick(columns, Qt::Key_Tab); // it stays to be seen
        QCOMPARE(columns->text(), typed);
        QVERIFY(!button("create")->isEnabled());
        columns->selectAll();
        QTest::keyClicks(columns, QStringLiteral("2"));
        QVERIFY(button("create")->isEnabled());
        click("create");
        QCOMPARE(studio->ids().size(), 6);
    }

    void tooMany_areRefused()
    {
        open();
        set("rows", 1000);
        set("columns", 101);
        QVERIFY(!button("create")->isEnabled());
        QVERIFY(hint().contains(QStringLiteral("101,000")));
        set("columns", 1);
        set("rows", 1);
        QVERIFY(!button("create")->isEnabled());
        QCOMPARE(studio->edit().repeat(1000, 101, {1, 1}), 0);
        QCOMPARE(studio->ids().size(), 1);
    }

    void manyCells_show()
    {
        open();
        for (const double scale : {0.1, 1.0}) {
            studio->view().resetSize(scale);
            set("rows", 1);
            set("columns", 1);
            const QImage alone = studio->view().grab().toImage();
            set("rows", 300);
            set("columns", 300);
            QVERIFY(studio->view().grab().toImage() != alone);
        }
    }

    void clear_withDialogOpen_isHarmless()
    {
        open();
        studio->edit().clear();
        QVERIFY(!button("create")->isEnabled());
        studio->run("create.ellipse");
        QVERIFY(button("create")->isEnabled());
        studio->window.reset();
    }

private:
    void open()
    {
        studio->select({source});
        QVERIFY(studio->run("arrange.matrix"));
    }

    MatrixDialog *dialog() { return studio->window->findChild<MatrixDialog *>(); }

    MatrixPreview *preview()
    {
        for (QGraphicsItem *item : studio->document().scene()->items()) {
            if (auto *found = dynamic_cast<MatrixPreview *>(item))
                return found;
        }
        return nullptr;
    }

    void set(const char *name, double value) { child<QDoubleSpinBox>(name)->setValue(value); }
    QPushButton *button(const char *name) { return child<QPushButton>(name); }
    QString hint() { return child<QLabel>("hint")->text(); }
    double gapPx() const { return ZTCoord::getInstance()->mm2pix(1.0); }

    void click(const char *name)
    {
        QTest::mouseClick(button(name), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    template <class Widget>
    Widget *child(const char *name)
    {
        return dialog()->findChild<Widget *>(QString::fromLatin1(name));
    }

    std::unique_ptr<StudioWindow> studio;
    ShapeItem *source = nullptr;
    double side = 0.0;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_matrix>(argc, argv); }
#include "tst_studio_matrix.moc"
