#include "RecoveryFolder.h"
#include "StudioTest.h"

#include <support/KilledProcess.h>

#include <studio/drawing/Autosaver.h>
#include <studio/drawing/DrawingSession.h>

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>
#include <QtWidgets/QUndoCommand>

#include <unistd.h>

using studio::RecoveryStore;

namespace {

constexpr int kFewKills = 100;
constexpr quint32 kLongestRunUs = 20000;
constexpr QPointF kPlaces[2] = {{30.0, 40.0}, {-7.0, 5.0}};

/** A drawing that is changed and saved on the side, in turn in two states. */
class ChangedDrawing
{
public:
    ChangedDrawing(DocumentTest &test, const QString &folder)
        : studio(test), item(studio.addRect(0, 0)), session(*studio.document),
          saver(session, messages, folder, 0)
    {
        QObject::connect(&saver, &studio::Autosaver::autosaved, [this] { ++saves; });
    }

    /** Changes the drawing and waits until that is saved; false if nobody would know of it. */
    bool change(int round)
    {
        const int before = saves;
        item->setPos(kPlaces[round % 2]);
        studio.document->undoStack()->push(new QUndoCommand);
        while (saves == before && messages.warnings.isEmpty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return messages.warnings.isEmpty();
    }

private:
    DocumentTest &studio;
    studio::ShapeItem *item;
    RecordedMessages messages;
    studio::DrawingSession session;
    studio::Autosaver saver;
    int saves = 0;
};

} // namespace

/** Studios that are killed while they save on the side. */
class tst_AutosaverKill : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { qInfo("%s", qPrintable(told)); }

    void recoveryFile_isTheOldOrTheNewOneWhenTheStudioIsKilled()
    {
        DocumentTest studio;
        const RecoveryFolder folder(studio.path("recovery"));
        QRandomGenerator random(1);
        const int kills = testsupport::killCount(kFewKills);
        int firstOnes = 0;
        int amidSaving = 0;
        for (int i = 0; i < kills; ++i) {
            std::unique_ptr<ChangedDrawing> drawing; // made in the process that is killed
            testsupport::KilledProcess process([&](int round) {
                if (!drawing)
                    drawing = std::make_unique<ChangedDrawing>(studio, folder.path);
                return drawing->change(round);
            });
            usleep(random.bounded(kLongestRunUs));
            QVERIFY(process.kill());
            amidSaving += process.wasAtWork() ? 1 : 0;
            QPointF foundPx;
            QVERIFY(oneDrawingIsFound(folder, &foundPx));
            QVERIFY(foundPx == kPlaces[0] || foundPx == kPlaces[1]);
            firstOnes += foundPx == kPlaces[0] ? 1 : 0;
        }
        told = QStringLiteral("%1 kills, %2 amid saving, %3 times the first state")
                   .arg(kills)
                   .arg(amidSaving)
                   .arg(firstOnes);
        QVERIFY2(firstOnes > 0 && firstOnes < kills, qPrintable(QString::number(firstOnes)));
        QVERIFY2(amidSaving > kills / 2, qPrintable(QString::number(amidSaving)));
    }

private:
    /** What the next start does: it finds the one drawing, whole, and nothing else stays. */
    static bool oneDrawingIsFound(const RecoveryFolder &folder, QPointF *placePx)
    {
        const RecoveryStore::Findings found = RecoveryStore(folder.path).find();
        if (found.entries.size() != 1 || !found.damaged.isEmpty()) {
            qWarning("%d drawings and %d damaged ones", int(found.entries.size()),
                     int(found.damaged.size()));
            return false;
        }
        hostkit::DrawingFile drawing;
        hostkit::Failure failure;
        const auto slot = found.entries.first().slot;
        const bool isWhole =
            hostkit::readDrawing(slot->path(), &drawing, &failure) && drawing.items.size() == 1;
        if (isWhole)
            *placePx = drawing.items.first().posPx;
        slot->discard();
        const QStringList stray = folder.names("*");
        if (!stray.isEmpty())
            qWarning("left behind: %s", qPrintable(stray.join(QLatin1Char(' '))));
        return isWhole && stray.isEmpty();
    }

    QString told; ///< once nobody listens to what is said
};

QTEST_MAIN(tst_AutosaverKill)
#include "tst_AutosaverKill.moc"
