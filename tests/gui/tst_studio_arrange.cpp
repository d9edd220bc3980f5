#include "StudioWindow.h"

#include <studio/arrange/ArrangeActions.h>
#include <studio/arrange/CircleDialog.h>
#include <studio/arrange/CirclePreview.h>
#include <studio/choices/Units.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using studio::ShapeItem;

/** Arranging shapes by the commands of the window. */
class tst_studio_arrange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        side = 10.0 * 900.0 / 193.0;
    }
    void cleanup() { studio.reset(); }

    void toTheFirstSelected_theFirstStays()
    {
        ShapeItem *lower = studio->addRect(0, 0);
        ShapeItem *first = studio->addRect(100, 60);
        QVERIFY(studio->run("arrange.toFirst"));
        studio->driver->click(middleOf(*first));
        studio->driver->click(middleOf(*lower), Qt::ControlModifier);
        QCOMPARE(studio->selected().size(), 2);
        QVERIFY(studio->run("arrange.top"));
        QCOMPARE(first->pos(), QPointF(100, 60));
        QCOMPARE(lower->pos(), QPointF(0, 60));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(lower->pos(), QPointF(0, 0));
    }

    void toTheField_oneShapeIsEnough()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        QVERIFY(!studio->isEnabled("arrange.left"));
        QVERIFY(studio->run("arrange.toField"));
        QVERIFY(studio->run("arrange.left"));
        // The field reaches 300 mm to the left.
        QVERIFY(std::abs(studio::sceneBox(*item).left() + 300.0 * 900.0 / 193.0) < 1e-9);
        QVERIFY(studio->run("arrange.bottom"));
        QVERIFY(std::abs(studio::sceneBox(*item).bottom() - 300.0 * 900.0 / 193.0) < 1e-9);
        QVERIFY(studio->run("arrange.toEachOther"));
        QVERIFY(!studio->isEnabled("arrange.left"));
    }

    void centreOnTheField()
    {
        ShapeItem *a = studio->addRect(100, 0);
        ShapeItem *b = studio->addRect(200, 30);
        studio->select({a, b});
        QVERIFY(studio->run("arrange.centreOnField"));
        QVERIFY(studio->document().scene()->getSelectionItemRect().center().manhattanLength() <
                1e-9);
        QCOMPARE(b->pos() - a->pos(), QPointF(100, 30));
        QCOMPARE(studio->stack().count(), 1);
    }

    void distribute_makesEqualGaps()
    {
        studio->select({studio->addRect(0, 0), studio->addRect(60, 0), studio->addRect(300, 0)});
        QVERIFY(studio->run("arrange.gapsAcross"));
        QCOMPARE(studio->document().scene()->getItemById(1)->pos(), QPointF(150, 0));
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Distribute"));
        QVERIFY(studio->run("arrange.gapsAcross"));
        QCOMPARE(studio->stack().count(), 1); // nothing left to do
    }

    void mirrorAboutTheField_changesSides()
    {
        ShapeItem *item = studio->addRect(100, 40);
        studio->select({item});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("arrange.mirrorFieldAcross"));
        const QRectF box = studio::sceneBox(*item);
        QVERIFY(std::abs(box.right() + 100) < 1e-9);
        QVERIFY(std::abs(box.top() - 40) < 1e-9);
        QVERIFY(studio->frameFits());
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
        QVERIFY(studio->run("edit.redo"));
        QVERIFY(studio->run("arrange.mirrorFieldDown"));
        QVERIFY(std::abs(studio::sceneBox(*item).bottom() + 40) < 1e-9);
    }

    void circle_showsAndMakesTheCopies_asOneStep()
    {
        ShapeItem *item = studio->addRect(100, -side / 2);
        studio->select({item});
        QVERIFY(studio->run("arrange.circle"));
        auto *dialog = studio->window->findChild<studio::CircleDialog *>();
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("count"))->setValue(4);
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("hint"))->text(),
                 QStringLiteral("One every 90.000°"));
        const QImage withPreview = studio->view().grab().toImage();
        const DrawingSnapshot before = studio->snapshot();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("create")),
                          Qt::LeftButton);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1, 2, 3}));
        QCOMPARE(studio->selected(), (QVector<int>{1, 2, 3}));
        const QRectF up = studio::sceneBox(*studio->document().scene()->getItemById(1));
        QVERIFY(std::abs(up.center().x()) < 1e-9);
        QVERIFY(std::abs(up.bottom() + 100) < 1e-9);
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
        dialog->close();
        QVERIFY(studio->view().grab().toImage() != withPreview);
    }

    void circle_countsItsMiddleAsPeopleDo()
    {
        ShapeItem *item = studio->addRect(100, 0);
        studio->select({item});
        QVERIFY(studio->run("arrange.circle"));
        auto *dialog = studio->window->findChild<studio::CircleDialog *>();
        auto *down = dialog->findChild<QDoubleSpinBox *>(QStringLiteral("centreY"));
        down->setFocus();
        down->selectAll();
        QTest::keyClicks(down, QStringLiteral("20"));
        studio::units::choose(studio::LengthUnit::Inch, true);
        QTRY_COMPARE(down->text(), QStringLiteral("-0.78740 in")); // the same place
        down->setFocus();
        down->selectAll();
        QTest::keyClicks(down, QStringLiteral("1"));
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("count"))->setValue(2);
        const double before = studio::sceneBox(*item).center().y();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("create")),
                          Qt::LeftButton);
        studio::units::choose(studio::LengthUnit::Millimetre, false);
        // Half a turn about the place an inch above the origin.
        const double middle = -ZTCoord::getInstance()->mm2pix(25.4);
        const QRectF other = studio::sceneBox(*studio->document().scene()->getItemById(1));
        QVERIFY(qAbs(other.center().y() - (2.0 * middle - before)) < 1e-6);
    }

    void circle_countIsSelectedAtFirst_andRefusesWhatIsNoCount()
    {
        studio->select({studio->addRect(100, 0)});
        QVERIFY(studio->run("arrange.circle"));
        auto *dialog = studio->window->findChild<studio::CircleDialog *>();
        auto *count = dialog->findChild<QDoubleSpinBox *>(QStringLiteral("count"));
        const auto *create = dialog->findChild<QPushButton *>(QStringLiteral("create"));
        const auto *hint = dialog->findChild<QLabel *>(QStringLiteral("hint"));
        QCOMPARE(dialog->focusWidget(), count);
        QTest::keyClicks(count, QStringLiteral("7")); // takes the place of what stood there
        QCOMPARE(count->text(), QStringLiteral("7"));
        QVERIFY(hint->text().startsWith(QStringLiteral("One every 51.4")));
        for (const char *wrong : {"1", "0", "1e9", "2.5"}) {
            count->selectAll();
            QTest::keyClicks(count, QLatin1String(wrong));
            QCOMPARE(count->text(), QLatin1String(wrong));
            QVERIFY(!create->isEnabled());
            QVERIFY2(hint->text().contains(QStringLiteral("Permitted: 2 to")),
                     qPrintable(hint->text()));
        }
        QTest::keyClick(count, Qt::Key_Tab);
        QCOMPARE(count->text(), QStringLiteral("2.5"));
        QVERIFY(!create->isEnabled());
    }

    void circle_withoutSelection_saysWhatIsMissing()
    {
        studio->select({studio->addRect(0, 0)});
        QVERIFY(studio->run("arrange.circle"));
        auto *dialog = studio->window->findChild<studio::CircleDialog *>();
        studio->edit().clearSelection();
        QVERIFY(!dialog->findChild<QPushButton *>(QStringLiteral("create"))->isEnabled());
        QVERIFY(dialog->findChild<QLabel *>(QStringLiteral("hint"))
                    ->text()
                    .startsWith(QStringLiteral("Select what")));
    }

private:
    static QPointF middleOf(const ShapeItem &item) { return studio::sceneBox(item).center(); }

    std::unique_ptr<StudioWindow> studio;
    double side = 0.0;
};

QTEST_MAIN(tst_studio_arrange)
#include "tst_studio_arrange.moc"
