#include <support/PropertyObjects.h>
#include <support/RecordRow.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/common/ZTFontParam.h>
#include <ZTDrawEngineLib/properties/ZTFontPropertySetHelper.h>

#include <QtTest/QTest>

#include <memory>

using testsupport::EveryTypeObject;
using testsupport::RecordRow;

namespace {

QString str(const char *text) { return QString::fromLatin1(text); }

ZTFontParam paramOf(const QVariant &value) { return value.value<ZTFontParam>(); }

/** A manager of a host that knows stroke fonts: their rows hold the record. */
class ShxManager : public QtVariantPropertyManager
{
public:
    using QtVariantPropertyManager::addProperty;
    using QtVariantPropertyManager::value;

    QtVariantProperty *addProperty(int type, const QString &name) override
    {
        if (type != qMetaTypeId<ZTShxFontParam>())
            return QtVariantPropertyManager::addProperty(type, name);
        shxRow = QtVariantPropertyManager::addProperty(groupTypeId(), name);
        return shxRow;
    }

    QVariant value(const QtProperty *property) const override
    {
        return property == shxRow ? QVariant::fromValue(shown)
                                  : QtVariantPropertyManager::value(property);
    }

    void setValue(QtProperty *property, const QVariant &value) override
    {
        if (property == shxRow)
            shown = value.value<ZTShxFontParam>();
        else
            QtVariantPropertyManager::setValue(property, value);
    }

    QtVariantProperty *shxRow = nullptr;
    ZTShxFontParam shown;
};

} // namespace

class tst_ZTFontPropertySetHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        object.reset(new EveryTypeObject);
        object->fontParam.wordSpac = 1.5;
        object->fontParam.rowSpac = 2.5;
        object->fontParam.font.setPixelSize(100);
        object->fontParam.shxFont.height = 12.0;
        manager.reset(new QtVariantPropertyManager);
        helper.reset(new ZTFontPropertySetHelper(manager.get()));
        row.reset(new RecordRow(object.get(), "fontParam"));
        row->fill(helper.get(), manager.get());
    }

    void cleanup()
    {
        row.reset();
        helper.reset();
        manager.reset();
        object.reset();
        warnings.reset();
    }

    void rows_oneAField_inOrder_strokeFontOnlyWhereSupported()
    {
        QCOMPARE(row->names(),
                 (QStringList{str("type"), str("wordSpac"), str("rowSpac"), str("font")}));
        QCOMPARE(row->sub("type")->propertyType(), QtVariantPropertyManager::enumTypeId());
        QCOMPARE(row->sub("type")->attributeValue(str("enumNames")).toStringList(),
                 (QStringList{str("singleLine"), str("doubleLine"), str("None")}));
        QCOMPARE(row->sub("type")->value(), QVariant(1));
        QCOMPARE(row->sub("wordSpac")->value(), QVariant(1.5));
        QCOMPARE(row->sub("rowSpac")->value(), QVariant(2.5));
        QCOMPARE(row->sub("font")->propertyType(), int(QMetaType::QFont));
        QCOMPARE(row->sub("font")->value().value<QFont>().pixelSize(), 100);
    }

    void edit_changesOneField()
    {
        const ZTFontParam &before = object->fontParam;
        ZTFontParam expected = before;
        expected.fontType = FontType::None;
        QCOMPARE(paramOf(row->edited("type", 2)), expected);
        QCOMPARE(paramOf(row->edited("type", QVariant::fromValue(FontType::None))), expected);
        expected = before;
        expected.wordSpac = 4.0;
        QCOMPARE(paramOf(row->edited("wordSpac", 4.0)), expected);
        expected = before;
        expected.rowSpac = 4.0;
        QCOMPARE(paramOf(row->edited("rowSpac", 4.0)), expected);
        expected = before;
        expected.font.setBold(true);
        QCOMPARE(paramOf(row->edited("font", expected.font)), expected);
        expected = before;
        expected.shxFont.height = 33.0;
        QCOMPARE(paramOf(row->edited("shxFont", QVariant::fromValue(expected.shxFont))), expected);
    }

    void sameValue_orUnknownName_isNoEdit()
    {
        QVERIFY(!row->edited("type", 1).isValid());
        QVERIFY(!row->edited("wordSpac", 1.5).isValid());
        QVERIFY(!row->edited("font", object->fontParam.font).isValid());
        QVERIFY(!row->edited("Family", str("x")).isValid());
    }

    void refresh_followsEveryField_andGetValueReadsThem()
    {
        object->fontParam.fontType = FontType::singleLine;
        object->fontParam.wordSpac = 5.0;
        object->fontParam.rowSpac = 6.0;
        object->fontParam.font.setPixelSize(30);
        row->refresh();
        QCOMPARE(row->sub("type")->valueText(), str("singleLine"));
        ZTFontParam expected = object->fontParam;
        expected.shxFont = {};
        QCOMPARE(paramOf(helper->getValue(row->group)), expected);
    }

    void strokeFont_inAManagerThatSupportsIt()
    {
        ShxManager shxManager;
        ZTFontPropertySetHelper other(&shxManager);
        RecordRow shx(object.get(), "fontParam");
        shx.fill(&other, &shxManager);
        QCOMPARE(shx.names().last(), str("shxFont"));
        QCOMPARE(shxManager.shown.height, 12.0);
        object->fontParam.shxFont.height = 13.0;
        shx.refresh();
        QCOMPARE(shxManager.shown.height, 13.0);
        QCOMPARE(paramOf(other.getValue(shx.group)).shxFont.height, 13.0);
    }

private:
    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<EveryTypeObject> object;
    std::unique_ptr<QtVariantPropertyManager> manager;
    std::unique_ptr<ZTFontPropertySetHelper> helper;
    std::unique_ptr<RecordRow> row;
};

QTEST_MAIN(tst_ZTFontPropertySetHelper)
#include "tst_ZTFontPropertySetHelper.moc"
