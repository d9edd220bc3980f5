#include <support/Factories.h>
#include <support/OwnFolder.h>
#include <support/RoughUse.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/oracle/PlainStream.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsView>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <sys/stat.h>

using testsupport::PlainDrawing;
using testsupport::PlainItem;

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr double kHeightOfNewTexts = 100.0; ///< which each of them gives to the shared fonts
constexpr int kIntMin = std::numeric_limits<int>::min();

using Change = std::function<void(PlainItem &)>;

QByteArray bytesOf(const PlainDrawing &drawing)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    testsupport::writePlainly(stream, drawing);
    return bytes;
}

/** A harmless item of a kind, hatched. */
PlainItem itemOf(ShapeType type)
{
    PlainItem item;
    item.kind = static_cast<quint8>(type);
    item.base.rect = {0, 0, 10, 10};
    item.base.fillType = static_cast<qint32>(FillType::ULine);
    item.base.spac = 0.5;
    item.base.angle = 30;
    item.sideCount = 5;
    if (type == ShapeType::Text) {
        item.text = std::make_shared<testsupport::PlainText>();
        item.text->text = QStringLiteral("AB\nC");
        item.text->font.setPixelSize(20);
        item.text->enName = QStringLiteral("tiny.shx");
        item.text->zhName = QStringLiteral("tinybig.shx");
    }
    return item;
}

PlainDrawing drawingOf(const PlainItem &item)
{
    PlainDrawing drawing;
    drawing.nextShapeId = 1;
    drawing.items << item;
    return drawing;
}

QByteArray saved(ZTShapeManager &manager)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    manager.save(stream);
    return bytes;
}

bool isFinite(const QPointF &point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

bool isFinite(const ZTMarkGraph &graph)
{
    for (const ZTMarkObject &object : graph.objects) {
        for (const QPolygonF &polygon : object.lines) {
            if (!std::all_of(polygon.begin(), polygon.end(),
                             [](const QPointF &point) { return isFinite(point); }))
                return false;
        }
        for (const QLineF &line : object.fillLines) {
            if (!isFinite(line.p1()) || !isFinite(line.p2()))
                return false;
        }
    }
    return true;
}

/** Gives the first `good` bytes, and fails from then on. */
class FailingDevice : public QIODevice
{
public:
    enum Kind { Sequential, RandomAccess };

    FailingDevice(QByteArray content, qint64 goodBytes, Kind deviceKind)
        : bytes(std::move(content)), good(goodBytes), kind(deviceKind)
    {
        open(QIODevice::ReadOnly);
    }

    bool isSequential() const override { return kind == Sequential; }
    qint64 size() const override { return bytes.size(); }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (at >= good)
            return -1;
        const qint64 count = std::min(size, good - at);
        std::copy_n(bytes.constData() + at, count, data);
        at += count;
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 good;
    Kind kind;
    qint64 at = 0;
};

/** Takes no more bytes than there is room for, as a full disk. */
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 bytesOfRoom) : room(bytesOfRoom)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    QByteArray bytes;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 count = std::min(size, room - bytes.size());
        bytes.append(data, static_cast<int>(count));
        return count > 0 || size == 0 ? count : -1;
    }

private:
    qint64 room;
};

/** A buffer that from some place on gives bytes without end, each of which is no kind of item. */
class CancelledBuffer : public QBuffer
{
public:
    CancelledBuffer(QByteArray *bytes, qint64 goodBytes) : QBuffer(bytes), good(goodBytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (pos() < good)
            return QBuffer::readData(data, std::min(size, good - pos()));
        std::fill_n(data, size, '\xFF');
        return size;
    }

private:
    qint64 good;
};

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_ZTShapeManager_streamDamage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        testsupport::registerFactories();
        testsupport::makeTinyFonts();
        // Texts without fonts, drawings without a file and hatches without end say so.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }

    void cleanupTestCase() { qInstallMessageHandler(nullptr); }

    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        testsupport::makeTinyFonts();
        manager = std::make_unique<ZTShapeManager>(nullptr);
    }

    void cleanup()
    {
        manager.reset();
        guard.reset();
    }

    void notDrawable_isAnEmptyShape_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<Change>("change");
        for (const double value : {kNoNumber, kInfinity, -kInfinity, 1e300, 2e9}) {
            for (const ShapeType type :
                 {ShapeType::Rect, ShapeType::Ellipse, ShapeType::TDOT, ShapeType::Line})
                addTransformRows(type, value);
        }
        addRow("zero matrix", ShapeType::Ellipse,
               [](auto &item) { item.base.transform = QTransform(0, 0, 0, 0, 0, 0, 0, 0, 0); });
    }

    void notDrawable_isAnEmptyShape()
    {
        survive();
        QCOMPARE(linesAfterLoad(), QPainterPath());
    }

    void absurdNumbers_areHarmless_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<Change>("change");
        for (const double value : {kNoNumber, kInfinity, -kInfinity, 1e300, -1e300, 1e-300, 0.0})
            addNumberRows(value);
        for (const int value : {kIntMax, kIntMin, -1, 0, 77, 0x1FF})
            addIntegerRows(value);
        addRow("projective", ShapeType::Rect, [](auto &item) {
            item.base.transform = QTransform(1, 0, 0.5, 0, 1, -0.2, 0, 0, 1);
        });
        addRow("horizon in the shape", ShapeType::Ellipse, [](auto &item) {
            item.base.transform = QTransform(1, 0, -0.1, 0, 1, -0.1, 0, 0, 1);
        });
        addRow("size in points no number", ShapeType::Text,
               [](auto &item) { item.text->font.setPointSizeF(kNoNumber); });
        addRow("size in points infinite", ShapeType::Text,
               [](auto &item) { item.text->font.setPointSizeF(kInfinity); });
        addRow("size in pixels", ShapeType::Text,
               [](auto &item) { item.text->font.setPixelSize(kIntMax); });
    }

    void absurdNumbers_areHarmless() { survive(); }

    void hatch_withoutEnd_isNone_data()
    {
        QTest::addColumn<double>("spac");
        QTest::newRow("no number") << kNoNumber;
        QTest::newRow("infinite") << kInfinity;
        QTest::newRow("negative") << -1.0;
        QTest::newRow("tiny") << 1e-300;
        QTest::newRow("smaller than there is memory for") << 1e-6;
        QTest::newRow("nothing") << 0.0;
    }

    void hatch_withoutEnd_isNone()
    {
        QFETCH(double, spac);
        PlainItem item = itemOf(ShapeType::Rect);
        item.base.spac = spac;
        load(bytesOf(drawingOf(item)));
        QVERIFY(!first().getLines().isEmpty());
        QVERIFY(first().getFillLines().isEmpty());
    }

    void position_nowhere_isTheOrigin_data()
    {
        QTest::addColumn<QPointF>("posPx");
        QTest::addColumn<QPointF>("loaded");
        QTest::newRow("x no number") << QPointF(kNoNumber, 1) << QPointF();
        QTest::newRow("y no number") << QPointF(1, kNoNumber) << QPointF();
        QTest::newRow("infinite") << QPointF(1, -kInfinity) << QPointF();
        QTest::newRow("out of reach") << QPointF(1.1e9, 0) << QPointF();
        QTest::newRow("outside the scene") << QPointF(-1e6, 40000) << QPointF(-1e6, 40000);
    }

    void position_nowhere_isTheOrigin()
    {
        QFETCH(QPointF, posPx);
        QFETCH(QPointF, loaded);
        PlainItem item = itemOf(ShapeType::Rect);
        item.posPx = posPx;
        load(bytesOf(drawingOf(item)));
        QCOMPARE(manager->scene()->getItemById(0)->pos(), loaded);
        QVERIFY(isFinite(manager->getShapeLines()));
    }

    void strokeFont_absurdHeight_leavesOtherTextsAlone_data()
    {
        QTest::addColumn<double>("height");
        for (const double height : {kNoNumber, kInfinity, 0.0, 1e300, 1e-300, -1e7})
            QTest::addRow("%g", height) << height;
    }

    void strokeFont_absurdHeight_leavesOtherTextsAlone()
    {
        QFETCH(double, height);
        ZTShxFontParam other = testsupport::tinyFont(20.0);
        PlainItem item = itemOf(ShapeType::Text);
        item.text->fontType = static_cast<qint32>(FontType::singleLine);
        item.text->height = height;
        load(bytesOf(drawingOf(item)));
        QVERIFY(first().getLines().isEmpty());
        QCOMPARE(other.parser.getTextExtent("W"), kHeightOfNewTexts);
    }

    void nextId_atItsEnd_goesOn()
    {
        PlainDrawing drawing;
        drawing.nextShapeId = kIntMax;
        load(bytesOf(drawing));
        QCOMPARE(manager->addShape(ShapeType::Rect, {})->getShapeBase()->getId(), kIntMax);
        QCOMPARE(manager->addShape(ShapeType::Rect, {})->getShapeBase()->getId(), kIntMin);
    }

    void imagePath_ofAPipe_isNotRead()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("pipe.plt"));
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        PlainItem item = itemOf(ShapeType::VecGraph);
        item.imagePath = path;
        load(bytesOf(drawingOf(item)));
        QCOMPARE(dynamic_cast<ZTVecGraph &>(first()).getImagePath(), path);
        PlainItem none = itemOf(ShapeType::VecGraph);
        none.imagePath = folder.filePath(QStringLiteral("none.plt"));
        load(bytesOf(drawingOf(none)));
        QCOMPARE(manager->getShapeList().at(1)->getLines(),
                 manager->getShapeList().at(0)->getLines());
    }

    void cutAnywhere_loadsWhatIsThere_whateverTheDevice()
    {
        const PlainDrawing drawing = testsupport::randomDrawing(7, 6);
        const QByteArray bytes = bytesOf(drawing);
        for (int size = 16; size <= bytes.size(); size += 3) {
            const QByteArray expected = savedAfterLoading(bytes.left(size));
            for (const auto kind : {FailingDevice::Sequential, FailingDevice::RandomAccess}) {
                FailingDevice device(bytes, size, kind);
                QDataStream stream(&device);
                ZTVariantTextManager::release();
                ZTShapeManager loading(nullptr);
                QVERIFY(loading.load(stream));
                const QByteArray loaded = saved(loading);
                QVERIFY2(loaded == expected, QByteArray::number(size));
            }
        }
    }

    void everyByteChanged_isHarmless()
    {
        PlainDrawing drawing;
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Polygon, ShapeType::Text})
            drawing.items << itemOf(type);
        const QByteArray bytes = bytesOf(drawing);
        for (int at = 16; at < bytes.size(); ++at) {
            for (const int change : {0x01, 0x80, 0xFF}) {
                QByteArray damaged = bytes;
                damaged[at] = static_cast<char>(damaged[at] ^ change);
                ZTVariantTextManager::release();
                ZTShapeManager loading(nullptr);
                QDataStream stream(damaged);
                QVERIFY(loading.load(stream));
                QVERIFY(isFinite(loading.getShapeLines()));
            }
        }
    }

    void deviceGivingNoKinds_anywhere_endsTheDrawing()
    {
        // How a host cancels.
        PlainDrawing drawing = testsupport::randomDrawing(7, 6);
        drawing.items << itemOf(ShapeType::Text);
        QByteArray bytes = bytesOf(drawing);
        for (int size = 0; size < bytes.size(); ++size) {
            ZTVariantTextManager::release();
            ZTShapeManager loading(nullptr);
            CancelledBuffer device(&bytes, size);
            QDataStream stream(&device);
            QVERIFY(loading.load(stream));
            QVERIFY(loading.getShapeList().size() <= drawing.items.size());
            QVERIFY(isFinite(loading.getShapeLines()));
        }
    }

    void deviceGivingNoKinds_leavesWhatWasLoaded()
    {
        QByteArray bytes = bytesOf(testsupport::rectanglesDrawing(1000));
        CancelledBuffer device(&bytes, 16 + 10 * 231);
        QDataStream stream(&device);
        QVERIFY(manager->load(stream));
        QCOMPARE(manager->getShapeList().size(), 10);
        QCOMPARE(manager->itemModel()->rowCount(), 10);
    }

    void save_deviceFull_tellsByTheStatus()
    {
        load(bytesOf(testsupport::randomDrawing(7, 6)));
        const QByteArray whole = saved(*manager);
        for (int room = 0; room < whole.size(); room += 5) {
            FullDevice device(room);
            QDataStream stream(&device);
            manager->save(stream);
            QCOMPARE(stream.status(), QDataStream::WriteFailed);
            QVERIFY(whole.startsWith(device.bytes));
        }
    }

    void deviceThatRunsTheEventLoop_loadsAllTheSame()
    {
        class Busy : public QBuffer
        {
        public:
            using QBuffer::QBuffer;

        protected:
            qint64 readData(char *data, qint64 size) override
            {
                QApplication::processEvents();
                return QBuffer::readData(data, size);
            }
        };
        QByteArray bytes = bytesOf(testsupport::mixedDrawing(21));
        const QByteArray expected = savedAfterLoading(bytes);
        ZTVariantTextManager::release();
        QGraphicsView view(manager->scene());
        view.show();
        Busy device(&bytes);
        device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        QDataStream stream(&device);
        QVERIFY(manager->load(stream));
        QCOMPARE(saved(*manager), expected);
    }

private:
    static void addRow(const QByteArray &name, ShapeType type, const Change &change)
    {
        QTest::addRow("%s of %s", name.constData(), ShapeType2String(type)) << int(type) << change;
    }

    static void addTransformRows(ShapeType type, double value)
    {
        const QByteArray text = QByteArray::number(value);
        addRow("m11 " + text, type, [value](auto &item) {
            item.base.transform = QTransform(value, 0, 0, 0, 1, 0, 0, 0, 1);
        });
        addRow("dy " + text, type, [value](auto &item) {
            item.base.transform = QTransform(1, 0, 0, 0, 1, 0, 0, value, 1);
        });
        if (type == ShapeType::Line) // it looks at one transform only
            return;
        addRow("rounding m22 " + text, type, [value](auto &item) {
            item.base.roundingTransform = QTransform(1, 0, 0, 0, value, 0, 0, 0, 1);
        });
    }

    static void addNumberRows(double value)
    {
        const QByteArray text = QByteArray::number(value) + ' ';
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Ellipse, ShapeType::TDOT}) {
            addRow(text + "left", type, [value](auto &item) { item.base.rect.setLeft(value); });
            addRow(text + "width", type, [value](auto &item) { item.base.rect.setWidth(value); });
            addRow(text + "m33", type, [value](auto &item) {
                item.base.transform = QTransform(1, 0, 0, 0, 1, 0, 0, 0, value);
            });
            addRow(text + "m13", type, [value](auto &item) {
                item.base.transform = QTransform(1, 0, value, 0, 1, 0, 0, 0, 1);
            });
            addRow(text + "angle", type, [value](auto &item) { item.base.angle = value; });
            addRow(text + "spacing", type, [value](auto &item) { item.base.spac = value; });
        }
        for (const qint32 fontType : {0, 1}) {
            for (const bool isRound : {false, true})
                addTextRows(text + char('0' + fontType) + (isRound ? " round " : " "), value,
                            fontType, isRound);
        }
    }

    static void addTextRows(const QByteArray &name, double value, qint32 fontType, bool isRound)
    {
        using Field = double testsupport::PlainText::*;
        using Text = testsupport::PlainText;
        const QVector<QPair<const char *, Field>> fields = {
            {"word space", &Text::wordSpac},     {"row space", &Text::rowSpac},
            {"height", &Text::height},           {"start angle", &Text::startAngle},
            {"span angle", &Text::spanAngle},    {"diameter", &Text::diameter},
            {"item rotation", &Text::itemRotate}};
        for (const auto &field : fields) {
            const Field member = field.second;
            addRow(name + field.first, ShapeType::Text,
                   [member, value, fontType, isRound](auto &item) {
                       item.text->fontType = fontType;
                       item.text->isEnableRounding = isRound;
                       (*item.text).*member = value;
                   });
        }
        addRow(name + "left", ShapeType::Text, [value, fontType, isRound](auto &item) {
            item.text->fontType = fontType;
            item.text->isEnableRounding = isRound;
            item.base.rect.setTop(value);
        });
    }

    static void addIntegerRows(int value)
    {
        const QByteArray text = QByteArray::number(value) + ' ';
        addRow(text + "sides", ShapeType::Polygon, [value](auto &i) { i.sideCount = value; });
        addRow(text + "hatch", ShapeType::Rect, [value](auto &i) { i.base.fillType = value; });
        addRow(text + "shape type", ShapeType::Rect,
               [value](auto &i) { i.base.shapeType = value; });
        addRow(text + "id", ShapeType::Rect, [value](auto &i) { i.base.id = value; });
        addRow(text + "pen", ShapeType::Rect, [value](auto &i) { i.base.penId = value; });
        addRow(text + "font type", ShapeType::Text, [value](auto &i) { i.text->fontType = value; });
        addRow(text + "registry id", ShapeType::Text,
               [value](auto &i) { i.text->variantTextId = value; });
    }

    void load(const QByteArray &bytes)
    {
        QDataStream stream(bytes);
        QVERIFY(manager->load(stream));
        QVERIFY(stream.atEnd());
    }

    /** Loads the item of the present row, works with it, and saves and loads it once more. */
    void survive()
    {
        QFETCH(int, type);
        QFETCH(Change, change);
        PlainItem item = itemOf(static_cast<ShapeType>(type));
        change(item);
        const QByteArray bytes = bytesOf(drawingOf(item));
        load(bytes);
        QVERIFY(isFinite(manager->getShapeLines()));
        testsupport::useRoughly(*manager->scene());
        QVERIFY(isFinite(manager->getShapeLines()));
        const QByteArray again = saved(*manager);
        manager->clear();
        load(again);
        QVERIFY(isFinite(manager->getShapeLines()));
        manager->clear();
        load(bytes);
    }

    QPainterPath linesAfterLoad() { return first().getLines(); }

    ZTShapeBase &first() { return *manager->getShapeList().constLast(); }

    static QByteArray savedAfterLoading(const QByteArray &bytes)
    {
        ZTVariantTextManager::release();
        ZTShapeManager loading(nullptr);
        QDataStream stream(bytes);
        loading.load(stream);
        return saved(loading);
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTShapeManager> manager;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_ZTShapeManager_streamDamage test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShapeManager_streamDamage.moc"
