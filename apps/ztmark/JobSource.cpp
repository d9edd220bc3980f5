#include "JobSource.h"

#include "Console.h"
#include "Progress.h"

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/ExportDirection.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/MarkReadiness.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkOrder.h>
#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <limits>
#include <utility>

using hostkit::NextPart;
using jobkit::JobHatch;
using jobkit::JobItem;
using jobkit::NumberLock;

namespace {

constexpr int kLockWaitMs = 5000; ///< most jobs are done by then

QVector<ZTAbstractGraphicsItem *> lowestFirst(const QVector<ZTAbstractGraphicsItem *> &items)
{
    return {items.rbegin(), items.rend()};
}

/** What a file looks like, to notice that another program wrote it. */
std::pair<qint64, QDateTime> stampOf(const std::string &name)
{
    const QFileInfo info(absolutePath(QString::fromStdString(name)));
    return {info.size(), info.lastModified()};
}

bool anyOf(const QVector<ZTAbstractGraphicsItem *> &items,
           bool (*holds)(const ZTAbstractGraphicsItem &))
{
    return std::any_of(items.begin(), items.end(),
                       [holds](const ZTAbstractGraphicsItem *item) { return holds(*item); });
}

} // namespace

bool JobSource::open(const InputFiles &files, ForeignFiles &foreign,
                     const hostkit::MarkJobOptions &layout, Progress &progress)
{
    m_name = files.names.front();
    m_readAs = stampOf(m_name);
    return files.isDrawing() ? openDrawing(files, progress)
                             : openForeign(files, foreign, layout, progress);
}

bool JobSource::openDrawing(const InputFiles &files, Progress &progress)
{
    if (!m_drawing.open(files, progress))
        return false;
    m_items = hostkit::markedItems(m_drawing.document);
    m_stored = jobkit::partProgress(hostkit::shapeItemsOf(m_drawing.document));
    const NextPart part = NextPart::again(lowestFirst(m_items));
    m_present = part.texts;
    // The last part was marked, and more numbers were given to the texts since then.
    const bool isMarked = anyOf(m_items, hostkit::isLastPartMarked);
    if (isMarked && !anyOf(m_items, hostkit::isAtLastPart))
        return next();
    return showPart(part.errors);
}

bool JobSource::openForeign(const InputFiles &files, ForeignFiles &foreign,
                            const hostkit::MarkJobOptions &layout, Progress &progress)
{
    m_isForeign = true;
    // The scale of a manager is a float, too coarse for what is written to the last digit.
    m_drawing.document.itemMag()->setScale(1.0F, 1.0F);
    m_isWhole = foreign.import(files, layout, m_drawing.document, progress);
    m_items = foreign.items;
    return !m_items.isEmpty();
}

std::vector<std::string> JobSource::textFiles() const
{
    return m_isForeign ? std::vector<std::string>() : m_drawing.textFiles();
}

bool JobSource::showPart(const QStringList &errors)
{
    for (const QString &error : errors)
        console::complain(m_name, error);
    return errors.isEmpty();
}

QVector<jobkit::Pen> JobSource::pens() const
{
    QString error;
    const QVector<jobkit::Pen> given = jobkit::givenPens(m_drawing.document, &error);
    if (!error.isEmpty())
        console::complain(m_name, tr("warning: its pens cannot be read: %1").arg(error));
    return given;
}

bool JobSource::isYUp() const { return !m_isForeign && hostkit::exportsYUp(m_drawing.document); }

QVector<JobItem> JobSource::items()
{
    hostkit::MarkGraphBuilder builder(*m_drawing.document.itemMag(), m_items);
    builder.work(std::numeric_limits<int>::max());
    const ZTMarkGraph graph = builder.takeUnordered();
    const auto units = hostkit::MarkUnits::of(*m_drawing.document.itemMag());
    const QVector<JobItem> drawn = jobkit::itemsOf(graph, units, builder.layers());
    QVector<JobItem> ordered;
    for (const int index : hostkit::markOrder(graph)) {
        JobItem item = drawn[index];
        const ZTAbstractGraphicsItem &shape = *m_items[index];
        item.object = ordered.size();
        item.name = hostkit::shapeName(shape);
        jobkit::describeShape(shape, &item);
        ordered.append(item);
    }
    if (m_isForeign)
        toMiddle(&ordered);
    return ordered;
}

bool JobSource::isReady(bool marksAsShown) const
{
    bool isReady = true;
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const QString reason = hostkit::notReadyReason(*item);
        if (reason.isEmpty())
            continue;
        const QString told = tr("%1: %2").arg(hostkit::shapeName(*item), reason);
        console::complain(m_name, marksAsShown ? tr("warning: %1").arg(told) : told);
        isReady = false;
    }
    return isReady || marksAsShown;
}

/** Puts what has no place of its own into the middle of the field. */
void JobSource::toMiddle(QVector<JobItem> *items) const
{
    const QPointF middle = jobkit::planOf(*items, {}).boundsMm().center();
    for (JobItem &item : *items) {
        for (QPolygonF &outline : item.outlinesMm)
            outline.translate(-middle);
        for (JobHatch &hatch : item.hatches) {
            for (QPolygonF &run : hatch.runsMm)
                run.translate(-middle);
        }
    }
}

void JobSource::lockBeforehand(const InputFiles &files, Progress &progress)
{
    if (!files.isDrawing() || files.names.front() == "-")
        return;
    m_lock =
        std::make_unique<NumberLock>(absolutePath(QString::fromStdString(files.names.front())));
    m_lockResult = m_lock->take();
    if (m_lockResult != NumberLock::Result::Busy)
        return;
    progress.begin(tr("waiting for another job"));
    m_lockResult = m_lock->take(kLockWaitMs);
}

void JobSource::unlock() { m_lock.reset(); }

bool JobSource::isLocked(const InputFiles &files) const
{
    if (files.names.front() == "-") {
        console::complain("-", tr("its numbers cannot be kept: give the drawing as a file"));
        return false;
    }
    const QString path = absolutePath(QString::fromStdString(m_name));
    if (!QFileInfo(path).isWritable()) {
        console::complain(m_name, tr("its numbers cannot be kept: the file is read-only"));
        return false;
    }
    switch (m_lockResult) {
    case NumberLock::Result::Taken:
        return true;
    case NumberLock::Result::Busy:
        console::complain(m_name, tr("another job takes numbers of it, as \"%1\" says: try again "
                                     "afterwards")
                                      .arg(m_lock->fileName()));
        return false;
    default:
        console::complain(m_name, tr("its numbers cannot be kept: its folder is read-only"));
        return false;
    }
}

bool JobSource::passInterrupted()
{
    const QString path = absolutePath(QString::fromStdString(m_name));
    hostkit::Failure failure;
    m_journal = jobkit::readJournal(path, &failure);
    if (failure.kind != hostkit::Failure::Kind::None) {
        console::complain(m_name, QStringLiteral("%1. %2").arg(failure.reason, failure.advice));
        return false;
    }
    if (!m_journal || m_journal->after == m_stored)
        return true;
    const QString numbers = m_journal->parts == 1
                                ? m_journal->first
                                : tr("%1 to %2").arg(m_journal->first, m_journal->last);
    if (m_journal->before != m_stored) {
        console::complain(m_name, tr("warning: a job that was interrupted took %1; the numbers of "
                                     "the drawing were changed since")
                                      .arg(numbers));
        return true;
    }
    console::complain(m_name, tr("warning: a job that was interrupted took %1; they are passed "
                                 "over, for its files may have been run")
                                  .arg(numbers));
    for (; m_passed < m_journal->parts && !m_isUsedUp; ++m_passed) {
        if (!next())
            return false;
    }
    return true;
}

bool JobSource::noteTaken(int parts, const QString &first, const QString &last)
{
    const bool goesOn = m_passed > 0;
    const jobkit::NumberJournal journal{
        m_stored, {}, m_passed + parts, goesOn ? m_journal->first : first, last};
    hostkit::Failure failure;
    if (writeJournal(absolutePath(QString::fromStdString(m_name)), journal, &failure))
        return true;
    console::complain(m_name, tr("its numbers cannot be kept: %1").arg(failure.reason));
    return false;
}

void JobSource::forgetTaken()
{
    const QString path = absolutePath(QString::fromStdString(m_name));
    hostkit::Failure ignored;
    // The interrupted job before this one still counts.
    if (m_passed == 0 || !writeJournal(path, *m_journal, &ignored))
        jobkit::removeJournal(path);
}

bool JobSource::hasEnough(int parts) const
{
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const ZTVariantText *variant = hostkit::variantTextOf(*item);
        if (variant == nullptr)
            continue;
        if (hostkit::isUsedUp(*item)) {
            console::complain(m_name, tr("the serial number of \"%1\" is used up: %2 was the last")
                                          .arg(hostkit::shapeName(*item), variant->getText()));
            return false;
        }
        ZTVariantText text = *variant;
        for (int part = 1; part < parts; ++part) {
            if (hostkit::moveToNextPart(*item, &text))
                continue;
            console::complain(
                m_name, tr("the serial number ends after part %1 of %2").arg(part).arg(parts));
            return false;
        }
    }
    return true;
}

/** Where a text has no further value, all stay with the last part, and say that it was marked. */
bool JobSource::next()
{
    m_isUsedUp = anyOf(m_items, hostkit::isAtLastPart);
    for (ZTAbstractGraphicsItem *item : qAsConst(m_items)) {
        if (hostkit::variantTextOf(*item) != nullptr)
            hostkit::setLastPartMarked(*item, m_isUsedUp);
    }
    if (m_isUsedUp)
        return true;
    const NextPart part = NextPart::make(lowestFirst(m_items));
    m_present = part.texts;
    return showPart(part.errors);
}

/** What somebody saved meanwhile is not lost for the numbers: their note stays, and speaks for
 * them. */
bool JobSource::store(Progress &progress)
{
    const QString path = absolutePath(QString::fromStdString(m_name));
    if (stampOf(m_name) != m_readAs) {
        progress.finish();
        console::complain(m_name,
                          tr("warning: another program changed it meanwhile; its next numbers "
                             "stand in \"%1\", and the next job goes on after them")
                              .arg(QFileInfo(jobkit::journalPath(path)).fileName()));
        return true;
    }
    progress.begin(tr("writing %1").arg(QString::fromStdString(m_name)));
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral(ZT_VERSION);
    hostkit::Failure error;
    if (saveDrawing(m_drawing.document, capture, path, &error)) {
        jobkit::removeJournal(path);
        return true;
    }
    progress.finish();
    console::complain(m_name, OpenedDrawing::describe(error));
    return false;
}
