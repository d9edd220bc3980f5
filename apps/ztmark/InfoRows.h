#pragma once

#include "Console.h"

#include <hostkit/files/NumberText.h>

/** How `ztmark info` tells what it finds. */
namespace inforows {

/** A number with at most three places behind the point. */
inline QString rounded(double value)
{
    QByteArray text;
    hostkit::appendRounded(text, value, 3);
    return QString::fromLatin1(text);
}

inline void printRow(const QString &name, const QString &value)
{
    constexpr int kLabelWidth = 18;
    console::printRow(name, value, kLabelWidth);
}

} // namespace inforows
