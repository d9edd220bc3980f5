#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVector>

class ZTAbstractGraphicsItem;

namespace hostkit {

/** A PNG of all items, lowest first, its longer side 256 pixels; empty for items without extent. */
QByteArray drawPreview(const QVector<ZTAbstractGraphicsItem *> &items);

} // namespace hostkit
