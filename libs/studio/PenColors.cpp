#include <studio/PenColors.h>

#include <QtCore/QString>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace studio {

namespace {

// The colours in which the items paint themselves.
constexpr const char *kColors[kPenCount] = {
    "black",   "blue",   "cyan",   "goldenrod", "navy",   "green",     "grey",   "khaki",
    "magenta", "orange", "orchid", "red",       "salmon", "turquoise", "yellow", "fuchsia"};

constexpr int kSwatchSide = 32;

} // namespace

QColor penColor(int pen)
{
    const bool isKnown = pen >= 1 && pen <= kPenCount;
    return QColor(QLatin1String(kColors[isKnown ? pen - 1 : 0]));
}

QIcon penSwatch(int pen)
{
    QPixmap pixmap(kSwatchSide, kSwatchSide);
    pixmap.fill(penColor(pen));
    QPainter painter(&pixmap);
    // An edge of its own: yellow on a white list, black on a dark one.
    painter.setPen(QPen(Qt::gray, 2));
    painter.drawRect(1, 1, kSwatchSide - 2, kSwatchSide - 2);
    return pixmap;
}

} // namespace studio
