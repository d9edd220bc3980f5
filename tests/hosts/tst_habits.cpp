#include <support/SceneDriver.h>
#include <support/SingletonGuard.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QUndoCommand>
#include <QtWidgets/QUndoGroup>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace {

/** A translator of a host that says one text of the library its own way. */
class OwnWords : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QByteArray(source) == "text" ? QStringLiteral("words") : QString();
    }
    bool isEmpty() const override { return false; }
};

ZTAbstractGraphicsItem *addSquare(ZTGraphicsDocument &document)
{
    return document.itemMag()->addShape(ShapeType::Rect, QRectF(-10.0, -10.0, 20.0, 20.0));
}

/** The first outline of what is marked. */
QPolygonF outlineOf(const ZTGraphicsDocument &document)
{
    return document.itemMag()->getShapeLines().objects.first().lines.first();
}

} // namespace

/** The library in hosts that have manners of their own. */
class tst_habits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_guard.reset(new testsupport::SingletonGuard);
        hostkit::registerFactories();
    }
    void cleanup() { m_guard.reset(); }

    /** A drag is a step on the document's stack alone; the host's stays as it was, in one group. */
    void undoStackOfTheHost_isItsOwn()
    {
        QUndoGroup group;
        QUndoStack hostStack;
        ZTGraphicsDocument document;
        group.addStack(&hostStack);
        group.addStack(document.undoStack());
        hostStack.push(new QUndoCommand(QStringLiteral("the host's")));
        ZTAbstractGraphicsItem *square = addSquare(document);
        const QPointF before = square->pos();

        document.resize(600, 400);
        document.show();
        QVERIFY(QTest::qWaitForWindowExposed(&document));
        testsupport::SceneDriver driver(*document.view());
        driver.click(square->sceneBoundingRect().center());
        const QPointF middle = square->sceneBoundingRect().center();
        driver.drag(middle, middle + QPointF(40.0, 20.0));
        QVERIFY(square->pos() != before);
        QCOMPARE(hostStack.count(), 1);
        QCOMPARE(document.undoStack()->count(), 1);
        group.setActiveStack(document.undoStack());
        group.undo();
        QCOMPARE(square->pos(), before);
        group.setActiveStack(&hostStack);
        group.undo();
        QCOMPARE(hostStack.index(), 0);
        QCOMPARE(document.undoStack()->index(), 0);
    }

    /** The library's commands work on whatever stack the host pushes them. */
    void undoStackOfTheHost_takesTheLibrarysCommands()
    {
        QUndoStack hostStack;
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem *square = addSquare(document);
        const QPointF before = square->pos();
        hostStack.push(
            new ZTItemPropertyCommand(square, QStringLiteral("pos"), QPointF(30.0, 40.0)));
        QCOMPARE(square->pos(), QPointF(30.0, 40.0));
        QCOMPARE(document.undoStack()->count(), 0);
        hostStack.undo();
        QCOMPARE(square->pos(), before);
    }

    /** Of several translators the one that the host installed last is asked first. */
    void translatorOfTheHost_comesFirst()
    {
        QTranslator chinese;
        QVERIFY(chinese.load(QStringLiteral(":/ZTDrawEngineLib_zh.qm")));
        ZTGraphicsDocument document;
        ZTObjectTreeWidget tree;
        document.setObjectTree(&tree);
        const auto heading = [&tree](int column) {
            QCoreApplication::sendPostedEvents();
            return tree.model()->headerData(column, Qt::Horizontal).toString();
        };
        QCoreApplication::installTranslator(&chinese);
        const QString chineseShape = heading(2);
        QVERIFY(chineseShape != QStringLiteral("shape"));
        OwnWords own;
        QCoreApplication::installTranslator(&own);
        QCOMPARE(heading(1), QStringLiteral("words"));
        QCOMPARE(heading(2), chineseShape); // what the host says nothing of
        QCoreApplication::removeTranslator(&own);
        QCoreApplication::removeTranslator(&chinese);
        QCOMPARE(heading(1), QStringLiteral("text"));
    }

    /** However a host colours and sizes its widgets: the same is marked. */
    void styleSheetOfTheHost_changesNothingThatIsMarked()
    {
        ZTGraphicsDocument plain;
        addSquare(plain);
        const QPolygonF expected = outlineOf(plain);

        qApp->setStyleSheet(
            QStringLiteral("* { font-size: 21px; color: #e0e0e0; background: #202020; }"
                           "QFrame { border: 3px solid red; padding: 4px; }"
                           "QTreeView::item { height: 31px; }"));
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *document = new ZTGraphicsDocument;
        auto *tree = new ZTObjectTreeWidget;
        auto *grid = new ZTItemPropertyList;
        layout->addWidget(tree);
        layout->addWidget(document);
        layout->addWidget(grid);
        document->setObjectTree(tree);
        grid->setUndoStack(document->undoStack());
        grid->setObject(addSquare(*document));
        window.resize(900, 500);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!window.grab().isNull());
        QCOMPARE(outlineOf(*document), expected);
        qApp->setStyleSheet(QString());
    }

    /** Nothing of a document outlives it: the hundredth is like the first. */
    void documents_areMadeAnewAHundredTimes()
    {
        QPolygonF expected;
        for (int round = 0; round < 100; ++round) {
            QPointer<QObject> scene;
            {
                ZTGraphicsDocument document;
                ZTObjectTreeWidget tree;
                document.setObjectTree(&tree);
                ZTAbstractGraphicsItem *square = addSquare(document);
                QVERIFY(square != nullptr);
                square->setFillParam({FillType::ULine, 1.0, 30.0, true});
                QVERIFY(document.itemMag()->addShape(ShapeType::Ellipse, QRectF(0, 0, 10, 10)) !=
                        nullptr);
                square->setSelected(true);
                scene = document.scene();
                if (round == 0)
                    expected = outlineOf(document);
                QCOMPARE(outlineOf(document), expected);
                QCOMPARE(hostkit::shapeItemsOf(document).size(), 2);
            }
            QVERIFY(scene.isNull());
            QVERIFY(ZTVariantTextManager::getInstance()->getIds().isEmpty());
        }
    }

    /** A document that goes while another one is edited takes nothing of it along. */
    void documents_liveBesideEachOther()
    {
        ZTGraphicsDocument first;
        auto second = std::make_unique<ZTGraphicsDocument>();
        addSquare(first);
        addSquare(*second);
        const QPolygonF expected = outlineOf(first);
        second.reset();
        QCOMPARE(outlineOf(first), expected);
        first.show();
        QVERIFY(QTest::qWaitForWindowExposed(&first));
        testsupport::SceneDriver driver(*first.view());
        driver.click(QPointF(0.0, 0.0));
        QCOMPARE(hostkit::shapeItemsOf(first).size(), 1);
    }

    /** More dots on the screen: a finer picture of the same size. */
    void finerScreens_showTheSameSize()
    {
        ZTGraphicsDocument document;
        document.resize(300, 200);
        document.show();
        QVERIFY(QTest::qWaitForWindowExposed(&document));
        const QPixmap picture = document.grab();
        QCOMPARE(picture.size(), document.size() * document.devicePixelRatioF());
        // Who knows the screen says so: ci/screens.sh.
        if (qEnvironmentVariableIsSet("ZT_SCREEN_SCALE"))
            QCOMPARE(document.devicePixelRatioF(),
                     qEnvironmentVariable("ZT_SCREEN_SCALE").toDouble());
    }

private:
    QScopedPointer<testsupport::SingletonGuard> m_guard;
};

int main(int argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    tst_habits test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_habits.moc"
