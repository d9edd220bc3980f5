#include "OpenedDrawing.h"

#include "Console.h"
#include "Progress.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

using hostkit::DrawingError;

namespace {

constexpr int kMagicProbe = 16;

/** Qt takes names that begin with ':' for built-in resources; an absolute one is always a file. */
QString absolutePath(const QString &name)
{
    return name.startsWith(QLatin1Char('/')) ? name : QDir::currentPath() + QLatin1Char('/') + name;
}

} // namespace

bool OpenedDrawing::isNamed(const std::string &name)
{
    if (name.empty() || name == "-")
        return false;
    const QString path = absolutePath(QString::fromStdString(name));
    if (path.endsWith(QLatin1String(".ztd"), Qt::CaseInsensitive))
        return true;
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
           hostkit::hasDrawingMagic(file.read(kMagicProbe));
}

QString OpenedDrawing::describe(const DrawingError &error)
{
    switch (error.kind) {
    case DrawingError::Kind::CannotRead:
        return tr("cannot be opened: %1").arg(error.reason);
    case DrawingError::Kind::NotADrawing:
    case DrawingError::Kind::NewerVersion:
        return tr("not readable: it %1").arg(error.reason);
    case DrawingError::Kind::Damaged:
        return tr("not readable: %1").arg(error.reason);
    case DrawingError::Kind::CannotWrite:
        return tr("not saved: %1").arg(error.reason);
    default:
        return tr("cannot be loaded: %1").arg(error.reason);
    }
}

bool OpenedDrawing::open(const std::string &name, Progress &progress)
{
    const QString path = QString::fromStdString(name);
    progress.begin(tr("reading %1").arg(path));
    DrawingError error;
    const bool isLoaded = readDrawing(absolutePath(path), &file, &error) &&
                          applyDrawing(file, document, {}, &report, &error);
    if (!isLoaded || !report.missingFonts.isEmpty())
        progress.finish();
    if (!isLoaded)
        console::complain(name, describe(error));
    else if (!report.missingFonts.isEmpty())
        console::complain(name, tr("warning: these fonts are missing, and texts in them look and "
                                   "mark differently: %1")
                                    .arg(report.missingFonts.join(QStringLiteral(", "))));
    return isLoaded;
}

QVector<ZTAbstractGraphicsItem *> OpenedDrawing::items() const
{
    QVector<ZTAbstractGraphicsItem *> found;
    for (QGraphicsItem *candidate : document.itemMag()->scene()->items(Qt::DescendingOrder)) {
        if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate))
            found << item;
    }
    return found;
}
