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
    explicit LineChunks(QIODevice &source) : device(source), buffer(firstRoom(source)) {}

    /** Makes the next lines available; false when there are none, or none that can be read. */
    bool next()
    {
        dropTaken();
        while (taken == 0 && !atEnd) {
            if (filled == buffer.size() && !grow())
                return false;
            if (!readMore())
                return false;
        }
        return taken > 0;
    }

    const char *begin() const { return buffer.data(); }
    const char *end() const { return buffer.data() + taken; }
    bool hasFailed() const { return failed; }

private:
    void dropTaken()
    {
        std::memmove(buffer.data(), buffer.data() + taken, filled - taken);
        filled -= taken;
        taken = 0;
    }

    bool grow()
    {
        failed = buffer.size() >= kMaxLineBytes;
        if (!failed)
            buffer.resize(buffer.size() * 2);
        return !failed;
    }

    /** Appends what one read gives. At the end of the device, its last line needs no line end. */
    bool readMore()
    {
        const qint64 count =
            device.read(buffer.data() + filled, static_cast<qint64>(buffer.size() - filled));
        if (count <= 0) {
            atEnd = true;
            failed = isReadError(count);
            taken = failed ? 0 : filled;
            return !failed;
        }
        const std::size_t unread = filled;
        filled += static_cast<std::size_t>(count);
        taken = endOfLastLine(unread);
        return true;
    }

    /** A sequential device also answers -1 when nothing is left; a file knows which it was. */
    bool isReadError(qint64 count) const
    {
        if (const auto *file = qobject_cast<const QFileDevice *>(&device))
            return file->error() != QFileDevice::NoError;
        return count < 0 && !device.isSequential();
    }

    std::size_t endOfLastLine(std::size_t from) const
    {
        std::size_t at = filled;
        while (at > from && buffer[at - 1] != '\n')
            --at;
        return at > from ? at : 0;
    }

    QIODevice &device;
    std::vector<char> buffer;
    std::size_t filled = 0; ///< bytes in the buffer
    std::size_t taken = 0;  ///< of these, bytes of complete lines
    bool atEnd = false;
    bool failed = false;
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
    path = drawing.normalised();
    return true;
}

const QPainterPath &PltReader::getPath() const { return path; }

void PltReader::setPath(const QPainterPath &pathMm) { path = pathMm; }
