#include <jobkit/marks/NumberJournal.h>

#include <hostkit/files/FileWriter.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/PartTexts.h>
#include <jobkit/values/JsonFields_p.h>

#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QJsonDocument>

namespace jobkit {

namespace {

constexpr int kMostParts = 1000000;
constexpr int kMostText = 1000000;
constexpr qint64 kMostBytes = 4 << 20;

QString format() { return QStringLiteral("number-journal"); }

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

QString journalPath(const QString &drawingPath) { return drawingPath + QStringLiteral(".numbers"); }

std::optional<NumberJournal> readJournal(const QString &drawingPath)
{
    QFile file(journalPath(drawingPath));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QJsonObject object;
    QString error;
    if (!readJsonObject(file.read(kMostBytes), &object, &error))
        return std::nullopt;
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
    if (!fields.finish() || journal.parts < 1)
        return std::nullopt;
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
