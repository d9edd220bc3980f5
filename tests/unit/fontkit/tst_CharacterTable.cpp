#include <support/BoardFonts.h>
#include <support/Skip.h>

#include <fontkit/CharacterTable.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using fontkit::DataFolder;

namespace {

DataFolder hersheyData() { return DataFolder(QByteArrayLiteral(ZT_HERSHEY_DIR)); }
DataFolder hanziData() { return DataFolder(QByteArrayLiteral(ZT_HANZI_DIR)); }

} // namespace

class tst_CharacterTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentation_isThatOfTheFonts()
    {
        if (!testsupport::hasChineseBoardFont())
            ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
        QString error;
        const QByteArray made = fontkit::characterTable(hersheyData(), hanziData(), &error);
        QVERIFY2(!made.isEmpty(), qPrintable(error));
        QFile documented(QStringLiteral(ZT_TEST_DATA_DIR "/../../docs/font-characters.md"));
        const bool isSame = documented.open(QIODevice::ReadOnly) && documented.readAll() == made;
        if (!isSame) {
            QFile now(QDir::current().filePath(QStringLiteral("font-characters.md")));
            QVERIFY(now.open(QIODevice::WriteOnly));
            now.write(made);
            QFAIL(qPrintable(QStringLiteral("docs/font-characters.md is not up to date; the one "
                                            "of the fonts is %1")
                                 .arg(now.fileName())));
        }
    }

    void table_tellsCharactersAndTheirOrigin()
    {
        if (!testsupport::hasChineseBoardFont())
            ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data");
        const QList<QByteArray> lines =
            fontkit::characterTable(hersheyData(), hanziData(), nullptr).split('\n');
        const auto holds = [&lines](const char *where, const char *from, const char *character) {
            for (const QByteArray &line : lines) {
                const QList<QByteArray> cells = line.split('|');
                if (cells.size() > 4 && cells.at(1).trimmed() == where &&
                    cells.at(2).trimmed() == from && line.contains(character))
                    return true;
            }
            return false;
        };
        QVERIFY(holds("ASCII", "Hershey data", "W"));
        QVERIFY(holds("Latin-1", "composed of others", "é"));
        QVERIFY(holds("Latin-1", "drawn for it", "€") == false); // it is money
        QVERIFY(holds("Money", "drawn for it", "€"));
        QVERIFY(holds("0xA4", "drawn for it", "あ"));
        QVERIFY(holds("0xC4", "hanzi-writer-data", "你"));
    }

    void withoutData_failsAndTells()
    {
        const QTemporaryDir folder;
        const DataFolder none(QFile::encodeName(folder.path()));
        QString error;
        QVERIFY(fontkit::characterTable(none, none, &error).isEmpty());
        QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: cannot be read"));
    }
};

QTEST_GUILESS_MAIN(tst_CharacterTable)
#include "tst_CharacterTable.moc"
