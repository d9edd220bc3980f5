#include "JobSource.h"

#include "Console.h"
#include "Progress.h"

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/MarkReadiness.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkOrder.h>
#include <hostkit/text/StrokeFont.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <QtCore/QFileInfo>

#include <algorithm>
#include <limits>

using hostkit::NextPart;
using jobkit::JobHatch;
using jobkit::JobItem;

namespace {

/** The field of an item's extras that tells how far its text was when its last part was marked. */
const QByteArray kMarkedLast = QByteArrayLiteral("marked.last");

/** The variant text that an item shows, or null. */
ZTVariantText *variantOf(const ZTAbstractGraphicsItem *item)
{
    const auto *text = dynamic_cast<const ZTTextShapeBase *>(item->getShapeBase());
    return text != nullptr ? text->getVarTxt() : nullptr;
}

/** How far each segment is, whatever day it is. */
struct Advance
{
    QByteArray operator()(const ZTFixedTextSegment &) const { return {}; }
    QByteArray operator()(const ZTDateTimeSegment &) const { return {}; }
    QByteArray operator()(const ZTCounterSegment &counter) const
    {
        return QByteArray::number(counter.updates) + ' ';
    }
    QByteArray operator()(const ZTTextFileSegment &rows) const
    {
        return QByteArray::number(rows.nextRow) + ' ';
    }
};

QByteArray progressOf(const ZTVariantText &text)
{
    QByteArray progress;
    for (const ZTVariantTextSegment &segment : text.getSegments())
        progress += std::visit(Advance(), segment);
    return progress;
}

/** Moves a text on to the next part; false where it has no value of its own for it. */
bool moveOn(const ZTAbstractGraphicsItem &item, ZTVariantText *text)
{
    for (int left = hostkit::itemExtras(item).valuesPerPart; left > 1; --left)
        text->update();
    const bool hasNext = !text->isExhausted();
    text->update();
    return hasNext;
}

/** Whether a text has no value for a further part. */
bool isAtEnd(const ZTAbstractGraphicsItem *item)
{
    const ZTVariantText *variant = variantOf(item);
    if (variant == nullptr)
        return false;
    ZTVariantText text = *variant;
    return !moveOn(*item, &text);
}

/** Whether its present part was marked as the last that there was. */
bool isMarkedLast(const ZTAbstractGraphicsItem *item)
{
    const ZTVariantText *text = variantOf(item);
    const QByteArray marked = hostkit::itemExtras(*item).fields.value(kMarkedLast);
    return text != nullptr && !marked.isEmpty() && marked == progressOf(*text);
}

bool isUsedUp(const ZTAbstractGraphicsItem *item) { return isMarkedLast(item) && isAtEnd(item); }

void setMarkedLast(ZTAbstractGraphicsItem *item, const QByteArray &progress)
{
    hostkit::ItemExtras extras = hostkit::itemExtras(*item);
    if (progress.isEmpty())
        extras.fields.remove(kMarkedLast);
    else
        extras.fields[kMarkedLast] = progress;
    hostkit::setItemExtras(*item, extras);
}

QVector<ZTAbstractGraphicsItem *> lowestFirst(const QVector<ZTAbstractGraphicsItem *> &items)
{
    return {items.rbegin(), items.rend()};
}

/** The order in which a graph's objects are marked, as indices. */
QVector<int> orderOf(ZTMarkGraph graph)
{
    for (int i = 0; i < graph.objects.size(); ++i)
        graph.objects[i].penId = i;
    hostkit::orderMarkGraph(&graph);
    QVector<int> order;
    for (const ZTMarkObject &object : qAsConst(graph.objects))
        order.append(object.penId);
    return order;
}

QString missingCharactersOf(const ZTAbstractGraphicsItem &item)
{
    const auto *text = dynamic_cast<const ZTShapeText *>(item.getShapeBase());
    if (text == nullptr)
        return {};
    const hostkit::MissingCharacters missing =
        hostkit::missingCharacters(text->text(), text->getFont());
    return (missing.noGlyph + missing.notEncoded).join(QString());
}

} // namespace

bool JobSource::open(const InputFiles &files, ForeignFiles &foreign,
                     const hostkit::MarkJobOptions &layout, Progress &progress)
{
    m_name = files.names.front();
    return files.isDrawing() ? openDrawing(files, progress)
                             : openForeign(files, foreign, layout, progress);
}

bool JobSource::openDrawing(const InputFiles &files, Progress &progress)
{
    if (!m_drawing.open(files, progress))
        return false;
    m_items = hostkit::markedItems(m_drawing.document);
    const NextPart part = NextPart::again(lowestFirst(m_items));
    m_present = part.texts;
    // The last part was marked, and more numbers were given to the texts since then.
    const bool isMarked = std::any_of(m_items.begin(), m_items.end(), isMarkedLast);
    if (isMarked && std::none_of(m_items.begin(), m_items.end(), isAtEnd))
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

bool JobSource::showPart(const QStringList &errors)
{
    for (const QString &error : errors)
        console::complain(m_name, error);
    return errors.isEmpty();
}

QVector<JobItem> JobSource::items()
{
    hostkit::MarkGraphBuilder builder(*m_drawing.document.itemMag(), m_items);
    builder.work(std::numeric_limits<int>::max());
    const ZTMarkGraph graph = builder.takeUnordered();
    const auto units = hostkit::MarkUnits::of(*m_drawing.document.itemMag());
    const QVector<JobItem> drawn = jobkit::itemsOf(graph, units);
    QVector<JobItem> ordered;
    for (const int index : orderOf(graph)) {
        JobItem item = drawn[index];
        const ZTAbstractGraphicsItem &shape = *m_items[index];
        item.object = ordered.size();
        item.name = hostkit::shapeName(shape);
        item.isSerialUsedUp = isUsedUp(&shape);
        item.missingCharacters = missingCharactersOf(shape);
        ordered.append(item);
    }
    if (m_isForeign)
        toMiddle(&ordered);
    return ordered;
}

bool JobSource::isReady() const
{
    bool isReady = true;
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const QString reason = hostkit::notReadyReason(*item);
        if (reason.isEmpty())
            continue;
        console::complain(m_name, tr("%1: %2").arg(hostkit::shapeName(*item), reason));
        isReady = false;
    }
    return isReady;
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

bool JobSource::lock(const InputFiles &files)
{
    if (files.names.front() == "-") {
        console::complain("-", tr("its numbers cannot be kept: give the drawing as a file"));
        return false;
    }
    // Past links, so that a drawing has one lock whatever it is called.
    const QString path = QFileInfo(QString::fromStdString(m_name)).canonicalFilePath();
    if (!QFileInfo(path).isWritable()) {
        console::complain(m_name, tr("its numbers cannot be kept: the file is read-only"));
        return false;
    }
    m_lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock())
        return true;
    console::complain(m_name, m_lock->error() == QLockFile::LockFailedError
                                  ? tr("another job takes numbers of it: try again afterwards")
                                  : tr("its numbers cannot be kept: its folder is read-only"));
    return false;
}

bool JobSource::hasEnough(int parts) const
{
    for (const ZTAbstractGraphicsItem *item : m_items) {
        const ZTVariantText *variant = variantOf(item);
        if (variant == nullptr)
            continue;
        if (isUsedUp(item)) {
            console::complain(m_name, tr("the serial number of \"%1\" is used up: %2 was the last")
                                          .arg(hostkit::shapeName(*item), variant->getText()));
            return false;
        }
        ZTVariantText text = *variant;
        for (int part = 1; part < parts; ++part) {
            if (moveOn(*item, &text))
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
    m_isUsedUp = std::any_of(m_items.begin(), m_items.end(), isAtEnd);
    for (ZTAbstractGraphicsItem *item : qAsConst(m_items)) {
        if (const ZTVariantText *text = variantOf(item))
            setMarkedLast(item, m_isUsedUp ? progressOf(*text) : QByteArray());
    }
    if (m_isUsedUp)
        return true;
    const NextPart part = NextPart::make(lowestFirst(m_items));
    m_present = part.texts;
    return showPart(part.errors);
}

bool JobSource::store(Progress &progress)
{
    progress.begin(tr("writing %1").arg(QString::fromStdString(m_name)));
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral(ZT_VERSION);
    hostkit::Failure error;
    const QString path = absolutePath(QString::fromStdString(m_name));
    if (saveDrawing(m_drawing.document, capture, path, &error))
        return true;
    progress.finish();
    console::complain(m_name, OpenedDrawing::describe(error));
    return false;
}
