#include <support/PropertyObjects.h>
#include <support/RecordRow.h>
#include <support/WarningGuard.h>

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/properties/ZTItemPropertyList.h>
#include <ZTDrawEngineLib/properties/ZTRoundingParamPropertySetHelper.h>

#include <QtTest/QTest>

using testsupport::RecordRow;
using testsupport::TextObject;

namespace {

QString str(const char *text) { return QString::fromLatin1(text); }

ZTRoundingParam paramOf(const QVariant &value) { return value.value<ZTRoundingParam>(); }

} // namespace

class tst_ZTRoundingParamPropertySetHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        object.roundingParam = {true, 1.0, 2.0, 3.0, 4.0, 5};
        row.fill(&helper, &manager);
    }
    void cleanup() { manager.clear(); }

    void rows_oneAField_inOrder_asTheyStand()
    {
        const testsupport::WarningGuard warnings;
        QCOMPARE(row.names(), (QStringList{str("isEnableRounding"), str("startAngle"),
                                           str("spanAngle"), str("diameter"), str("itemRotate")}));
        QCOMPARE(row.sub("isEnableRounding")->propertyType(), int(QMetaType::Bool));
        QCOMPARE(row.sub("isEnableRounding")->value(), QVariant(true));
        double expected = 1.0;
        for (const char *name : {"startAngle", "spanAngle", "diameter", "itemRotate"}) {
            QCOMPARE(row.sub(name)->propertyType(), int(QMetaType::Double));
            QCOMPARE(row.sub(name)->value(), QVariant(expected));
            expected += 1.0;
        }
    }

    void edit_changesOneField_andKeepsTheFlag()
    {
        QCOMPARE(paramOf(row.edited("isEnableRounding", false)),
                 (ZTRoundingParam{false, 1.0, 2.0, 3.0, 4.0, 5}));
        QCOMPARE(paramOf(row.edited("startAngle", 9.0)),
                 (ZTRoundingParam{true, 9.0, 2.0, 3.0, 4.0, 5}));
        QCOMPARE(paramOf(row.edited("spanAngle", 9.0)),
                 (ZTRoundingParam{true, 1.0, 9.0, 3.0, 4.0, 5}));
        QCOMPARE(paramOf(row.edited("diameter", 9.0)),
                 (ZTRoundingParam{true, 1.0, 2.0, 9.0, 4.0, 5}));
        QCOMPARE(paramOf(row.edited("itemRotate", 9.0)),
                 (ZTRoundingParam{true, 1.0, 2.0, 3.0, 9.0, 5}));
        QVERIFY(!row.edited("diameter", 3.0).isValid());
        QVERIFY(!row.edited("roundingFlag", 7).isValid());
    }

    void refresh_followsEveryField()
    {
        object.roundingParam = {false, 6.0, 7.0, 8.0, 9.0, 5};
        row.refresh();
        QCOMPARE(row.sub("isEnableRounding")->value(), QVariant(false));
        QCOMPARE(row.sub("startAngle")->value(), QVariant(6.0));
        QCOMPARE(row.sub("spanAngle")->value(), QVariant(7.0));
        QCOMPARE(row.sub("diameter")->value(), QVariant(8.0));
        QCOMPARE(row.sub("itemRotate")->value(), QVariant(9.0));
    }

    void getValue_outsideAGrid_hasTheDefaultFlag()
    {
        QCOMPARE(paramOf(helper.getValue(row.group)),
                 (ZTRoundingParam{true, 1.0, 2.0, 3.0, 4.0, 0}));
        QCOMPARE(paramOf(helper.getValue(nullptr)), ZTRoundingParam());
    }

    void getValue_inAGrid_hasTheObjectsFlag()
    {
        ZTItemPropertyList list(nullptr);
        list.setObject(&object);
        auto *browser = list.findChild<QtTreePropertyBrowser *>();
        auto *group = dynamic_cast<QtVariantProperty *>(browser->properties().at(3));
        QCOMPARE(group->propertyName(), str("roundingParam"));
        auto *listHelper = list.getPropertySetHelper(qMetaTypeId<ZTRoundingParam>());
        QCOMPARE(paramOf(listHelper->getValue(group)), object.roundingParam);
    }

private:
    TextObject object;
    QtVariantPropertyManager manager;
    ZTRoundingParamPropertySetHelper helper{&manager};
    RecordRow row{&object, "roundingParam"};
};

QTEST_MAIN(tst_ZTRoundingParamPropertySetHelper)
#include "tst_ZTRoundingParamPropertySetHelper.moc"
