#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace vectorkit {

/** One step of a packed polyline. */
struct PackedStep
{
    enum class Kind : quint8 { Pen, Point };
    Kind kind = Kind::Point;
    int pen = 0;             ///< Pen alone
    bool isAbsolute = false; ///< Point alone, as are the rest
    bool isPenUp = false;
    double x = 0.0;
    double y = 0.0;
};

/** A packed polyline, unpacked. */
struct PackedLine
{
    QVector<PackedStep> steps;
    int rest = 0; ///< bytes at the end that were not unpacked: they have no place in it
    bool restIsCommand = false; ///< as it is where the semicolon is missing
    bool isRecoded = false;     ///< the bytes had been taken for letters and written as UTF-8
};

/** Unpacks the bytes between PE and its semicolon. */
PackedLine unpackedLine(const QByteArray &bytes);

} // namespace vectorkit
