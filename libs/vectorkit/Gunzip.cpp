#include <vectorkit/Gunzip_p.h>

#define ZLIB_CONST // it does not write where it reads
#include <zlib.h>

#include <algorithm>
#include <array>

namespace vectorkit {

namespace {

constexpr int kGzipOnly = 16; ///< zlib: no form but gzip
constexpr int kPiece = 64 * 1024;

/** zlib's state, which is given back at the end. */
class Inflation
{
public:
    explicit Inflation(const QByteArray &packed)
    {
        m_stream.next_in = reinterpret_cast<const Bytef *>(packed.constData()); // NOLINT
        m_stream.avail_in = static_cast<uInt>(packed.size());
        m_isReady = inflateInit2(&m_stream, MAX_WBITS + kGzipOnly) == Z_OK;
    }
    ~Inflation()
    {
        if (m_isReady)
            inflateEnd(&m_stream);
    }
    Inflation(const Inflation &) = delete;
    Inflation &operator=(const Inflation &) = delete;

    /** The next piece; what zlib answers. */
    int next(QByteArray *piece)
    {
        if (!m_isReady)
            return Z_MEM_ERROR;
        m_stream.next_out = m_room.data();
        m_stream.avail_out = static_cast<uInt>(m_room.size());
        const int answer = inflate(&m_stream, Z_NO_FLUSH);
        *piece = QByteArray(reinterpret_cast<const char *>(m_room.data()), // NOLINT
                            int(m_room.size() - m_stream.avail_out));
        return answer;
    }

    /** Goes on with the part behind the one that ended; false without one. */
    bool beginNext()
    {
        // Its first bytes alone: a file may be nothing but millions of empty parts.
        const int seen = int(std::min(m_stream.avail_in, uInt(2)));
        const auto *rest = reinterpret_cast<const char *>(m_stream.next_in); // NOLINT
        return isGzip(QByteArray::fromRawData(rest, seen)) && inflateReset(&m_stream) == Z_OK;
    }

private:
    z_stream m_stream{};
    std::array<Bytef, kPiece> m_room{};
    bool m_isReady = false;
};

} // namespace

bool isGzip(const QByteArray &bytes) { return bytes.startsWith("\x1F\x8B"); }

Unpacking gunzip(const QByteArray &packed, qint64 mostBytes, QByteArray *unpacked)
{
    Inflation inflation(packed);
    QByteArray bytes;
    for (;;) {
        QByteArray piece;
        const int answer = inflation.next(&piece);
        if (answer != Z_OK && answer != Z_STREAM_END)
            return Unpacking::Damaged; // cut off as well: zlib finds nothing to go on with
        if (piece.size() > mostBytes - bytes.size())
            return Unpacking::TooLarge;
        bytes += piece;
        // What pads the end is none of it, as gzip itself has it.
        if (answer == Z_STREAM_END && !inflation.beginNext())
            break;
    }
    *unpacked = bytes;
    return Unpacking::Done;
}

} // namespace vectorkit
