#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtEndian>

#include <cstring>

namespace hostkit {

/**
 * Reads big-endian values from bytes it borrows. Past the end everything is zero, and `ok` is false
 * from there on. Never reads, and never allocates, more than there is.
 */
class ByteReader
{
public:
    explicit ByteReader(const QByteArray &borrowed)
        : m_begin(borrowed.constData()), m_at(m_begin), m_end(m_begin + borrowed.size())
    {
    }

    bool ok() const { return m_isGood; }
    bool atEnd() const { return m_at == m_end; }
    int offset() const { return static_cast<int>(m_at - m_begin); }
    quint32 left() const { return static_cast<quint32>(m_end - m_at); }

    template <class Number>
    Number number()
    {
        const char *from = take(sizeof(Number));
        return from != nullptr ? qFromBigEndian<Number>(from) : Number(0);
    }

    quint8 byte() { return number<quint8>(); }

    double real()
    {
        const quint64 bits = number<quint64>();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    /** The bytes are borrowed. */
    QByteArray bytes(quint64 count)
    {
        const char *from = take(count);
        return from != nullptr ? QByteArray::fromRawData(from, static_cast<int>(count))
                               : QByteArray();
    }

    void skip(quint64 count) { take(count); }

private:
    const char *take(quint64 count)
    {
        if (!m_isGood || count > left()) {
            m_isGood = false;
            m_at = m_end;
            return nullptr;
        }
        const char *from = m_at;
        m_at += count;
        return from;
    }

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    bool m_isGood = true;
};

} // namespace hostkit
