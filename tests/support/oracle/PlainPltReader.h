#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QPainterPath>

namespace testsupport {

/** The plotter reader in its plain form: a `QString` a line, split at blanks. Slow and obvious. */
class PlainPltReader
{
public:
    /** False, and the former path stays, when the bytes are none or draw nothing. */
    bool load(const QByteArray &bytes);

    QPainterPath path;
};

} // namespace testsupport
