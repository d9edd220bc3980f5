#pragma once

#include <hostkit/drawing/DrawingExtras.h>

#include <optional>

namespace hostkit {

/** The `QDataStream` version of the library's records in a drawing file. */
extern const int kStreamVersion;

/** The library's own kind behind the name of a factory; none for names of hosts. */
std::optional<ShapeType> libraryKind(const QByteArray &kind);

/** Whether a kind's record leaves the base settings out: all but five of the library's kinds. */
bool lacksBase(const QByteArray &kind);

/** Where the mark for a rebuild stands in a record with base settings; 4 bytes. */
constexpr int kUpdateOffset = 201;

/**
 * Walks the record that a shape of one of the library's kinds writes of itself, big-endian and of
 * the version `kStreamVersion`, without building anything, so that the library's loaders get
 * nothing but records that are in step from beginning to end. Numbers are not looked at.
 *
 * Limit: a text shows at most 1,000,000 characters.
 * Failure: false and, in `reason`, what does not fit and where.
 */
bool checkShapeRecord(ShapeType kind, const QByteArray &record, QString *reason);

/** The same for the registry of variant texts and the next id behind it. */
bool checkCounters(const QByteArray &counters, QString *reason);

/**
 * Takes the document stream of a drawing file of version 1 apart.
 *
 * Failure: false and, in `reason`, what does not fit and where.
 */
bool splitStream(const QByteArray &stream, QByteArray *counters, QVector<DrawingItem> *items,
                 QString *reason);

} // namespace hostkit
