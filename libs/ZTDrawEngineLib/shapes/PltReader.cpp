#include <ZTDrawEngineLib/shapes/PltReader.h>

#include <ZTDrawEngineLib/shapes/PltLine_p.h>
#include <ZTDrawEngineLib/shapes/ZTPltDrawing_p.h>

#include <QtCore/QDebug>
#include <QtCore/QFile>

#include <cstring>
#include <vector>

namespace {

constexpr std::size_t kChunkBytes = 256 * 1024;
constexpr std::size_t kMaxLineBytes = 64 * 1024 * 1024;

/** Room for a whole small file, or for a chunk of a large one or of one of unknown size. */
std::size_t firstRoom(const QIODevice &device)
{
    if (device.isSequential() || device.bytesAvailable() >= static_cast<qint64>(kChunkBytes))
        return kChunkBytes;
    return static_cast<std::size_t>(device.bytesAvailable()) + 1;
}

/** A device taken in chunks, each cut behind its last complete line. */
class LineChunks
{
public:
    explicit LineChunks(QIODevice &source) : m_device(source), m_buffer(firstRoom(source)) {}

    /** Makes the next lines available; false when there are none, or none that can be read. */
    bool next()
    {
        dropTaken();
        while (m_taken == 0 && !m_atEnd) {
            if (m_filled == m_buffer.size() && !grow())
                return false;
            if (!readMore())
                return false;
        }
        return m_taken > 0;
    }

    const char *begin() const { return m_buffer.data(); }
    const char *end() const { return m_buffer.data() + m_taken; }
    bool hasFailed() const { return m_failed; }

private:
    void dropTaken()
    {
        std::memmove(m_buffer.data(), m_buffer.data() + m_taken, m_filled - m_taken);
        m_filled -= m_taken;
        m_taken = 0;
    }

    bool grow()
    {
        m_failed = m_buffer.size() >= kMaxLineBytes;
        if (!m_failed)
            m_buffer.resize(m_buffer.size() * 2);
        return !m_failed;
    }

    /** Appends what one read gives. At the end of the device, its last line needs no line end. */
    bool readMore()
    {
        const qint64 count = m_device.read(m_buffer.data() + m_filled,
                                           static_cast<qint64>(m_buffer.size() - m_filled));
        if (count <= 0) {
            m_atEnd = true;
            m_failed = isReadError(count);
            m_taken = m_failed ? 0 : m_filled;
            return !m_failed;
        }
        const std::size_t unread = m_filled;
        m_filled += static_cast<std::size_t>(count);
        m_taken = endOfLastLine(unread);
        return true;
    }

    /** A sequential device also answers -1 when nothing is left; a file knows which it was. */
    bool isReadError(qint64 count) const
    {
        if (const auto *file = qobject_cast<const QFileDevice *>(&m_device))
            return file->error() != QFileDevice::NoError;
        return count < 0 && !m_device.isSequential();
    }

    std::size_t endOfLastLine(std::size_t from) const
    {
        std::size_t at = m_filled;
        while (at > from && m_buffer[at - 1] != '\n')
            --at;
        return at > from ? at : 0;
    }

    QIODevice &m_device;
    std::vector<char> m_buffer;
    std::size_t m_filled = 0; ///< bytes in the buffer
    std::size_t m_taken = 0;  ///< of these, bytes of complete lines
    bool m_atEnd = false;
    bool m_failed = false;
};

/** Follows all lines of the device; false when it cannot be read to its end. */
bool readDrawing(QIODevice &device, ZTPltDrawing &drawing)
{
    LineChunks chunks(device);
    PltLine line;
    while (chunks.next()) {
        for (const char *at = chunks.begin(); at != chunks.end();) {
            at = readPltLine(at, chunks.end(), line);
            if (!drawing.add(line))
                return false;
        }
    }
    return !chunks.hasFailed();
}

} // namespace

bool PltReader::load(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        qDebug().noquote() << "file open failed..." << file.errorString();
        return false;
    }
    return load(file);
}

bool PltReader::load(QIODevice &device)
{
    ZTPltDrawing drawing;
    if (!readDrawing(device, drawing) || drawing.isEmpty())
        return false;
    m_path = drawing.normalised();
    return true;
}

const QPainterPath &PltReader::getPath() const { return m_path; }

void PltReader::setPath(const QPainterPath &pathMm) { m_path = pathMm; }
