#include <support/OwnFolder.h>
#include <support/PropertyObjects.h>
#include <support/RecordRow.h>
#include <support/ShxWriter.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/common/ZTShxFontParam.h>
#include <ZTDrawEngineLib/properties/ZTShxFontPropertySetHelper.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>

using testsupport::bytes;
using testsupport::RecordRow;
using testsupport::ShxWriter;
using testsupport::TextObject;

namespace {

QString str(const char *text) { return QString::fromLatin1(text); }

ZTShxFontParam paramOf(const QVariant &value) { return value.value<ZTShxFontParam>(); }

/** A font whose file is larger the more filler it is given; "W" is as wide as it is high. */
ShxWriter writerOf(int filler)
{
    ShxWriter writer;
    writer.above = 10;
    writer.ranges = {{0x81, 0xFE}};
    writer.glyphs = {{'W', bytes({0xA0}), {}},
                     {0xC4E3, bytes({8, 10, 0}), {}},
                     {'B', QByteArray(filler, '\0'), {}}};
    return writer;
}

ShxWriter regularOf(int filler)
{
    ShxWriter writer = writerOf(filler);
    writer.glyphs.removeAt(1);
    return writer;
}

} // namespace

class tst_ZTShxFontPropertySetHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        QVERIFY(fontFolder().removeRecursively());
        QVERIFY(QDir().mkpath(fontFolder().path()));
        ZTShxFontManager::release();
        write("reg0.shx", regularOf(1).shapes());
        write("reg1.shx", regularOf(40).shapes());
        write("big0.shx", writerOf(1).bigfont());
        write("big1.shx", writerOf(40).bigfont());
        write("big2.shx", writerOf(80).bigfont());
        object.reset(new TextObject);
        object->shxFont.zhName = str("big1.shx");
        object->shxFont.enName = str("reg1.shx");
        object->shxFont.height = 20.0;
        manager.reset(new QtVariantPropertyManager);
        helper.reset(new ZTShxFontPropertySetHelper(manager.get()));
        row.reset(new RecordRow(object.get(), "shxFont"));
    }

    void cleanup()
    {
        row.reset();
        helper.reset();
        manager.reset();
        object.reset();
        ZTShxFontManager::release();
        warnings.reset();
    }

    void rows_offerTheFontsOfEachKind()
    {
        row->fill(helper.get(), manager.get());
        QCOMPARE(row->names(), (QStringList{str("zhName"), str("enName"), str("height")}));
        QCOMPARE(row->sub("zhName")->propertyType(), QtVariantPropertyManager::enumTypeId());
        QCOMPARE(row->sub("zhName")->attributeValue(str("enumNames")).toStringList(),
                 (QStringList{str("big0.shx"), str("big1.shx"), str("big2.shx")}));
        QCOMPARE(row->sub("enName")->propertyType(), QtVariantPropertyManager::enumTypeId());
        QCOMPARE(row->sub("enName")->attributeValue(str("enumNames")).toStringList(),
                 (QStringList{str("reg0.shx"), str("reg1.shx")}));
        QCOMPARE(row->sub("height")->value(), QVariant(20.0));
    }

    void rows_startOnTheFirstEntry_andTheFirstRefreshPutsThemRight()
    {
        row->fill(helper.get(), manager.get());
        QCOMPARE(row->sub("zhName")->value(), QVariant(0));
        QCOMPARE(row->sub("enName")->value(), QVariant(0));
        row->refresh();
        QCOMPARE(row->sub("zhName")->valueText(), str("big1.shx"));
        QCOMPARE(row->sub("enName")->valueText(), str("reg1.shx"));
        object->shxFont.enName = str("reg0.shx");
        object->shxFont.height = 7.0;
        row->refresh();
        QCOMPARE(row->sub("enName")->value(), QVariant(0));
        QCOMPARE(row->sub("height")->value(), QVariant(7.0));
    }

    void name_thatIsInNoList_showsNoText()
    {
        object->shxFont.enName = str("gone.shx");
        object->shxFont.zhName = QString();
        row->fill(helper.get(), manager.get());
        row->refresh();
        QCOMPARE(row->sub("enName")->value(), QVariant(2));
        QCOMPARE(row->sub("enName")->valueText(), QString());
        QCOMPARE(row->sub("zhName")->value(), QVariant(3));
    }

    void zhName_edited_loadsThePair()
    {
        row->fill(helper.get(), manager.get());
        ZTShxFontParam edited = paramOf(row->edited("zhName", 2));
        QCOMPARE(edited.zhName, str("big2.shx"));
        QCOMPARE(edited.enName, str("reg1.shx"));
        QCOMPARE(edited.height, 20.0);
        QCOMPARE(edited.parser.getTextHeight(), 20.0);
        QCOMPARE(edited.parser.getTextExtent("W"), 20.0);
        QCOMPARE(edited.parser.getTextExtent("\xC4\xE3"), 20.0);
        QCOMPARE(object->shxFont.zhName, str("big1.shx"));
    }

    void enName_edited_loadsThePair()
    {
        row->fill(helper.get(), manager.get());
        ZTShxFontParam edited = paramOf(row->edited("enName", 0));
        QCOMPARE(edited.enName, str("reg0.shx"));
        QCOMPARE(edited.zhName, str("big1.shx"));
        QCOMPARE(edited.parser.getTextExtent("W"), 20.0);
        QCOMPARE(edited.parser.getTextExtent("\xC4\xE3"), 20.0);
    }

    void height_edited_scalesThePair()
    {
        row->fill(helper.get(), manager.get());
        object->shxFont = paramOf(row->edited("enName", 0));
        ZTShxFontParam edited = paramOf(row->edited("height", 35.0));
        QCOMPARE(edited.height, 35.0);
        QCOMPARE(edited.parser.getTextHeight(), 35.0);
        QVERIFY(!row->edited("height", 20.0).isValid());
    }

    /** Read with a height of no use a record has no fonts, and must not stay so for good. */
    void height_ofARecordWithoutFonts_loadsThePair()
    {
        object->shxFont.height = 0.0;
        QByteArray bytes;
        QDataStream written(&bytes, QIODevice::WriteOnly);
        written << object->shxFont;
        QDataStream read(bytes);
        read >> object->shxFont;
        QCOMPARE(object->shxFont.parser.getTextExtent("W"), 0.0);

        row->fill(helper.get(), manager.get());
        ZTShxFontParam edited = paramOf(row->edited("height", 35.0));
        QCOMPARE(edited.parser.getTextHeight(), 35.0);
        QCOMPARE(edited.parser.getTextExtent("W"), 35.0);
    }

    void index_outsideTheList_isNoEdit()
    {
        row->fill(helper.get(), manager.get());
        QVERIFY(!row->edited("zhName", 3).isValid());
        QVERIFY(!row->edited("zhName", -1).isValid());
        QVERIFY(!row->edited("enName", 2).isValid());
        QVERIFY(!row->edited("enName", 1).isValid());
        QVERIFY(!row->edited("other", 0).isValid());
    }

    void getValue_mapsTheIndices()
    {
        row->fill(helper.get(), manager.get());
        row->refresh();
        QCOMPARE(paramOf(helper->getValue(row->group)), object->shxFont);
        row->sub("zhName")->setValue(9);
        QCOMPARE(paramOf(helper->getValue(row->group)).zhName, QString());
        QCOMPARE(paramOf(helper->getValue(nullptr)), ZTShxFontParam());
    }

    void withoutFonts_rowsAreEmpty_andNothingIsAnEdit()
    {
        QVERIFY(fontFolder().removeRecursively());
        row->fill(helper.get(), manager.get());
        row->refresh();
        QCOMPARE(row->sub("zhName")->valueText(), QString());
        QVERIFY(!row->edited("zhName", 0).isValid());
    }

    void refreshing_withOneKindMissing_scansNothing()
    {
        for (const char *name : {"big0.shx", "big1.shx", "big2.shx"})
            QVERIFY(QFile::remove(fontFolder().filePath(str(name))));
        row->fill(helper.get(), manager.get());
        const std::size_t count = ZTShxFontManager::regFonts().size();
        for (int second = 0; second < 3600; ++second)
            row->refresh();
        QCOMPARE(ZTShxFontManager::regFonts().size(), count);
    }

private:
    static QDir fontFolder()
    {
        return QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
    }

    static void write(const char *name, const QByteArray &content)
    {
        testsupport::writeFile(fontFolder().filePath(str(name)), content);
    }

    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<TextObject> object;
    std::unique_ptr<QtVariantPropertyManager> manager;
    std::unique_ptr<ZTShxFontPropertySetHelper> helper;
    std::unique_ptr<RecordRow> row;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_ZTShxFontPropertySetHelper test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShxFontPropertySetHelper.moc"
