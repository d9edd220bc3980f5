#include <studio/job/JobExporter.h>

#include <studio/commands/FramePause.h>
#include <studio/drawing/LongWork.h>
#include <studio/program/Messages.h>
#include <studio/text/TextTools.h>
#include <studio/text/VariantParts.h>

#include <hostkit/drawing/ExportDirection.h>
#include <hostkit/files/FileWriter.h>
#include <hostkit/items/LastPart.h>
#include <jobkit/marks/DrawingPens.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace studio {

namespace {

constexpr int kNumberWidth = 4;

/** Of a part counted from 0; what is not to be marked can be switched off. */
QString cannotBeMade(int part, const QStringList &reasons)
{
    return JobExporter::tr("Part %1 cannot be made as asked for: %2. No file was written.")
        .arg(part + 1)
        .arg(reasons.join(QStringLiteral("; ")));
}

} // namespace

/** The numbers of a drawing's variant texts: put back as they were, unless they are kept. */
class JobExporter::Numbers
{
public:
    explicit Numbers(ZTGraphicsDocument &document) : m_document(document)
    {
        for (ShapeItem *item : shapeItemsOf(*document.scene())) {
            auto *text = qobject_cast<ZTAbstractGraphicsTextItem *>(item);
            if (text != nullptr && text->getVariantText() != nullptr)
                m_before.append({text, *text->getVariantText()});
        }
    }

    ~Numbers() { restore(); }
    Numbers(const Numbers &) = delete;
    Numbers &operator=(const Numbers &) = delete;

    bool isAny() const { return !m_before.isEmpty(); }

    /** Moves all on to the next part. */
    NextPart advance()
    {
        const FramePause pause(*m_document.scene());
        m_isMoved = true;
        return NextPart::make(shapeItemsOf(*m_document.scene()));
    }

    /** Leaves the numbers where they are. */
    void keep() { m_isMoved = false; }

    void restore()
    {
        if (!m_isMoved)
            return;
        const FramePause pause(*m_document.scene());
        for (const Held &held : qAsConst(m_before)) {
            if (!held.item)
                continue;
            *held.item->getVariantText() = held.text;
            held.item->fromVariantTextSetText();
        }
        m_isMoved = false;
    }

private:
    struct Held
    {
        QPointer<ZTAbstractGraphicsTextItem> item;
        ZTVariantText text;
    };

    ZTGraphicsDocument &m_document;
    QVector<Held> m_before;
    bool m_isMoved = false;
};

JobExporter::JobExporter(ZTGraphicsDocument &document, TextTools &texts, Messages &messages,
                         QWidget &window)
    : QObject(&window), m_document(document), m_texts(texts), m_messages(messages), m_window(window)
{
}

QStringList JobExporter::filesOf(const JobExport &wanted)
{
    if (wanted.parts == 1 || wanted.isOneFile || wanted.frame)
        return {wanted.path};
    const QFileInfo info(wanted.path);
    QStringList files;
    for (int part = 1; part <= wanted.parts; ++part)
        files << info.dir().filePath(QStringLiteral("%1-%2.%3")
                                         .arg(info.completeBaseName())
                                         .arg(part, kNumberWidth, 10, QLatin1Char('0'))
                                         .arg(info.suffix()));
    return files;
}

bool JobExporter::fail(const QString &path, const QString &why)
{
    m_messages.failure({tr("\"%1\" was not written.").arg(QFileInfo(path).fileName()), why, {}});
    return false;
}

/**
 * What the folder, the disk or a file that is there stands against. No file of a job that is not
 * whole is left for a machine: its numbers come again.
 */
bool JobExporter::failToWrite(const QString &path, const QString &reason,
                              const QStringList &written)
{
    const QFileInfo file(path);
    QStringList why{
        tr("Folder: %1").arg(QDir::toNativeSeparators(file.absoluteDir().absolutePath())),
        tr("Reason: %1.").arg(reason)};
    if (!written.isEmpty())
        why << tr("The files before it were taken back, and no number is used up.");
    for (const QString &before : written) {
        if (!QFile::remove(before))
            why << tr("%1 could not be taken back: it must not be run.").arg(before);
    }
    return fail(path, why.join(QLatin1Char('\n')));
}

void JobExporter::askAboutNotReady(const JobExport &wanted, const JobSettings &settings, int part,
                                   const GatheredItems &gathered)
{
    constexpr int kNamedAtMost = 10;
    const QStringList reasons = gathered.notReady + gathered.withoutFonts;
    auto *box = new QMessageBox(
        QMessageBox::Warning, tr("Export the job"),
        tr("Part %1 cannot be made as asked for. No file was written.").arg(part + 1),
        QMessageBox::Cancel, &m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("notReadyBox"));
    box->setTextFormat(Qt::PlainText);
    QStringList lines = reasons.mid(0, kNamedAtMost);
    if (reasons.size() > kNamedAtMost)
        lines << QStringLiteral("...");
    if (!gathered.notReady.isEmpty())
        lines << tr("Written as shown, they hold the last content that they could.");
    if (!gathered.withoutFonts.isEmpty())
        lines << tr("Written as shown, texts are in another font, or left out.");
    box->setInformativeText(lines.join(QLatin1Char('\n')));
    const QPushButton *goOn = box->addButton(tr("&Write them as shown"), QMessageBox::AcceptRole);
    box->setDefaultButton(QMessageBox::Cancel);
    connect(goOn, &QPushButton::clicked, this, [this, wanted, settings] {
        JobExport again = wanted;
        again.isAsShown = true;
        write(again, settings, m_shown.lock());
    });
    box->open();
}

bool JobExporter::hasNumbers() const
{
    const ShapeItems items = shapeItemsOf(*m_document.scene());
    return std::any_of(items.begin(), items.end(), [](const ShapeItem *item) {
        return hostkit::variantTextOf(*item) != nullptr;
    });
}

bool JobExporter::write(const JobExport &wanted, const JobSettings &settings,
                        const std::shared_ptr<const Job> &shown)
{
    const auto form = jobkit::jobFormOf(wanted.path);
    if (!form)
        return fail(wanted.path, tr("The name has to end in one of %1.")
                                     .arg(jobkit::jobExtensions().join(QStringLiteral(", "))));
    if (wanted.isOneFile && wanted.parts > 1 && !jobkit::canPause(*form))
        return fail(wanted.path, tr("Only G-code can hold several parts with a pause between them. "
                                    "Write one file a part."));
    m_shown = shown;
    JobRequest request;
    request.settings = settings;
    request.pens = jobkit::givenPens(m_document);
    QString error;
    if (!settings.readProfile(&request.machine, &error))
        return fail(wanted.path, error);
    m_texts.finishTyping();
    return writeParts(wanted, request, shown);
}

/** One export at a time has the drawing's numbers, whatever program it is in. */
bool JobExporter::takeLock(const QString &target, std::optional<jobkit::NumberLock> *lock)
{
    const QString path = m_drawingPath ? m_drawingPath() : QString();
    if (!QFileInfo::exists(path))
        return true;
    lock->emplace(path);
    // Where no file can be made, no numbers can be noted: this is told then.
    if ((*lock)->take() == jobkit::NumberLock::Result::Busy)
        return fail(target,
                    tr("Another job takes numbers of the drawing, as \"%1\" says. Try again "
                       "afterwards.")
                        .arg((*lock)->fileName()));
    if (m_isForeign && m_isForeign())
        return fail(target,
                    tr("\"%1\" was changed by another program since it was opened here: its "
                       "numbers may be taken. Open it again.")
                        .arg(QFileInfo(path).fileName()));
    return true;
}

bool JobExporter::writeParts(const JobExport &wanted, const JobRequest &request,
                             const std::shared_ptr<const Job> &shown)
{
    const bool takesNumbers = !wanted.frame && hasNumbers();
    std::optional<jobkit::NumberLock> lock;
    if (takesNumbers && !(takeLock(wanted.path, &lock) && passInterrupted(wanted.path)))
        return false;
    if (!wanted.frame && !goPastMarkedParts(wanted.path))
        return false;
    const QStringList unreadable = wanted.frame ? QStringList() : m_texts.renewPart();
    if (!unreadable.isEmpty())
        return fail(wanted.path, cannotBeMade(0, unreadable));
    QVector<jobkit::JobPlan> plans;
    if (!planParts(wanted, request, shown, &plans) || (takesNumbers && !noteTaken(wanted)))
        return false;
    if (!writeFiles(wanted, request, plans)) {
        if (takesNumbers)
            noteWritten(false);
        return false;
    }
    // What was marked is marked: from here on the drawing stands at the first part after these.
    if (takesNumbers) {
        goOn(wanted.parts);
        noteWritten(true);
    }
    Q_EMIT written(filesOf(wanted), wanted.parts);
    return true;
}

/**
 * Goes past the numbers of exports after which the drawing was not saved: their files may have been
 * run. False, told, where nobody can know them.
 */
bool JobExporter::passInterrupted(const QString &target)
{
    const QString path = m_drawingPath ? m_drawingPath() : QString();
    hostkit::Failure failure;
    m_before = path.isEmpty() ? std::nullopt : jobkit::readJournal(path, &failure);
    if (failure.kind != hostkit::Failure::Kind::None)
        return fail(target, failure.reason + QLatin1Char('\n') + failure.advice);
    const QByteArray progress = jobkit::partProgress(shapeItemsOf(*m_document.scene()));
    if (!m_before || m_before->after == progress)
        return true;
    if (m_own && m_own->after == progress && m_own->before == m_before->before &&
        m_before->parts > m_own->parts) {
        goOn(m_before->parts - m_own->parts);
        m_messages.warning(
            {tr("Numbers were taken before."),
             tr("Another window took numbers up to %1. They are passed over.").arg(m_before->last),
             {}});
        return true;
    }
    const QString numbers = m_before->parts == 1
                                ? m_before->first
                                : tr("%1 to %2").arg(m_before->first, m_before->last);
    const bool isBehind = m_before->before == progress;
    if (isBehind)
        goOn(m_before->parts);
    else
        m_before.reset();
    const QString told =
        isBehind ? tr("An earlier export took %1, and the drawing was not saved after it. These "
                      "numbers are passed over, for its files may have been run.")
                       .arg(numbers)
                 : tr("An earlier export took %1, and the numbers of the drawing were changed "
                      "since.")
                       .arg(numbers);
    m_messages.warning({tr("Numbers were taken before."), told, {}});
    return true;
}

/** Notes what the export takes, before its first file is there; false, told, where it cannot. */
bool JobExporter::noteTaken(const JobExport &wanted)
{
    const QString path = m_drawingPath ? m_drawingPath() : QString();
    if (path.isEmpty())
        return true;
    const ShapeItems items = shapeItemsOf(*m_document.scene());
    jobkit::NumberJournal journal;
    journal.before = m_before ? m_before->before : jobkit::partProgress(items);
    journal.parts = wanted.parts + (m_before ? m_before->parts : 0);
    journal.first = m_before ? m_before->first : jobkit::partTexts(items);
    {
        Numbers passing(m_document);
        for (int part = 1; part < wanted.parts; ++part)
            passing.advance();
        journal.last = jobkit::partTexts(items);
    }
    hostkit::Failure failure;
    if (jobkit::writeJournal(path, journal, &failure))
        return true;
    return fail(wanted.path, tr("The numbers cannot be noted beside the drawing: %1. No file was "
                                "written.")
                                 .arg(failure.reason));
}

/** The note holds until the drawing is saved; without the files it is taken back. */
void JobExporter::noteWritten(bool isWritten)
{
    const QString path = m_drawingPath ? m_drawingPath() : QString();
    if (path.isEmpty())
        return;
    std::optional<jobkit::NumberJournal> journal = isWritten ? jobkit::readJournal(path) : m_before;
    if (journal && isWritten)
        journal->after = jobkit::partProgress(shapeItemsOf(*m_document.scene()));
    hostkit::Failure ignored; // what was noted before the export holds then
    if (isWritten)
        m_own = journal;
    if (journal)
        jobkit::writeJournal(path, *journal, &ignored);
    else
        jobkit::removeJournal(path);
}

/** What another job took and the drawing does not know of stays noted, saved or not. */
void JobExporter::noteSaved(const QString &path)
{
    if (path.isEmpty() || path != (m_drawingPath ? m_drawingPath() : QString()))
        return;
    const std::optional<jobkit::NumberJournal> note = jobkit::readJournal(path);
    const bool isOwn = note && m_own && note->after == m_own->after && note->parts == m_own->parts;
    if (isOwn || (note && note->after == jobkit::partProgress(shapeItemsOf(*m_document.scene()))))
        jobkit::removeJournal(path);
    m_own.reset();
}

/**
 * A drawing stays with its last part after that was marked: false, told, where nothing follows, and
 * on to what follows where the texts were given more values since.
 */
bool JobExporter::goPastMarkedParts(const QString &path)
{
    const ShapeItems items = shapeItemsOf(*m_document.scene());
    bool isMarked = false;
    for (const ShapeItem *item : items) {
        if (hostkit::isUsedUp(*item))
            return fail(path, tr("%1 was the last number, and it was marked. Give the text new "
                                 "values before another part is marked.")
                                  .arg(hostkit::variantTextOf(*item)->getText()));
        isMarked = isMarked || hostkit::isLastPartMarked(*item);
    }
    if (isMarked)
        m_texts.nextPart();
    return true;
}

/** The drawing is at the first part after so many that were marked. */
void JobExporter::goOn(int parts)
{
    Numbers passing(m_document);
    for (int part = 1; part < parts; ++part)
        passing.advance();
    passing.keep();
    endParts();
}

/** On to the part after those that were marked, or a note that there is none. */
void JobExporter::endParts()
{
    const ShapeItems items = shapeItemsOf(*m_document.scene());
    const bool isEnd = std::any_of(items.begin(), items.end(), [](const ShapeItem *item) {
        return hostkit::isAtLastPart(*item);
    });
    for (ShapeItem *item : items) {
        if (hostkit::variantTextOf(*item) != nullptr)
            hostkit::setLastPartMarked(*item, isEnd);
    }
    if (isEnd)
        Q_EMIT m_texts.partChanged();
    else
        m_texts.nextPart();
}

/** A plan a part, or one for all where no text changes. The drawing is the same afterwards. */
bool JobExporter::planParts(const JobExport &wanted, JobRequest request,
                            const std::shared_ptr<const Job> &shown,
                            QVector<jobkit::JobPlan> *plans)
{
    Numbers numbers(m_document);
    const int parts = numbers.isAny() && !wanted.frame ? wanted.parts : 1;
    LongWork work(m_window, tr("Making the job..."), LongWork::Cancel::Possible);
    for (int part = 0; part < parts; ++part) {
        if (parts > 1)
            work.setLabel(tr("Making part %1 of %2...").arg(part + 1).arg(parts));
        if (!work.step(part, parts))
            return false;
        const NextPart moved = part > 0 ? numbers.advance() : NextPart();
        if (!moved.usedUp.isEmpty())
            return fail(wanted.path,
                        tr("After part %1 there are no further values for: %2. No file was "
                           "written.")
                            .arg(part)
                            .arg(moved.usedUp.join(QStringLiteral(", "))));
        if (!moved.errors.isEmpty())
            return fail(wanted.path, cannotBeMade(part, moved.errors));
        request.isTimed = parts == 1;
        if (!planPart(wanted, request, part == 0 ? shown : nullptr, work, plans))
            return false;
    }
    return true;
}

bool JobExporter::planPart(const JobExport &wanted, JobRequest request,
                           const std::shared_ptr<const Job> &shown, LongWork &work,
                           QVector<jobkit::JobPlan> *plans)
{
    GatheredItems gathered;
    const Gathering result = gatherItems(
        m_document, &gathered, [&work](int done, int total) { return work.step(done, total); });
    if (result == Gathering::Cancelled)
        return false;
    if (result == Gathering::NotWhole)
        return fail(wanted.path, tr("Not all shapes could be turned into marks."));
    const bool isAsTold = gathered.notReady.isEmpty() && gathered.withoutFonts.isEmpty();
    if (!isAsTold && !wanted.isAsShown) {
        askAboutNotReady(wanted, request.settings, plans->size(), gathered);
        return false;
    }
    request.items = gathered.items;
    std::shared_ptr<const Job> made = shown && shown->request == request ? shown : nullptr;
    if (!made) {
        const auto isGivenUp = std::make_shared<std::atomic<bool>>(false);
        const auto job = std::make_shared<std::shared_ptr<const Job>>();
        if (!work.run([request, isGivenUp, job] { *job = makeJob(request, *isGivenUp); })) {
            *isGivenUp = true;
            return false;
        }
        made = *job;
    }
    if (!made)
        return fail(wanted.path, tr("There is not enough memory."));
    if (made->plan.pieces.isEmpty())
        return fail(wanted.path, tr("There is nothing to mark."));
    plans->append(made->plan);
    return true;
}

bool JobExporter::writeFiles(const JobExport &wanted, const JobRequest &request,
                             const QVector<jobkit::JobPlan> &plans)
{
    const QStringList files = filesOf(wanted);
    const int partsAFile = files.size() == 1 && !wanted.frame ? wanted.parts : 1;
    // Titled as the command line titles it, so that both write the same bytes.
    const QString drawing = QFileInfo(m_drawingPath ? m_drawingPath() : QString()).fileName();
    for (int i = 0; i < files.size(); ++i) {
        jobkit::JobFile file;
        file.pens = request.pens;
        file.profile = request.machine;
        file.title = drawing.isEmpty() ? QFileInfo(files[i]).completeBaseName() : drawing;
        file.headMm = request.machine.fromMachine({});
        file.isYUp = hostkit::exportsYUp(m_document);
        for (int part = 0; part < partsAFile; ++part)
            file.parts.append(plans.value(plans.size() == 1 ? 0 : i + part));
        if (wanted.frame) {
            file.parts = {jobkit::framePlan(plans.first(), *wanted.frame)};
            file.pens = {jobkit::framePen()};
        }
        hostkit::Failure failure;
        const auto write = [form = *jobkit::jobFormOf(wanted.path), &file](QIODevice &device) {
            return jobkit::writeJob(form, file, device);
        };
        if (!hostkit::saveWhole(files[i], write, &failure))
            return failToWrite(files[i], failure.reason, files.mid(0, i));
    }
    return true;
}

} // namespace studio
