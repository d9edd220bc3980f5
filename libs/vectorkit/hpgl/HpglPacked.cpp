#include <vectorkit/hpgl/HpglPacked_p.h>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

/** Walks over the bytes of a packed polyline. */
class Unpacker
{
public:
    explicit Unpacker(const QByteArray &packed) : m_bytes(packed) {}

    QVector<PackedStep> steps()
    {
        QVector<PackedStep> found;
        while (skipBlanks() && !m_damaged) {
            m_good = m_at;
            const char byte = m_bytes[m_at];
            if (byte == '7') {
                m_isSevenBit = true;
                ++m_at;
            } else if (byte == '<') {
                m_isPenUp = true;
                ++m_at;
            } else if (byte == '=') {
                m_isAbsolute = true;
                ++m_at;
            } else if (byte == ':' || byte == '>') {
                ++m_at;
                takeSetting(byte, &found);
            } else {
                takePoint(&found);
            }
        }
        return found;
    }

    bool isDamaged() const { return m_damaged; }

    /** Where the last step ended that is whole. */
    int goodEnd() const { return m_good; }

private:
    bool skipBlanks()
    {
        while (m_at < m_bytes.size() && static_cast<unsigned char>(m_bytes[m_at]) <= ' ')
            ++m_at;
        return m_at < m_bytes.size();
    }

    /** A whole number in digits of six bits, or five, the lowest first; its sign is its lowest bit.
     */
    double number()
    {
        const int base = m_isSevenBit ? 32 : 64;
        double value = 0.0;
        double weight = 1.0;
        bool isFirst = true;
        bool isNegative = false;
        while (skipBlanks()) {
            int digit = static_cast<unsigned char>(m_bytes[m_at]) - 63;
            const int lastFrom = m_isSevenBit ? 32 : 128;
            const bool isLast = digit >= lastFrom;
            digit -= isLast ? lastFrom : 0;
            if (digit < 0 || digit >= base || weight > 1e15)
                break;
            ++m_at;
            if (isFirst) {
                isNegative = digit % 2 != 0;
                const int half = digit / 2;
                value = half;
                weight = base / 2.0;
            } else {
                value += digit * weight;
                weight *= base;
            }
            isFirst = false;
            if (isLast)
                return isNegative ? -value : value;
        }
        m_damaged = true;
        return 0.0;
    }

    void takeSetting(char kind, QVector<PackedStep> *found)
    {
        const double value = number();
        const bool isSensible = std::abs(value) <= (kind == ':' ? 32767.0 : 26.0);
        m_damaged = m_damaged || !isSensible;
        if (m_damaged)
            return;
        if (kind == '>') {
            m_fraction = std::ldexp(1.0, -static_cast<int>(value));
            return;
        }
        PackedStep step;
        step.kind = PackedStep::Kind::Pen;
        step.pen = static_cast<int>(std::abs(value));
        found->append(step);
    }

    void takePoint(QVector<PackedStep> *found)
    {
        PackedStep step;
        step.x = number() * m_fraction;
        if (!m_damaged)
            step.y = number() * m_fraction;
        if (m_damaged)
            return;
        step.isAbsolute = m_isAbsolute;
        step.isPenUp = m_isPenUp;
        found->append(step);
        m_isAbsolute = false;
        m_isPenUp = false;
    }

    QByteArray m_bytes;
    int m_at = 0;
    int m_good = 0;
    bool m_isSevenBit = false;
    bool m_isAbsolute = false;
    bool m_isPenUp = false;
    bool m_damaged = false;
    double m_fraction = 1.0;
};

/**
 * The bytes as they were, when an editor or a transfer wrote them as UTF-8.
 *
 * Bytes of 128 to 190 have no place in a packed polyline, so there is nothing to confuse.
 */
QByteArray withoutUtf8(const QByteArray &bytes)
{
    const bool isStrange = std::any_of(bytes.begin(), bytes.end(), [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value >= 128 && value <= 190;
    });
    return isStrange ? QString::fromUtf8(bytes).toLatin1() : bytes;
}

} // namespace

PackedLine unpackedLine(const QByteArray &bytes)
{
    PackedLine line;
    const QByteArray packed = withoutUtf8(bytes);
    line.isRecoded = packed.size() != bytes.size();
    Unpacker unpacker(packed);
    line.steps = unpacker.steps();
    if (unpacker.isDamaged())
        line.rest = packed.size() - unpacker.goodEnd();
    const QByteArray rest = packed.right(line.rest);
    line.restIsCommand =
        rest.size() > 1 && rest[0] >= 'A' && rest[0] <= 'Z' && rest[1] >= 'A' && rest[1] <= 'Z';
    return line;
}

} // namespace vectorkit
