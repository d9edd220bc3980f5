#include "TextWindow.h"

#include <studio/text/TextTools.h>

#include <QtCore/QRegularExpression>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QTreeWidget>

using studio::ShapeItem;

namespace {

QString str(const char *text) { return QString::fromUtf8(text); }

} // namespace

/** The studio's language, switched by its menu while the window stands. */
class tst_studio_language : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        studio = std::make_unique<StudioWindow>();
        studio->window->findChild<QDockWidget *>(QStringLiteral("propertyDock"))->show();
    }
    void cleanup() { studio.reset(); }

    void atFirst_theSystemDecides()
    {
        // The tests run in the locale C.
        QVERIFY(languageAction("system")->isChecked());
        QCOMPARE(menuTitle("fileMenu"), str("&File"));
        QVERIFY(!QSettings().contains(str("window/language")));
    }

    void chinese_reachesMenusAndCommands()
    {
        choose("chinese");
        QCOMPARE(menuTitle("fileMenu"), str("文件(&F)"));
        QCOMPARE(menuTitle("nudgeMenu"), str("微移(&N)"));
        QCOMPARE(menuTitle("orderMenu"), str("标刻顺序(&O)"));
        QCOMPARE(menuTitle("languageMenu"), str("语言(&L)"));
        QCOMPARE(action("file.new")->text(), str("新建(&N)"));
        QCOMPARE(action("file.new")->toolTip(), str("新建图纸 (Ctrl+N)"));
        QCOMPARE(languageAction("system")->text(), str("系统语言(&S)"));
        // Each language is found by those who read no other.
        QCOMPARE(languageAction("english")->text(), str("English"));
        QCOMPARE(languageAction("chinese")->text(), str("中文"));
    }

    void chinese_reachesToolBarsDocksAndStatusBar()
    {
        studio->select({studio->addRect(0, 0)});
        choose("chinese");
        const auto *bar = studio->window->findChild<QToolBar *>(str("alignToolBar"));
        QCOMPARE(bar->windowTitle(), str("对齐"));
        QCOMPARE(dockTitle("treeDock"), str("引擎对象"));
        QCOMPARE(dockTitle("listDock"), str("图形列表"));
        QCOMPARE(dockTitle("propertyDock"), str("引擎属性"));
        QCOMPARE(dockTitle("shapePanel"), str("图形"));
        QCOMPARE(labelText("countField"), str("已选中 1 / 1"));
        QCOMPARE(labelText("propertyCount"), str("已选中 1 个图形"));
        QCOMPARE(studio->window->findChild<QCheckBox *>(str("lockBox"))->text(),
                 str("保持比例(&K)"));
        QCOMPARE(studio->window->windowTitle(), str("未命名[*] - 绘图工作室"));
    }

    void chinese_reachesTheGridAndTheTree()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        choose("chinese");
        const auto *list = studio->window->findChild<ZTItemPropertyList *>();
        QCOMPARE(list->getObject(), static_cast<QObject *>(item));
        auto *grid = list->findChild<QTreeWidget *>();
        QCOMPARE(grid->headerItem()->text(0), str("属性"));
        QCOMPARE(grid->topLevelItem(0)->text(0), str("位置"));
        QVERIFY(grid->visualItemRect(grid->topLevelItem(0)).height() < 40);
        const auto *tree = studio->window->findChild<ZTObjectTreeWidget *>();
        const QString treeHeader = tree->model()->headerData(2, Qt::Horizontal).toString();
        QVERIFY2(isChinese(treeHeader), qPrintable(treeHeader));
    }

    void undoSteps_areReadInTheNewLanguage()
    {
        QVERIFY(studio->run("create.rectangle"));
        studio->edit().nudge({1, 0});
        choose("chinese");
        QCOMPARE(action("edit.undo")->text(), str("撤销(&U)：移动"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(action("edit.undo")->text(), str("撤销(&U)：创建矩形"));
        QCOMPARE(action("edit.redo")->text(), str("重做(&R)：移动"));
        studio->edit().repeat(2, 3, {1, 1});
        QCoreApplication::processEvents();
        QCOMPARE(action("edit.undo")->text(), str("撤销(&U)：2 × 3 阵列"));
        choose("english");
        QCOMPARE(action("edit.undo")->text(), str("&Undo: Matrix of 2 by 3"));
    }

    void matrixDialog_thatStandsOpen_switches_andKeepsWhatWasEntered()
    {
        studio->select({studio->addRect(0, 0)});
        QVERIFY(studio->run("arrange.matrix"));
        auto *rows = studio->window->findChild<QDoubleSpinBox *>(str("rows"));
        rows->setValue(8);
        choose("chinese");
        QCOMPARE(rows->value(), 8);
        const auto *create = studio->window->findChild<QPushButton *>(str("create"));
        QCOMPARE(create->text(), str("创建(&C)"));
        QVERIFY(isChinese(labelText("hint")));
    }

    void allTexts_switchThereAndBack()
    {
        const QStringList english = texts();
        QVERIFY(english.size() > 100);
        for (const QString &text : english)
            QVERIFY2(!isChinese(text) || text == str("中文"), qPrintable(text));
        choose("chinese");
        const QStringList chinese = texts();
        QCOMPARE(chinese.size(), english.size());
        for (const QString &text : chinese)
            QVERIFY2(isChinese(text) || isSameInEveryLanguage(text), qPrintable(text));
        choose("english");
        QCOMPARE(texts(), english);
        choose("chinese");
        choose("system");
        QCOMPARE(texts(), english);
    }

    /**
     * With every panel and every dialog that stays open: what the switch leaves behind is what a
     * window says that came up in the other language, in every text and tip.
     */
    void everythingOpen_switchesAll_data()
    {
        QTest::addColumn<int>("kind");
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Ellipse, ShapeType::Polygon,
                                     ShapeType::Line, ShapeType::Text, ShapeType::VecGraph})
            QTest::addRow("%s selected", ShapeType2String(type)) << int(type);
        QTest::newRow("code selected") << -1;
        QTest::newRow("nothing selected") << -2;
        QTest::newRow("several selected") << -3;
    }

    void everythingOpen_switchesAll()
    {
        QFETCH(int, kind);
        openEverything(kind);
        const QStringList english = allTexts();
        QVERIFY2(english.size() > 500, qPrintable(QString::number(english.size())));
        choose("chinese");
        settle();
        const QStringList switched = allTexts();
        choose("english");
        settle();
        QCOMPARE(differences(allTexts(), english), QString());
        studio.reset();
        studio = std::make_unique<StudioWindow>();
        studio->window->findChild<QDockWidget *>(QStringLiteral("propertyDock"))->show();
        choose("chinese");
        openEverything(kind);
        QVERIFY2(differences(switched, allTexts()).isEmpty(),
                 qPrintable(differences(switched, allTexts())));
    }

    void choice_isRemembered()
    {
        choose("chinese");
        studio->window.reset();
        // The language went with the window that held it.
        QCOMPARE(QCoreApplication::translate("studio::WindowLayout", "&File"), str("&File"));
        {
            const studio::MainWindow second;
            QCOMPARE(second.findChild<QMenu *>(str("fileMenu"))->title(), str("文件(&F)"));
            QVERIFY(second.findChild<QAction *>(str("language.chinese"))->isChecked());
            second.findChild<QAction *>(str("language.system"))->trigger();
        }
        const studio::MainWindow third;
        QCOMPARE(third.findChild<QMenu *>(str("fileMenu"))->title(), str("&File"));
        QVERIFY(third.findChild<QAction *>(str("language.system"))->isChecked());
    }

    void settingOfAnotherProgram_isNoChoice()
    {
        studio->window.reset();
        QSettings().setValue(str("window/language"), str("fr"));
        const studio::MainWindow second;
        QVERIFY(second.findChild<QAction *>(str("language.system"))->isChecked());
        QCOMPARE(second.findChild<QMenu *>(str("fileMenu"))->title(), str("&File"));
    }

    void switching_isNoEdit_andKeepsTheRedo()
    {
        QVERIFY(studio->run("create.polygon"));
        QVERIFY(studio->run("create.line"));
        QVERIFY(studio->run("edit.undo"));
        const DrawingSnapshot before = studio->snapshot();
        choose("chinese");
        choose("english");
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QVERIFY(studio->stack().canRedo());
        QCOMPARE(studio->stack().count(), 2);
    }

    void switching_whileAnEditorIsOpen_isHarmless()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        QCoreApplication::processEvents();
        auto *grid = studio->window->findChild<ZTItemPropertyList *>()->findChild<QTreeWidget *>();
        grid->setCurrentItem(grid->topLevelItem(0)->child(0), 1);
        QTest::keyClick(grid, Qt::Key_F2);
        choose("chinese");
        grid = studio->window->findChild<ZTItemPropertyList *>()->findChild<QTreeWidget *>();
        QCOMPARE(grid->topLevelItem(0)->text(0), str("位置"));
        QCOMPARE(item->pos(), QPointF(0, 0));
    }

private:
    static bool isChinese(const QString &text)
    {
        return text.contains(QRegularExpression(str("\\p{Han}")));
    }

    /** Numbers, units, and the languages' own names. */
    static bool isSameInEveryLanguage(const QString &text)
    {
        static const QRegularExpression unworded(str("^(English|X .* mm|[\\d %]*)$"));
        return unworded.match(text).hasMatch();
    }

    /** All that the window says: actions, menus, bars, docks, labels, and their tips. */
    QStringList texts()
    {
        QStringList found;
        for (const QAction *each : studio->window->findChildren<QAction *>()) {
            // Actions within Qt's own widgets speak as Qt's catalogue makes them.
            if (each->objectName().isEmpty() || each->isSeparator())
                continue;
            found << each->text() << each->toolTip();
        }
        for (const QMenu *menu : studio->window->menuBar()->findChildren<QMenu *>())
            found << menu->title();
        for (const QToolBar *bar : studio->window->findChildren<QToolBar *>())
            found << bar->windowTitle();
        for (const QDockWidget *dock : studio->window->findChildren<QDockWidget *>())
            found << dock->windowTitle();
        for (const QLabel *label : studio->window->statusBar()->findChildren<QLabel *>())
            found << label->text() << label->toolTip();
        found.removeAll(QString());
        return found;
    }

    /** All panels, and all windows that leave the drawing free, with one of each kind of shape. */
    void openEverything(int kind)
    {
        studio::ShapeItems chosen;
        for (const char *command : {"create.rectangle", "create.ellipse", "create.polygon",
                                    "create.line", "create.text", "create.code"})
            QVERIFY(studio->run(command));
        studio->editor().text().finishTyping();
        for (QDialog *dialog : studio->window->findChildren<QDialog *>()) // of the new code
            dialog->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (ShapeItem *item : studio::shapeItemsOf(*studio->document().scene())) {
            if (auto *words = qobject_cast<ZTGraphicsTextItem *>(item))
                words->setText(str("A"));
        }
        studio->document().itemMag()->addShape(ShapeType::VecGraph, {0, 0, 10, 10});
        for (ShapeItem *item : studio::shapeItemsOf(*studio->document().scene())) {
            const bool isCode = codekit::codeItem(item) != nullptr;
            if (kind == -3 || (kind == -1 && isCode) ||
                (!isCode && int(item->getShapeType()) == kind))
                chosen << item;
        }
        QCOMPARE(chosen.isEmpty(), kind == -2);
        studio->select(chosen);
        for (QDockWidget *dock : studio->window->findChildren<QDockWidget *>())
            dock->show();
        if (!chosen.isEmpty()) {
            QVERIFY(studio->run("arrange.matrix"));
            QVERIFY(studio->run("arrange.circle"));
        }
        for (const char *command :
             {"tools.verifyCodes", "job.preview", "help.manual", "help.shortcuts"})
            QVERIFY(studio->run(command));
        settle();
    }

    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    /** What all widgets say: each a line, with who says it. */
    static QStringList allTexts()
    {
        QStringList found;
        for (const QWidget *widget : QApplication::allWidgets()) {
            // Qt makes menus of its own where a bar has no room for all of its entries.
            if (qobject_cast<const QMenu *>(widget) != nullptr && widget->objectName().isEmpty())
                continue;
            const QString who =
                QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') +
                (widget->objectName().startsWith(str("qt_")) ? QString() : widget->objectName());
            const auto take = [&](const QString &text) {
                // Figures are not the language's: places, times.
                static const QRegularExpression worded(str("\\p{L}"));
                if (text.contains(worded))
                    found << who + str(": ") + text;
            };
            for (const char *property :
                 {"text", "title", "windowTitle", "toolTip", "statusTip", "placeholderText",
                  "accessibleName", "accessibleDescription", "suffix", "specialValueText"})
                take(widget->property(property).toString());
            for (const QAction *action : widget->actions()) {
                take(action->text());
                take(action->toolTip());
                take(action->statusTip());
            }
            takeRows(*widget, take);
        }
        // Places and times are not the language's, and texts of other words have other sizes.
        static const QRegularExpression figures(str("-?[0-9]+([.][0-9]+)?"));
        found.replaceInStrings(figures, str("#"));
        found.sort();
        return found;
    }

    /** Tabs, entries of lists, headers and cells. */
    template <class Take>
    static void takeRows(const QWidget &widget, const Take &take)
    {
        if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                take(tabs->tabText(tab));
                take(tabs->tabToolTip(tab));
            }
        }
        if (const auto *box = qobject_cast<const QComboBox *>(&widget)) {
            for (int entry = 0; entry < box->count(); ++entry)
                take(box->itemText(entry));
        }
        const auto *view = qobject_cast<const QAbstractItemView *>(&widget);
        if (view == nullptr || view->model() == nullptr)
            return;
        const QAbstractItemModel &model = *view->model();
        // The engine's own list shows what texts said when they were made.
        const bool isContent =
            widget.objectName() == str("objectTree") ||
            (widget.parent() != nullptr && widget.parent()->objectName() == str("objectTree"));
        for (int column = 0; column < model.columnCount(); ++column) {
            take(model.headerData(column, Qt::Horizontal).toString());
            take(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
            for (int row = 0; row < (isContent ? 0 : qMin(model.rowCount(), 100)); ++row) {
                take(model.index(row, column).data().toString());
                take(model.index(row, column).data(Qt::ToolTipRole).toString());
            }
        }
    }

    /** What one has and the other has not; empty where they are the same. */
    static QString differences(const QStringList &found, const QStringList &expected)
    {
        QStringList more = found;
        QStringList missing;
        for (const QString &text : expected) {
            if (!more.removeOne(text))
                missing << text;
        }
        return (missing.isEmpty() ? QString() : str("missing ") + missing.join(str("; "))) +
               (more.isEmpty() ? QString() : str(" unexpected ") + more.join(str("; ")));
    }

    QAction *languageAction(const char *choice)
    {
        return studio->window->findChild<QAction *>(str("language.") + str(choice));
    }

    void choose(const char *choice)
    {
        languageAction(choice)->trigger();
        QCoreApplication::processEvents();
        QVERIFY(languageAction(choice)->isChecked());
    }

    QAction *action(const char *id) { return studio->window->commands().named(id); }
    QString menuTitle(const char *name)
    {
        return studio->window->findChild<QMenu *>(str(name))->title();
    }
    QString dockTitle(const char *name)
    {
        return studio->window->findChild<QDockWidget *>(str(name))->windowTitle();
    }
    QString labelText(const char *name)
    {
        return studio->window->findChild<QLabel *>(str(name))->text();
    }

    std::unique_ptr<StudioWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_language>(argc, argv); }
#include "tst_studio_language.moc"
