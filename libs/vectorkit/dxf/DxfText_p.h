#pragma once

#include <QtCore/QStringList>

namespace vectorkit::dxf {

/** A line of text without its codes for signs and under- or overlining. */
QString plainLine(const QString &coded);

/** Lines of a paragraph text without its format codes; stacked fractions as 1/2. */
QStringList plainLines(const QString &coded);

} // namespace vectorkit::dxf
