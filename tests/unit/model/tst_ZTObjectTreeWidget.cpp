#include <ZTDrawEngineLib/items/ZTGraphicsRectItem.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/model/ZTObjectTreeWidget.h>

#include <QtTest/QTest>

class tst_ZTObjectTreeWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructor_isReadOnly()
    {
        ZTObjectTreeWidget tree(nullptr);
        QCOMPARE(tree.editTriggers(),
                 QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    }

    void languageChange_setsTheLabels()
    {
        ZTItemModel model(nullptr);
        ZTGraphicsRectItem item;
        model.insert(ShapeType::Rect, &item);
        ZTObjectTreeWidget tree(nullptr);
        tree.setModel(&model);
        QCOMPARE(headers(model),
                 (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&tree, &change);
        QCOMPARE(headers(model), (QStringList{QStringLiteral("id"), QStringLiteral("text"),
                                              QStringLiteral("shape")}));
    }

    void languageChange_afterClear_bringsTheLabelsBack()
    {
        ZTItemModel model(nullptr);
        ZTObjectTreeWidget tree(nullptr);
        tree.setModel(&model);
        model.clear();
        QCOMPARE(model.columnCount(), 0);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&tree, &change);
        QCOMPARE(headers(model), (QStringList{QStringLiteral("id"), QStringLiteral("text"),
                                              QStringLiteral("shape")}));
    }

    void languageChange_withoutAModel_isHarmless()
    {
        ZTObjectTreeWidget tree(nullptr);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&tree, &change);
        QEvent other(QEvent::StyleChange);
        QCoreApplication::sendEvent(&tree, &other);
    }

private:
    static QStringList headers(const ZTItemModel &model)
    {
        QStringList labels;
        for (int column = 0; column < model.columnCount(); ++column)
            labels << model.headerData(column, Qt::Horizontal).toString();
        return labels;
    }
};

QTEST_MAIN(tst_ZTObjectTreeWidget)
#include "tst_ZTObjectTreeWidget.moc"
