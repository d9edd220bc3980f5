#pragma once

#include <QtCore/QStringList>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;

namespace testsupport {

/**
 * Every field of an item and of its shape, of whatever kind, as "name: value", numbers to the last
 * bit: what comes back from a file, a copy or an undo is compared as a whole. A new field of a
 * shape or an item is added here, and what loses it fails.
 */
QStringList stateOf(const ZTAbstractGraphicsItem &item);

/** The same of all items, lowest first, and of the registry of variant texts and the next id. */
QStringList stateOf(const ZTGraphicsDocument &document);

/** The first line in which two states differ, both sides named; empty where they are equal. */
QString difference(const QStringList &actual, const QStringList &expected);

} // namespace testsupport
