#pragma once

#include <ZTMarkDataManager/ZTVariantTextSegment.h>

#include <QtCore/QDateTime>

/**
 * Where in its file a text file segment stands, so that the next row needs no search from the
 * start. Good only while the file keeps its size and time. A hint: never part of a text's value.
 */
struct TextFileCursor
{
    qint64 fileSize = -1; ///< -1: nothing known yet
    QDateTime fileTime;
    quint64 row = 0;
    qint64 offset = 0; ///< byte at which `row` begins
};

/** What a text file segment shows. */
struct TextFileRow
{
    QString text;
    QString error;     ///< empty when the text is good
    quint64 nextRow;   ///< progress of the segment after this row was used
    bool last = false; ///< the rows had been used up before
};

/** The row that the segment shows next; the cursor is brought up to date. */
TextFileRow nextTextFileRow(const ZTTextFileSegment &segment, TextFileCursor &cursor);
