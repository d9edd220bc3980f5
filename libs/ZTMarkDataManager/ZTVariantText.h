#pragma once

#include <ZTMarkDataManager/ZTMarkDataManagerGlobal.h>
#include <ZTMarkDataManager/ZTVariantTextSegment.h>

#include <QtCore/QSharedDataPointer>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QDataStream;
class QDateTime;
QT_END_NAMESPACE

class ZTVariantTextPrivate;

/**
 * A text that changes from one marked part to the next: a running number, a date, a row of a list.
 *
 * It is a list of segments, their texts strung together. `update()` makes the text of the next
 * part and moves on whatever counts; `getText()` reads the present text as often as one likes:
 *
 *     ZTVariantText serial;
 *     ZTCounterSegment counter;
 *     counter.width = 4;
 *     serial.setSegments({ZTFixedTextSegment{QStringLiteral("SN-")}, counter});
 *     serial.getText(); // "SN-0001", for a preview
 *     serial.update();  // first part:  "SN-0001"
 *     serial.update();  // second part: "SN-0002"
 *
 * A value: copies are independent, and cheap until one of them changes. GUI thread only.
 */
class ZTMARKDATAMANAGER_EXPORT ZTVariantText
{
public:
    /** Limit: segments of one text, far above what anybody strings together. */
    static constexpr int kMaxSegments = 1000;

    /** An empty variant text: no segments, and every update gives an empty text. */
    ZTVariantText();
    ZTVariantText(const ZTVariantText &other);
    ZTVariantText &operator=(const ZTVariantText &other);
    virtual ~ZTVariantText();

    /**
     * Makes the next text, and moves on what counts.
     *
     * The first update shows the start values. All segments see the same moment. Text files are
     * read here.
     *
     * Failure: a segment that has nothing to show is empty, `errorText()` says why, and the other
     * segments go on.
     */
    void update();

    /**
     * The text that the last `update()` made.
     *
     * After `setSegments` and `restart`, until the next update: the text which that will make, as
     * far as can be told in advance. So a text shows something before its first part is marked.
     */
    QString getText() const;

    /** The segments with their progress. */
    QVector<ZTVariantTextSegment> getSegments() const;

    /**
     * Replaces the segments, progress included; the text shows what the next update will make.
     *
     * Failure: false, and nothing changes, for more than `kMaxSegments`.
     */
    bool setSegments(const QVector<ZTVariantTextSegment> &segments);

    /** Starts all over: counters at their start, files at their first row. */
    void restart();

    /**
     * The texts that the next `count` updates would make, without moving on.
     *
     * Limit: at most 10,000; fewer than 1 gives none. All of them show the present moment.
     */
    QStringList preview(int count) const;

    /**
     * Whether some segment is used up: the next update shows its last value once more. Ask before
     * marking a part that must have a number of its own.
     */
    bool isExhausted() const;

    /**
     * What went wrong when the text was made, a line for each segment concerned, for the operator;
     * empty when all went well. Not part of the value, not streamed.
     */
    QString errorText() const;

    /**
     * Reads what `save` wrote, in place of what was there.
     *
     * Text and progress come back as they were saved; files are not looked at until the next
     * update. Damaged content, and that of a later version, is skipped to its end, so that what
     * follows on the stream is read in step.
     *
     * Failure: false, an empty variant text, and the stream's status is not Ok.
     */
    virtual bool load(QDataStream &stream);

    /** Writes text, segments and progress; docs/formats/variant-text.md tells the bytes. */
    virtual void save(QDataStream &stream) const;

    /**
     * Sets where all variant texts of the process take their moment from; an empty function
     * stands for the system's clock. For tests and for hosts with a shift calendar.
     */
    static void setClock(const std::function<QDateTime()> &clock);

private:
    friend ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTVariantText &, const ZTVariantText &);

    QSharedDataPointer<ZTVariantTextPrivate> m_d;
};

/** Same segments, same progress, same present text. */
ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTVariantText &a, const ZTVariantText &b);
ZTMARKDATAMANAGER_EXPORT bool operator!=(const ZTVariantText &a, const ZTVariantText &b);

/** `save` and `load`. */
ZTMARKDATAMANAGER_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTVariantText &text);
ZTMARKDATAMANAGER_EXPORT QDataStream &operator>>(QDataStream &stream, ZTVariantText &text);
