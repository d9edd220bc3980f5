#include <hostkit/files/JsonKeys.h>

#include <QtTest/QtTest>

using hostkit::jsonKeyTwice;

namespace {

/** With the quotes of JSON in place of single ones. */
QByteArray json(const char *text) { return QByteArray(text).replace('\'', '"'); }

} // namespace

class tst_JsonKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneKeyTwice_isNamed_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("key");
        QTest::newRow("numbers") << json("{'speed':1,'speed':2}") << "speed";
        QTest::newRow("arrays") << json("{'pens':[],'a':1,'pens':[]}") << "pens";
        QTest::newRow("inside") << json("{'a':[{'b':{'c':1,'c':{}}}]}") << "c";
        QTest::newRow("after an inner object") << json("{'a':{'b':1},'a':1}") << "a";
        QTest::newRow("escaped") << json("{'a':1,'\\u0061':2}") << "a";
        QTest::newRow("with a quote") << json("{'a\\'':1,'b':'x','a\\'':2}") << "a\"";
        QTest::newRow("spread out") << json("{ 'a' : 1 ,\n 'a' : 2 }") << "a";
        QTest::newRow("without a name") << json("{'':1,'':2}") << "";
        QTest::newRow("torn off later") << json("{'a':1,'a':[{") << "a";
    }
    void oneKeyTwice_isNamed()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, key);
        const std::optional<QString> found = jsonKeyTwice(text);
        QVERIFY(found.has_value());
        QCOMPARE(*found, key);
    }

    void eachKeyOnce_isNothing_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << json("");
        QTest::newRow("other objects") << json("[{'a':1},{'a':2},{'b':{'a':3}}]");
        QTest::newRow("in other depths") << json("{'a':{'a':{'a':1}}}");
        QTest::newRow("values alike") << json("{'a':'a','b':'a','c':['a','a']}");
        QTest::newRow("in a string") << json("{'a':'{\\'a\\':1,','b':',\\'a\\''}");
        QTest::newRow("closed too often") << json("}}]]{'a':1}");
        QTest::newRow("an open string") << json("{'a':1,'b");
        QTest::newRow("no JSON") << json("IN;SP1;PU0,0;");
    }
    void eachKeyOnce_isNothing()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!jsonKeyTwice(text).has_value());
    }
};

QTEST_APPLESS_MAIN(tst_JsonKeys)
#include "tst_JsonKeys.moc"
