#include "OpenedDrawing.h"

#include "Console.h"
#include "InputFiles.h"
#include "Progress.h"

#include <hostkit/items/LastPart.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

using hostkit::Failure;

namespace {

constexpr int kMagicProbe = 16;

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

QString OpenedDrawing::describe(const Failure &error)
{
    switch (error.kind) {
    case Failure::Kind::CannotRead:
        return tr("cannot be opened: %1").arg(error.reason);
    case Failure::Kind::OtherFormat:
    case Failure::Kind::NewerVersion:
        return tr("not readable: it %1").arg(error.reason);
    case Failure::Kind::Damaged:
        return tr("not readable: %1").arg(error.reason);
    case Failure::Kind::CannotWrite:
        return tr("not saved: %1").arg(error.reason);
    default:
        return tr("cannot be loaded: %1").arg(error.reason);
    }
}

bool OpenedDrawing::read(const InputFiles &files, Failure *error)
{
    const std::string &name = files.names.front();
    if (name != "-")
        return readDrawing(absolutePath(QString::fromStdString(name)), &file, error);
    QByteArray bytes;
    return files.read(name, &bytes) && readDrawing(bytes, &file, error);
}

bool OpenedDrawing::open(const InputFiles &files, Progress &progress)
{
    const std::string &name = files.names.front();
    progress.begin(tr("reading %1").arg(QString::fromStdString(name)));
    Failure error;
    const bool isLoaded = read(files, &error) && applyDrawing(file, document, {}, &report, &error);
    if (!isLoaded || !report.missingFonts.isEmpty() || !report.unknownKinds.isEmpty())
        progress.finish();
    if (!isLoaded)
        console::complain(name, describe(error));
    else if (!report.missingFonts.isEmpty())
        console::complain(name, tr("warning: these fonts are missing, and texts in them look and "
                                   "mark differently: %1")
                                    .arg(report.missingFonts.join(QStringLiteral(", "))));
    if (isLoaded)
        warnOfUnknownKinds(name);
    return isLoaded;
}

void OpenedDrawing::warnOfUnknownKinds(const std::string &name) const
{
    QStringList counts;
    for (auto kind = report.unknownKinds.begin(); kind != report.unknownKinds.end(); ++kind)
        counts << QStringLiteral("%1: %2").arg(kind.key()).arg(kind.value());
    if (!counts.isEmpty())
        console::complain(name, tr("warning: shapes of kinds that this program does not know are "
                                   "neither shown nor marked (%1)")
                                    .arg(counts.join(QStringLiteral(", "))));
}

std::vector<std::string> OpenedDrawing::textFiles() const
{
    std::vector<std::string> names;
    for (const ZTAbstractGraphicsItem *item : items()) {
        const ZTVariantText *text = hostkit::variantTextOf(*item);
        if (text == nullptr)
            continue;
        for (const ZTVariantTextSegment &segment : text->getSegments()) {
            if (const auto *rows = std::get_if<ZTTextFileSegment>(&segment))
                names.push_back(rows->path.toStdString());
        }
    }
    return names;
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
