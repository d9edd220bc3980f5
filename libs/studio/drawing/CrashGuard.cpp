#include <studio/drawing/CrashGuard.h>

#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecoveryDialog.h>

#include <QtCore/QSettings>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QDialog>

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
    : QObject(&parentWindow), m_files(guarded), m_messages(told), m_window(parentWindow),
      m_store(setup.folder), m_saver(guarded.session(), told, setup.folder, setup.intervalMs)
{
    connect(&m_termination, &TerminationWatch::asked, this, [this] {
        m_saver.saveNow();
        QCoreApplication::quit();
    });
    // A session that ends may leave no time for questions.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { m_saver.saveNow(); },
        Qt::DirectConnection);
}

RecoveryStore::Findings CrashGuard::findings()
{
    RecoveryStore::Findings found = m_store.find();
    if (!found.damaged.isEmpty())
        m_messages.failure(recoveryDamaged(found.damaged));
    return found;
}

void CrashGuard::offerFound()
{
    whenNothingIsAsked([this] {
        const QVector<RecoveryEntry> entries = findings().entries;
        if (!entries.isEmpty())
            whenNothingIsAsked([this, entries] { open(entries); }); // looking may have told some
    });
}

/** At once, or when the dialogs that stand over the window are closed, and those that follow them.
 */
void CrashGuard::whenNothingIsAsked(const std::function<void()> &next)
{
    for (const QDialog *dialog : m_window.findChildren<QDialog *>()) {
        if (!dialog->isModal() || !dialog->isVisible())
            continue;
        const auto lookAgain = [this, next] { whenNothingIsAsked(next); };
        connect(dialog, &QDialog::finished, this, lookAgain, Qt::QueuedConnection);
        return;
    }
    next();
}

void CrashGuard::showDialog() { open(findings().entries); }

void CrashGuard::open(const QVector<RecoveryEntry> &entries)
{
    if (m_dialog)
        return;
    m_dialog = new RecoveryDialog(entries, &m_window);
    connect(m_dialog, &RecoveryDialog::chosen, this, [this](const RecoveryEntry &entry) {
        m_files.confirmLoss([this, entry] { recover(entry); });
    });
    m_dialog->open();
}

void CrashGuard::recover(const RecoveryEntry &entry)
{
    if (m_files.recover(entry))
        m_saver.adopt(entry.slot);
}

} // namespace studio
