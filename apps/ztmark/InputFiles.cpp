#include "InputFiles.h"

#include "Console.h"
#include "OpenedDrawing.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kPiece = 1024 * 1024;

QString tooLarge()
{
    return InputFiles::tr("larger than %1 MiB, the limit for a drawing")
        .arg(InputFiles::kMaxBytes / (1024 * 1024));
}

/** Empty when the file is open. */
QString openProblem(QFile &file, bool isStandardInput)
{
    if (isStandardInput) {
        if (file.open(stdin, QIODevice::ReadOnly))
            return {};
        return InputFiles::tr("cannot be read: %1").arg(file.errorString());
    }
    const QFileInfo info(file.fileName());
    if (!info.exists())
        return InputFiles::tr("no such file");
    if (info.isDir())
        return InputFiles::tr("is a folder");
    if (!file.open(QIODevice::ReadOnly))
        return InputFiles::tr("cannot be read: %1").arg(file.errorString());
    return {};
}

/** Reads a file, pipe or device to its end, or to where it is too much; why it cannot be read. */
QString readProblem(const std::string &name, QByteArray *bytes)
{
    if (name.empty())
        return InputFiles::tr("is no file name");
    QFile file(absolutePath(QString::fromStdString(name)));
    QString problem = openProblem(file, name == "-");
    if (!problem.isEmpty())
        return problem;
    if (!file.isSequential() && file.size() > InputFiles::kMaxBytes)
        return tooLarge();
    for (QByteArray piece = file.read(kPiece); !piece.isEmpty(); piece = file.read(kPiece)) {
        bytes->append(piece);
        if (bytes->size() > InputFiles::kMaxBytes)
            return tooLarge();
    }
    if (file.error() != QFileDevice::NoError)
        return InputFiles::tr("cannot be read: %1").arg(file.errorString());
    return bytes->isEmpty() ? InputFiles::tr("is empty") : QString();
}

} // namespace

QString absolutePath(const QString &name)
{
    return name.startsWith(QLatin1Char('/')) ? name : QDir::currentPath() + QLatin1Char('/') + name;
}

void InputFiles::addOption(CLI::App *command)
{
    command
        ->add_option("FILE", names,
                     tr("SVG, DXF and plotter drawings, - reads standard input; or one\n"
                        "drawing, .ztd")
                         .toStdString())
        ->required()
        ->type_name("");
}

void InputFiles::addSingle(CLI::App *command)
{
    const auto take = [this](const std::string &name) { names = {name}; };
    command
        ->add_option_function<std::string>(
            "FILE", take,
            tr("Drawing, .ztd, SVG, DXF or plotter drawing; - reads standard\ninput").toStdString())
        ->required()
        ->type_name("");
}

void InputFiles::checkTogether() const
{
    if (names.size() > 1 && std::any_of(names.begin(), names.end(), OpenedDrawing::isNamed))
        usage::refuse("FILE", tr("a drawing is taken alone, without other files"));
    if (std::count(names.begin(), names.end(), "-") > 1)
        usage::refuse("FILE", tr("standard input can be read only once"));
}

void InputFiles::readStandardInput(Progress &progress)
{
    if (std::count(names.begin(), names.end(), "-") == 0)
        return;
    progress.begin(tr("reading %1").arg(QStringLiteral("-")));
    m_standardInputProblem = readProblem("-", &m_standardInput);
}

bool InputFiles::isDrawing() const
{
    if (names.size() != 1)
        return false;
    return names.front() == "-" ? hostkit::hasDrawingMagic(m_standardInput)
                                : OpenedDrawing::isNamed(names.front());
}

bool InputFiles::read(const std::string &name, QByteArray *bytes) const
{
    QString problem = m_standardInputProblem;
    if (name == "-")
        *bytes = m_standardInput;
    else
        problem = readProblem(name, bytes);
    if (!problem.isEmpty())
        console::complain(name, problem);
    return problem.isEmpty();
}
