#include <studio/import/ImportSource.h>

#include <hostkit/files/JsonKeys.h>

#include <QtCore/QHash>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace studio {

namespace {

const QByteArray kField = QByteArrayLiteral("importsource");

QJsonObject cleaningToJson(const vectorkit::CleanOptions &cleaning)
{
    return {{QStringLiteral("join"), cleaning.joinMm},
            {QStringLiteral("doubles"), cleaning.dropDoubles},
            {QStringLiteral("same"), cleaning.sameMm},
            {QStringLiteral("zero"), cleaning.dropZeroLength},
            {QStringLiteral("simplify"), cleaning.simplifyMm},
            {QStringLiteral("arcs"), cleaning.fitArcsMm},
            {QStringLiteral("weld"), cleaning.weld},
            {QStringLiteral("filled"), cleaning.weldRule == Qt::WindingFill},
            {QStringLiteral("order"), cleaning.order}};
}

vectorkit::CleanOptions cleaningFromJson(const QJsonObject &json)
{
    vectorkit::CleanOptions cleaning;
    cleaning.joinMm = json[QStringLiteral("join")].toDouble(-1.0);
    cleaning.dropDoubles = json[QStringLiteral("doubles")].toBool();
    const double sameMm = json[QStringLiteral("same")].toDouble();
    if (sameMm > 0.0)
        cleaning.sameMm = sameMm;
    cleaning.dropZeroLength = json[QStringLiteral("zero")].toBool();
    cleaning.simplifyMm = json[QStringLiteral("simplify")].toDouble();
    cleaning.fitArcsMm = json[QStringLiteral("arcs")].toDouble();
    cleaning.weld = json[QStringLiteral("weld")].toBool();
    cleaning.weldRule = json[QStringLiteral("filled")].toBool() ? Qt::WindingFill : Qt::OddEvenFill;
    cleaning.order = json[QStringLiteral("order")].toBool();
    return cleaning;
}

QJsonObject pensToJson(const QMap<QRgb, int> &pens)
{
    QJsonObject json;
    for (auto pen = pens.begin(); pen != pens.end(); ++pen)
        json.insert(QColor(pen.key()).name(), pen.value());
    return json;
}

QMap<QRgb, int> pensFromJson(const QJsonObject &json)
{
    QMap<QRgb, int> pens;
    for (auto pen = json.begin(); pen != json.end(); ++pen) {
        if (QColor(pen.key()).isValid())
            pens.insert(QColor(pen.key()).rgb(), pen.value().toInt(1));
    }
    return pens;
}

bool isUsable(const ImportSource &source)
{
    // Limit: beyond these nothing of a drawing would lie where drawings may.
    const auto isScale = [](double scale) { return scale >= 1e-9 && scale <= 1e9; };
    return !source.file.isEmpty() && !source.import.isEmpty() && isScale(source.scaleX) &&
           isScale(source.scaleY);
}

} // namespace

std::optional<ImportSource> importSourceOf(const ShapeItem &item)
{
    const QByteArray bytes = hostkit::itemExtras(item).fields.value(kField);
    if (hostkit::jsonKeyTwice(bytes))
        return std::nullopt;
    const QJsonObject json = QJsonDocument::fromJson(bytes).object();
    ImportSource source;
    source.file = json[QStringLiteral("file")].toString();
    source.import = json[QStringLiteral("import")].toString();
    source.part = json[QStringLiteral("part")].toString();
    source.originMm = {json[QStringLiteral("originX")].toDouble(),
                       json[QStringLiteral("originY")].toDouble()};
    source.scaleX = json[QStringLiteral("scaleX")].toDouble();
    source.scaleY = json[QStringLiteral("scaleY")].toDouble();
    const int split = json[QStringLiteral("split")].toInt();
    if (split >= int(hostkit::ImportSplit::None) && split <= int(hostkit::ImportSplit::Outline))
        source.options.split = static_cast<hostkit::ImportSplit>(split);
    source.options.fillsOpen = json[QStringLiteral("fillOpen")].toBool();
    source.options.pens = pensFromJson(json[QStringLiteral("pens")].toObject());
    source.cleaning = cleaningFromJson(json[QStringLiteral("clean")].toObject());
    return isUsable(source) ? std::optional<ImportSource>(source) : std::nullopt;
}

void setImportSource(ShapeItem &item, const ImportSource &source)
{
    const QJsonObject json{{QStringLiteral("file"), source.file},
                           {QStringLiteral("import"), source.import},
                           {QStringLiteral("part"), source.part},
                           {QStringLiteral("originX"), source.originMm.x()},
                           {QStringLiteral("originY"), source.originMm.y()},
                           {QStringLiteral("scaleX"), source.scaleX},
                           {QStringLiteral("scaleY"), source.scaleY},
                           {QStringLiteral("split"), int(source.options.split)},
                           {QStringLiteral("fillOpen"), source.options.fillsOpen},
                           {QStringLiteral("pens"), pensToJson(source.options.pens)},
                           {QStringLiteral("clean"), cleaningToJson(source.cleaning)}};
    hostkit::ItemExtras extras = hostkit::itemExtras(item);
    extras.fields.insert(kField, QJsonDocument(json).toJson(QJsonDocument::Compact));
    hostkit::setItemExtras(item, extras);
}

void dropImportSource(hostkit::ItemExtras *extras) { extras->fields.remove(kField); }

QStringList importParts(const ShapeItems &imported)
{
    QStringList parts;
    QHash<QString, int> known;
    for (const ShapeItem *item : imported) {
        const QString kind =
            QStringLiteral("%1/%2/%3")
                .arg(int(item->getShapeType()))
                .arg(item->getPenId())
                .arg(item->text().isEmpty() ? hostkit::itemExtras(*item).name : item->text());
        parts << QStringLiteral("%1/%2").arg(known[kind]++).arg(kind);
    }
    return parts;
}

void markImported(const ShapeItems &imported, const ImportSource &source, const QPointF &shiftMm)
{
    const QStringList parts = importParts(imported);
    const QTransform toMm = ZTCoord::getInstance()->getPix2MmTransform();
    for (int at = 0; at < imported.size(); ++at) {
        ImportSource one = source;
        one.part = parts[at];
        one.originMm = toMm.map(imported[at]->pos()) - shiftMm;
        setImportSource(*imported[at], one);
    }
}

} // namespace studio
