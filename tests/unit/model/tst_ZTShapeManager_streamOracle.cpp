#include <support/Factories.h>
#include <support/Geometry.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/oracle/PlainStream.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>

using testsupport::PlainDrawing;

namespace {

constexpr int kDrawings = 2000;
constexpr int kDrawingsOfASetUp = 60;
constexpr int kItems = 5;

/** How a host can have set its stream up. */
struct SetUp
{
    void applyTo(QDataStream &stream) const
    {
        stream.setVersion(version);
        stream.setByteOrder(order);
        stream.setFloatingPointPrecision(precision);
    }

    int version = QDataStream::Qt_5_15;
    QDataStream::ByteOrder order = QDataStream::BigEndian;
    QDataStream::FloatingPointPrecision precision = QDataStream::DoublePrecision;
};

QByteArray writtenPlainly(const PlainDrawing &drawing, const SetUp &setUp = {})
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    setUp.applyTo(stream);
    testsupport::writePlainly(stream, drawing);
    return bytes;
}

PlainDrawing readPlainly(const QByteArray &bytes, const SetUp &setUp = {})
{
    QDataStream stream(bytes);
    setUp.applyTo(stream);
    return testsupport::readPlainly(stream);
}

/** A drawing on its own, with the variant texts that it brought. */
class Loaded
{
public:
    explicit Loaded(const QByteArray &bytes, const SetUp &setUp = {},
                    QDataStream::Status before = QDataStream::Ok)
    {
        ZTVariantTextManager::release();
        QDataStream stream(bytes);
        setUp.applyTo(stream);
        stream.setStatus(before);
        manager.load(stream);
        isWhole = stream.atEnd() && stream.status() == before;
    }

    QByteArray saved(const SetUp &setUp = {}, QDataStream::Status before = QDataStream::Ok)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        setUp.applyTo(stream);
        stream.setStatus(before);
        manager.save(stream);
        isWhole = stream.status() == before && stream.version() == setUp.version &&
                  stream.byteOrder() == setUp.order &&
                  stream.floatingPointPrecision() == setUp.precision;
        return bytes;
    }

    ZTShapeManager manager{nullptr};
    bool isWhole = false; ///< the stream was used up or written as it should, and left as it was
};

bool areSame(const ZTMarkGraph &a, const ZTMarkGraph &b)
{
    if (a.objects.size() != b.objects.size())
        return false;
    for (int i = 0; i < a.objects.size(); ++i) {
        const ZTMarkObject &left = a.objects[i];
        const ZTMarkObject &right = b.objects[i];
        if (left.lines != right.lines || left.fillLines != right.fillLines ||
            left.penId != right.penId || left.rect != right.rect)
            return false;
    }
    return true;
}

} // namespace

class tst_ZTShapeManager_streamOracle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        testsupport::registerFactories();
        testsupport::makeTinyFonts();
        // Texts without fonts of their own and drawings without a file say so.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }

    void cleanupTestCase() { qInstallMessageHandler(nullptr); }

    void load_fieldsComeBack_whateverTheDrawing()
    {
        for (quint32 seed = 1; seed <= kDrawings; ++seed) {
            PlainDrawing drawing = testsupport::randomDrawing(seed, kItems);
            const QByteArray bytes = writtenPlainly(drawing);
            Loaded loaded(bytes);
            QVERIFY2(loaded.isWhole, QByteArray::number(seed));
            const PlainDrawing back = readPlainly(loaded.saved());
            takeOverWhatLoadingSets(drawing, back);
            QVERIFY2(writtenPlainly(back) == writtenPlainly(drawing), QByteArray::number(seed));
        }
    }

    void save_secondTime_givesTheSameBytesAndMarks()
    {
        for (quint32 seed = 1; seed <= kDrawings; ++seed) {
            Loaded first(writtenPlainly(testsupport::randomDrawing(seed, kItems)));
            const ZTMarkGraph marks = first.manager.getShapeLines();
            const QByteArray bytes = first.saved();
            Loaded second(bytes);
            QVERIFY2(second.saved() == bytes, QByteArray::number(seed));
            QVERIFY2(areSame(second.manager.getShapeLines(), marks), QByteArray::number(seed));
        }
    }

    void setUps_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("isBigEndian");
        QTest::addColumn<bool>("isDouble");
        const QVector<QPair<const char *, int>> versions = {
            {"1.0", QDataStream::Qt_1_0},   {"2.1", QDataStream::Qt_2_1},
            {"3.0", QDataStream::Qt_3_0},   {"3.1", QDataStream::Qt_3_1},
            {"4.0", QDataStream::Qt_4_0},   {"4.3", QDataStream::Qt_4_3},
            {"4.5", QDataStream::Qt_4_5},   {"4.6", QDataStream::Qt_4_6},
            {"5.0", QDataStream::Qt_5_0},   {"5.4", QDataStream::Qt_5_4},
            {"5.12", QDataStream::Qt_5_12}, {"5.13", QDataStream::Qt_5_13},
            {"5.15", QDataStream::Qt_5_15}};
        for (const auto &version : versions) {
            for (const bool isBigEndian : {true, false}) {
                for (const bool isDouble : {true, false})
                    QTest::addRow("%s %s endian %s", version.first, isBigEndian ? "big" : "little",
                                  isDouble ? "double" : "single")
                        << version.second << isBigEndian << isDouble;
            }
        }
    }

    void save_anySetUp_isWhatThePlainWayWrites_data() { setUps_data(); }
    void save_anySetUp_isWhatThePlainWayWrites()
    {
        const SetUp setUp = fetchedSetUp();
        for (quint32 seed = 1; seed <= kDrawingsOfASetUp; ++seed) {
            Loaded loaded(writtenPlainly(testsupport::randomDrawing(seed, kItems)));
            const PlainDrawing plain = readPlainly(loaded.saved());
            QCOMPARE(loaded.saved(setUp), writtenPlainly(plain, setUp));
            QVERIFY(loaded.isWhole);
        }
    }

    void load_anySetUp_isWhatThePlainWayReads_data() { setUps_data(); }
    void load_anySetUp_isWhatThePlainWayReads()
    {
        const SetUp setUp = fetchedSetUp();
        for (quint32 seed = 1; seed <= kDrawingsOfASetUp; ++seed) {
            const QByteArray bytes =
                writtenPlainly(testsupport::randomDrawing(seed, kItems), setUp);
            Loaded plain(writtenPlainly(readPlainly(bytes, setUp)));
            const QByteArray expected = plain.saved();
            Loaded loaded(bytes, setUp);
            QVERIFY(loaded.isWhole);
            QCOMPARE(loaded.saved(), expected);
        }
    }

    void save_statusAlreadyBad_writesNothing_data() { badStatuses_data(); }
    void save_statusAlreadyBad_writesNothing()
    {
        QFETCH(int, status);
        const auto bad = static_cast<QDataStream::Status>(status);
        Loaded loaded(writtenPlainly(testsupport::randomDrawing(1, kItems)));
        QCOMPARE(loaded.saved({}, bad), QByteArray());
        QVERIFY(loaded.isWhole);
    }

    void load_statusAlreadyBad_readsAllTheSame_data() { badStatuses_data(); }
    void load_statusAlreadyBad_readsAllTheSame()
    {
        QFETCH(int, status);
        for (quint32 seed = 1; seed <= kDrawingsOfASetUp; ++seed) {
            const QByteArray bytes = writtenPlainly(testsupport::randomDrawing(seed, kItems));
            const QByteArray expected = Loaded(bytes).saved();
            Loaded loaded(bytes, {}, static_cast<QDataStream::Status>(status));
            QVERIFY(loaded.isWhole);
            QCOMPARE(loaded.saved(), expected);
        }
    }

private:
    static void badStatuses_data()
    {
        QTest::addColumn<int>("status");
        QTest::newRow("past the end") << int(QDataStream::ReadPastEnd);
        QTest::newRow("corrupt") << int(QDataStream::ReadCorruptData);
        QTest::newRow("write failed") << int(QDataStream::WriteFailed);
    }

    static SetUp fetchedSetUp()
    {
        QFETCH(int, version);
        QFETCH(bool, isBigEndian);
        QFETCH(bool, isDouble);
        SetUp setUp;
        setUp.version = version;
        setUp.order = isBigEndian ? QDataStream::BigEndian : QDataStream::LittleEndian;
        setUp.precision = isDouble ? QDataStream::DoublePrecision : QDataStream::SinglePrecision;
        return setUp;
    }

    /**
     * A loaded shape has been painted; a text in a system font has taken the rectangle of its
     * letters, and its font the letter spacing.
     */
    static void takeOverWhatLoadingSets(PlainDrawing &drawing, const PlainDrawing &loaded)
    {
        for (int i = 0; i < drawing.items.size(); ++i) {
            testsupport::PlainItem &item = drawing.items[i];
            item.base.update = 0;
            if (!item.text)
                continue;
            item.text->font.setLetterSpacing(QFont::AbsoluteSpacing,
                                             ZTCoord::getInstance()->mm2pix(item.text->wordSpac));
            if (item.text->fontType == 1)
                item.base.rect = loaded.items[i].base.rect;
        }
    }

    testsupport::SingletonGuard guard;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_ZTShapeManager_streamOracle test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeManager_streamOracle.moc"
