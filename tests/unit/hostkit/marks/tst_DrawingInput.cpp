#include <support/WarningGuard.h>

#include <hostkit/marks/DrawingInput.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

using hostkit::DrawingInput;

namespace {

const QByteArray kCorner("PU0 0;\nPD100 0;\nPD100 50;\n");

} // namespace

class tst_DrawingInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::WarningGuard);
        folder.reset(new QTemporaryDir);
        former = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder->path()));
    }
    void cleanup()
    {
        QDir::setCurrent(former);
        guard.reset();
    }

    void drawing_isReadAndMeasured()
    {
        write(QStringLiteral("a.plt"), kCorner);
        DrawingInput input;
        hostkit::Failure failure;
        QVERIFY2(input.open(QStringLiteral("a.plt"), &failure), qPrintable(failure.reason));
        QCOMPARE(input.sizeMm(), QSizeF(40, 20));
        QCOMPARE(input.report().points, 3);
        QCOMPARE(input.report().illFormedLines, 0);
        QCOMPARE(QFileInfo(input.filePath()).canonicalFilePath(),
                 QFileInfo(QStringLiteral("a.plt")).canonicalFilePath());
    }

    void oddNames_areFilesAllTheSame_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("nothing but the extension") << QStringLiteral(".plt");
        QTest::newRow("colon") << QStringLiteral(":drawing");
        QTest::newRow("blank") << QStringLiteral("a b.plt");
        QTest::newRow("umlaut") << QString::fromUtf8("\xc3\xa4.plt");
        QTest::newRow("no extension") << QStringLiteral("drawing");
    }

    void oddNames_areFilesAllTheSame()
    {
        QFETCH(QString, name);
        write(name, kCorner);
        DrawingInput input;
        QVERIFY(input.open(name, nullptr));
        ZTVecGraph shape;
        shape.setImagePath(input.filePath());
        shape.paint();
        QCOMPARE(shape.getLines().toSubpathPolygons().size(), 1);
        QCOMPARE(shape.getLines().toSubpathPolygons().first().size(), 3);
    }

    void failures_sayWhy_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::addColumn<int>("reportedLines");
        const auto row = [](const char *name, const QByteArray &content, const char *reason,
                            int reportedLines) {
            QTest::newRow(name) << content << QString::fromLatin1(reason) << reportedLines;
        };
        row("empty", "", "is empty", 0);
        row("binary", QByteArray("PU0 0;\nPD9 9;\n\0", 15), // keep the zero byte
            "holds binary data, not a plotter drawing", 0);
        row("text", "dear friend\n", "no plotter drawing: not one PU or PD line with a point", 1);
        row("commas", "IN;\nPU0,0;\nPD9,9;\n",
            "no plotter drawing: not one PU or PD line with a point (line 2: no point in "
            "\"PU0,0;\")",
            3);
        row("dots", "PU0 0;\nPU5 9;\n",
            "nothing to draw: no PD line leads from one point to another", 2);
        row("flat", "PU0 7;\nPD100 7;\n", "nothing to draw: all points lie at one height", 2);
    }

    void failures_sayWhy()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, reportedLines);
        write(QStringLiteral("a.plt"), content);
        DrawingInput input;
        hostkit::Failure failure;
        QVERIFY(!input.open(QStringLiteral("a.plt"), &failure));
        QTEST(failure.reason, "reason");
        QCOMPARE(input.report().lines, reportedLines);
        QVERIFY(!input.open(QStringLiteral("a.plt"), nullptr));
    }

    void missingFilesAndFolders_sayWhy()
    {
        hostkit::Failure failure;
        QVERIFY(!DrawingInput().open(QStringLiteral("none.plt"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("no such file"));
        QVERIFY(!DrawingInput().open(folder->path(), &failure));
        QCOMPARE(failure.reason, QStringLiteral("is a folder"));
        QVERIFY(failure.kind == hostkit::Failure::Kind::CannotRead);
        QVERIFY(!DrawingInput().open(QString(), &failure));
        QCOMPARE(failure.reason, QStringLiteral("is no file name"));
        QVERIFY(QFile::link(QStringLiteral("none.plt"), QStringLiteral("link.plt")));
        QVERIFY(!DrawingInput().open(QStringLiteral("link.plt"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("no such file"));
    }

    void fileThatCannotBeOpened_saysTheSystemsReason()
    {
        // A socket can be opened by nobody, not even by the superuser.
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, "socket", sizeof address.sun_path);
        const int socketHandle = socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(bind(socketHandle, reinterpret_cast<const sockaddr *>(&address), sizeof address),
                 0);
        hostkit::Failure failure;
        QVERIFY(!DrawingInput().open(QStringLiteral("socket"), &failure));
        ::close(socketHandle);
        QCOMPARE(failure.reason, QStringLiteral("cannot be read: No such device or address"));
    }

    void tooLargeFile_isNotRead()
    {
        QFile file(QStringLiteral("huge.plt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize(DrawingInput::kMaxBytes + 1)); // a hole, takes no room
        hostkit::Failure failure;
        QVERIFY(!DrawingInput().open(QStringLiteral("huge.plt"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("larger than 256 MiB, the limit for a drawing"));
    }

    void endlessDevice_isGivenUpAtItsFirstBytes()
    {
        hostkit::Failure failure;
        QVERIFY(!DrawingInput().open(QStringLiteral("/dev/zero"), &failure));
        QCOMPARE(failure.reason, QStringLiteral("holds binary data, not a plotter drawing"));
        QVERIFY(failure.kind == hostkit::Failure::Kind::OtherFormat);
    }

    void pipe_isReadOnceAndOfferedAsAFile()
    {
        QCOMPARE(mkfifo("pipe", 0600), 0);
        std::thread writer([] {
            QFile file(QStringLiteral("pipe"));
            if (file.open(QIODevice::WriteOnly))
                file.write(kCorner);
        });
        QString copy;
        {
            DrawingInput input;
            hostkit::Failure failure;
            const bool opened = input.open(QStringLiteral("pipe"), &failure);
            writer.join();
            QVERIFY2(opened, qPrintable(failure.reason));
            QCOMPARE(input.sizeMm(), QSizeF(40, 20));
            copy = input.filePath();
            QVERIFY(QFileInfo(copy).isFile());
        }
        QVERIFY(!QFileInfo::exists(copy));
    }

private:
    static void write(const QString &name, const QByteArray &content)
    {
        QFile file(QDir::currentPath() + QLatin1Char('/') + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    QScopedPointer<testsupport::WarningGuard> guard;
    QScopedPointer<QTemporaryDir> folder;
    QString former;
};

QTEST_MAIN(tst_DrawingInput)
#include "tst_DrawingInput.moc"
