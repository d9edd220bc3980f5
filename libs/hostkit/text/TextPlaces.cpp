#include <hostkit/text/TextPlaces.h>

namespace hostkit {

namespace {

const QLatin1String kDate("date");

/** Reads a typed text from its front to its end. */
class PlacesReader
{
public:
    PlacesReader(const QString &typedText, const ZTCounterSegment &counterOfPlaces)
        : m_typed(typedText), m_counter(counterOfPlaces)
    {
        m_typed.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        m_typed.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    }

    TextPlaces read()
    {
        while (m_at < m_typed.size()) {
            if (!takeEscape() && !takePlace())
                m_fixed.append(m_typed[m_at++]);
        }
        endFixed();
        return m_places;
    }

private:
    /** Takes a backslash that means something, and what it stands before. */
    bool takeEscape()
    {
        if (m_typed[m_at] != QLatin1Char('\\') || m_at + 1 == m_typed.size())
            return false;
        const QChar meant = m_typed[m_at + 1];
        if (meant == QLatin1Char('n'))
            m_fixed.append(QLatin1Char('\n'));
        else if (meant == QLatin1Char('\\') || meant == QLatin1Char('{'))
            m_fixed.append(meant);
        else
            return false;
        m_at += 2;
        return true;
    }

    bool takePlace()
    {
        const int end = m_typed.indexOf(QLatin1Char('}'), m_at);
        if (m_typed[m_at] != QLatin1Char('{') || end < 0 ||
            !addPlace(m_typed.mid(m_at + 1, end - m_at - 1)))
            return false;
        m_at = end + 1;
        return true;
    }

    /** False for braces with anything else inside. */
    bool addPlace(const QString &name)
    {
        if (name.isEmpty() || name == QLatin1String("serial")) {
            endFixed();
            m_places.segments.append(m_counter);
            m_places.hasSerial = true;
            return true;
        }
        const bool hasFormat = name.startsWith(kDate + QLatin1Char(':'));
        if (name != kDate && !hasFormat)
            return false;
        endFixed();
        ZTDateTimeSegment date;
        if (hasFormat)
            date.format = name.mid(kDate.size() + 1);
        m_places.segments.append(date);
        return true;
    }

    void endFixed()
    {
        if (!m_fixed.isEmpty())
            m_places.segments.append(ZTFixedTextSegment{m_fixed});
        m_fixed.clear();
    }

    QString m_typed;
    ZTCounterSegment m_counter;
    int m_at = 0;
    QString m_fixed; ///< text since the last place
    TextPlaces m_places;
};

} // namespace

TextPlaces readTextPlaces(const QString &typed, const ZTCounterSegment &counter)
{
    return PlacesReader(typed, counter).read();
}

} // namespace hostkit
