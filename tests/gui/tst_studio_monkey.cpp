#include "Monkey.h"

#include <codekit/shape/CodeItem.h>

#include <QtCore/QDataStream>
#include <QtCore/QDebug>

#include <algorithm>
#include <atomic>
#include <ctime>

namespace {

/** Environment that asks for a longer run, or for the one that found something. */
constexpr const char *kStepsVariable = "ZT_MONKEY_STEPS";
constexpr const char *kSeedVariable = "ZT_MONKEY_SEED";
constexpr const char *kBurstVariable = "ZT_MONKEY_BURST"; ///< 1 finds the step that was at fault
constexpr const char *kSeenVariable = "ZT_MONKEY_SEEN";   ///< every how many seeds one is painted
constexpr int kSteps = 10000;
constexpr int kStepsOfASeed = 500;
constexpr int kBurst = 50;
constexpr int kSeen = 4;

int fromEnvironment(const char *name, int otherwise)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : otherwise;
}

std::atomic<clock_t> ticks{0};

/** What one shape is: the names of its parts, and the parts as bytes. */
using ShapeRecord = QVector<QPair<QString, QByteArray>>;

/** All that a drawing is, in the order of the shapes. */
struct WholeState
{
    QVector<ShapeRecord> shapes; ///< lowest first
    QByteArray mark;             ///< in marking order

    bool operator==(const WholeState &other) const
    {
        return shapes == other.shapes && mark == other.mark;
    }
    bool operator!=(const WholeState &other) const { return !(*this == other); }
};

/** Parts under names. */
class Record
{
public:
    template <class Value>
    void add(const char *name, const Value &value)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << value;
        parts.append({QString::fromLatin1(name), bytes});
    }

    ShapeRecord parts;
};

void addText(Record &record, const ZTGraphicsTextItem &text)
{
    const ZTRoundingParam arc = text.getRoundingParam();
    const ZTShxFontParam stroke = text.shxFont();
    record.add("fixed text", text.getFixedText());
    record.add("is variant", text.isEnableVariantText());
    record.add("font", text.font());
    record.add("font type", int(text.fontType()));
    record.add("regular font", stroke.enName);
    record.add("big font", stroke.zhName);
    record.add("stroke height", stroke.height);
    record.add("is on an arc", arc.isEnableRounding);
    record.add("start of the arc", arc.startAngle);
    record.add("span of the arc", arc.spanAngle);
    record.add("diameter of the arc", arc.diameter);
}

void addCode(Record &record, const codekit::CodeItem &code)
{
    record.add("code", codekit::codeSettingsToBytes(code.settings()));
    record.add("reads", code.code().symbol().reads);
    record.add("kind of the code", int(code.code().symbol().kind));
    record.add("modules", code.code().symbol().dark);
    record.add("is ready", code.code().notReadyReason().isEmpty());
}

/** Everything about one shape that anyone can ask for. */
ShapeRecord recordOf(studio::ShapeItem &item)
{
    ZTShapeBase &shape = *item.getShapeBase();
    const ZTFillParam fill = shape.getFillParam();
    Record record;
    record.add("kind", int(item.getShapeType()));
    record.add("id", shape.getId());
    record.add("place", item.pos());
    record.add("rectangle", shape.getRect());
    record.add("transform", shape.getTransformParam());
    record.add("transform on the arc", shape.getRoundingTransformParam());
    record.add("pen", shape.getPenId());
    record.add("lock", shape.getLockAspectRatio());
    record.add("hatch", int(fill.fillType));
    record.add("spacing", fill.spac);
    record.add("angle of the hatch", fill.angle);
    record.add("border", fill.isEnableBorder);
    record.add("words", item.text());
    for (int i = 0; i < item.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = item.metaObject()->property(i);
        const QVariant value = property.read(&item);
        if (value.type() == QVariant::Int || value.type() == QVariant::Double)
            record.add(property.name(), value);
    }
    if (const auto *text = qobject_cast<ZTGraphicsTextItem *>(&item))
        addText(record, *text);
    if (const codekit::CodeItem *code = codekit::codeItem(&item))
        addCode(record, *code);
    record.add("extras", hostkit::extrasToFields(hostkit::itemExtras(item)));
    record.add("outline", shape.getLines());
    if (fill.fillType != FillType::None)
        record.add("hatch lines", shape.getFillLines());
    return record.parts;
}

/** With the marks in one order, whatever was chosen: the choice is the program's, not undone. */
WholeState wholeStateOf(ZTGraphicsDocument &document)
{
    ZTPointSort &sort = *ZTPointSort::getInstance();
    const EShapeSortType chosen = sort.getShapeMarkSort();
    sort.setShapeMarkSort(EShapeSortType::ShapeSortNone);
    WholeState state;
    // Rebuilds every shape.
    state.mark = markBytes(document.itemMag()->getShapeLines());
    for (studio::ShapeItem *item : studio::shapeItemsOf(*document.scene()))
        state.shapes << recordOf(*item);
    sort.setShapeMarkSort(chosen);
    if (chosen != EShapeSortType::ShapeSortNone)
        document.itemMag()->getShapeLines();
    return state;
}

/** The bytes from where two parts differ. */
QString bytesOf(const QByteArray &part, const QByteArray &other)
{
    const auto same = std::mismatch(part.begin(), part.end(), other.begin(), other.end());
    const int at = int(same.first - part.begin());
    return QStringLiteral("%1 at %2")
        .arg(QString::fromLatin1(part.mid(at - at % 8, 16).toHex()))
        .arg(at);
}

/** Where two shapes differ. */
QString difference(const ShapeRecord &actual, const ShapeRecord &expected)
{
    QStringList parts;
    for (int i = 0; i < qMin(actual.size(), expected.size()); ++i) {
        if (actual[i] != expected[i])
            parts << QStringLiteral("%1 %2 instead of %3")
                         .arg(actual[i].first, bytesOf(actual[i].second, expected[i].second),
                              bytesOf(expected[i].second, actual[i].second));
    }
    return parts.join(QLatin1String(", "));
}

/** Where two states differ, for the one who looks for the reason. */
QString difference(const WholeState &actual, const WholeState &expected)
{
    if (actual.shapes.size() != expected.shapes.size())
        return QStringLiteral("%1 shapes instead of %2")
            .arg(actual.shapes.size())
            .arg(expected.shapes.size());
    for (int i = 0; i < actual.shapes.size(); ++i) {
        if (actual.shapes[i] != expected.shapes[i])
            return QStringLiteral("shape %1 of kind %2: ")
                       .arg(i)
                       .arg(int(actual.shapes[i].first().second[3])) +
                   difference(actual.shapes[i], expected.shapes[i]);
    }
    return actual.mark == expected.mark ? QString() : QStringLiteral("the mark data");
}

} // namespace

// The library takes the places of new shapes from the processor time. Here it counts the calls, so
// that a seed makes the same drawing each time.
extern "C" Q_DECL_EXPORT clock_t clock() noexcept { return ++ticks; }

/** The whole studio under a user who does anything. */
class tst_studio_monkey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { studio.reset(); }

    // Buttons of Qt's own fade in animations without an owner, which go by themselves at their end.
    void cleanupTestCase() { QTest::qWait(500); }

    void anythingDone_isUndone_redone_saved_andMarked_data()
    {
        QTest::addColumn<int>("seed");
        const int first = fromEnvironment(kSeedVariable, 1);
        const int seeds = qMax(1, fromEnvironment(kStepsVariable, kSteps) / kStepsOfASeed);
        for (int seed = first; seed < first + seeds; ++seed)
            QTest::addRow("seed %d", seed) << seed;
    }

    void anythingDone_isUndone_redone_saved_andMarked()
    {
        QFETCH(int, seed);
        ticks = seed;
        studio = std::make_unique<TextWindow>();
        monkey = std::make_unique<Monkey>(*studio, quint32(seed));
        // Painting takes three quarters of the time; most users work as well unseen.
        const int seen = fromEnvironment(kSeenVariable, kSeen);
        studio->window->setUpdatesEnabled(seed % qMax(1, seen) == 1 || seen <= 1);
        atStart = wholeStateOf(studio->document());
        const int burst = fromEnvironment(kBurstVariable, kBurst);
        for (int step = 1; step <= kStepsOfASeed; ++step) {
            monkey->step();
            QVERIFY2(frameHolds(), told(frameAsFound()));
            if (step % burst == 0)
                QVERIFY(drawingHolds());
        }
    }

    void anythingDoneToCodes_isUndone_redone_saved_andMarked_data()
    {
        QTest::addColumn<int>("seed");
        for (const int seed : {101, 102, 103})
            QTest::addRow("seed %d", seed) << seed;
    }

    void anythingDoneToCodes_isUndone_redone_saved_andMarked()
    {
        constexpr int kCodeSteps = 100;
        constexpr int kCodeBurst = 25;
        QFETCH(int, seed);
        ticks = seed;
        studio = std::make_unique<TextWindow>();
        monkey = std::make_unique<Monkey>(*studio, quint32(seed));
        atStart = wholeStateOf(studio->document());
        for (int step = 1; step <= kCodeSteps; ++step) {
            monkey->codeStep();
            QVERIFY2(frameHolds(), told(frameAsFound()));
            if (step % kCodeBurst == 0)
                QVERIFY(drawingHolds());
        }
    }

private:
    const char *told(const QString &what)
    {
        text = (what + QStringLiteral(" after: ") + monkey->story()).toLocal8Bit();
        return text.constData();
    }

    /** Of texts without words there is nothing that a frame could stand around. */
    bool frameHolds()
    {
        return studio->document().scene()->getSelectionItemRect().isNull() || studio->frameFits();
    }

    QString frameAsFound()
    {
        const ZTGraphicsResizeItem *frame = studio->document().scene()->getGraphicsResizeItem();
        QString words;
        QDebug(&words) << qSetRealNumberPrecision(16) << "the frame"
                       << frame->rect().translated(frame->pos()) << "instead of"
                       << studio->document().scene()->getSelectionItemRect() << "around";
        for (const studio::ShapeItem *item :
             studio::selectedShapeItems(*studio->document().scene()))
            QDebug(&words) << qSetRealNumberPrecision(16) << int(item->getShapeType())
                           << studio::sceneBox(*item);
        return words;
    }

    bool drawingHolds()
    {
        monkey->settle();
        const bool isFine = undoAndRedoAreExact() && screenAndMarksAgree() && noOneComplained() &&
                            (monkey->upTo(3) != 0 || savedAndLoadedIsTheSame());
        monkey->forgetStory();
        return isFine;
    }

    bool undoAndRedoAreExact()
    {
        const WholeState before = wholeStateOf(studio->document());
        const int steps = studio->stack().index();
        while (studio->stack().canUndo())
            studio->edit().undo();
        const WholeState undone = wholeStateOf(studio->document());
        while (studio->stack().index() < steps)
            studio->edit().redo();
        const WholeState redone = wholeStateOf(studio->document());
        if (undone != atStart)
            return isFinding(QStringLiteral("undone: ") + difference(undone, atStart));
        if (redone != before)
            return isFinding(QStringLiteral("redone: ") + difference(redone, before));
        return true;
    }

    /** The box around the outline that an item draws, from its place; null without one. */
    static QRectF drawnBox(const studio::ShapeItem &item)
    {
        QRectF boxPx;
        if (!item.getFillParam().isEnableBorder)
            return boxPx;
        // A pen that moves on without drawing leaves no mark.
        const QList<QPolygonF> drawn = item.getShapeBase()->getLines().toSubpathPolygons();
        for (const QPolygonF &polygon : drawn)
            boxPx |= polygon.boundingRect();
        return boxPx;
    }

    /** Every shape is in the list once and in the mark data once, in its place. */
    bool screenAndMarksAgree()
    {
        const studio::ShapeItems items = studio::shapeItemsOf(*studio->document().scene());
        const QAbstractItemModel &rows = *studio->document().itemMag()->itemModel();
        const ZTMarkGraph graph = studio->document().itemMag()->getShapeLines();
        if (rows.rowCount() != items.size())
            return isFinding(QStringLiteral("%1 rows").arg(rows.rowCount()));
        QRectF boxPx;
        int marked = 0;
        for (const studio::ShapeItem *item : items) {
            ++marked;
            const QRectF itemPx = drawnBox(*item);
            if (!itemPx.isNull())
                boxPx |= itemPx.translated(item->pos());
        }
        QRectF markedBox;
        for (const ZTMarkObject &object : graph.objects) {
            for (const auto &line : object.lines)
                markedBox |= line.boundingRect();
        }
        const auto [scaleX, scaleY] = studio->document().itemMag()->getScale();
        const QRectF expected(boxPx.x() * scaleX, boxPx.y() * scaleY, boxPx.width() * scaleX,
                              boxPx.height() * scaleY);
        const double off = (markedBox.topLeft() - expected.topLeft()).manhattanLength() +
                           (markedBox.bottomRight() - expected.bottomRight()).manhattanLength();
        if (graph.objects.size() != marked)
            return isFinding(QStringLiteral("%1 objects of %2 shapes marked")
                                 .arg(graph.objects.size())
                                 .arg(marked));
        return off < 1e-3 * (1.0 + expected.width()) ||
               isFinding(QStringLiteral("the marks stand at %1, %2, %3 x %4 instead of %5, %6, "
                                        "%7 x %8")
                             .arg(markedBox.x())
                             .arg(markedBox.y())
                             .arg(markedBox.width())
                             .arg(markedBox.height())
                             .arg(expected.x())
                             .arg(expected.y())
                             .arg(expected.width())
                             .arg(expected.height()));
    }

    bool noOneComplained()
    {
        const QStringList warnings = studio->takeWarnings();
        if (!warnings.isEmpty())
            return isFinding(QStringLiteral("said: ") + warnings.join(QLatin1String("; ")));
        if (!studio->messages->failures.isEmpty())
            return isFinding(QStringLiteral("failed: ") + complaints());
        studio->messages->warnings.clear();
        return true;
    }

    QString complaints() const
    {
        QStringList words;
        for (const studio::Message &message : qAsConst(studio->messages->failures))
            words << message.what;
        return words.join(QLatin1String("; "));
    }

    bool savedAndLoadedIsTheSame()
    {
        const QString path = studio->path("monkey.ztd");
        const WholeState before = wholeStateOf(studio->document());
        studio::DrawingFiles &files = studio->window->editor().files();
        if (!files.saveTo(path) || !files.load(path))
            return isFinding(QStringLiteral("not saved or not loaded: ") + complaints());
        const WholeState loaded = wholeStateOf(studio->document());
        if (loaded != before)
            return isFinding(QStringLiteral("loaded: ") + difference(loaded, before));
        atStart = loaded;
        return true;
    }

    bool isFinding(const QString &what)
    {
        qWarning("%s", told(what));
        return false;
    }

    std::unique_ptr<TextWindow> studio;
    std::unique_ptr<Monkey> monkey;
    WholeState atStart; ///< at the first undo step
    QByteArray text;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_monkey>(argc, argv); }
#include "tst_studio_monkey.moc"
