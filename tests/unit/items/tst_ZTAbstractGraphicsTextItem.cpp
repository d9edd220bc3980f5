#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <memory>

namespace {

/** A text that only stores what it is told to show. */
class TestText : public ZTTextShapeBase
{
public:
    void paint() override {}
    void setText(const QString &text) override { m_text = text; }
};

/** An item over any shape that writes down what it is told to show. */
class TestItem : public ZTAbstractGraphicsTextItem
{
public:
    explicit TestItem(ZTShapeBase *ownShape) { shape = ownShape; }

    void copy(ZTAbstractGraphicsItem *) override {}
    void setText(const QString &text) override { shown << text; }

    QStringList shown;
};

/** Counts from 5, and shows 5 now. */
ZTVariantText numbers()
{
    ZTCounterSegment counter;
    counter.start = 5;
    ZTVariantText text;
    text.setSegments({counter});
    text.update();
    return text;
}

} // namespace

class tst_ZTAbstractGraphicsTextItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons = std::make_unique<testsupport::SingletonGuard>();
        warnings = std::make_unique<testsupport::WarningGuard>();
        shape = new TestText;
        item = std::make_unique<TestItem>(shape);
        ZTVariantText source = numbers();
        shape->cloneVariantText(&source);
    }
    void cleanup()
    {
        item.reset();
        warnings.reset();
        singletons.reset();
    }

    void newItem_showsNothingVariant()
    {
        QVERIFY(!item->isEnableVariantText());
        QCOMPARE(item->getVariantText(), nullptr);
        QCOMPARE(item->getFixedText(), QString());
        QVERIFY(item->getShapeType() == ShapeType::None);
    }

    void setEnableVariantText_on_showsItsCurrentText()
    {
        item->setEnableVariantText(true);
        QVERIFY(item->isEnableVariantText());
        QVERIFY(shape->isEnableVariantText());
        QVERIFY(item->getVariantText() != nullptr);
        QCOMPARE(item->getVariantText(), shape->getVarTxt());
        QCOMPARE(item->shown, QStringList{QStringLiteral("5")}); // and does not move on
        item->setEnableVariantText(true);
        QCOMPARE(item->shown.last(), QStringLiteral("5"));
    }

    void setEnableVariantText_off_showsTheFixedText()
    {
        shape->setFixedText(QStringLiteral("typed"));
        item->setEnableVariantText(true);
        item->shown.clear();
        item->setEnableVariantText(false);
        QVERIFY(!shape->isEnableVariantText());
        QCOMPARE(item->shown, QStringList{QStringLiteral("typed")});
        item->setEnableVariantText(false); // once more shows it once more
        QCOMPARE(item->shown.size(), 2);
    }

    void fromVariantTextSetText_showsTheCurrentText()
    {
        item->setEnableVariantText(true);
        item->getVariantText()->update();
        item->shown.clear();
        item->fromVariantTextSetText();
        item->fromVariantTextSetText();
        QCOMPARE(item->shown, (QStringList{QStringLiteral("6"), QStringLiteral("6")}));
    }

    void fromVariantTextSetText_switchedOff_doesNothing()
    {
        item->fromVariantTextSetText();
        QVERIFY(item->shown.isEmpty());
    }

    void setFixedText_isStoredAndShown()
    {
        item->setFixedText(QStringLiteral("typed"));
        QCOMPARE(item->getFixedText(), QStringLiteral("typed"));
        QCOMPARE(shape->getFixedText(), QStringLiteral("typed"));
        QCOMPARE(item->shown, QStringList{QStringLiteral("typed")});
    }

    void setFixedText_variantTextOn_isOnlyStored()
    {
        item->setEnableVariantText(true);
        item->shown.clear();
        item->setFixedText(QStringLiteral("typed"));
        QCOMPARE(item->getFixedText(), QStringLiteral("typed"));
        QVERIFY(item->shown.isEmpty());
    }

    void setFixedText_ofItsOwn_isHarmless()
    {
        item->setFixedText(QStringLiteral("typed"));
        item->setFixedText(shape->getFixedText());
        QCOMPARE(item->getFixedText(), QStringLiteral("typed"));
    }

    void overNoText_nothingHappens_data()
    {
        QTest::addColumn<bool>("hasShape");
        QTest::newRow("another shape") << true;
        QTest::newRow("no shape") << false;
    }
    void overNoText_nothingHappens()
    {
        QFETCH(bool, hasShape);
        TestItem other(hasShape ? new ZTRectShape : nullptr);
        other.setEnableVariantText(true);
        other.setEnableVariantText(false);
        other.setFixedText(QStringLiteral("typed"));
        other.fromVariantTextSetText();
        QVERIFY(other.shown.isEmpty());
        QVERIFY(!other.isEnableVariantText());
        QCOMPARE(other.getVariantText(), nullptr);
        QCOMPARE(other.getFixedText(), QString());
    }

    void metaObject_addsNoProperty()
    {
        const QMetaObject &meta = ZTAbstractGraphicsTextItem::staticMetaObject;
        QCOMPARE(meta.propertyCount(), ZTAbstractGraphicsItem::staticMetaObject.propertyCount());
        QCOMPARE(meta.superClass(), &ZTAbstractGraphicsItem::staticMetaObject);
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
    TestText *shape = nullptr; ///< the item's
    std::unique_ptr<TestItem> item;
};

QTEST_MAIN(tst_ZTAbstractGraphicsTextItem)
#include "tst_ZTAbstractGraphicsTextItem.moc"
