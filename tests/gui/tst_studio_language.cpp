#include "StudioWindow.h"

#include <QtCore/QRegularExpression>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>
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
    void init() { studio = std::make_unique<StudioWindow>(); }
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
        auto *rows = studio->window->findChild<QSpinBox *>(str("rows"));
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

QTEST_MAIN(tst_studio_language)
#include "tst_studio_language.moc"
