#include <jobkit/marks/NumberJournal.h>

#include <hostkit/files/FileWriter.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/PartTexts.h>
#include <jobkit/values/JsonFields_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtCore/QJsonDocument>

namespace jobkit {

namespace {

constexpr int kMostParts = 1000000;
constexpr int kMostText = 4 << 20;
constexpr int kMostBytes = 16 << 20;

QString format() { return QStringLiteral("number-journal"); }

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(jobkit::NumberJournal)
};

/** Fields that are text, by their names. */
struct TextField
{
    const char *name;
    QString *value;
};

} // namespace

QByteArray partProgress(const QVector<ZTAbstractGraphicsItem *> &items)
{
    QByteArray progress;
    for (const ZTAbstractGraphicsItem *item : items)
        progress += hostkit::partProgress(*item);
    return progress;
}

QString partTexts(const QVector<ZTAbstractGraphicsItem *> &items)
{
    QStringList texts;
    for (const ZTAbstractGraphicsItem *item : items) {
        if (const ZTVariantText *text = hostkit::variantTextOf(*item))
            texts << hostkit::onOneLine(text->getText());
    }
    return texts.join(QLatin1Char(' '));
}

QString journalPath(const QString &drawingPath)
{
    // Nothing of this name is there before the drawing is saved first.
    const QString path = QFileInfo(drawingPath).canonicalFilePath();
    return (path.isEmpty() ? drawingPath : path) + QStringLiteral(".numbers");
}

std::optional<NumberJournal> readJournal(const QString &drawingPath, hostkit::Failure *failure)
{
    using Kind = hostkit::Failure::Kind;
    const auto unreadable = [&](Kind kind, const QString &why) -> std::optional<NumberJournal> {
        hostkit::fail(failure, kind,
                      Texts::tr("\"%1\" cannot be read: %2")
                          .arg(QFileInfo(journalPath(drawingPath)).fileName(), why),
                      Texts::tr("It told which numbers a job took. See to the drawing's next "
                                "numbers, then remove it."));
        return std::nullopt;
    };
    QFile file(journalPath(drawingPath));
    if (!file.exists())
        return std::nullopt;
    if (!file.open(QIODevice::ReadOnly))
        return unreadable(Kind::CannotRead, file.errorString());
    QJsonObject object;
    QString error;
    if (!readJsonObject(file.read(kMostBytes + 1), &object, &error, kMostBytes))
        return unreadable(Kind::Damaged, error);
    JsonFields fields(object, QString(), &error);
    NumberJournal journal;
    QString before;
    QString after;
    fields.header(format());
    fields.whole("parts", 1, kMostParts, &journal.parts);
    for (const TextField &field :
         {TextField{"before", &before}, TextField{"after", &after},
          TextField{"first", &journal.first}, TextField{"last", &journal.last}})
        fields.text(field.name, {0, kMostText}, field.value);
    if (!fields.need("parts") || !fields.finish())
        return unreadable(Kind::Damaged, error);
    journal.before = before.toLatin1();
    journal.after = after.toLatin1();
    return journal;
}

bool writeJournal(const QString &drawingPath, const NumberJournal &journal,
                  hostkit::Failure *failure)
{
    const QJsonObject object{{QStringLiteral("format"), format()},
                             {QStringLiteral("version"), 1},
                             {QStringLiteral("before"), QString::fromLatin1(journal.before)},
                             {QStringLiteral("after"), QString::fromLatin1(journal.after)},
                             {QStringLiteral("parts"), journal.parts},
                             {QStringLiteral("first"), journal.first},
                             {QStringLiteral("last"), journal.last}};
    const QByteArray json = QJsonDocument(object).toJson();
    return hostkit::saveWhole(
        journalPath(drawingPath),
        [&json](QIODevice &device) { return device.write(json) == json.size(); }, failure);
}

void removeJournal(const QString &drawingPath) { QFile::remove(journalPath(drawingPath)); }

} // namespace jobkit
