#include <support/DrawingBytes.h>
#include <support/OwnFolder.h>
#include <support/RandomDrawing.h>
#include <support/ShapeState.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using hostkit::Failure;

namespace {

constexpr int kDrawings = 2000;
constexpr int kDamages = 3000;
/** What is painted now, nothing being rebuilt for it. */
QVector<QPainterPath> outlinesOf(ZTGraphicsDocument &document)
{
    QVector<QPainterPath> outlines;
    for (const ZTShapeBase *shape : document.itemMag()->getShapeList())
        outlines << shape->getLines();
    return outlines;
}

} // namespace

/** Drawings by lot, many of them, saved, loaded and damaged. */
class tst_DrawingRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
    }
    void cleanup() { guard.reset(); }

    void drawings_savedAndLoaded_markTheSameAndSaveTheSameBytes()
    {
        testsupport::WarningGuard messages; // imported drawings without a file log that
        ZTGraphicsDocument document;
        ZTGraphicsDocument other;
        for (quint32 seed = 0; seed < kDrawings; ++seed) {
            document.clear();
            testsupport::RandomDrawing random(seed);
            random.strokeFonts << QStringLiteral("tiny.shx") << QStringLiteral("tinybig.shx");
            random.add(document, static_cast<int>(seed % 8));
            const QByteArray bytes =
                testsupport::savedBytes(document); // with shapes that wait for a rebuild
            const ZTMarkGraph before = document.itemMag()->getShapeLines();
            const QStringList state = testsupport::stateOf(document);
            Failure error;
            QVERIFY2(testsupport::load(bytes, other, &error), qPrintable(error.reason));
            const QString which = QStringLiteral("seed %1").arg(seed);
            const QString lost = testsupport::difference(testsupport::stateOf(other), state);
            QVERIFY2(lost.isEmpty(), qPrintable(which + QStringLiteral(", ") + lost));
            const QVector<QPainterPath> shown = outlinesOf(other);
            QVERIFY2(testsupport::sameGraph(other.itemMag()->getShapeLines(), before),
                     qPrintable(which));
            QVERIFY2(outlinesOf(other) == shown, qPrintable(which)); // as a rebuild makes them
            QVERIFY2(testsupport::savedBytes(other) == bytes, qPrintable(which));
        }
        messages.take();
    }

    void largeDrawing_damagedAnywhere_isRefused()
    {
        testsupport::WarningGuard messages;
        ZTGraphicsDocument document;
        testsupport::RandomDrawing drawing(7);
        drawing.add(document, 600);
        const QByteArray whole = testsupport::savedBytes(document);
        QVERIFY(whole.size() > 100'000);
        QRandomGenerator random(1);
        int refused = 0;
        for (int i = 0; i < kDamages; ++i) {
            const QByteArray damaged = withDamage(whole, &random);
            hostkit::DrawingFile read;
            Failure error;
            if (damaged == whole)
                continue;
            QVERIFY2(!readDrawing(damaged, &read, &error), qPrintable(QString::number(i)));
            QVERIFY(!error.reason.isEmpty());
            ++refused;
        }
        QVERIFY(refused > kDamages * 9 / 10);
        messages.take();
    }

private:
    /** Bits turned over, a piece overwritten, taken out, doubled or moved, or the end cut off. */
    static QByteArray withDamage(const QByteArray &whole, QRandomGenerator *random)
    {
        QByteArray bytes = whole;
        const int at = random->bounded(bytes.size());
        const int length = random->bounded(1, 300);
        switch (random->bounded(6)) {
        case 0:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << random->bounded(8)));
            break;
        case 1:
            for (int i = at; i < qMin(at + length, bytes.size()); ++i)
                bytes[i] = static_cast<char>(random->bounded(256));
            break;
        case 2:
            bytes.remove(at, length);
            break;
        case 3:
            bytes.insert(at, bytes.mid(at, length));
            break;
        case 4: {
            const QByteArray piece = bytes.mid(at, length);
            bytes.remove(at, length);
            bytes.insert(random->bounded(bytes.size()), piece);
            break;
        }
        default:
            bytes.truncate(at);
            break;
        }
        return bytes;
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_DrawingRandom test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_DrawingRandom.moc"
