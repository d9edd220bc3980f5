#include "FontFiles.h"

#include <common/Console.h>
#include <fontkit/FontReader.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <cstdio>

namespace fontfiles {

namespace {

constexpr qint64 kLargestInput = 1 << 30; // Limit: sources are larger than fonts
constexpr qint64 kPiece = 1 << 20;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FontFiles)
};

QString nameOf(const std::string &path) { return QString::fromStdString(path); }

bool open(QFile &file, const std::string &path)
{
    if (path == "-")
        return file.open(stdin, QIODevice::ReadOnly);
    file.setFileName(nameOf(path));
    return file.open(QIODevice::ReadOnly);
}

/** What there is, and no memory for more; a pipe does not tell its size. */
QByteArray readPieces(QFile &file)
{
    QByteArray bytes;
    while (bytes.size() < kLargestInput) {
        const QByteArray piece = file.read(kPiece);
        if (piece.isEmpty())
            break;
        bytes.append(piece);
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
        problem = Texts::tr("is a folder");
    } else if (!open(file, path)) {
        problem = file.errorString();
    } else {
        const QByteArray bytes = readPieces(file);
        if (file.error() == QFileDevice::NoError && bytes.size() < kLargestInput)
            return bytes;
        problem =
            bytes.size() < kLargestInput ? file.errorString() : Texts::tr("is larger than 1 GiB");
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
        console::complain(output, Texts::tr("is the input, too"));
    return same;
}

} // namespace fontfiles
