#include "TextWindow.h"

#include "support/ShxWriter.h"

#include <QtWidgets/QFontComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

using studio::TextState;
using testsupport::bytes;

namespace {

constexpr auto kOk = QDialogButtonBox::Ok;
constexpr auto kCancel = QDialogButtonBox::Cancel;
enum Tab { Words, Font, Arc, Hatch };

/** A second regular font: its "A" goes 8 units up and 15 along, and takes 17. */
void addSecondFont()
{
    testsupport::ShxWriter writer;
    writer.above = 50;
    const QByteArray wide = bytes({2, 8, 1, 0, 1, 0x84, 0xF0, 2, 8, 1, -8, 0});
    // The larger file: a new text takes the smallest.
    writer.glyphs = {{'A', wide, QByteArray(500, 'A')}, {'W', wide, {}}};
    testsupport::writeFile(
        QCoreApplication::applicationDirPath() + QStringLiteral("/font/wide.shx"), writer.shapes());
    ZTShxFontManager::release();
}

} // namespace

class tst_studio_textDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<TextWindow>();
        addSecondFont();
        item = studio->addText(QStringLiteral("AA"));
    }
    void cleanup() { studio.reset(); }

    void words_showAtOnce_andOkIsOneStep()
    {
        const TextState before(*item);
        QVERIFY(studio->openDialog(Words));
        auto *words = studio->box<QPlainTextEdit>("words");
        words->selectAll();
        QTest::keyClicks(words, QStringLiteral("B"));
        TextWindow::key(words, Qt::Key_Return);
        QTest::keyClicks(words, QStringLiteral("C"));
        QTRY_COMPARE(item->text(), QStringLiteral("B\nC"));
        QCOMPARE(studio->stack().count(), 0);
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Change text"));
        QCOMPARE(item->getFixedText(), QStringLiteral("B\nC"));
        QCOMPARE(studio->inTree(), QStringLiteral("B\nC"));
        const TextState after(*item);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(TextState(*item) == before);
        QVERIFY(studio->run("edit.redo"));
        QVERIFY(TextState(*item) == after);
        QVERIFY(studio->frameFits());
    }

    void missingCharacters_areMarked_andAFontThatHasThemIsOneClickAway()
    {
        item->setFontType(FontType::singleLine);
        QVERIFY(studio->openDialog(Words));
        auto *bar = studio->box<QWidget>("missingBar");
        QVERIFY(!bar->isVisible());
        auto *words = studio->box<QPlainTextEdit>("words");
        words->selectAll();
        QTest::keyClicks(words, QStringLiteral("CAC")); // "C" is in neither of the tiny fonts
        QTRY_COMPARE(item->text(), QStringLiteral("CAC"));
        QVERIFY(bar->isVisible());
        QCOMPARE(studio->box<QLabel>("missingLabel")->text(),
                 QStringLiteral("This font does not draw: C"));
        QCOMPARE(words->extraSelections().size(), 2);
        QCOMPARE(words->extraSelections().first().cursor.selectedText(), QStringLiteral("C"));

        auto *use = studio->box<QPushButton>("offer1");
        QVERIFY(use->text().startsWith(QStringLiteral("Use ")));
        QTest::mouseClick(use, Qt::LeftButton);
        QTRY_COMPARE(item->fontType(), FontType::doubleLine);
        QTRY_VERIFY(!bar->isVisible());
        QVERIFY(words->extraSelections().isEmpty());
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->fontType(), FontType::singleLine);
        QCOMPARE(item->text(), QStringLiteral("AA"));
    }

    void cancel_bringsEverythingBack()
    {
        const TextState before(*item);
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        studio->enter("height", "25");
        studio->check("arc");
        QTRY_VERIFY(item->getRoundingParam().isEnableRounding);
        QVERIFY(TextState(*item) != before);
        studio->close(kCancel);
        QVERIFY(TextState(*item) == before);
        QCOMPARE(studio->stack().count(), 0);
    }

    void escape_cancels_andOkWithoutChangeIsNoStep()
    {
        const TextState before(*item);
        QVERIFY(studio->openDialog(Words));
        TextWindow::key(studio->dialog(), Qt::Key_Escape);
        QVERIFY(studio->openDialog(Font));
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(TextState(*item) == before);
    }

    void thereAndBack_isNoStep()
    {
        QVERIFY(studio->openDialog(Font));
        studio->enter("height", "33.3");
        studio->check("strokeFont");
        studio->enter("height", "10");
        studio->check("systemFont");
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 0);
    }

    void strokeFont_isChosenInTheList_byKeyboard()
    {
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        QTRY_COMPARE(item->fontType(), FontType::singleLine);
        // "A" of the font at hand: squares 8 units of 80 high, the second ten units behind.
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 10.0);
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 22.5);
        auto *list = studio->box<QListView>("regularFonts");
        QCOMPARE(list->currentIndex().data().toString(), QStringLiteral("tiny.shx"));
        list->setFocus();
        TextWindow::key(list, Qt::Key_Down);
        QTRY_COMPARE(item->shxFont().enName, QStringLiteral("wide.shx"));
        // 17 and 15 units along where 8 are high, and capitals stay 10 mm high.
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 10.0);
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 40.0);
        QTest::keyClicks(list, QStringLiteral("t"));
        QTRY_COMPARE(item->shxFont().enName, QStringLiteral("tiny.shx"));
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 22.5);
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(item->shxFont().zhName, QStringLiteral("tinybig.shx"));
    }

    void sizes_areThoseOfThePart()
    {
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        studio->enter("height", "20");
        QTRY_VERIFY(qAbs(TextWindow::sizeMm(*item).height() - 20.0) < 1e-6);
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 45.0);
        studio->enter("width", "50");
        QTRY_VERIFY(qAbs(TextWindow::sizeMm(*item).width() - 22.5) < 1e-6);
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 20.0);
        studio->enter("charSpacing", "1.5");
        QTRY_VERIFY(qAbs(TextWindow::sizeMm(*item).width() - 24.0) < 1e-6);
        studio->close(kOk);
        QVERIFY(studio->openDialog(Font));
        QCOMPARE(studio->box<QDoubleSpinBox>("height")->value(), 20.0);
        QCOMPARE(studio->box<QDoubleSpinBox>("width")->value(), 50.0);
        QCOMPARE(studio->box<QDoubleSpinBox>("charSpacing")->value(), 1.5);
    }

    void lineSpacing_isTheGapBetweenLines()
    {
        item->setFixedText(QStringLiteral("A\nA"));
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        // Two lines of 10 mm and 4 mm between them.
        QTRY_VERIFY(qAbs(TextWindow::sizeMm(*item).height() - 24.0) < 1e-6);
        studio->enter("lineSpacing", "7");
        QTRY_VERIFY(qAbs(TextWindow::sizeMm(*item).height() - 27.0) < 1e-6);
    }

    void systemFont_takesFamilyAndStyle()
    {
        QVERIFY(studio->openDialog(Font));
        auto *family = studio->box<QFontComboBox>("family");
        QVERIFY(family->count() > 1);
        const QString other = family->itemText(family->currentIndex() == 0 ? 1 : 0);
        family->setFocus();
        family->lineEdit()->selectAll();
        QTest::keyClicks(family, other);
        TextWindow::key(family, Qt::Key_Return);
        studio->check("bold");
        QTRY_VERIFY(item->font().bold());
        QCOMPARE(item->font().family(), other);
        QCOMPARE(item->font().pixelSize(), 100);
        QVERIFY(!item->font().italic());
    }

    void missingFamily_showsByItsName_andStaysUnlessAnotherIsChosen()
    {
        const QString missing = QStringLiteral("No Such Family");
        item->setFont(QFont(missing));
        const TextState before(*item);
        QVERIFY(studio->openDialog(Font));
        auto *family = studio->box<QFontComboBox>("family");
        const auto *note = studio->box<QLabel>("familyMissing");
        const QString standIn = QFontInfo(QFont(missing)).family();
        QCOMPARE(family->currentText(), missing);
        QVERIFY(note->isVisible());
        QCOMPARE(note->text(),
                 QStringLiteral("\"%1\" is not installed here; \"%2\" stands in for it.")
                     .arg(missing, standIn));
        studio->check("bold");
        QTRY_VERIFY(item->font().bold());
        QCOMPARE(item->font().family(), missing);
        studio->check("bold");
        QTRY_VERIFY(TextState(*item) == before);

        // What stands in for it can be chosen: then it is the text's own.
        family->setFocus();
        family->lineEdit()->selectAll();
        QTest::keyClicks(family, standIn);
        TextWindow::key(family, Qt::Key_Return);
        QTRY_COMPARE(item->font().family(), standIn);
        QVERIFY(!note->isVisible());
        QCOMPARE(family->currentText(), standIn);
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(TextState(*item) == before);
    }

    void missingFamily_takesAnotherFromTheList()
    {
        item->setFont(QFont(QStringLiteral("No Such Family")));
        QVERIFY(studio->openDialog(Font));
        auto *family = studio->box<QFontComboBox>("family");
        TextWindow::key(family, Qt::Key_Down);
        QTRY_COMPARE(item->font().family(), family->itemText(0));
        QVERIFY(!studio->box<QLabel>("familyMissing")->isVisible());
    }

    void wrongNumber_saysWhy_andLeavesNoOk()
    {
        QVERIFY(studio->openDialog(Font));
        const auto *reason = studio->box<QLabel>("faultLabel");
        const auto *ok = studio->dialog()->findChild<QDialogButtonBox *>()->button(kOk);
        QVERIFY(ok->isEnabled());
        QCOMPARE(reason->text(), QString());
        const int okTop = ok->y();
        studio->enter("height", "0");
        QVERIFY2(reason->isVisible() && reason->text().startsWith(QStringLiteral(
                                            "Too small. Permitted: 0.01 to 10000 mm")),
                 qPrintable(reason->text()));
        QVERIFY(!ok->isEnabled());
        QCOMPARE(ok->y(), okTop);
        studio->enter("height", "x");
        QVERIFY(reason->text().startsWith(QStringLiteral("\"x\" makes no sense here")));
        studio->enter("height", "12");
        QCOMPARE(reason->text(), QString());
        QVERIFY(ok->isEnabled());

        // On another page nobody would look for it.
        studio->enter("height", "0");
        QVERIFY(!ok->isEnabled());
        studio->dialog()->findChild<QTabWidget *>(QStringLiteral("tabs"))->setCurrentIndex(Words);
        QTRY_VERIFY(ok->isEnabled());
        QCOMPARE(reason->text(), QString());
    }

    void arc_takesStartSpanAndDiameter()
    {
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        studio->check("arc");
        QCOMPARE(studio->box<QDoubleSpinBox>("arcStart")->value(), 180.0);
        QCOMPARE(studio->box<QDoubleSpinBox>("arcSpan")->value(), -180.0);
        studio->enter("arcStart", "0");
        studio->enter("arcSpan", "-90");
        studio->enter("arcDiameter", "40");
        studio->close(kOk);
        const ZTRoundingParam arc = item->getRoundingParam();
        QVERIFY(arc.isEnableRounding);
        QCOMPARE(arc.startAngle, 0.0);
        QCOMPARE(arc.spanAngle, 90.0);
        // Squares of 10 mm whose upper left corners stand on a circle of 20 mm radius, at 22.5 and
        // 67.5 degrees: their middles are (20 - 5, 5) from the centre, 45 degrees apart.
        const double expectedMm = 2.0 * std::hypot(15.0, 5.0) * std::sin(M_PI / 8.0);
        const auto squares = item->getShapeBase()->getLines().toSubpathPolygons();
        QCOMPARE(squares.size(), 2);
        const QPointF between =
            squares[0].boundingRect().center() - squares[1].boundingRect().center();
        COMPARE_MM(std::hypot(between.x(), between.y()) / ZTCoord::getInstance()->mm2pix(1.0),
                   expectedMm);
        studio->openDialog(Arc);
        QCOMPARE(studio->box<QDoubleSpinBox>("arcDiameter")->value(), 40.0);
        QCOMPARE(studio->box<QDoubleSpinBox>("arcStart")->value(), 0.0);
    }

    void hatch_isForOutlinesAlone()
    {
        QVERIFY(studio->openDialog(Hatch));
        auto *type = studio->box<QComboBox>("hatchType");
        type->setFocus();
        TextWindow::key(type, Qt::Key_Down);
        studio->enter("hatchSpacing", "0.5");
        QTRY_COMPARE(item->getFillParam().spac, 0.5);
        QCOMPARE(item->getFillParam().fillType, FillType::Line);
        QVERIFY(!item->getShapeBase()->getFillLines().isEmpty());
        studio->check("strokeFont");
        QTRY_VERIFY(!type->isEnabled());
        QVERIFY(studio->box<QLabel>("hatchHint")->isVisible());
        QVERIFY(item->getShapeBase()->getFillLines().isEmpty());
        studio->check("systemFont");
        QTRY_VERIFY(type->isEnabled());
        studio->close(kOk);
        const ZTMarkGraph mark = studio->document().itemMag()->getShapeLines();
        QVERIFY(!mark.objects.first().fillLines.isEmpty());
    }

    void turnedText_keepsItsTurnAndPlace()
    {
        studio->edit().rotate(30.0);
        const QTransform before = item->getTransformParam();
        QVERIFY(studio->openDialog(Font));
        studio->enter("height", "20");
        studio->close(kOk);
        const QTransform after = item->getTransformParam();
        QVERIFY(qAbs(after.m11() - 2.0 * before.m11()) < 1e-9);
        QVERIFY(qAbs(after.m12() - 2.0 * before.m12()) < 1e-9);
        QVERIFY(qAbs(after.m21() - 2.0 * before.m21()) < 1e-9);
        QVERIFY(qAbs(after.m22() - 2.0 * before.m22()) < 1e-9);
    }

    void mnemonics_areUniqueOnEachPage_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("isStroke");
        QTest::addColumn<int>("segment");
        QTest::newRow("words") << int(Words) << false << -1;
        QTest::newRow("system font") << int(Font) << false << -1;
        QTest::newRow("stroke font") << int(Font) << true << -1;
        QTest::newRow("arc") << int(Arc) << false << -1;
        QTest::newRow("hatch") << int(Hatch) << false << -1;
        QTest::newRow("fixed segment") << int(Words) << false << 0;
        QTest::newRow("counter") << int(Words) << false << 1;
        QTest::newRow("date") << int(Words) << false << 2;
        QTest::newRow("list") << int(Words) << false << 3;
    }

    void mnemonics_areUniqueOnEachPage()
    {
        QFETCH(int, tab);
        QFETCH(bool, isStroke);
        QFETCH(int, segment);
        QVERIFY(studio->openDialog(tab));
        if (isStroke)
            studio->check("strokeFont");
        if (segment >= 0) {
            studio->check("variantText");
            auto *add = studio->box<QToolButton>("addSegment");
            add->menu()->actions().at(segment)->trigger();
        }
        QCoreApplication::processEvents();
        QSet<QString> taken;
        for (const QString &text : visibleTexts()) {
            const QString key = QKeySequence::mnemonic(text).toString();
            QVERIFY2(key.isEmpty() || !taken.contains(key), qPrintable(text));
            taken << key;
        }
        QVERIFY(taken.size() > 1);
    }

    void missingStrokeFonts_areTold()
    {
        testsupport::emptyFontFolder();
        QVERIFY(studio->openDialog(Font));
        studio->check("strokeFont");
        QVERIFY(studio->box<QLabel>("strokeHint")->isVisible());
        studio->close(kCancel);
        QCOMPARE(item->shxFont().enName, QStringLiteral("tiny.shx"));
    }

    void changesWhileTheTextOrTheWindowGoes_areHarmless()
    {
        QVERIFY(studio->openDialog(Font));
        studio->enter("height", "20");
        studio->document().scene()->deleteItems({item});
        QVERIFY(studio->dialog() == nullptr || !studio->dialog()->isVisible());
        item = studio->addText(QStringLiteral("A"));
        QVERIFY(studio->openDialog(Font));
        studio->enter("height", "20");
        studio->window.reset();
    }

private:
    QStringList visibleTexts()
    {
        QStringList texts;
        for (auto *label : studio->dialog()->findChildren<QLabel *>()) {
            if (label->isVisible())
                texts << label->text();
        }
        for (auto *button : studio->dialog()->findChildren<QAbstractButton *>()) {
            if (button->isVisible())
                texts << button->text();
        }
        const auto *tabs = studio->box<QTabWidget>("tabs");
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab);
        return texts;
    }

    std::unique_ptr<TextWindow> studio;
    ZTGraphicsTextItem *item = nullptr;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_textDialog>(argc, argv); }
#include "tst_studio_textDialog.moc"
