#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace hostkit {

/** One item's record in a document stream. */
struct DrawingRecord
{
    ShapeType type = ShapeType::None;
    int begin = 0; ///< offset of the kind's byte
    int shape = 0; ///< offset of the shape's record
    int end = 0;   ///< offset behind the record
};

/** Where everything stands in a document stream. */
struct DrawingStreamIndex
{
    int counters = 0; ///< offset of the next id, behind the variant texts
    QVector<DrawingRecord> records;
};

/**
 * Walks a document stream, big-endian and of the version `kStreamVersion`, item by item without
 * building anything, so that the library's loader gets nothing but streams that are in step from
 * beginning to end. Numbers are not looked at.
 *
 * Limit: a text shows at most 1,000,000 characters.
 * Failure: false and, in `reason`, what does not fit and where.
 */
bool indexDrawingStream(const QByteArray &stream, DrawingStreamIndex *index, QString *reason);

/** The `QDataStream` version of the document stream in a drawing file. */
extern const int kStreamVersion;

/** Whether the stream leaves the shape's own settings out: polygons and imported drawings. */
inline bool isShortRecord(ShapeType type)
{
    return type == ShapeType::Polygon || type == ShapeType::VecGraph;
}

} // namespace hostkit
