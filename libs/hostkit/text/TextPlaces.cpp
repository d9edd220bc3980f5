#include <hostkit/text/TextPlaces.h>

namespace hostkit {

namespace {

const QLatin1String kDate("date");

/** Reads a typed text from its front to its end. */
class PlacesReader
{
public:
    PlacesReader(const QString &typedText, const ZTCounterSegment &counterOfPlaces)
        : typed(typedText), counter(counterOfPlaces)
    {
        typed.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        typed.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    }

    TextPlaces read()
    {
        while (at < typed.size()) {
            if (!takeEscape() && !takePlace())
                fixed.append(typed[at++]);
        }
        endFixed();
        return places;
    }

private:
    /** Takes a backslash that means something, and what it stands before. */
    bool takeEscape()
    {
        if (typed[at] != QLatin1Char('\\') || at + 1 == typed.size())
            return false;
        const QChar meant = typed[at + 1];
        if (meant == QLatin1Char('n'))
            fixed.append(QLatin1Char('\n'));
        else if (meant == QLatin1Char('\\') || meant == QLatin1Char('{'))
            fixed.append(meant);
        else
            return false;
        at += 2;
        return true;
    }

    bool takePlace()
    {
        const int end = typed.indexOf(QLatin1Char('}'), at);
        if (typed[at] != QLatin1Char('{') || end < 0 || !addPlace(typed.mid(at + 1, end - at - 1)))
            return false;
        at = end + 1;
        return true;
    }

    /** False for braces with anything else inside. */
    bool addPlace(const QString &name)
    {
        if (name.isEmpty() || name == QLatin1String("serial")) {
            endFixed();
            places.segments.append(counter);
            places.hasSerial = true;
            return true;
        }
        const bool hasFormat = name.startsWith(kDate + QLatin1Char(':'));
        if (name != kDate && !hasFormat)
            return false;
        endFixed();
        ZTDateTimeSegment date;
        if (hasFormat)
            date.format = name.mid(kDate.size() + 1);
        places.segments.append(date);
        return true;
    }

    void endFixed()
    {
        if (!fixed.isEmpty())
            places.segments.append(ZTFixedTextSegment{fixed});
        fixed.clear();
    }

    QString typed;
    ZTCounterSegment counter;
    int at = 0;
    QString fixed; ///< text since the last place
    TextPlaces places;
};

} // namespace

TextPlaces readTextPlaces(const QString &typed, const ZTCounterSegment &counter)
{
    return PlacesReader(typed, counter).read();
}

} // namespace hostkit
