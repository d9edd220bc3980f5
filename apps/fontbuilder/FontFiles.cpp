#include "FontFiles.h"

#include <common/Console.h>
#include <fontkit/FontReader.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <cstdio>

namespace fontfiles {

namespace {

constexpr int kLargestInput = 1 << 30; // Limit: sources are larger than fonts
constexpr int kPiece = 1 << 20;

QString nameOf(const std::string &path) { return QString::fromStdString(path); }

bool open(QFile &file, const std::string &path)
{
    if (path == "-")
        return file.open(stdin, QIODevice::ReadOnly);
    file.setFileName(nameOf(path));
    return file.open(QIODevice::ReadOnly);
}

/** All bytes, or so many that they are too many; memory for what is there only. */
QByteArray readAll(QFile &file)
{
    QByteArray bytes;
    while (bytes.size() < kLargestInput) {
        const QByteArray piece = file.read(kPiece);
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    return bytes;
}

bool writeToStdout(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    return console::finishOutput();
}

} // namespace

std::optional<QByteArray> read(const std::string &path)
{
    QFile file;
    QString problem;
    if (path != "-" && QFileInfo(nameOf(path)).isDir()) {
        problem = QStringLiteral("is a folder");
    } else if (!open(file, path)) {
        problem = file.errorString();
    } else {
        const QByteArray bytes = readAll(file);
        if (file.error() == QFileDevice::NoError && bytes.size() < kLargestInput)
            return bytes;
        problem = bytes.size() < kLargestInput ? file.errorString()
                                               : QStringLiteral("is larger than 1 GiB");
    }
    console::complain(path, problem);
    return std::nullopt;
}

std::optional<fontkit::FontFile> readFont(const std::string &path)
{
    const auto bytes = read(path);
    if (!bytes)
        return std::nullopt;
    QString error;
    auto font = fontkit::readFont(*bytes, &error);
    if (!font)
        console::complain(path, error);
    return font;
}

bool write(const std::string &path, const QByteArray &bytes)
{
    if (path == "-")
        return writeToStdout(bytes);
    QSaveFile file(nameOf(path));
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    console::complain(path, file.errorString());
    return false;
}

bool isSame(const std::string &input, const std::string &output)
{
    if (input == "-" || output == "-")
        return false;
    const QString inputFile = QFileInfo(nameOf(input)).canonicalFilePath();
    const bool same =
        !inputFile.isEmpty() && inputFile == QFileInfo(nameOf(output)).canonicalFilePath();
    if (same)
        console::complain(output, QStringLiteral("is the input, too"));
    return same;
}

} // namespace fontfiles
