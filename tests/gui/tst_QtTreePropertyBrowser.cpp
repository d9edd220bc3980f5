#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtCore/QTranslator>
#include <QtGui/QKeyEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <memory>

using Manager = QtVariantPropertyManager;

namespace {

QString str(const char *text) { return QString::fromUtf8(text); }

/** Answers every text of every context with "context:text". */
class EchoTranslator : public QTranslator
{
public:
    EchoTranslator() { QCoreApplication::installTranslator(this); }
    ~EchoTranslator() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return str("%1:%2").arg(str(context), str(text));
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_QtTreePropertyBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        window.reset(new QWidget);
        window->resize(600, 500);
        auto *layout = new QVBoxLayout(window.data());
        outside = new QLineEdit;
        layout->addWidget(outside);
        manager.reset(new Manager);
        factory.reset(new QtVariantEditorFactory);
        browser = new QtTreePropertyBrowser;
        layout->addWidget(browser);
        browser->setFactoryForManager(manager.data(), factory.data());
        tree = browser->findChild<QTreeWidget *>();
        told.reset(new QSignalSpy(manager.data(), &Manager::valueChanged));
        window->show();
        QApplication::setActiveWindow(window.data());
        QVERIFY(QTest::qWaitForWindowActive(window.data()));
    }

    void cleanup()
    {
        window.reset();
        factory.reset();
        told.reset();
        manager.reset();
        guard.reset();
    }

    void view_isNamedForStyleSheetsAndHasTwoHeadedColumns()
    {
        QCOMPARE(tree->metaObject()->className(), "QtPropertyEditorView");
        QCOMPARE(tree->columnCount(), 2);
        QCOMPARE(tree->headerItem()->text(0), str("Property"));
        QCOMPARE(tree->headerItem()->text(1), str("Value"));
        QVERIFY(tree->header()->isVisible());
        QCOMPARE(tree->styleSheet(), str("QtPropertyEditorView::item{height:75px;}"));
        QVERIFY(tree->alternatingRowColors());
        QVERIFY(tree->rootIsDecorated());
        QCOMPARE(browser->resizeMode(), QtTreePropertyBrowser::Stretch);
    }

    void rows_are75PixelsHighAndTheBar200Wide()
    {
        fillTypes();
        QCOMPARE(tree->verticalScrollBar()->minimumWidth(), 200);
        QCOMPARE(tree->verticalScrollBar()->maximumWidth(), 200);
        QCOMPARE(tree->verticalScrollBar()->width(), 200);
        int rows = 0;
        for (QTreeWidgetItem *item = tree->topLevelItem(0); item; item = tree->itemBelow(item)) {
            QCOMPARE(tree->visualItemRect(item).height(), 75);
            ++rows;
        }
        QVERIFY(rows > 8);
    }

    void rows_withModifiedIconAndGroup_are75Too()
    {
        add(QMetaType::Bool, "b")->setModified(true);
        add(Manager::groupTypeId(), "g");
        for (int i = 0; i < 2; ++i)
            QCOMPARE(tree->visualItemRect(tree->topLevelItem(i)).height(), 75);
    }

    void items_followOneToOneAlsoNested()
    {
        QtVariantProperty *group = add(Manager::groupTypeId(), "g");
        QtVariantProperty *number = add(QMetaType::Int, "n");
        QtVariantProperty *sub = manager->addProperty(QMetaType::QPointF, str("p"));
        group->addSubProperty(sub);
        QCOMPARE(tree->topLevelItemCount(), 2);
        QCOMPARE(tree->topLevelItem(0)->childCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->child(0)->childCount(), 2);
        QCOMPARE(tree->topLevelItem(0)->child(0)->child(1)->text(0), str("Y"));
        QVERIFY(tree->topLevelItem(0)->isExpanded());
        QVERIFY(tree->topLevelItem(0)->child(0)->isExpanded());
        group->removeSubProperty(sub);
        QCOMPARE(tree->topLevelItem(0)->childCount(), 0);
        group->insertSubProperty(number, nullptr);
        QCOMPARE(tree->topLevelItem(0)->child(0)->text(0), str("n"));
        number->setValue(17);
        QCOMPARE(tree->topLevelItem(0)->child(0)->text(1), str("17"));
        QCOMPARE(tree->topLevelItem(1)->text(1), str("17"));
        browser->clear();
        QCOMPARE(tree->topLevelItemCount(), 0);
        QCOMPARE(manager->properties().size(), 5);
    }

    void insertion_betweenRows()
    {
        QtVariantProperty *first = add(QMetaType::Int, "1");
        add(QMetaType::Int, "3");
        browser->insertProperty(manager->addProperty(QMetaType::Int, str("2")), first);
        browser->insertProperty(manager->addProperty(QMetaType::Int, str("0")), nullptr);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(tree->topLevelItem(i)->text(0), QString::number(i));
    }

    void names_withoutACatalogue_showTheKey()
    {
        add(QMetaType::Int, "LaserPower");
        add(QMetaType::Int, "something else");
        QCOMPARE(tree->topLevelItem(0)->text(0), str("LaserPower"));
        QCOMPARE(tree->topLevelItem(1)->text(0), str("something else"));
    }

    void names_inTheTable_areTranslatedAndKeepTheirKey_data()
    {
        QTest::addColumn<QString>("key");
        const QStringList keys =
            str("text,pos,X,Y,fillParam,fillType,spac,angle,isEnableBorder,roundingParam,"
                "isEnableRounding,startAngle,spanAngle,diameter,itemRotate,font,Family,Pixel Size,"
                "Bold,Italic,Underline,Strikeout,Kerning,LaserPower,PulseWidth,RunSpeed,"
                "LaserFrequency,OpenDelay,ShutDelay,EffectWaitTime,CornerDelay,OpenBehind,"
                "ChangeCornerDelay,MopaPulse,JumpSpeed,JumpPosDelay,FirstJumpDelay,StartLineDelay,"
                "LineEndsDelay,ShapeEndDelay,PointTime,FJAutoDelay,TwoDCodeParam,mode,version,mask,"
                "type,ecc,xMultiple,yMultiple,del,ratio,reversal,shxFont,zhName,enName,height,"
                "fontType,singleLine,doubleLine,lineSpan,BarCode,BarCodeType,Height,ModuleWid,"
                "Reverse,HideText,FontSize,BarSpaceReverse")
                .split(QLatin1Char(','));
        QCOMPARE(keys.size(), 69);
        for (const QString &key : keys)
            QTest::newRow(qPrintable(key)) << key;
    }

    void names_inTheTable_areTranslatedAndKeepTheirKey()
    {
        QFETCH(QString, key);
        const EchoTranslator translator;
        QtVariantProperty *row = manager->addProperty(QMetaType::Int, key);
        browser->addProperty(row);
        QCOMPARE(tree->topLevelItem(0)->text(0), str("QtTreePropertyBrowserPrivate:") + key);
        QCOMPARE(row->propertyName(), key);
    }

    void names_outsideTheTable_areNeverTranslated()
    {
        const EchoTranslator translator;
        add(QMetaType::Int, "sideCount");
        QtVariantProperty *list = add(Manager::enumTypeId(), "e");
        list->setAttribute(str("enumNames"), QStringList{str("singleLine"), str("doubleLine")});
        QCOMPARE(tree->topLevelItem(0)->text(0), str("sideCount"));
        QCOMPARE(tree->topLevelItem(1)->text(1), str("singleLine"));
    }

    void texts_areTranslatedInTheirContexts()
    {
        const EchoTranslator translator;
        QtTreePropertyBrowser other;
        const auto *view = other.findChild<QTreeWidget *>();
        QCOMPARE(view->headerItem()->text(0), str("QtTreePropertyBrowser:Property"));
        QCOMPARE(view->headerItem()->text(1), str("QtTreePropertyBrowser:Value"));
        QCOMPARE(manager->addProperty(QMetaType::Bool)->valueText(),
                 str("QtBoolPropertyManager:False"));
        const auto names = [this](int type) {
            QStringList texts;
            for (const QtProperty *part : manager->addProperty(type)->subProperties())
                texts.append(part->propertyName());
            return texts;
        };
        QCOMPARE(names(QMetaType::QPointF).last(), str("QtPointFPropertyManager:Y"));
        QCOMPARE(names(QMetaType::QFont).at(1), str("QtFontPropertyManager:Pixel Size"));
        QCOMPARE(names(QMetaType::QRectF).last(), str("QtRectFPropertyManager:Height"));
        QCOMPARE(names(QMetaType::QSize).first(), str("QtSizePropertyManager:Width"));
        QtVariantProperty *flag = manager->addProperty(QMetaType::Bool);
        QScopedPointer<QWidget> editor(
            factory->createEditor(static_cast<QtProperty *>(flag), nullptr));
        QCOMPARE(editor->findChild<QCheckBox *>()->text(), str("QtBoolEdit:False"));
    }

    void languageChange_retranslatesNothing()
    {
        add(QMetaType::Int, "LaserPower");
        const EchoTranslator translator;
        QCoreApplication::sendPostedEvents();
        QCOMPARE(tree->topLevelItem(0)->text(0), str("LaserPower"));
        QCOMPARE(tree->headerItem()->text(0), str("Property"));
    }

    void group_showsNoValue()
    {
        add(Manager::groupTypeId(), "g");
        QCOMPARE(tree->topLevelItem(0)->text(1), QString());
        QVERIFY(tree->topLevelItem(0)->icon(1).isNull());
    }

    void tips_areThoseOfTheRow()
    {
        QtVariantProperty *row = add(QMetaType::QString, "s");
        row->setValue(str("a long text"));
        QCOMPARE(tree->topLevelItem(0)->toolTip(1), str("a long text"));
        row->setToolTip(str("tip"));
        row->setStatusTip(str("status"));
        QCOMPARE(tree->topLevelItem(0)->toolTip(0), str("tip"));
        QCOMPARE(tree->topLevelItem(0)->statusTip(1), str("status"));
    }

    void click_onTheValue_opensTheEditor()
    {
        add(QMetaType::Int, "n");
        click(0, 0);
        QVERIFY(!editor());
        click(0, 1);
        QVERIFY(qobject_cast<QSpinBox *>(editor()));
        QCOMPARE(QApplication::focusWidget(), editor());
    }

    void rightClick_opensNone()
    {
        add(QMetaType::Int, "n");
        click(0, 1, Qt::RightButton);
        QVERIFY(!editor());
    }

    void keys_openTheEditorOfTheCurrentRow_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("F2") << int(Qt::Key_F2);
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }

    void keys_openTheEditorOfTheCurrentRow()
    {
        QFETCH(int, key);
        add(QMetaType::Int, "n");
        add(QMetaType::QString, "s");
        click(1, 0);
        QTest::keyClick(tree, Qt::Key(key));
        QVERIFY(qobject_cast<QLineEdit *>(editor()));
    }

    void editItem_ofTheTree_opensTheEditor()
    {
        add(QMetaType::Int, "n");
        tree->editItem(tree->topLevelItem(0), 1);
        QVERIFY(qobject_cast<QSpinBox *>(editor()));
        QVERIFY(tree->topLevelItem(0)->flags().testFlag(Qt::ItemIsEditable));
    }

    void editItem_ofTheBrowser_opensTheEditorAndMakesItCurrent()
    {
        add(QMetaType::Int, "n");
        QtVariantProperty *row = add(QMetaType::Double, "d");
        browser->editItem(browser->topLevelItem(row));
        QVERIFY(qobject_cast<QDoubleSpinBox *>(editor()));
        QCOMPARE(browser->currentItem(), browser->topLevelItem(row));
    }

    void typing_commitsOnce_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Tab") << int(Qt::Key_Tab);
        QTest::newRow("Backtab") << int(Qt::Key_Backtab);
    }

    void typing_commitsOnce()
    {
        QFETCH(int, key);
        QtVariantProperty *row = add(QMetaType::Double, "d");
        type("12.5");
        QCOMPARE(told->count(), 0);
        QTest::keyClick(editor(), Qt::Key(key));
        QCOMPARE(row->value(), QVariant(12.5));
        QCOMPARE(told->count(), 1);
        QVERIFY(closed());
        QCOMPARE(tree->topLevelItem(0)->text(1), str("12.50"));
        QVERIFY(tree->hasFocus());
    }

    void typing_focusLost_commitsOnce()
    {
        QtVariantProperty *row = add(QMetaType::QString, "s");
        type("abc");
        outside->setFocus();
        QCOMPARE(row->value(), QVariant(str("abc")));
        QCOMPARE(told->count(), 1);
        QVERIFY(closed());
        QVERIFY(outside->hasFocus());
    }

    void typing_clickOnAnotherRow_commitsAndMovesOn()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        add(QMetaType::QString, "s");
        type("7");
        click(1, 1);
        QCOMPARE(row->value(), QVariant(7));
        QCOMPARE(told->count(), 1);
        QTRY_VERIFY(qobject_cast<QLineEdit *>(editor()));
    }

    void escape_cancels_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("int") << int(QMetaType::Int);
        QTest::newRow("double") << int(QMetaType::Double);
        QTest::newRow("text") << int(QMetaType::QString);
    }

    void escape_cancels()
    {
        QFETCH(int, type);
        QtVariantProperty *row = add(type, "r");
        row->setValue(4);
        told->clear();
        this->type("17");
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(closed());
        QCOMPARE(told->count(), 0);
        QCOMPARE(row->value().toInt(), 4);
        QVERIFY(tree->hasFocus());
    }

    void escape_ofTheEditor_leavesADialogOpen()
    {
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *button = new QPushButton;
        button->setDefault(true);
        layout->addWidget(button);
        layout->addWidget(browser);
        window->hide();
        dialog.setModal(true);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QtVariantProperty *row = add(QMetaType::Int, "n");
        type("3");
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(dialog.isVisible());
        QVERIFY(closed());
        type("5");
        QTest::keyClick(editor(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QCOMPARE(row->value(), QVariant(5));
        // In a modal dialog too the editor closes when the focus leaves it.
        type("6");
        button->setFocus();
        QCOMPARE(row->value(), QVariant(6));
        QVERIFY(closed());
        window->layout()->addWidget(browser);
    }

    void reopening_afterEscape_showsTheRow()
    {
        add(QMetaType::Int, "n")->setValue(4);
        type("99");
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(closed());
        click(0, 1);
        QCOMPARE(qobject_cast<QSpinBox *>(editor())->value(), 4);
    }

    void checkBox_keysInTheEditor()
    {
        QtVariantProperty *row = add(QMetaType::Bool, "b");
        click(0, 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(row->value(), QVariant(true));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(closed());
        QCOMPARE(tree->topLevelItem(0)->text(1), str("True"));
        click(0, 1);
        QVERIFY(QApplication::focusWidget() != tree);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(closed());
        QCOMPARE(row->value(), QVariant(true));
    }

    void list_keysInTheEditor()
    {
        QtVariantProperty *row = add(Manager::enumTypeId(), "e");
        row->setAttribute(str("enumNames"), QStringList{str("a"), str("b"), str("c")});
        told->clear();
        click(0, 1);
        QVERIFY(qobject_cast<QComboBox *>(editor()));
        QTest::keyClick(editor(), Qt::Key_Down);
        QCOMPARE(row->value(), QVariant(1));
        QCOMPARE(told->count(), 1);
        QTest::keyClick(editor(), Qt::Key_Return);
        QVERIFY(closed());
        QCOMPARE(tree->topLevelItem(0)->text(1), str("b"));
    }

    void rowWithoutEditor_opensNone()
    {
        add(QMetaType::QPointF, "p");
        click(0, 1);
        QVERIFY(!editor());
        QTest::keyClick(tree, Qt::Key_F2);
        QVERIFY(!editor());
    }

    void subRow_isEditedInItsPlace()
    {
        QtVariantProperty *row = add(QMetaType::QPointF, "p");
        const QRect cell = tree->visualItemRect(tree->topLevelItem(0)->child(1));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          QPoint(tree->columnViewportPosition(1) + 20, cell.center().y()));
        editor()->findChild<QLineEdit *>()->selectAll();
        QTest::keyClicks(editor(), str("20"));
        QTest::keyClick(editor(), Qt::Key_Return);
        QCOMPARE(row->value(), QVariant(QPointF(0, 20)));
        QCOMPARE(tree->topLevelItem(0)->text(1), str("(0.00, 20.00)"));
    }

    void disabledRow_isGreyAndOpensNoEditor()
    {
        QtVariantProperty *row = add(QMetaType::QPointF, "p");
        QtVariantProperty *y = dynamic_cast<QtVariantProperty *>(row->subProperties().at(1));
        QTreeWidgetItem *item = tree->topLevelItem(0);
        row->setEnabled(false);
        QVERIFY(!item->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(!item->isHidden());
        QVERIFY(!item->child(0)->flags().testFlag(Qt::ItemIsEnabled));
        y->setEnabled(false);
        row->setEnabled(true);
        QVERIFY(item->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(item->child(0)->flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(!item->child(1)->flags().testFlag(Qt::ItemIsEnabled));
        QtVariantProperty *number = add(QMetaType::Int, "n");
        number->setEnabled(false);
        click(1, 1);
        QVERIFY(!editor());
        browser->editItem(browser->topLevelItem(number));
        QVERIFY(!editor());
        number->setEnabled(true);
        click(1, 1);
        QVERIFY(editor());
    }

    void rowDisabledWhileEdited_closesAndDropsTheEntry()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        type("12");
        row->setEnabled(false);
        QVERIFY(closed());
        QCOMPARE(told->count(), 0);
    }

    void subRowAddedBelowADisabledRow_isGrey()
    {
        QtVariantProperty *group = add(Manager::groupTypeId(), "g");
        group->setEnabled(false);
        group->addSubProperty(manager->addProperty(QMetaType::Int));
        QVERIFY(!tree->topLevelItem(0)->child(0)->flags().testFlag(Qt::ItemIsEnabled));
    }

    void valueChangedElsewhere_showsInTheOpenEditorWithoutWritingBack()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        click(0, 1);
        row->setValue(33);
        QCOMPARE(qobject_cast<QSpinBox *>(editor())->value(), 33);
        QCOMPARE(told->count(), 1);
    }

    void otherRowChanges_leaveWhatIsTyped()
    {
        add(QMetaType::Int, "n");
        QtVariantProperty *other = add(QMetaType::Int, "m");
        type("12");
        other->setValue(5);
        QCOMPARE(editor()->findChild<QLineEdit *>()->text(), str("12"));
    }

    void rowDeletedWhileEdited_isSafe()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        add(QMetaType::Int, "m");
        type("12");
        delete row;
        QVERIFY(closed());
        QCOMPARE(told->count(), 0);
        QCOMPARE(tree->topLevelItemCount(), 1);
    }

    void clearWhileEdited_dropsTheEntry()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        type("12");
        browser->clear();
        QVERIFY(closed());
        QCOMPARE(told->count(), 0);
        QCOMPARE(row->value(), QVariant(0));
    }

    void commit_whoseSlotClearsTheGrid_isSafe()
    {
        add(QMetaType::Int, "n");
        connect(manager.data(), &Manager::valueChanged, this, [this] {
            browser->clear();
            manager->clear();
        });
        type("12");
        QTest::keyClick(editor(), Qt::Key_Return);
        QVERIFY(closed());
        QCOMPARE(tree->topLevelItemCount(), 0);
    }

    void destruction_withAnOpenEditor_writesNothing_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("int") << int(QMetaType::Int);
        QTest::newRow("text") << int(QMetaType::QString);
        QTest::newRow("bool") << int(QMetaType::Bool);
        QTest::newRow("color") << int(QMetaType::QColor);
    }

    void destruction_withAnOpenEditor_writesNothing()
    {
        QFETCH(int, type);
        add(type, "r");
        click(0, 1);
        QTest::keyClicks(QApplication::focusWidget(), str("1"));
        delete browser;
        factory.reset();
        QCOMPARE(told->count(), 0);
        told.reset();
        manager.reset();
    }

    void destruction_inTheOtherOrder_isSafe()
    {
        add(QMetaType::Int, "n");
        click(0, 1);
        told.reset();
        manager.reset();
        factory.reset();
        QCOMPARE(tree->topLevelItemCount(), 0);
    }

    void currentItem_isThatOfTheTree()
    {
        QtVariantProperty *first = add(QMetaType::Int, "a");
        QtVariantProperty *second = add(QMetaType::Int, "b");
        QSignalSpy current(browser, &QtAbstractPropertyBrowser::currentItemChanged);
        click(1, 0);
        QCOMPARE(browser->currentItem(), browser->topLevelItem(second));
        QTest::keyClick(tree, Qt::Key_Home);
        QCOMPARE(browser->currentItem(), browser->topLevelItem(first));
        QTest::keyClick(tree, Qt::Key_Down);
        QTest::keyClick(tree, Qt::Key_Up);
        QTest::keyClick(tree, Qt::Key_End);
        QCOMPARE(browser->currentItem(), browser->topLevelItem(second));
        browser->setCurrentItem(browser->topLevelItem(first));
        QCOMPARE(tree->currentItem(), tree->topLevelItem(0));
        QCOMPARE(current.count(), 6);
        browser->removeProperty(first);
        QVERIFY(!browser->currentItem());
        QVERIFY(!tree->currentItem());
    }

    void folding_isToldAndSettable()
    {
        QtVariantProperty *row = add(QMetaType::QPointF, "p");
        QtBrowserItem *item = browser->topLevelItem(row);
        QSignalSpy expanded(browser, &QtTreePropertyBrowser::expanded);
        QSignalSpy collapsed(browser, &QtTreePropertyBrowser::collapsed);
        QVERIFY(browser->isExpanded(item));
        QCOMPARE(expanded.count(), 0);
        browser->setExpanded(item, false);
        QVERIFY(!browser->isExpanded(item));
        QCOMPARE(collapsed.count(), 1);
        browser->setExpanded(item, true);
        QCOMPARE(expanded.count(), 1);
    }

    void settings_reachTheTree()
    {
        browser->setIndentation(10);
        QCOMPARE(tree->indentation(), 10);
        QCOMPARE(browser->indentation(), 10);
        browser->setRootIsDecorated(false);
        QVERIFY(!tree->rootIsDecorated());
        browser->setAlternatingRowColors(false);
        QVERIFY(!tree->alternatingRowColors());
        browser->setHeaderVisible(false);
        QVERIFY(!tree->header()->isVisible());
        QVERIFY(!browser->isHeaderVisible());
        browser->setResizeMode(QtTreePropertyBrowser::Interactive);
        QCOMPARE(tree->header()->sectionResizeMode(0), QHeaderView::Interactive);
        browser->setSplitterPosition(123);
        QCOMPARE(browser->splitterPosition(), 123);
        QCOMPARE(tree->columnWidth(0), 123);
    }

    void hiddenItem_keepsItsPlace()
    {
        QtVariantProperty *row = add(QMetaType::Int, "n");
        QtBrowserItem *item = browser->topLevelItem(row);
        browser->setItemVisible(item, false);
        QVERIFY(!browser->isItemVisible(item));
        QVERIFY(tree->topLevelItem(0)->isHidden());
        browser->setItemVisible(item, true);
        QVERIFY(browser->isItemVisible(item));
    }

    void background_isInheritedAndPainted()
    {
        QtVariantProperty *row = add(QMetaType::QPointF, "p");
        QtBrowserItem *item = browser->topLevelItem(row);
        QtBrowserItem *child = item->children().first();
        browser->setBackgroundColor(item, Qt::yellow);
        QCOMPARE(browser->backgroundColor(item), QColor(Qt::yellow));
        QVERIFY(!browser->backgroundColor(child).isValid());
        QCOMPARE(browser->calculatedBackgroundColor(child), QColor(Qt::yellow));
        const QRect cell = tree->visualItemRect(tree->topLevelItem(0)->child(0));
        const QImage image = tree->viewport()->grab().toImage();
        QCOMPARE(image.pixel(tree->viewport()->width() - 5, cell.top() + 5),
                 QColor(Qt::yellow).rgb());
        browser->setBackgroundColor(item, QColor());
        QVERIFY(!browser->calculatedBackgroundColor(child).isValid());
    }

    void blockedSignals_rowsStillComeAndGo()
    {
        QtVariantProperty *flags = add(Manager::flagTypeId(), "f");
        QtVariantProperty *number = add(QMetaType::Int, "n");
        flags->setAttribute(str("flagNames"), QStringList{str("a"), str("b")});
        click(1, 1);
        manager->blockSignals(true);
        flags->setAttribute(str("flagNames"), QStringList{str("c")});
        delete number;
        flags->addSubProperty(manager->addProperty(QMetaType::Int, str("i")));
        QVERIFY(manager->signalsBlocked());
        manager->blockSignals(false);
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->childCount(), 2);
        QCOMPARE(tree->topLevelItem(0)->child(0)->text(0), str("c"));
        QCOMPARE(tree->topLevelItem(0)->child(1)->text(0), str("i"));
        tree->viewport()->grab();
    }

    void modifiedRow_hasABoldName()
    {
        QtVariantProperty *row = add(QMetaType::Int, "mmmmmmmm");
        const auto inkOfName = [this] {
            QRect cell = tree->visualItemRect(tree->topLevelItem(0));
            cell.setRight(tree->columnViewportPosition(1) - 3);
            cell.setBottom(cell.bottom() - 2);
            const QImage image = tree->viewport()->grab(cell).toImage();
            int ink = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    ink += 255 - qGray(image.pixel(x, y));
            }
            return ink;
        };
        const int before = inkOfName();
        row->setModified(true);
        QVERIFY(inkOfName() > before);
        row->setModified(false);
        QCOMPARE(inkOfName(), before);
    }

    void groupRow_leavesItsKeysToTheWindow()
    {
        add(Manager::groupTypeId(), "g");
        click(0, 0);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
        QCoreApplication::sendEvent(tree, &key);
        QVERIFY(!key.isAccepted());
        QVERIFY(!editor());
    }

    void groups_areDarkHeadingsUnlessSwitchedOff()
    {
        add(Manager::groupTypeId(), "g");
        const QPoint spot(tree->viewport()->width() - 5, 5);
        const QRgb dark = tree->palette().color(QPalette::Dark).rgb();
        QCOMPARE(tree->viewport()->grab().toImage().pixel(spot), dark);
        browser->setPropertiesWithoutValueMarked(false);
        QVERIFY(tree->viewport()->grab().toImage().pixel(spot) != dark);
    }

private:
    QtVariantProperty *add(int type, const char *name)
    {
        QtVariantProperty *row = manager->addProperty(type, str(name));
        browser->addProperty(row);
        return row;
    }

    void fillTypes()
    {
        for (const int type : {int(QMetaType::Int), int(QMetaType::Bool), int(QMetaType::QPointF),
                               int(QMetaType::QColor), int(QMetaType::QFont)})
            add(type, "row");
    }

    void click(int row, int column, Qt::MouseButton button = Qt::LeftButton)
    {
        const QRect cell = tree->visualItemRect(tree->topLevelItem(row));
        const int x = tree->columnViewportPosition(column) + 30;
        QTest::mouseClick(tree->viewport(), button, {}, QPoint(x, cell.center().y()));
    }

    /** Opens the editor of the first row by a click and types over what stands there. */
    void type(const char *text)
    {
        click(0, 1);
        auto *line = qobject_cast<QLineEdit *>(editor());
        (line ? line : editor()->findChild<QLineEdit *>())->selectAll();
        QTest::keyClicks(editor(), str(text));
    }

    /** The editor that is open in the tree, or null. */
    QWidget *editor() const
    {
        const QList<QWidget *> children =
            tree->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children) {
            if (child->isVisible())
                return child;
        }
        return nullptr;
    }

    bool closed() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QTest::qWaitFor([this] { return !editor(); });
    }

    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<QWidget> window;
    QScopedPointer<Manager> manager;
    QScopedPointer<QtVariantEditorFactory> factory;
    std::unique_ptr<QSignalSpy> told;
    QtTreePropertyBrowser *browser = nullptr; // a child of the window, like what follows
    QTreeWidget *tree = nullptr;
    QLineEdit *outside = nullptr;
};

QTEST_MAIN(tst_QtTreePropertyBrowser)
#include "tst_QtTreePropertyBrowser.moc"
