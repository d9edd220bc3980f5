#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QTransform>

namespace vectorkit {

/** Reads numbers and signs off the text of an attribute. The text has to outlive it. */
class SvgScan
{
public:
    explicit SvgScan(const QByteArray &text)
        : m_begin(text.constData()), m_at(m_begin), m_last(m_begin + text.size())
    {
    }

    bool atEnd() const { return m_at == m_last; }
    char peek() const { return m_at == m_last ? '\0' : *m_at; }
    void step() { ++m_at; }
    int position() const { return int(m_at - m_begin); }

    void skipSpaces();

    /** Spaces with at most one comma between them. */
    void skipSeparator();

    /** A finite number; false, and the place stays, when there is none. */
    bool number(double *value);

    /** One digit, 0 or 1: the flags of an arc stand without anything between them. */
    bool flag(bool *value);

    /** Letters from here, as far as they go. */
    QByteArray word();

private:
    const char *m_begin;
    const char *m_at;
    const char *m_last;
};

/** What a length is counted in. */
enum class SvgUnit : quint8 { None, Px, Percent, Em, Ex, Mm, Cm, In, Pt, Pc, Q };

struct SvgLength
{
    double value = 0.0;
    SvgUnit unit = SvgUnit::None;

    /** Whether the unit is one of the world: mm, cm, in, pt, pc, Q. */
    bool isAbsolute() const { return unit >= SvgUnit::Mm; }

    /** Millimetres of an absolute length. */
    double toMm() const;

    /**
     * User units, where a pixel is one of them and `pixelsPerInch` make an inch.
     *
     * `whole` is what a percentage counts from, `fontSize` what em and ex do.
     */
    double toUser(double pixelsPerInch, double whole, double fontSize) const;
};

/** A number with a unit and nothing behind it; false when the text is none. */
bool parseSvgLength(const QString &text, SvgLength *length);

/** A list of transforms, first one outermost; false, and `transform` stays, when it is none. */
bool parseSvgTransform(const QString &text, QTransform *transform);

/** Numbers until the text ends or stops being numbers, which `isWhole` tells if it is wanted. */
QVector<double> parseSvgNumbers(const QString &text, bool *isWhole = nullptr);

} // namespace vectorkit
