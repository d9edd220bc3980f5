#include <support/PropertyObjects.h>
#include <support/RecordRow.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/properties/ZTFillParamPropertySetHelper.h>

#include <QtTest/QTest>

#include <memory>

using testsupport::RecordRow;
using testsupport::RefusingManager;
using testsupport::TextObject;

namespace {

QString str(const char *text) { return QString::fromLatin1(text); }

ZTFillParam paramOf(const QVariant &value) { return value.value<ZTFillParam>(); }

} // namespace

class tst_ZTFillParamPropertySetHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
        // Ten pixels a millimetre.
        ZTCoord::getInstance()->setPhysicalHeight(90.0);
        object.reset(new TextObject);
        manager.reset(new QtVariantPropertyManager);
        helper.reset(new ZTFillParamPropertySetHelper(manager.get()));
        row.reset(new RecordRow(object.get(), "fillParam"));
    }

    void cleanup()
    {
        row.reset();
        helper.reset();
        manager.reset();
        object.reset();
        warnings.reset();
        singletons.reset();
    }

    void rows_oneAField_inOrder()
    {
        object->fillParam = {FillType::ULine, 50.0, 45.0, false};
        row->fill(helper.get(), manager.get());
        QCOMPARE(row->names(),
                 (QStringList{str("fillType"), str("spac"), str("angle"), str("isEnableBorder")}));
        QCOMPARE(row->sub("fillType")->propertyType(), QtVariantPropertyManager::enumTypeId());
        QCOMPARE(row->sub("fillType")->attributeValue(str("enumNames")).toStringList(),
                 (QStringList{str("Line"), str("ULine"), str("None")}));
        QCOMPARE(row->sub("fillType")->value(), QVariant(1));
        QCOMPARE(row->sub("spac")->propertyType(), int(QMetaType::Double));
        QCOMPARE(row->sub("spac")->attributeValue(str("singleStep")), QVariant(0.1));
        QCOMPARE(row->sub("spac")->attributeValue(str("minimum")), QVariant(0.01));
        QCOMPARE(row->sub("spac")->value(), QVariant(5.0));
        QCOMPARE(row->sub("angle")->propertyType(), int(QMetaType::Double));
        QCOMPARE(row->sub("angle")->value(), QVariant(45.0));
        QCOMPARE(row->sub("isEnableBorder")->propertyType(), int(QMetaType::Bool));
        QCOMPARE(row->sub("isEnableBorder")->value(), QVariant(false));
    }

    void spac_ofANewRecord_showsAndHolds2_untilTheFirstRefresh()
    {
        row->fill(helper.get(), manager.get());
        QCOMPARE(row->sub("spac")->value(), QVariant(2.0));
        QCOMPARE(object->fillParam.spac, 2.0);
        row->refresh();
        QCOMPARE(row->sub("spac")->value(), QVariant(0.2));
        QCOMPARE(object->fillParam.spac, 2.0);
    }

    void spac_hasAMinimum()
    {
        row->fill(helper.get(), manager.get());
        row->sub("spac")->setValue(0.0);
        QCOMPARE(row->sub("spac")->value(), QVariant(0.01));
    }

    void spac_edited_isStoredInPixels_andShowsAsTyped()
    {
        row->fill(helper.get(), manager.get());
        const QVariant edited = row->edited("spac", 1.5);
        QCOMPARE(paramOf(edited).spac, ZTCoord::getInstance()->mm2pix(1.5));
        object->fillParam = paramOf(edited);
        row->refresh();
        QCOMPARE(row->sub("spac")->value(), QVariant(1.5));
    }

    void spac_thatEqualsTheMillimetresShown_isRefreshedAllTheSame()
    {
        object->fillParam.spac = 50.0;
        row->fill(helper.get(), manager.get());
        object->fillParam.spac = 5.0;
        row->refresh();
        QCOMPARE(row->sub("spac")->value(), QVariant(0.5));
    }

    void fillType_edited_turnsTheUnsetSpacingIntoPixels()
    {
        row->fill(helper.get(), manager.get());
        const ZTFillParam edited = paramOf(row->edited("fillType", 0));
        QCOMPARE(edited.fillType, FillType::Line);
        QCOMPARE(edited.spac, 20.0);
        object->fillParam.spac = 3.0;
        QCOMPARE(paramOf(row->edited("fillType", 1)).spac, 3.0);
        QCOMPARE(object->fillParam.fillType, FillType::None);
    }

    void fillType_reentered_onANewRecord_isAnEditOfTheSpacing()
    {
        row->fill(helper.get(), manager.get());
        QCOMPARE(paramOf(row->edited("fillType", 2)).spac, 20.0);
        object->fillParam.spac = 20.0;
        QVERIFY(!row->edited("fillType", 2).isValid());
    }

    void angleAndBorder_edited_leaveTheRestAlone()
    {
        row->fill(helper.get(), manager.get());
        const ZTFillParam angle = paramOf(row->edited("angle", 30.0));
        QCOMPARE(angle, (ZTFillParam{FillType::None, 2.0, 30.0, true}));
        const ZTFillParam border = paramOf(row->edited("isEnableBorder", false));
        QCOMPARE(border, (ZTFillParam{FillType::None, 2.0, 0.0, false}));
    }

    void sameValue_orUnknownName_isNoEdit()
    {
        row->fill(helper.get(), manager.get());
        QVERIFY(!row->edited("angle", 0.0).isValid());
        QVERIFY(!row->edited("isEnableBorder", true).isValid());
        QVERIFY(!row->edited("other", 5.0).isValid());
    }

    void refresh_followsEveryField()
    {
        row->fill(helper.get(), manager.get());
        object->fillParam = {FillType::Line, 30.0, 15.0, false};
        row->refresh();
        QCOMPARE(row->sub("fillType")->value(), QVariant(0));
        QCOMPARE(row->sub("spac")->value(), QVariant(3.0));
        QCOMPARE(row->sub("angle")->value(), QVariant(15.0));
        QCOMPARE(row->sub("isEnableBorder")->value(), QVariant(false));
    }

    void getValue_readsTheRows()
    {
        row->fill(helper.get(), manager.get());
        row->sub("fillType")->setValue(1);
        row->sub("spac")->setValue(4.0);
        row->sub("angle")->setValue(7.0);
        row->sub("isEnableBorder")->setValue(false);
        QCOMPARE(paramOf(helper->getValue(row->group)),
                 (ZTFillParam{FillType::ULine, 40.0, 7.0, false}));
        QCOMPARE(paramOf(helper->getValue(nullptr)), ZTFillParam());
    }

    void refusedRows_areLeftOut()
    {
        RefusingManager refusing(QMetaType::Double);
        ZTFillParamPropertySetHelper other(&refusing);
        row->fill(&other, &refusing);
        QCOMPARE(row->names(), (QStringList{str("fillType"), str("isEnableBorder")}));
        object->fillParam.fillType = FillType::Line;
        row->refresh();
        QCOMPARE(row->sub("fillType")->value(), QVariant(0));
        QCOMPARE(paramOf(other.getValue(row->group)).spac, 2.0);
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> singletons;
    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<TextObject> object;
    std::unique_ptr<QtVariantPropertyManager> manager;
    std::unique_ptr<ZTFillParamPropertySetHelper> helper;
    std::unique_ptr<RecordRow> row;
};

QTEST_MAIN(tst_ZTFillParamPropertySetHelper)
#include "tst_ZTFillParamPropertySetHelper.moc"
