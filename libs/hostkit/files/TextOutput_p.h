#pragma once

#include <hostkit/files/NumberText.h>

#include <QtCore/QIODevice>

namespace hostkit {

/**
 * Writes all bytes, or as many as the device takes; the device knows why it took no more.
 *
 * Goes in pieces that fit a file's own buffer: where a larger write fails half way, Qt forgets the
 * system's reason.
 */
inline void writeAll(QIODevice &device, const QByteArray &bytes)
{
    constexpr qint64 piece = 8 * 1024;
    for (qint64 at = 0; at < bytes.size();) {
        const qint64 size = qMin(piece, bytes.size() - at);
        const qint64 taken = device.write(bytes.constData() + at, size);
        if (taken <= 0)
            return;
        at += taken;
    }
}

/** Gathers text on its way to a device and hands it over in pieces of some ten kilobytes. */
class TextOutput
{
public:
    explicit TextOutput(QIODevice &target) : m_device(target) { m_buffer.reserve(kPiece + kRoom); }
    ~TextOutput() { handOver(); }
    TextOutput(const TextOutput &) = delete;
    TextOutput &operator=(const TextOutput &) = delete;

    TextOutput &operator<<(const char *text)
    {
        m_buffer.append(text);
        return *this;
    }

    TextOutput &operator<<(int value)
    {
        appendWhole(m_buffer, value);
        return *this;
    }

    /** The shortest text that reads back as the same double. */
    TextOutput &operator<<(double value)
    {
        if (m_buffer.size() >= kPiece)
            handOver();
        appendShortest(m_buffer, value);
        return *this;
    }

private:
    static constexpr int kPiece = 64 * 1024;
    static constexpr int kRoom = 1024;

    void handOver()
    {
        writeAll(m_device, m_buffer);
        m_buffer.resize(0);
    }

    QIODevice &m_device;
    QByteArray m_buffer;
};

} // namespace hostkit
