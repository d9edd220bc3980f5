#include <studio/drawing/DrawingFiles.h>

#include <studio/drawing/DrawingMessages.h>
#include <studio/drawing/RecentDrawings.h>
#include <studio/drawing/RecoveryStore.h>

#include <hostkit/items/LastPart.h>
#include <hostkit/items/ShapeItems.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <memory>

namespace studio {

namespace {

using hostkit::DrawingFile;
using hostkit::Failure;

const QString kFolderKey = QStringLiteral("drawing/folder");
const QString kExtension = QStringLiteral("ztd");
const QByteArray kBeginning = QByteArrayLiteral("\x89ZTD");

QString startFolder() { return QSettings().value(kFolderKey, QDir::homePath()).toString(); }

void rememberFolder(const QString &path)
{
    QSettings().setValue(kFolderKey, QFileInfo(path).absolutePath());
}

QStringList nameFilters()
{
    return {DrawingFiles::tr("Drawings (*.ztd *.ZTD)"), DrawingFiles::tr("All files (*)")};
}

/** What a thread says that ended before it could say anything. */
Failure unsaid()
{
    return {Failure::Kind::NotPossible, DrawingFiles::tr("there is not enough memory"), {}};
}

/** What a reading thread hands over. */
struct ReadResult
{
    DrawingFile file;
    Failure error = unsaid();
};

} // namespace

DrawingFiles::DrawingFiles(ZTGraphicsDocument &edited, Messages &told, QWidget &parentWindow)
    : QObject(&parentWindow), m_document(edited), m_messages(told), m_window(parentWindow),
      m_drawing(edited), m_firstSetup(hostkit::DrawingSetup::of(edited))
{
}

bool DrawingFiles::isDrawing(const QString &path)
{
    if (QFileInfo(path).suffix().compare(kExtension, Qt::CaseInsensitive) == 0)
        return true;
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
           file.read(kBeginning.size()) == kBeginning;
}

void DrawingFiles::startNew()
{
    confirmLoss([this] { empty(); });
}

void DrawingFiles::empty()
{
    hostkit::clearDrawing(m_document);
    m_firstSetup.applyTo(m_document);
    m_drawing.startNew();
    Q_EMIT emptied();
}

void DrawingFiles::chooseOpen()
{
    auto *dialog = new QFileDialog(&m_window, tr("Open a drawing"));
    dialog->setObjectName(QStringLiteral("openDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(nameFilters());
    dialog->setDirectory(startFolder());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        rememberFolder(path);
        open(path);
    });
    dialog->open();
}

void DrawingFiles::open(const QString &path, const Next &next)
{
    confirmLoss([this, path, next] {
        if (load(path) && next)
            next();
    });
}

bool DrawingFiles::load(const QString &path)
{
    if (m_busy)
        return false;
    DrawingFile file;
    Failure error;
    hostkit::DrawingReport report;
    const FileStamp stamp = FileStamp::of(path);
    const QString label = tr("Opening %1...").arg(QFileInfo(path).fileName());
    if (!read(path, &file, &error) || !apply(file, label, &error, &report)) {
        failedToLoad(path, error);
        return false;
    }
    m_drawing.setOpened(path, stamp);
    RecentDrawings::add(path);
    Q_EMIT loaded();
    tell(report, path);
    return true;
}

void DrawingFiles::failedToLoad(const QString &path, const Failure &error)
{
    if (error.kind == Failure::Kind::Cancelled)
        return;
    if (!QFileInfo::exists(path))
        RecentDrawings::remove(path);
    m_messages.failure(notOpened(path, error));
}

// Reading and checking touch no document: they go on in a thread, even unheeded.
bool DrawingFiles::read(const QString &path, DrawingFile *file, Failure *error)
{
    const QScopedValueRollback<bool> isBusy(m_busy, true);
    LongWork work(m_window, tr("Reading %1...").arg(QFileInfo(path).fileName()),
                  LongWork::Cancel::Possible, m_quietMs);
    const auto result = std::make_shared<ReadResult>();
    const auto job = [path, result] {
        if (hostkit::readDrawing(path, &result->file, &result->error))
            result->error = {};
    };
    if (!work.run(job)) {
        error->kind = Failure::Kind::Cancelled;
        return false;
    }
    *file = std::move(result->file);
    *error = result->error;
    return error->kind == Failure::Kind::None;
}

bool DrawingFiles::apply(const DrawingFile &file, const QString &label, Failure *error,
                         hostkit::DrawingReport *report)
{
    const QScopedValueRollback<bool> isBusy(m_busy, true);
    LongWork work(m_window, label, LongWork::Cancel::Possible, m_quietMs);
    const auto progress = [&work](int done, int total) { return work.step(done, total); };
    return hostkit::applyDrawing(file, m_document, {progress}, report, error);
}

/** What a warning about missing fonts would say, of which drawing. */
QString DrawingFiles::fontsOf(const hostkit::DrawingReport &report, const QString &path)
{
    return QFileInfo(path).fileName() + QLatin1Char('\n') +
           report.missingFonts.join(QLatin1Char('\n'));
}

void DrawingFiles::tell(const hostkit::DrawingReport &report, const QString &path)
{
    m_toldFonts = fontsOf(report, path);
    if (!report.missingFonts.isEmpty())
        m_messages.warning(fontsMissing(path, report.missingFonts));
    if (!report.unknownKinds.isEmpty())
        m_messages.warning(kindsUnknown(path, report.unknownKinds));
}

bool DrawingFiles::recover(const RecoveryEntry &entry)
{
    if (m_busy)
        return false;
    DrawingFile file;
    Failure error;
    hostkit::DrawingReport report;
    const QString label = tr("Recovering %1...").arg(entry.name());
    if (!read(entry.slot->path(), &file, &error) || !apply(file, label, &error, &report)) {
        if (error.kind != Failure::Kind::Cancelled)
            m_messages.failure(notRecovered(entry.name(), error));
        return false;
    }
    // The file may just have been opened beside what was left of it.
    if (m_toldFonts == fontsOf(report, entry.name()))
        report.missingFonts.clear();
    m_drawing.setRecovered(entry.origin.path, entry.origin.stamp);
    Q_EMIT loaded();
    tell(report, entry.name());
    return true;
}

void DrawingFiles::revert()
{
    const QString path = m_drawing.path();
    if (path.isEmpty())
        return;
    QMessageBox *box = question("revertQuestion", tr("Revert to the saved drawing?"),
                                tr("All changes since \"%1\" was saved go, and this cannot be "
                                   "undone.")
                                    .arg(m_drawing.name()));
    const QPushButton *accept = box->addButton(tr("&Revert"), QMessageBox::DestructiveRole);
    box->addButton(QMessageBox::Cancel);
    connect(accept, &QPushButton::clicked, this, [this, path] {
        if (load(path))
            Q_EMIT reverted();
    });
    box->open();
}

void DrawingFiles::confirmLoss(const Next &next)
{
    if (m_busy)
        return;
    Q_EMIT settling();
    if (!m_drawing.isModified()) {
        next();
        return;
    }
    QMessageBox *box =
        question("lossQuestion", tr("Save the changes to \"%1\"?").arg(m_drawing.name()),
                 tr("Otherwise they are lost."));
    QPushButton *saving = box->addButton(QMessageBox::Save);
    const QPushButton *discarding = box->addButton(QMessageBox::Discard);
    box->addButton(QMessageBox::Cancel);
    box->setDefaultButton(saving);
    connect(saving, &QPushButton::clicked, this, [this, next] { saveThen(next); });
    connect(discarding, &QPushButton::clicked, this, next);
    box->open();
}

void DrawingFiles::save() { saveThen({}); }

void DrawingFiles::saveAs() { saveAsThen({}); }

void DrawingFiles::saveThen(const Next &next)
{
    if (m_drawing.path().isEmpty()) {
        saveAsThen(next);
        return;
    }
    if (m_drawing.isFileForeign()) {
        askToOverwrite(next);
        return;
    }
    saveAndGoOn(m_drawing.path(), next);
}

void DrawingFiles::saveAsThen(const Next &next)
{
    auto *dialog = new QFileDialog(&m_window, tr("Save the drawing"));
    dialog->setObjectName(QStringLiteral("saveDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(nameFilters());
    const QString path = m_drawing.path();
    dialog->setDirectory(path.isEmpty() ? startFolder() : QFileInfo(path).absolutePath());
    dialog->selectFile(path.isEmpty() ? tr("drawing") + QStringLiteral(".ztd")
                                      : QFileInfo(path).fileName());
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, next](const QString &chosen) { saveUnder(chosen, next); });
    dialog->open();
}

// The dialog asks before it takes the name of a file; the name that an extension was added to is
// another one. It adds none where there is a point anywhere in the path.
void DrawingFiles::saveUnder(const QString &chosen, const Next &next)
{
    if (QFileInfo(chosen).suffix().compare(kExtension, Qt::CaseInsensitive) == 0) {
        saveAndGoOn(chosen, next);
        return;
    }
    const QString path = chosen + QLatin1Char('.') + kExtension;
    if (!QFileInfo::exists(path)) {
        saveAndGoOn(path, next);
        return;
    }
    QMessageBox *box =
        question("replaceQuestion", tr("\"%1\" is there already.").arg(QFileInfo(path).fileName()),
                 tr("Replacing it loses what it holds."));
    const QPushButton *replacing = box->addButton(tr("&Replace"), QMessageBox::DestructiveRole);
    box->addButton(QMessageBox::Cancel);
    connect(replacing, &QPushButton::clicked, this,
            [this, path, next] { saveAndGoOn(path, next); });
    box->open();
}

void DrawingFiles::saveAndGoOn(const QString &path, const Next &next)
{
    if (saveTo(path) && next)
        next();
}

bool DrawingFiles::hasNumbers() const
{
    const QVector<ZTAbstractGraphicsItem *> items = hostkit::shapeItemsOf(m_document);
    return std::any_of(items.begin(), items.end(), [](const ZTAbstractGraphicsItem *item) {
        return hostkit::variantTextOf(*item) != nullptr;
    });
}

void DrawingFiles::askToOverwrite(const Next &next)
{
    QString why = tr("Overwriting it loses those changes. Saving under another name keeps both.");
    if (hasNumbers())
        why += QLatin1Char('\n') + tr("Numbers that jobs took of it meanwhile would come again.");
    QMessageBox *box =
        question("overwriteQuestion",
                 tr("\"%1\" was changed by another program.").arg(m_drawing.name()), why);
    box->setIcon(QMessageBox::Warning);
    const QPushButton *overwriting = box->addButton(tr("&Overwrite"), QMessageBox::DestructiveRole);
    QPushButton *renaming = box->addButton(tr("Save &as..."), QMessageBox::AcceptRole);
    box->addButton(QMessageBox::Cancel);
    box->setDefaultButton(renaming);
    connect(overwriting, &QPushButton::clicked, this,
            [this, next] { saveAndGoOn(m_drawing.path(), next); });
    connect(renaming, &QPushButton::clicked, this, [this, next] { saveAsThen(next); });
    box->open();
}

bool DrawingFiles::saveTo(const QString &path)
{
    if (m_busy)
        return false;
    Q_EMIT settling();
    Failure error;
    quint64 revision = 0;
    if (!write(path, &revision, &error)) {
        m_messages.failure(notSaved(path, error));
        return false;
    }
    m_drawing.setSaved(path, revision);
    rememberFolder(path); // of a save that failed it is of no use
    RecentDrawings::add(path);
    Q_EMIT saved(m_drawing.path());
    return true;
}

// There is no way back once the file is being written; the writer takes care that it is whole.
// `revision` is what goes into the file: the drawing may change while it is written.
bool DrawingFiles::write(const QString &path, quint64 *revision, Failure *error)
{
    const QScopedValueRollback<bool> isBusy(m_busy, true);
    LongWork work(m_window, tr("Saving %1...").arg(QFileInfo(path).fileName()),
                  LongWork::Cancel::Impossible, m_quietMs);
    const auto file = std::make_shared<DrawingFile>();
    *revision = m_drawing.revision();
    if (!m_drawing.capture(true, file.get(), error))
        return false;
    const auto result = std::make_shared<Failure>(unsaid());
    work.run([file, path, result] {
        if (hostkit::writeDrawing(*file, path, result.get()))
            *result = {};
    });
    *error = *result;
    return error->kind == Failure::Kind::None;
}

QMessageBox *DrawingFiles::question(const char *name, const QString &text, const QString &more)
{
    auto *box =
        new QMessageBox(QMessageBox::Question, QString(), text, QMessageBox::NoButton, &m_window);
    box->setObjectName(QLatin1String(name));
    box->setAttribute(Qt::WA_DeleteOnClose);
    // File names may look like markup.
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(more);
    return box;
}

} // namespace studio
