#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/TinyFonts.h>

#include <ZTDrawEngineLib/common/ZTShxFontParam.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>
#include <QtCore/QTextCodec>
#include <QtCore/QVariant>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

using testsupport::tinyFont;

namespace {

constexpr char kYou[] = "\xC4\xE3";
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

QByteArray streamed(const QString &zhName, const QString &enName, double height)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << zhName << enName << height;
    return bytes;
}

void read(const QByteArray &bytes, ZTShxFontParam &param)
{
    QDataStream stream(bytes);
    stream >> param;
}

ZTShxFontParam named(const char *zhName, const char *enName, double height)
{
    ZTShxFontParam param;
    param.zhName = QLatin1String(zhName);
    param.enName = QLatin1String(enName);
    param.height = height;
    return param;
}

} // namespace

class tst_ZTShxFontParam : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { testsupport::makeTinyFonts(); }

    void default_hasNoNamesAndNoFonts()
    {
        ZTShxFontParam param;
        QCOMPARE(param.zhName, QString());
        QCOMPARE(param.enName, QString());
        QCOMPARE(param.height, 100.0);
        QCOMPARE(param.parser.getTextHeight(), 0.0);
        QCOMPARE(param.parser.getTextExtent("W"), 0.0);
    }

    void copies_takeNamesHeightAndFonts()
    {
        const ZTShxFontParam source = tinyFont(20.0);
        ZTShxFontParam copied(source);
        ZTShxFontParam assigned;
        assigned = source;
        for (ZTShxFontParam *param : {&copied, &assigned}) {
            QCOMPARE(param->zhName, QStringLiteral("tinybig.shx"));
            QCOMPARE(param->enName, QStringLiteral("tiny.shx"));
            QCOMPARE(param->height, 20.0);
            QCOMPARE(param->parser.getTextExtent("W"), 20.0);
        }
    }

    void assignmentToItself_changesNothing()
    {
        ZTShxFontParam param = tinyFont(20.0);
        const ZTShxFontParam &same = param;
        param = same;
        QCOMPARE(param.enName, QStringLiteral("tiny.shx"));
        QCOMPARE(param.height, 20.0);
        QCOMPARE(param.parser.getTextExtent("W"), 20.0);
    }

    void equality_looksAtNamesAndHeight()
    {
        const ZTShxFontParam base = named("big", "reg", 1.0);
        QVERIFY(base == named("big", "reg", 1.0));
        QVERIFY(!(base != named("big", "reg", 1.0)));
        QVERIFY(base != named("other", "reg", 1.0));
        QVERIFY(base != named("big", "other", 1.0));
        QVERIFY(base != named("big", "reg", std::nextafter(1.0, 2.0))); // exact, not fuzzy
        QVERIFY(!(base == named("reg", "big", 1.0)));
    }

    void equality_loadedAndNotLoaded_areEqual()
    {
        const ZTShxFontParam loaded = tinyFont(10.0);
        QVERIFY(loaded == named("tinybig.shx", "tiny.shx", 10.0));
    }

    void stream_hasBigFontFirst()
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << named("b", "r", 2.0);
        QCOMPARE(bytes.toHex(), QByteArray("00000002"
                                           "0062"
                                           "00000002"
                                           "0072"
                                           "4000000000000000"));
    }

    void read_isReadyToDraw()
    {
        ZTShxFontParam param;
        read(streamed(QStringLiteral("tinybig.shx"), QStringLiteral("tiny.shx"), 20.0), param);
        QCOMPARE(param.zhName, QStringLiteral("tinybig.shx"));
        QCOMPARE(param.enName, QStringLiteral("tiny.shx"));
        QCOMPARE(param.height, 20.0);
        // The reference characters of both fonts are as wide as the text is high.
        QCOMPARE(param.parser.getTextExtent("W"), 20.0);
        QCOMPARE(param.parser.getTextExtent(kYou), 20.0);
    }

    void read_replacesTheFontsOfTheRecord()
    {
        ZTShxFontParam param = tinyFont();
        read(streamed(QStringLiteral("tinybig.shx"), QStringLiteral("missing.shx"), 20.0), param);
        QCOMPARE(param.parser.getTextExtent("W"), 0.0);
        QCOMPARE(param.parser.getTextHeight(), 0.0);
    }

    void read_emptyName_keepsTheFonts_andSetsTheirHeight()
    {
        ZTShxFontParam param = tinyFont(10.0);
        read(streamed(QString(), QStringLiteral("tiny.shx"), 20.0), param);
        QCOMPARE(param.zhName, QString());
        QCOMPARE(param.parser.getTextExtent("W"), 20.0);
    }

    void read_namesInLocalEncoding()
    {
        QTextCodec *before = QTextCodec::codecForLocale();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        const QString name = QString(QChar(0x5B57)) + QStringLiteral(".shx");
        QVERIFY(QFile::rename(fontPath(QStringLiteral("tinybig.shx")), fontPath(name)));
        ZTShxFontManager::release();
        ZTShxFontManager::regFonts();
        ZTShxFontParam param;
        read(streamed(name, QStringLiteral("tiny.shx"), 20.0), param);
        const double widthOfYou = param.parser.getTextExtent(kYou);
        QFile::remove(fontPath(name));
        QTextCodec::setCodecForLocale(before);
        QCOMPARE(widthOfYou, 20.0);
    }

    void read_heightOfNoUse_spoilsNoOtherRecord_data()
    {
        QTest::addColumn<double>("height");
        QTest::newRow("0") << 0.0;
        QTest::newRow("infinite") << kInfinity;
        QTest::newRow("negative infinite") << -kInfinity;
        QTest::newRow("no number") << kNoNumber;
    }
    void read_heightOfNoUse_spoilsNoOtherRecord()
    {
        QFETCH(double, height);
        ZTShxFontParam other = tinyFont(20.0);
        ZTShxFontParam param;
        read(streamed(QStringLiteral("tinybig.shx"), QStringLiteral("tiny.shx"), height), param);
        QCOMPARE(param.parser.getTextExtent("W"), 0.0);
        QCOMPARE(other.parser.getTextExtent("W"), 20.0);
    }

    void read_cutStream_leavesTheRecordWithoutFonts()
    {
        ZTShxFontParam other = tinyFont(20.0);
        const QByteArray whole =
            streamed(QStringLiteral("tinybig.shx"), QStringLiteral("tiny.shx"), 10.0);
        for (int size = 0; size < whole.size(); ++size) {
            ZTShxFontParam param = tinyFont(20.0);
            read(whole.left(size), param);
            QCOMPARE(param.parser.getTextExtent("W"), 0.0);
        }
        QCOMPARE(other.parser.getTextExtent("W"), 20.0);
    }

    void metaType_hasTheRecordsName()
    {
        QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<ZTShxFontParam>())),
                 QByteArray("ZTShxFontParam"));
        const QVariant variant = QVariant::fromValue(tinyFont(20.0));
        auto param = variant.value<ZTShxFontParam>();
        QVERIFY(param == tinyFont(20.0));
        QCOMPARE(param.parser.getTextExtent("W"), 20.0);
    }

private:
    static QString fontPath(const QString &name)
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/font/") + name;
    }
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QCoreApplication application(argc, argv);
    tst_ZTShxFontParam test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShxFontParam.moc"
