#include <studio/shapes/PenColors.h>

#include <studio/program/Icons.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace studio {

namespace {

// The colours in which the items paint themselves.
constexpr const char *kColors[kPenCount] = {
    "black",   "blue",   "cyan",   "goldenrod", "navy",   "green",     "grey",   "khaki",
    "magenta", "orange", "orchid", "red",       "salmon", "turquoise", "yellow", "fuchsia"};

constexpr const char *kNames[kPenCount] = {
    QT_TRANSLATE_NOOP("studio::PenColors", "Black"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Blue"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Cyan"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Goldenrod"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Navy"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Green"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Grey"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Khaki"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Magenta"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Orange"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Orchid"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Red"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Salmon"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Turquoise"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Yellow"),
    QT_TRANSLATE_NOOP("studio::PenColors", "Fuchsia"),
};

constexpr int kSwatchSide = 32;

} // namespace

QColor penColor(int pen)
{
    const bool isKnown = pen >= 1 && pen <= kPenCount;
    return QColor(QLatin1String(kColors[isKnown ? pen - 1 : 0]));
}

QString penName(int pen)
{
    const bool isKnown = pen >= 1 && pen <= kPenCount;
    return isKnown ? QCoreApplication::translate("studio::PenColors", kNames[pen - 1]) : QString();
}

QIcon penSwatch(int pen)
{
    QPixmap pixmap(kSwatchSide, kSwatchSide);
    pixmap.fill(penColor(pen));
    QPainter painter(&pixmap);
    // An edge of its own: yellow on a white list, black on a dark one.
    painter.setPen(QPen(Qt::gray, 2));
    painter.drawRect(1, 1, kSwatchSide - 2, kSwatchSide - 2);
    return pictureIcon(pixmap);
}

} // namespace studio
