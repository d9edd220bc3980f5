#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPluginLoader>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QIcon>
#include <QtTest/QTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiTools/QUiLoader>

/** The plugin as Qt Designer meets it, and a form of its widgets in Designer's own loader. */
class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWidget_tellsDesignerAll()
    {
        QStringList names;
        for (QDesignerCustomWidgetInterface *widget : widgets()) {
            const QByteArray name = widget->name().toUtf8();
            names << widget->name();
            QCOMPARE(widget->group(), QStringLiteral("Laser Marking"));
            QVERIFY2(!widget->toolTip().isEmpty(), name.constData());
            QVERIFY2(!widget->whatsThis().isEmpty(), name.constData());
            QVERIFY2(!widget->icon().pixmap(22, 22).isNull(), name.constData());
            QVERIFY2(!widget->isContainer(), name.constData());
            QCOMPARE(widget->includeFile(), QStringLiteral("<ZTDrawEngineLib/ZTDrawEngineLib.h>"));
            const QScopedPointer<QWidget> made(widget->createWidget(nullptr));
            QCOMPARE(QByteArray(made->metaObject()->className()), name);
        }
        QCOMPARE(
            names,
            (QStringList{QStringLiteral("ZTGraphicsDocument"), QStringLiteral("ZTObjectTreeWidget"),
                         QStringLiteral("ZTItemPropertyList"), QStringLiteral("ZTHorizontalAxis"),
                         QStringLiteral("ZTVerticalAxis")}));
    }

    void everyWidget_comesOntoAFormWithSizeAndName()
    {
        for (QDesignerCustomWidgetInterface *widget : widgets()) {
            QXmlStreamReader xml(widget->domXml());
            QString className;
            int width = 0;
            while (!xml.atEnd()) {
                xml.readNext();
                if (xml.isStartElement() && xml.name() == QLatin1String("widget")) {
                    className = xml.attributes().value(QLatin1String("class")).toString();
                    QVERIFY(!xml.attributes().value(QLatin1String("name")).isEmpty());
                } else if (xml.isStartElement() && xml.name() == QLatin1String("width")) {
                    width = xml.readElementText().toInt();
                }
            }
            QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
            QCOMPARE(className, widget->name());
            QVERIFY(width > 0);
        }
    }

    void form_isLoadedWithItsWidgetsAndWorks()
    {
        const testsupport::SingletonGuard guard;
        ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
        QUiLoader loader;
        loader.addPluginPath(QFileInfo(QStringLiteral(ZT_DESIGNER_PLUGIN)).path());
        QFile file(QStringLiteral(ZT_EXAMPLE_FORM));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QScopedPointer<QWidget> form(loader.load(&file));
        QVERIFY2(!form.isNull(), qPrintable(loader.errorString()));

        auto *document = form->findChild<ZTGraphicsDocument *>(QStringLiteral("document"));
        auto *tree = form->findChild<ZTObjectTreeWidget *>(QStringLiteral("objectTree"));
        auto *grid = form->findChild<ZTItemPropertyList *>(QStringLiteral("propertyList"));
        QVERIFY(document != nullptr && tree != nullptr && grid != nullptr);
        QVERIFY(form->findChild<ZTHorizontalAxis *>(QStringLiteral("horizontalRuler")) != nullptr);
        QVERIFY(form->findChild<ZTVerticalAxis *>(QStringLiteral("verticalRuler")) != nullptr);
        QCOMPARE(document->frameShape(), QFrame::StyledPanel);
        QVERIFY(tree->alternatingRowColors());

        document->setObjectTree(tree);
        grid->setUndoStack(document->undoStack());
        ZTAbstractGraphicsItem *square =
            document->itemMag()->addShape(ShapeType::Rect, QRectF(0.0, 0.0, 20.0, 10.0));
        QVERIFY(square != nullptr);
        grid->setObject(square);
        QCOMPARE(tree->model()->rowCount(), 1);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.data()));
    }

private:
    QList<QDesignerCustomWidgetInterface *> widgets()
    {
        m_loader.setFileName(QStringLiteral(ZT_DESIGNER_PLUGIN));
        auto *collection =
            qobject_cast<QDesignerCustomWidgetCollectionInterface *>(m_loader.instance());
        return collection != nullptr ? collection->customWidgets()
                                     : QList<QDesignerCustomWidgetInterface *>();
    }

    QPluginLoader m_loader;
};

QTEST_MAIN(tst_DesignerPlugin)

#include "tst_DesignerPlugin.moc"
