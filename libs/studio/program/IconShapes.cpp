#include <studio/program/IconShapes_p.h>

#include <QtCore/QStringList>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace studio {

namespace {

constexpr IconShape kShapes[] = {
    {"align-bottom", "M 3 21 L 21 21", "R 5 6 5 13 R 14 11 5 8"},
    {"align-center", "M 12 2 L 12 22 M 2 12 L 22 12", "R 6 8 12 8"},
    {"align-hcenter", "M 12 2 L 12 22", "R 5 5 14 5 R 8 14 8 5"},
    {"align-left", "M 3 3 L 3 21", "R 5 5 14 5 R 5 14 8 5"},
    {"align-right", "M 21 3 L 21 21", "R 5 5 14 5 R 11 14 8 5"},
    {"align-top", "M 3 3 L 21 3", "R 5 5 5 14 R 14 5 5 9"},
    {"align-vcenter", "M 2 12 L 22 12", "R 5 5 5 14 R 14 8 5 8"},
    {"barcode", "",
     "R 3 4 2 16 R 6 4 1 16 R 8.5 4 2.5 16 R 12.5 4 1 16 R 15 4 1 16 R 17.5 4 2.5 16 R 21 4 1 16"},
    {"centre-field", "R 2.5 2.5 19 19 M 12 4 L 12 7 M 12 17 L 12 20 M 4 12 L 7 12 M 17 12 L 20 12",
     "R 8.5 8.5 7 7"},
    {"circle", "E 4 4 16 16", "E 10 1.5 5 5 E 18 10 5 5 E 10 18 5 5 E 1.5 10 5 5"},
    {"code", "M 3 3 L 3 21 L 21 21",
     "R 6 5 3 3 R 12 5 3 3 R 18 5 3 3 R 9 8 3 3 R 15 11 6 3 R 6 11 3 3 R 6 14 3 3 R 12 14 3 3"},
    {"code-settings", "M 2 3 L 2 15 L 14 15 M 15 13 L 22 13 M 15 17 L 22 17 M 15 21 L 22 21",
     "R 4 4 3 3 R 10 4 3 3 R 7 7 3 3 R 4 10 3 3 E 16 11.5 3 3 E 19 15.5 3 3 E 15.5 19.5 3 3"},
    {"copy", "R 8 8 13 13 M 5 16 L 3 16 L 3 3 L 16 3 L 16 5", ""},
    {"cut", "M 7 16 L 18 3 M 17 16 L 6 3 E 3 16 5 5 E 16 16 5 5", ""},
    {"delete",
     "M 4 6 L 20 6 M 9 6 L 9 3 L 15 3 L 15 6 M 6 6 L 7 21 L 17 21 L 18 6 M 10 10 L 10.4 17 "
     "M 14 10 L 13.6 17",
     ""},
    {"curve", "M 4 20 C 4 8 20 16 20 4", "E 2 18 4 4 E 18 2 4 4"},
    {"duplicate", "R 3 3 12 12", "R 9 9 12 12"},
    {"ellipse", "E 2.5 5.5 19 13", ""},
    {"export", "M 4 14 L 4 21 L 20 21 L 20 14 M 12 16 L 12 3 M 7 8 L 12 3 L 17 8", ""},
    {"fit", "M 3 8 L 3 3 L 8 3 M 16 3 L 21 3 L 21 8 M 21 16 L 21 21 L 16 21 M 8 21 L 3 21 L 3 16",
     "R 8 8 8 8"},
    {"gaps-across", "M 8 3 L 8 21 M 16 3 L 16 21", "R 2.5 7 4 10 R 9.5 7 5 10 R 17.5 7 4 10"},
    {"gaps-down", "M 3 8 L 21 8 M 3 16 L 21 16", "R 7 2.5 10 4 R 7 9.5 10 5 R 7 17.5 10 4"},
    {"group", "R 2.5 2.5 19 19", "R 6 6 6 6 R 12 12 6 6"},
    {"polyline", "M 3 19 L 9 6 L 15 17 L 21 5", "E 1.5 17.5 3.5 3.5 E 19.2 3.2 3.5 3.5"},
    {"order-first", "M 4 3.5 L 20 3.5 M 12 21 L 12 7 M 6 13 L 12 7 L 18 13", ""},
    {"order-raise", "M 12 20 L 12 5 M 6 11 L 12 5 L 18 11", ""},
    {"order-lower", "M 12 4 L 12 19 M 6 13 L 12 19 L 18 13", ""},
    {"order-last", "M 4 20.5 L 20 20.5 M 12 3 L 12 17 M 6 11 L 12 17 L 18 11", ""},
    {"order-reverse", "M 7 20 L 7 4 M 3 8 L 7 4 L 11 8 M 17 4 L 17 20 M 13 16 L 17 20 L 21 16", ""},
    {"home", "M 12 3 L 12 21 M 3 12 L 21 12 E 7 7 10 10", "E 10.5 10.5 3 3"},
    {"import", "M 4 14 L 4 21 L 20 21 L 20 14 M 12 3 L 12 16 M 7 11 L 12 16 L 17 11", ""},
    {"line", "M 4 20 L 20 4", "E 2 18 4 4 E 18 2 4 4"},
    {"matrix", "R 3 3 7 7 R 14 3 7 7 R 3 14 7 7 R 14 14 7 7", "R 4 4 5 5"},
    {"measure", "M 3 16 L 16 3 L 21 8 L 8 21 Z M 7 12 L 9 14 M 10 9 L 13 12 M 13 6 L 15 8", ""},
    {"mirror-horizontal", "M 12 2 L 12 22 M 10 6 L 10 18 L 3 18 Z", "M 14 6 L 14 18 L 21 18 Z"},
    {"mirror-vertical", "M 2 12 L 22 12 M 6 10 L 18 10 L 18 3 Z", "M 6 14 L 18 14 L 18 21 Z"},
    {"new", "M 6 2.5 L 14 2.5 L 19 7.5 L 19 21.5 L 6 21.5 Z M 14 2.5 L 14 7.5 L 19 7.5", ""},
    {"nodes", "M 4 19 L 11 5 L 20 15", "R 2 17 4 4 R 9 3 4 4 R 18 13 4 4"},
    {"open",
     "M 2.5 20 L 2.5 4 L 9 4 L 11 7 L 20 7 L 20 10.5 M 2.5 20 L 6 10.5 L 23 10.5 L 19.5 20 Z", ""},
    {"next-part", "M 3 4 L 9 4 M 3 9 L 9 9 M 3 14 L 9 14 M 3 19 L 9 19 M 12 12 L 21 12",
     "M 16 6 L 22 12 L 16 18 Z"},
    {"paste", "M 8 4 L 4 4 L 4 21 L 20 21 L 20 4 L 16 4 R 8 2.5 8 4 M 8 11 L 16 11 M 8 15 L 16 15",
     ""},
    {"polygon", "M 12 3 L 21 9.6 L 17.6 20.3 L 6.4 20.3 L 3 9.6 Z", ""},
    {"preview", "E 3 3 18 18", "M 10 8 L 17 12 L 10 16 Z"},
    {"rectangle", "R 3 5.5 18 13", ""},
    {"redo", "M 20 9 L 9 9 C 5 9 3 12 3 14.5 C 3 17 5 20 9 20 L 15 20 M 15 4 L 20 9 L 15 14", ""},
    {"rotate", "M 16 4 L 4 20 L 21 20 M 14.5 20 C 14.5 16 13 14 10.5 12", "E 2 18 4 4"},
    {"rotate-left", "M 4 5 L 4 10 L 9 10 M 4 10 C 6 3 20 3 20 12 C 20 20 11 22 6 18", ""},
    {"rotate-right", "M 20 5 L 20 10 L 15 10 M 20 10 C 18 3 4 3 4 12 C 4 20 13 22 18 18", ""},
    {"save", "M 3 3 L 17 3 L 21 7 L 21 21 L 3 21 Z M 7 3 L 7 8.5 L 15 8.5 L 15 3", "R 7 13 10 8"},
    {"select", "M 6 2 L 6 18 L 10 14.5 L 13 21 L 15.5 20 L 12.5 13.5 L 18 13 Z", ""},
    {"spread-across", "M 4 3 L 4 21 M 12 3 L 12 21 M 20 3 L 20 21",
     "R 2.5 7 3 10 R 9.5 9 5 6 R 18.5 7 3 10"},
    {"spread-down", "M 3 4 L 21 4 M 3 12 L 21 12 M 3 20 L 21 20",
     "R 7 2.5 10 3 R 9 9.5 6 5 R 7 18.5 10 3"},
    {"tdot", "E 3 3 18 18",
     "E 5.5 5.5 4 4 E 14.5 5.5 4 4 E 5.5 14.5 4 4 E 14.5 14.5 4 4 "
     "E 9.5 9.5 5 5"},
    {"text", "M 4 7 L 4 4 L 20 4 L 20 7 M 12 4 L 12 20 M 9 20 L 15 20", ""},
    {"text-settings",
     "M 2 6 L 2 4 L 14 4 L 14 6 M 8 4 L 8 19 M 6 19 L 10 19 M 15 11 L 22 11 M 15 15 L 22 15 M 15 "
     "19 L 22 19",
     "E 16 9.5 3 3 E 19 13.5 3 3 E 15.5 17.5 3 3"},
    {"undo", "M 4 9 L 15 9 C 19 9 21 12 21 14.5 C 21 17 19 20 15 20 L 9 20 M 9 4 L 4 9 L 9 14", ""},
    {"verify-codes", "M 2 3 L 2 15 L 14 15 M 11 18 L 15 22 L 22 12",
     "R 4 4 3 3 R 10 4 3 3 R 7 7 3 3 R 4 10 3 3"},
    {"ungroup", "M 2.5 8 L 2.5 2.5 L 8 2.5 M 21.5 16 L 21.5 21.5 L 16 21.5",
     "R 6 6 6 6 R 12 12 6 6"},
    {"zoom-in", "E 3 3 13 13 M 14.5 14.5 L 21 21 M 6.5 9.5 L 12.5 9.5 M 9.5 6.5 L 9.5 12.5", ""},
    {"zoom-out", "E 3 3 13 13 M 14.5 14.5 L 21 21 M 6.5 9.5 L 12.5 9.5", ""},
};

/** Reads the numbers of a command, one after the other. */
class Words
{
public:
    explicit Words(const char *commands)
        : m_words(QString::fromLatin1(commands).split(QLatin1Char(' '), Qt::SkipEmptyParts))
    {
    }

    bool atEnd() const { return m_next >= m_words.size(); }
    char command() { return m_words.at(m_next++).at(0).toLatin1(); }
    double number() { return m_words.at(m_next++).toDouble(); }

    QPointF point()
    {
        const double x = number();
        return {x, number()};
    }

    QRectF rect()
    {
        const QPointF topLeft = point();
        const QPointF size = point();
        return {topLeft, QSizeF(size.x(), size.y())};
    }

private:
    QStringList m_words;
    int m_next = 0;
};

} // namespace

const IconShape *findIconShape(const char *name)
{
    const auto *found =
        std::find_if(std::begin(kShapes), std::end(kShapes),
                     [&](const auto &shape) { return std::strcmp(shape.name, name) == 0; });
    return found != std::end(kShapes) ? found : nullptr;
}

QPainterPath iconPath(const char *commands)
{
    QPainterPath path;
    Words words(commands);
    while (!words.atEnd()) {
        switch (words.command()) {
        case 'M':
            path.moveTo(words.point());
            break;
        case 'L':
            path.lineTo(words.point());
            break;
        case 'C': {
            const QPointF first = words.point();
            const QPointF second = words.point();
            path.cubicTo(first, second, words.point());
            break;
        }
        case 'R':
            path.addRect(words.rect());
            break;
        case 'E':
            path.addEllipse(words.rect());
            break;
        default:
            path.closeSubpath();
            break;
        }
    }
    return path;
}

} // namespace studio
