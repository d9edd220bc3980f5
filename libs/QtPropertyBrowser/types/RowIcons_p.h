#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QIcon>

/** Small pictures of values. Each is null without a `QApplication`. */
namespace rowtypes {

QIcon checkBoxIcon(bool checked);
QIcon colorIcon(const QColor &color);
QIcon fontIcon(const QFont &font);
QIcon cursorIcon(Qt::CursorShape shape);

} // namespace rowtypes
