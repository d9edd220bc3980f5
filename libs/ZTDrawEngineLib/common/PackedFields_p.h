#pragma once

#include <QtCore/QDataStream>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QtEndian>
#include <QtGui/QTransform>

#include <algorithm>
#include <array>
#include <cstring>

/**
 * Fields of a record, put together as the stream would write them one by one, for one raw write.
 *
 * The bytes are the same and a device is asked once instead of once a field, which is several
 * times faster. Order: only for a stream that `suits`; no more than `Size` bytes.
 */
template <int Size>
class PackedFields
{
public:
    /** False where fields take another form, or would not be written at all. */
    static bool suits(const QDataStream &stream)
    {
        const bool hasDoubles = stream.version() < QDataStream::Qt_4_6 ||
                                stream.floatingPointPrecision() == QDataStream::DoublePrecision;
        return hasDoubles && stream.status() == QDataStream::Ok && stream.device() != nullptr;
    }

    explicit PackedFields(const QDataStream &stream)
        : m_isBigEndian(stream.byteOrder() == QDataStream::BigEndian)
    {
    }

    PackedFields &operator<<(quint8 value)
    {
        m_bytes[m_size++] = static_cast<char>(value);
        return *this;
    }

    PackedFields &operator<<(bool value) { return *this << static_cast<quint8>(value ? 1 : 0); }

    PackedFields &operator<<(qint32 value)
    {
        append(value);
        return *this;
    }

    PackedFields &operator<<(double value)
    {
        quint64 bits = 0;
        static_assert(sizeof bits == sizeof value, "a double has 64 bits");
        std::memcpy(&bits, &value, sizeof bits);
        append(bits);
        return *this;
    }

    PackedFields &operator<<(const QPointF &point) { return *this << point.x() << point.y(); }

    PackedFields &operator<<(const QRectF &rect)
    {
        return *this << rect.x() << rect.y() << rect.width() << rect.height();
    }

    PackedFields &operator<<(const QTransform &t)
    {
        return *this << t.m11() << t.m12() << t.m13() << t.m21() << t.m22() << t.m23() << t.m31()
                     << t.m32() << t.m33();
    }

    void writeTo(QDataStream &stream) const { stream.writeRawData(m_bytes, m_size); }

private:
    template <class Integer>
    void append(Integer value)
    {
        if (m_isBigEndian)
            qToBigEndian(value, m_bytes + m_size);
        else
            qToLittleEndian(value, m_bytes + m_size);
        m_size += static_cast<int>(sizeof value);
    }

    char m_bytes[Size];
    int m_size = 0;
    bool m_isBigEndian;
};

/**
 * Fields of a record, read in one go and handed out as the stream would read them one by one.
 *
 * As with a stream, a field that is not there whole, and all behind it, are 0, and the stream says
 * that it was read past its end. Order: only for a stream that `PackedFields::suits`; as many bytes
 * are taken from it as `Size` says.
 */
template <int Size>
class UnpackedFields
{
public:
    explicit UnpackedFields(QDataStream &stream)
        : m_isBigEndian(stream.byteOrder() == QDataStream::BigEndian)
    {
        m_size = std::max(0, stream.readRawData(m_bytes.data(), Size));
    }

    UnpackedFields &operator>>(bool &value)
    {
        value = take<quint8>() != 0;
        return *this;
    }

    UnpackedFields &operator>>(qint32 &value)
    {
        value = take<qint32>();
        return *this;
    }

    UnpackedFields &operator>>(double &value)
    {
        value = takeDouble();
        return *this;
    }

    UnpackedFields &operator>>(QRectF &rect)
    {
        const double x = takeDouble();
        const double y = takeDouble();
        const double width = takeDouble();
        const double height = takeDouble();
        rect.setRect(x, y, width, height);
        return *this;
    }

    UnpackedFields &operator>>(QTransform &transform)
    {
        std::array<double, 9> m{};
        for (double &number : m)
            number = takeDouble();
        transform.setMatrix(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
        return *this;
    }

private:
    double takeDouble()
    {
        const quint64 bits = take<quint64>();
        double value = 0.0;
        static_assert(sizeof bits == sizeof value, "a double has 64 bits");
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    template <class Integer>
    Integer take()
    {
        constexpr int kBytes = static_cast<int>(sizeof(Integer));
        if (m_size - m_next < kBytes) {
            m_next = m_size;
            return 0;
        }
        const char *const from = m_bytes.data() + m_next;
        m_next += kBytes;
        return m_isBigEndian ? qFromBigEndian<Integer>(from) : qFromLittleEndian<Integer>(from);
    }

    std::array<char, Size> m_bytes{};
    int m_size = 0;
    int m_next = 0;
    bool m_isBigEndian;
};
