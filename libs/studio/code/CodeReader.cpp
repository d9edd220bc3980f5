#include <studio/code/CodeReader.h>

#include <studio/shapes/ShapeItems.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QThreadPool>

#include <limits>

namespace studio {

namespace {

constexpr int kStepMs = 12;      ///< of gathering between two looks at the user
constexpr int kMostWaiting = 64; ///< gathered and not read: each takes memory

/** Other shapes that are marked over the code or its quiet zone. */
ShapeItems neighboursOf(const QGraphicsScene &scene, const codekit::CodeItem &code)
{
    ShapeItems found;
    for (QGraphicsItem *candidate :
         scene.items(codekit::codeFieldPx(code), Qt::IntersectsItemBoundingRect)) {
        auto *item = dynamic_cast<ShapeItem *>(candidate);
        if (item != nullptr && item != &code && hostkit::isMarked(*item))
            found.append(item);
    }
    return found;
}

codekit::CodeScan scanOf(const ZTGraphicsDocument &document, codekit::CodeItem &code, double beamMm)
{
    hostkit::MarkGraphBuilder builder(document,
                                      ShapeItems{&code} + neighboursOf(*document.scene(), code));
    builder.work(std::numeric_limits<int>::max());
    codekit::CodeSurroundings around;
    around.others = builder.takeUnordered().objects;
    around.marks = around.others.takeFirst();
    around.units = hostkit::MarkUnits::of(*document.itemMag());
    around.beamMm = beamMm;
    return codekit::scanOf(code, around);
}

} // namespace

CodeReader::CodeReader(ZTGraphicsDocument &document, QObject *parent)
    : QObject(parent), m_document(document)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &CodeReader::work);
}

CodeReader::~CodeReader() { stop(); }

void CodeReader::start(double beamMm)
{
    stop();
    m_beamMm = beamMm;
    m_codes.clear();
    m_early.clear();
    m_next = m_done = 0;
    for (ShapeItem *item : shapeItemsOf(*m_document.scene())) {
        codekit::CodeItem *code = codekit::codeItem(item);
        if (code != nullptr && hostkit::isMarked(*code))
            m_codes.append(code);
    }
    m_shared = std::make_shared<Shared>();
    m_timer.start();
}

void CodeReader::stop()
{
    m_timer.stop();
    if (m_shared != nullptr)
        m_shared->isGivenUp = true;
}

void CodeReader::work()
{
    gather();
    report();
    if (m_done == m_codes.size()) {
        m_timer.stop();
        Q_EMIT finished();
        return;
    }
    // With nothing to gather there is no hurry to look what was read.
    constexpr int kLookMs = 10;
    const bool isFull = m_next == m_codes.size() || m_next - m_done >= kMostWaiting;
    m_timer.setInterval(isFull ? kLookMs : 0);
}

void CodeReader::gather()
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (m_next < m_codes.size() && m_next - m_done < kMostWaiting &&
           !sinceStart.hasExpired(kStepMs)) {
        const int number = m_next++;
        codekit::CodeItem *code = m_codes[number];
        if (code == nullptr || code->scene() != m_document.scene())
            continue; // deleted meanwhile
        const codekit::CodeScan scan = scanOf(m_document, *code, m_beamMm);
        QThreadPool::globalInstance()->start([shared = m_shared, scan, number] {
            const codekit::CodeReading reading = shared->isGivenUp
                                                     ? codekit::CodeReading()
                                                     : codekit::readScan(scan, &shared->isGivenUp);
            const QMutexLocker locker(&shared->mutex);
            shared->readings.insert(number, reading);
        });
    }
}

void CodeReader::report()
{
    {
        const QMutexLocker locker(&m_shared->mutex);
        for (auto reading = m_shared->readings.cbegin(); reading != m_shared->readings.cend();
             ++reading)
            m_early.insert(reading.key(), reading.value());
        m_shared->readings.clear();
    }
    while (m_done < m_next) {
        const int number = m_done;
        const codekit::CodeItem *code = m_codes[number];
        const bool isGone = code == nullptr || code->scene() != m_document.scene();
        if (!isGone && !m_early.contains(number))
            return;
        ++m_done;
        const codekit::CodeReading reading = m_early.take(number);
        if (!isGone)
            Q_EMIT read(number, reading);
    }
}

} // namespace studio
