#pragma once

#include <QtCore/QByteArray>

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

/** A file in memory with a path to it, for code that reads files only: no disk slows the fuzzer. */
class MemoryFile
{
public:
    MemoryFile() : file(memfd_create("fuzz", 0)) {}
    ~MemoryFile() { close(file); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    QByteArray path() const { return "/proc/self/fd/" + QByteArray::number(file); }

    /** Replaces the content. */
    void write(const void *data, std::size_t size)
    {
        const bool done =
            ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size);
        if (!done)
            std::abort();
    }

private:
    int file;
};
