#include "TextWindow.h"

#include <studio/measures/MeasureField.h>

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QFontComboBox>

#include <cmath>

using studio::MeasureField;
using studio::TextState;

/** The page of the panel that changes texts while one looks at them. */
class tst_studio_textPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<TextWindow>();
        item = studio->addText(QStringLiteral("AA"));
        studio->window->findChild<QTabWidget *>(QStringLiteral("panel.tabs"))->setCurrentIndex(1);
        settle();
    }
    void cleanup() { studio.reset(); }

    void withoutAText_thePageSaysWhatToDo()
    {
        studio->select({studio->addRect(0, 0)});
        settle();
        QVERIFY(box<QLabel>("panel.textHint")->isVisible());
        QVERIFY(!field("panel.textHeight")->isEnabled());
        QCOMPARE(field("panel.textHeight")->text(), QString());
        studio->select({item});
        settle();
        QVERIFY(!box<QLabel>("panel.textHint")->isVisible());
        QCOMPARE(field("panel.textHeight")->text(), QStringLiteral("10"));
    }

    // Two letters of the tiny font, each as wide as high, and 2.5 mm between them.
    void sizes_areThoseOfThePart_andLive()
    {
        choose("panel.fontKind", 1);
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 10.0);
        enter("panel.textHeight", "2cm");
        COMPARE_MM(TextWindow::sizeMm(*item).height(), 20.0);
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 45.0);
        enter("panel.textWidth", "50");
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 22.5);
        enter("panel.charSpacing", "1+0.5");
        COMPARE_MM(TextWindow::sizeMm(*item).width(), 24.0);
        QCOMPARE(studio->stack().count(), 4);
        QCOMPARE(field("panel.textHeight")->text(), QStringLiteral("20"));
        QCOMPARE(field("panel.textWidth")->text(), QStringLiteral("50"));
    }

    void undo_givesTheTextBack_toTheLastBit()
    {
        const TextState before(*item);
        choose("panel.fontKind", 1);
        enter("panel.textHeight", "7");
        enter("panel.lineSpacing", "3");
        const TextState after(*item);
        for (int i = 0; i < 3; ++i)
            QVERIFY(studio->run("edit.undo"));
        QVERIFY(TextState(*item) == before);
        for (int i = 0; i < 3; ++i)
            QVERIFY(studio->run("edit.redo"));
        QVERIFY(TextState(*item) == after);
    }

    // 0 is at three o'clock and positive is anticlockwise; the record counts the other way.
    void arc_isAnticlockwise()
    {
        QTest::mouseClick(box<QCheckBox>("panel.arc"), Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        QVERIFY(item->getRoundingParam().isEnableRounding);
        QCOMPARE(field("panel.arcStart")->text(), QStringLiteral("180"));
        QCOMPARE(field("panel.arcSpan")->text(), QStringLiteral("-180"));
        enter("panel.arcStart", "90");
        enter("panel.arcSpan", "-45");
        enter("panel.arcDiameter", "40");
        const ZTRoundingParam arc = item->getRoundingParam();
        QCOMPARE(arc.startAngle, -90.0);
        QCOMPARE(arc.spanAngle, 45.0);
        QCOMPARE(field("panel.arcDiameter")->text(), QStringLiteral("40"));
    }

    void severalTexts_areChangedInOneStep_andDifferWhereTheyDo()
    {
        ZTGraphicsTextItem *other = studio->addText(QStringLiteral("A"), 200, 0);
        enter("panel.textHeight", "5");
        studio->select({item, other});
        settle();
        QCOMPARE(field("panel.textHeight")->placeholderText(), QStringLiteral("differs"));
        QVERIFY(!box<QPushButton>("panel.words")->isEnabled());
        const int steps = studio->stack().count();
        enter("panel.textHeight", "8");
        QCOMPARE(studio->stack().count(), steps + 1);
        QVERIFY(std::abs(studio::TextSettings::of(*item).heightMm - 8) < 1e-9);
        QVERIFY(std::abs(studio::TextSettings::of(*other).heightMm - 8) < 1e-9);
        QVERIFY(studio->run("edit.undo"));
        settle();
        QCOMPARE(field("panel.textHeight")->text(), QString());
    }

    void words_openTheDialog()
    {
        QTest::mouseClick(box<QPushButton>("panel.words"), Qt::LeftButton);
        auto *dialog = studio->window->findChild<studio::TextDialog *>();
        QVERIFY(dialog != nullptr && dialog->isVisible());
        dialog->reject();
    }

private:
    template <class Widget>
    Widget *box(const char *name)
    {
        auto *found = studio->window->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no widget %s", name);
        return found;
    }

    MeasureField *field(const char *name) { return box<MeasureField>(name); }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    void enter(const char *name, const char *entry)
    {
        MeasureField *into = field(name);
        into->setFocus();
        into->selectAll();
        QTest::keyClicks(into, QString::fromUtf8(entry));
        QTest::keyClick(into, Qt::Key_Return);
        settle();
    }

    void choose(const char *name, int entry)
    {
        auto *list = box<QComboBox>(name);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_F4);
        QTRY_VERIFY(list->view()->isVisible());
        QTest::keyClick(list->view(), Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            QTest::keyClick(list->view(), Qt::Key_Down);
        QTest::keyClick(list->view(), Qt::Key_Return);
        settle();
    }

    std::unique_ptr<TextWindow> studio;
    ZTGraphicsTextItem *item = nullptr; ///< the drawing's
};

int main(int argc, char **argv) { return runTextTest<tst_studio_textPage>(argc, argv); }
#include "tst_studio_textPage.moc"
