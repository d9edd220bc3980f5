#include <studio/drawing/RecoveryStore.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <algorithm>

namespace studio {

namespace {

struct StoreTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::RecoveryStore)
};

RecoveryEntry entryOf(std::shared_ptr<RecoverySlot> slot, const hostkit::DrawingFile &drawing)
{
    RecoveryEntry entry;
    entry.slot = std::move(slot);
    entry.origin = originOf(drawing);
    entry.savedAt = drawing.meta.savedAt;
    if (!drawing.previewPng.isEmpty())
        entry.preview = hostkit::drawingPreview(drawing);
    for (const hostkit::DrawingPen &pen : drawing.meta.pens)
        entry.shapes += pen.items;
    return entry;
}

} // namespace

QString RecoveryEntry::name() const
{
    return origin.path.isEmpty() ? StoreTexts::tr("Unsaved drawing")
                                 : QFileInfo(origin.path).fileName();
}

QString RecoveryStore::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/recovery");
}

RecoveryStore::Findings RecoveryStore::find() const
{
    hostkit::removeLeftovers(m_folderPath);
    Findings findings;
    const QDir folder(m_folderPath);
    for (const QString &name : folder.entryList({QStringLiteral("*.ztd")}, QDir::Files)) {
        std::shared_ptr<RecoverySlot> slot = RecoverySlot::claim(folder.filePath(name));
        // Another studio may have ended with it between listing and claiming.
        if (!slot || !QFileInfo::exists(slot->path()))
            continue;
        hostkit::DrawingFile drawing;
        hostkit::Failure error;
        if (hostkit::readDrawing(slot->path(), &drawing, &error))
            findings.entries << entryOf(std::move(slot), drawing);
        else if (error.kind == hostkit::Failure::Kind::Damaged ||
                 error.kind == hostkit::Failure::Kind::OtherFormat)
            findings.damaged << slot->setAside();
    }
    findings.damaged.removeAll(QString());
    std::stable_sort(findings.entries.begin(), findings.entries.end(),
                     [](const auto &a, const auto &b) { return a.savedAt > b.savedAt; });
    return findings;
}

} // namespace studio
