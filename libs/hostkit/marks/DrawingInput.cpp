#include <hostkit/marks/DrawingInput.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <cstdio>

namespace hostkit {

namespace {

constexpr int kPiece = 1024 * 1024;
constexpr int kBinaryProbe = 4096;

/** Qt takes names that begin with ':' for built-in resources; an absolute one is always a file. */
QString absolutePath(const QString &name)
{
    return name.startsWith(QLatin1Char('/')) ? name : QDir::currentPath() + QLatin1Char('/') + name;
}

bool openDevice(QFile &file, bool standardInput, Failure *failure)
{
    if (standardInput)
        return file.open(stdin, QIODevice::ReadOnly) ||
               fail(failure, Failure::Kind::CannotRead,
                    DrawingInput::tr("cannot be read: %1").arg(file.errorString()));
    const QFileInfo info(file.fileName());
    if (!info.exists())
        return fail(failure, Failure::Kind::CannotRead, DrawingInput::tr("no such file"));
    if (info.isDir())
        return fail(failure, Failure::Kind::CannotRead, DrawingInput::tr("is a folder"));
    if (!file.open(QIODevice::ReadOnly))
        return fail(failure, Failure::Kind::CannotRead,
                    DrawingInput::tr("cannot be read: %1").arg(file.errorString()));
    return true;
}

bool isBinary(const QByteArray &bytes) { return bytes.left(kBinaryProbe).contains('\0'); }

QString tooLarge()
{
    return DrawingInput::tr("larger than %1 MiB, the limit for a drawing")
        .arg(DrawingInput::kMaxBytes / (1024 * 1024));
}

QString binary() { return DrawingInput::tr("holds binary data, not a plotter drawing"); }

/** Why a drawing that was read shows nothing, with the first line that may be to blame. */
QString nothingToDraw(const PltReport &report)
{
    QString reason = DrawingInput::tr("nothing to draw: all points lie at one height");
    if (report.points == 0)
        reason = DrawingInput::tr("no plotter drawing: not one PU or PD line with a point");
    else if (report.polylines == 0)
        reason = DrawingInput::tr("nothing to draw: no PD line leads from one point to another");
    if (!report.problems.isEmpty())
        reason += QStringLiteral(" (%1)").arg(DrawingInput::describe(report.problems.first()));
    return reason;
}

} // namespace

DrawingInput::DrawingInput() = default;
DrawingInput::~DrawingInput() = default;

QString DrawingInput::describe(const PltProblem &problem)
{
    return tr("line %1: %2").arg(problem.line).arg(problem.text);
}

bool DrawingInput::open(const QString &name, Failure *failure)
{
    if (name.isEmpty())
        return fail(failure, Failure::Kind::CannotRead, tr("is no file name"));
    QByteArray bytes;
    if (!readAll(name, &bytes, failure))
        return false;
    if (bytes.isEmpty())
        return fail(failure, Failure::Kind::OtherFormat, tr("is empty"));
    if (isBinary(bytes))
        return fail(failure, Failure::Kind::OtherFormat, binary());
    m_contents = PltCheck::inspect(bytes);
    const bool onlyOnce = name == QLatin1String("-") || !QFileInfo(m_path).isFile();
    if (onlyOnce && !keepCopy(bytes, failure))
        return false;
    PltReader reader;
    if (m_contents.points == 0 || !reader.load(m_path) || reader.getPath().isEmpty())
        return fail(failure, Failure::Kind::OtherFormat, nothingToDraw(m_contents));
    m_size = reader.getPath().controlPointRect().size();
    return true;
}

/** Reads in pieces and stops at the first sign that the rest is not worth reading. */
bool DrawingInput::readAll(const QString &name, QByteArray *bytes, Failure *failure)
{
    const bool standardInput = name == QLatin1String("-");
    m_path = absolutePath(name);
    QFile file(m_path);
    if (!openDevice(file, standardInput, failure))
        return false;
    if (!file.isSequential() && file.size() > kMaxBytes)
        return fail(failure, Failure::Kind::CannotRead, tooLarge());
    while (true) {
        const QByteArray piece = file.read(kPiece);
        if (piece.isEmpty())
            break;
        bytes->append(piece);
        if (isBinary(*bytes))
            return fail(failure, Failure::Kind::OtherFormat, binary());
        if (bytes->size() > kMaxBytes)
            return fail(failure, Failure::Kind::CannotRead, tooLarge());
    }
    if (file.error() != QFileDevice::NoError)
        return fail(failure, Failure::Kind::CannotRead,
                    tr("cannot be read: %1").arg(file.errorString()));
    return true;
}

bool DrawingInput::keepCopy(const QByteArray &bytes, Failure *failure)
{
    m_copy = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/drawing.XXXXXX"));
    if (!m_copy->open() || m_copy->write(bytes) != bytes.size() || !m_copy->flush())
        return fail(failure, Failure::Kind::NotPossible,
                    tr("no room for a temporary copy: %1").arg(m_copy->errorString()));
    m_path = m_copy->fileName();
    return true;
}

} // namespace hostkit
