// Drawings of all versions, text and binary, that another program wrote: their curves lie where
// that program has them, seen from both sides.

#include <vectorkit/VectorReader.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPolygonF>
#include <QtTest/QtTest>

#include <cmath>

using namespace vectorkit;

namespace {

// The other program draws circles as cubics, which stray by this share of the radius at most.
constexpr double kOtherTolerance = 0.004;
constexpr double kWithin = 0.01;

/** Standard output of the yardstick; empty, with its words as a warning, when it fails. */
QByteArray yardstick(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("/usr/bin/python3"),
                  QStringList{QStringLiteral(ZT_TEST_DATA_DIR "/../support/dxf/yardstick.py")} +
                      arguments);
    if (!process.waitForFinished(300000) || process.exitCode() != 0) {
        qWarning("python3-ezdxf (tools/setup.sh test): %s",
                 process.readAllStandardError().constData());
        return {};
    }
    return process.readAllStandardOutput() + '\n';
}

double distanceTo(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF run = b - a;
    const double size = QPointF::dotProduct(run, run);
    const double share =
        size > 0.0 ? qBound(0.0, QPointF::dotProduct(point - a, run) / size, 1.0) : 0.0;
    const QPointF gap = point - a - run * share;
    return std::hypot(gap.x(), gap.y());
}

double distanceTo(const QPointF &point, const QVector<QPolygonF> &curves)
{
    double least = 1e99;
    for (const QPolygonF &curve : curves) {
        // Nearer than half of what is allowed is near enough.
        for (int i = 0; i + 1 < curve.size() && least > kWithin / 2.0; ++i)
            least = std::min(least, distanceTo(point, curve[i], curve[i + 1]));
    }
    return least;
}

/** The farthest that a point of these curves, or the middle between two, is from those. */
double farthest(const QVector<QPolygonF> &these, const QVector<QPolygonF> &those)
{
    double most = 0.0;
    for (const QPolygonF &curve : these) {
        for (int i = 0; i + 1 < curve.size(); ++i) {
            most = std::max({most, distanceTo(curve[i], those),
                             distanceTo((curve[i] + curve[i + 1]) / 2.0, those)});
        }
    }
    return most;
}

QVector<QPolygonF> curvesOf(const QString &path)
{
    VectorDrawing drawing;
    ReadFailure failure;
    if (!readDrawingFile(path, ReadOptions(), &drawing, &failure))
        qWarning("%s: %s", qPrintable(path), qPrintable(failure.reason));
    QVector<QPolygonF> curves;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            for (const VectorPath &run : shape.paths)
                curves.append(run.flattened(kOtherTolerance));
        }
    }
    return curves;
}

} // namespace

class tst_DxfYardstick : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void curves_lieWhereTheOtherProgramHasThem_data();
    void curves_lieWhereTheOtherProgramHasThem();

private:
    QTemporaryDir folder;
    QHash<QString, QVector<QPolygonF>> expected; ///< by file name, y up
};

void tst_DxfYardstick::initTestCase()
{
    QVERIFY(folder.isValid());
    QVERIFY(!yardstick({QStringLiteral("write"), folder.path()}).isEmpty());
    const QDir dir(folder.path());
    QStringList paths;
    for (const QString &name : dir.entryList({QStringLiteral("*.dxf")}))
        paths.append(dir.filePath(name));
    QVERIFY(paths.size() >= 70);
    const QByteArray curves =
        yardstick(QStringList{QStringLiteral("flatten"), QString::number(kOtherTolerance)} + paths);
    for (const QByteArray &line : curves.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        QPolygonF curve;
        for (int i = 1; i + 1 < words.size(); i += 2)
            curve.append(QPointF(words[i].toDouble(), -words[i + 1].toDouble()));
        if (!curve.isEmpty())
            expected[QFileInfo(QString::fromLocal8Bit(words[0])).fileName()].append(curve);
    }
}

void tst_DxfYardstick::curves_lieWhereTheOtherProgramHasThem_data()
{
    QTest::addColumn<QString>("name");
    for (const char *feature : {"plain", "tilted", "blocks", "newer", "hatches", "dimensions"}) {
        for (const char *version : {"R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"}) {
            for (const char *kind : {"", "-binary"}) {
                const QString name =
                    QStringLiteral("%1-%2%3.dxf")
                        .arg(QLatin1String(feature), QLatin1String(version), QLatin1String(kind));
                if (QFile::exists(folder.filePath(name)))
                    QTest::newRow(qPrintable(name)) << name;
            }
        }
    }
}

void tst_DxfYardstick::curves_lieWhereTheOtherProgramHasThem()
{
    QFETCH(QString, name);
    const QVector<QPolygonF> theirs = expected.value(name);
    const QVector<QPolygonF> ours = curvesOf(folder.filePath(name));
    QVERIFY(!theirs.isEmpty());
    QVERIFY(!ours.isEmpty());
    // What both draw: the other program takes arrow heads for points without a size.
    const bool hasArrows = name.startsWith(QLatin1String("dimensions"));
    const double there = farthest(theirs, ours);
    const double here = hasArrows ? 0.0 : farthest(ours, theirs);
    QVERIFY2(there < kWithin && here < kWithin,
             qPrintable(QStringLiteral("%1 from theirs, %2 from ours").arg(there).arg(here)));
}

QTEST_GUILESS_MAIN(tst_DxfYardstick)
#include "tst_DxfYardstick.moc"
