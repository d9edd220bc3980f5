#include <support/PropertyObjects.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace {

struct Text
{
    const char *context;
    const char *source;
    const char *chinese;
};

const Text kTexts[] = {
    {"QtTreePropertyBrowserPrivate", "text", "文本"},
    {"QtTreePropertyBrowserPrivate", "pos", "位置"},
    {"QtTreePropertyBrowserPrivate", "X", "水平"},
    {"QtTreePropertyBrowserPrivate", "Y", "垂直"},
    {"QtTreePropertyBrowserPrivate", "fillParam", "填充"},
    {"QtTreePropertyBrowserPrivate", "fillType", "类型"},
    {"QtTreePropertyBrowserPrivate", "spac", "间隙"},
    {"QtTreePropertyBrowserPrivate", "angle", "角度"},
    {"QtTreePropertyBrowserPrivate", "isEnableBorder", "启用边框"},
    {"QtTreePropertyBrowserPrivate", "roundingParam", "圆弧化"},
    {"QtTreePropertyBrowserPrivate", "isEnableRounding", "启用"},
    {"QtTreePropertyBrowserPrivate", "startAngle", "开始角度"},
    {"QtTreePropertyBrowserPrivate", "spanAngle", "跨度"},
    {"QtTreePropertyBrowserPrivate", "diameter", "直径"},
    {"QtTreePropertyBrowserPrivate", "itemRotate", "旋转角度"},
    {"QtTreePropertyBrowserPrivate", "font", "字体"},
    {"QtTreePropertyBrowserPrivate", "Family", "族"},
    {"QtTreePropertyBrowserPrivate", "Pixel Size", "尺寸"},
    {"QtTreePropertyBrowserPrivate", "Bold", "粗体"},
    {"QtTreePropertyBrowserPrivate", "Italic", "斜体"},
    {"QtTreePropertyBrowserPrivate", "Underline", "下划线"},
    {"QtTreePropertyBrowserPrivate", "Strikeout", "删除线"},
    {"QtTreePropertyBrowserPrivate", "Kerning", "字距"},
    {"QtTreePropertyBrowserPrivate", "LaserPower", "激光功率"},
    {"QtTreePropertyBrowserPrivate", "PulseWidth", "脉宽"},
    {"QtTreePropertyBrowserPrivate", "RunSpeed", "加工速度"},
    {"QtTreePropertyBrowserPrivate", "LaserFrequency", "激光频率"},
    {"QtTreePropertyBrowserPrivate", "OpenDelay", "开光延时"},
    {"QtTreePropertyBrowserPrivate", "ShutDelay", "关光延时"},
    {"QtTreePropertyBrowserPrivate", "EffectWaitTime", "功率设置生效时间"},
    {"QtTreePropertyBrowserPrivate", "CornerDelay", "拐角延时"},
    {"QtTreePropertyBrowserPrivate", "OpenBehind", "开光滞后"},
    {"QtTreePropertyBrowserPrivate", "ChangeCornerDelay", "拐角延时可变"},
    {"QtTreePropertyBrowserPrivate", "MopaPulse", "Mopa脉宽"},
    {"QtTreePropertyBrowserPrivate", "JumpSpeed", "跳转速度"},
    {"QtTreePropertyBrowserPrivate", "JumpPosDelay", "跳转位置延时"},
    {"QtTreePropertyBrowserPrivate", "FirstJumpDelay", "首次跳转延时"},
    {"QtTreePropertyBrowserPrivate", "StartLineDelay", "首笔延时"},
    {"QtTreePropertyBrowserPrivate", "LineEndsDelay", "线段两端延时"},
    {"QtTreePropertyBrowserPrivate", "ShapeEndDelay", "结束延时"},
    {"QtTreePropertyBrowserPrivate", "PointTime", "打点时间"},
    {"QtTreePropertyBrowserPrivate", "FJAutoDelay", "自动延时"},
    {"QtTreePropertyBrowserPrivate", "TwoDCodeParam", "二维码"},
    {"QtTreePropertyBrowserPrivate", "mode", "模式"},
    {"QtTreePropertyBrowserPrivate", "version", "版本"},
    {"QtTreePropertyBrowserPrivate", "mask", "掩码"},
    {"QtTreePropertyBrowserPrivate", "type", "类型"},
    {"QtTreePropertyBrowserPrivate", "ecc", "纠错等级"},
    {"QtTreePropertyBrowserPrivate", "xMultiple", "x倍数"},
    {"QtTreePropertyBrowserPrivate", "yMultiple", "y倍数"},
    {"QtTreePropertyBrowserPrivate", "del", "中空"},
    {"QtTreePropertyBrowserPrivate", "ratio", "比例"},
    {"QtTreePropertyBrowserPrivate", "reversal", "反转"},
    {"QtTreePropertyBrowserPrivate", "shxFont", "单线字体"},
    {"QtTreePropertyBrowserPrivate", "zhName", "中文字体"},
    {"QtTreePropertyBrowserPrivate", "enName", "英文字体"},
    {"QtTreePropertyBrowserPrivate", "height", "高"},
    {"QtTreePropertyBrowserPrivate", "fontType", "字体类型"},
    {"QtTreePropertyBrowserPrivate", "singleLine", "单线字体"},
    {"QtTreePropertyBrowserPrivate", "doubleLine", "双线字体"},
    {"QtTreePropertyBrowserPrivate", "lineSpan", "行间距"},
    {"QtTreePropertyBrowserPrivate", "BarCode", "条码"},
    {"QtTreePropertyBrowserPrivate", "BarCodeType", "条码类型"},
    {"QtTreePropertyBrowserPrivate", "Height", "高度"},
    {"QtTreePropertyBrowserPrivate", "ModuleWid", "模块宽度"},
    {"QtTreePropertyBrowserPrivate", "Reverse", "反转"},
    {"QtTreePropertyBrowserPrivate", "HideText", "显示文本"},
    {"QtTreePropertyBrowserPrivate", "FontSize", "字体大小"},
    {"QtTreePropertyBrowserPrivate", "BarSpaceReverse", "条空反转"},
    {"QtBoolEdit", "True", "启用"},
    {"QtBoolEdit", "False", "禁用"},
    {"QtBoolPropertyManager", "True", "启用"},
    {"QtBoolPropertyManager", "False", "禁用"},
    {"QtPointFPropertyManager", "X", "水平"},
    {"QtPointFPropertyManager", "Y", "垂直"},
    {"QtTreePropertyBrowser", "Property", "属性"},
    {"QtTreePropertyBrowser", "Value", "值"},
    {"ZTGraphicsScene", "Left", "左"},
    {"ZTGraphicsScene", "Right", "右"},
    {"ZTGraphicsScene", "Horizontally Center", "水平中央"},
    {"ZTGraphicsScene", "Top", "顶"},
    {"ZTGraphicsScene", "Bottom", "底"},
    {"ZTGraphicsScene", "Vertically Center", "垂直中央"},
    {"ZTGraphicsScene", "Center", "中心"},
    {"ZTObjectTreeWidget", "id", "标识号"},
    {"ZTObjectTreeWidget", "shape", "图元类型"},
    {"ZTObjectTreeWidget", "text", "文本"},
    {"ZTGraphicsTextItem", "TEXT", "文本"},
};

QString str(const char *text) { return QString::fromUtf8(text); }

/** Installs the library's catalogue while it lives, as a host does. */
class Chinese
{
public:
    Chinese()
    {
        isLoaded = translator.load(str(":/ZTDrawEngineLib_zh.qm"));
        QCoreApplication::installTranslator(&translator);
    }
    ~Chinese() { QCoreApplication::removeTranslator(&translator); }
    Chinese(const Chinese &) = delete;
    Chinese &operator=(const Chinese &) = delete;

    bool isLoaded = false;

private:
    QTranslator translator;
};

QString translated(const char *context, const char *source)
{
    return QCoreApplication::translate(context, source);
}

} // namespace

class tst_Catalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { warnings.reset(new testsupport::WarningGuard); }
    void cleanup() { warnings.reset(); }

    void catalogue_isInTheLibrarysResources() { QVERIFY(Chinese().isLoaded); }

    void everyText_isChineseWithTheCatalogue_andItselfWithout_data()
    {
        QTest::addColumn<QByteArray>("context");
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("chinese");
        for (const Text &text : kTexts) {
            QTest::addRow("%s/%s", text.context, text.source)
                << QByteArray(text.context) << QByteArray(text.source) << str(text.chinese);
        }
    }

    void everyText_isChineseWithTheCatalogue_andItselfWithout()
    {
        QFETCH(QByteArray, context);
        QFETCH(QByteArray, source);
        QFETCH(QString, chinese);
        QCOMPARE(translated(context.data(), source.data()), QString::fromLatin1(source));
        const Chinese catalogue;
        QCOMPARE(translated(context.data(), source.data()), chinese);
    }

    void all69Names_areShownInTheGrid_inBothLanguages()
    {
        int names = 0;
        QtVariantPropertyManager manager;
        for (const Text &text : kTexts) {
            if (qstrcmp(text.context, "QtTreePropertyBrowserPrivate") != 0)
                continue;
            ++names;
            QtVariantProperty *row = manager.addProperty(QMetaType::Int, str(text.source));
            QCOMPARE(shownName(row), str(text.source));
            const Chinese catalogue;
            QCOMPARE(shownName(row), str(text.chinese));
            QCOMPARE(row->propertyName(), str(text.source));
        }
        QCOMPARE(names, 69);
        const Chinese catalogue;
        QCOMPARE(shownName(manager.addProperty(QMetaType::Int, str("SideCount"))),
                 str("SideCount"));
    }

    void grid_isChineseThroughout()
    {
        const testsupport::SingletonGuard singletons;
        const Chinese catalogue;
        testsupport::TextObject text;
        ZTItemPropertyList list(nullptr);
        list.setObject(&text);
        const auto *tree = list.findChild<QTreeWidget *>();
        QCOMPARE(tree->headerItem()->text(0), str("属性"));
        QCOMPARE(tree->headerItem()->text(1), str("值"));
        const QTreeWidgetItem *pos = tree->topLevelItem(0);
        QCOMPARE(pos->text(0), str("位置"));
        QCOMPARE(pos->child(0)->text(0), str("水平"));
        const QTreeWidgetItem *fill = tree->topLevelItem(1);
        QCOMPARE(fill->text(0), str("填充"));
        QCOMPARE(fill->child(0)->text(0), str("类型"));
        QCOMPARE(fill->child(0)->text(1), str("无"));
        QCOMPARE(fill->child(3)->text(0), str("启用边框"));
        QCOMPARE(fill->child(3)->text(1), str("启用"));
        const QTreeWidgetItem *font = tree->topLevelItem(5);
        QCOMPARE(font->child(1)->text(0), str("尺寸"));
        QCOMPARE(tree->topLevelItem(7)->text(0), str("字体类型"));
        // The names of font types stay English.
        QCOMPARE(tree->topLevelItem(7)->text(1), str("doubleLine"));
    }

    void undoTexts_areChinese()
    {
        const Chinese catalogue;
        testsupport::TextObject text;
        const ZTItemPropertyCommand command(&text, str("lineSpan"), 2.0, nullptr);
        QCOMPARE(command.text(), str("属性"));
    }

private:
    static QString shownName(QtProperty *row)
    {
        QtTreePropertyBrowser browser;
        browser.addProperty(row);
        return browser.findChild<QTreeWidget *>()->topLevelItem(0)->text(0);
    }

    std::unique_ptr<testsupport::WarningGuard> warnings;
};

QTEST_MAIN(tst_Catalogue)
#include "tst_Catalogue.moc"
