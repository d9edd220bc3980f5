#pragma once

#include <QtCore/QStringList>

namespace studio {

/** The drawings that were opened or saved last, the latest first, remembered in the settings. */
class RecentDrawings
{
public:
    static constexpr int kMost = 10;

    static QStringList paths();
    static void add(const QString &path);
    static void remove(const QString &path);
    static void clear();
};

} // namespace studio
