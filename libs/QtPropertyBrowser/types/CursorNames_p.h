#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace rowtypes {

/** The cursor shapes that a row offers, in this order. */
QVector<Qt::CursorShape> cursorShapes();

/** What people call a shape; empty for one that is not offered. */
QString cursorName(Qt::CursorShape shape);

} // namespace rowtypes
