#include <studio/drawing/CrashGuard.h>

#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecoveryDialog.h>

#include <QtCore/QSettings>
#include <QtGui/QGuiApplication>

namespace studio {

namespace {
const QString kSecondsKey = QStringLiteral("drawing/autosaveSeconds");
}

CrashGuardSetup CrashGuardSetup::ofUser()
{
    CrashGuardSetup setup;
    const int seconds = QSettings().value(kSecondsKey, 0).toInt();
    if (seconds > 0)
        setup.intervalMs = qMin(seconds, Autosaver::kMostSeconds) * 1000;
    return setup;
}

CrashGuard::CrashGuard(DrawingFiles &guarded, Messages &told, QWidget &parentWindow,
                       const CrashGuardSetup &setup)
    : QObject(&parentWindow), files(guarded), messages(told), window(parentWindow),
      store(setup.folder), saver(guarded.session(), told, setup.folder, setup.intervalMs)
{
    connect(&termination, &TerminationWatch::asked, this, [this] {
        saver.saveNow();
        QCoreApplication::quit();
    });
    // A session that ends may leave no time for questions.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { saver.saveNow(); },
        Qt::DirectConnection);
}

RecoveryStore::Findings CrashGuard::findings()
{
    RecoveryStore::Findings found = store.find();
    if (!found.damaged.isEmpty())
        messages.failure(recoveryDamaged(found.damaged));
    return found;
}

void CrashGuard::offerFound()
{
    const QVector<RecoveryEntry> entries = findings().entries;
    if (!entries.isEmpty())
        open(entries);
}

void CrashGuard::showDialog() { open(findings().entries); }

void CrashGuard::open(const QVector<RecoveryEntry> &entries)
{
    if (dialog)
        return;
    dialog = new RecoveryDialog(entries, &window);
    connect(dialog, &RecoveryDialog::chosen, this, [this](const RecoveryEntry &entry) {
        files.confirmLoss([this, entry] { recover(entry); });
    });
    dialog->open();
}

void CrashGuard::recover(const RecoveryEntry &entry)
{
    if (files.recover(entry))
        saver.adopt(entry.slot);
}

} // namespace studio
