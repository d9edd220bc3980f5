#include <jobkit/values/MachineProfile.h>

#include <jobkit/values/JsonFields_p.h>

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

#include <algorithm>

// Resources of a static library are registered by a call from outside any namespace.
static void initializeResources() { Q_INIT_RESOURCE(jobkit); }

namespace jobkit {

namespace {

QString format() { return QStringLiteral("job-profile"); }
constexpr TextRange kName{1, 200};
constexpr TextRange kLines{0, 10000};
constexpr int kMostDecimals = 6;

struct NumberField
{
    const char *name;
    double MachineProfile::*value;
    double least;
    double most;
};

constexpr NumberField kNumbers[] = {
    {"fieldWidthMm", &MachineProfile::fieldWidthMm, 0.001, 100000.0},
    {"fieldHeightMm", &MachineProfile::fieldHeightMm, 0.001, 100000.0},
    {"mostSpeedMmPerS", &MachineProfile::mostSpeedMmPerS, 0.001, 100000.0},
    {"jumpSpeedMmPerS", &MachineProfile::jumpSpeedMmPerS, 0.001, 100000.0},
    {"jumpDelayUs", &MachineProfile::jumpDelayUs, 0.0, 1e7},
    {"markDelayUs", &MachineProfile::markDelayUs, 0.0, 1e7},
    {"cornerDelayUs", &MachineProfile::cornerDelayUs, 0.0, 1e7},
    {"accelerationMmPerS2", &MachineProfile::accelerationMmPerS2, 0.001, 1e7},
    {"junctionDeviationMm", &MachineProfile::junctionDeviationMm, 0.0, 100.0},
    {"mostPower", &MachineProfile::mostPower, 1.0, 1e6},
};

struct TextField
{
    const char *name;
    QString MachineProfile::*value;
    TextRange range;
};

constexpr TextField kTexts[] = {
    {"name", &MachineProfile::name, kName},
    {"head", &MachineProfile::head, kLines},
    {"tail", &MachineProfile::tail, kLines},
};

QStringList kinds() { return {QStringLiteral("galvo"), QStringLiteral("gantry")}; }

QStringList origins()
{
    return {QStringLiteral("centre"), QStringLiteral("bottomLeft"), QStringLiteral("bottomRight"),
            QStringLiteral("topLeft"), QStringLiteral("topRight")};
}

QStringList yDirections() { return {QStringLiteral("up"), QStringLiteral("down")}; }

QStringList forms()
{
    return {QStringLiteral("gcode"), QStringLiteral("hpgl"), QStringLiteral("dxf"),
            QStringLiteral("svg"),   QStringLiteral("json"), QStringLiteral("csv")};
}

QStringList units() { return {QStringLiteral("mm"), QStringLiteral("inch")}; }

/** Calls `visit(name, names, enumerator)` for each choice of a profile, const or not. */
template <class Profile, class Visit>
void forEachChoice(Profile &profile, Visit visit)
{
    visit("kind", kinds(), profile.kind);
    visit("origin", origins(), profile.origin);
    visit("yDirection", yDirections(), profile.yDirection);
    visit("form", forms(), profile.form);
    visit("unit", units(), profile.unit);
}

/** The middle of the field in the machine's coordinates. */
QPointF middle(const MachineProfile &profile)
{
    const double x = profile.fieldWidthMm / 2.0;
    const double y = profile.fieldHeightMm / 2.0;
    const double up = profile.yDirection == YDirection::Up ? 1.0 : -1.0;
    switch (profile.origin) {
    case FieldOrigin::Centre:
        return {};
    case FieldOrigin::BottomLeft:
        return {x, y * up};
    case FieldOrigin::BottomRight:
        return {-x, y * up};
    case FieldOrigin::TopLeft:
        return {x, -y * up};
    case FieldOrigin::TopRight:
        return {-x, -y * up};
    }
    return {};
}

} // namespace

QString MachineProfile::problem() const
{
    for (const NumberField &field : kNumbers) {
        QString what =
            rangeProblem(QLatin1String(field.name), this->*field.value, field.least, field.most);
        if (!what.isEmpty())
            return what;
    }
    for (const TextField &field : kTexts) {
        QString what = lengthProblem(QLatin1String(field.name), this->*field.value, field.range);
        if (!what.isEmpty())
            return what;
    }
    return rangeProblem(QStringLiteral("decimals"), decimals, 0, kMostDecimals);
}

QPointF MachineProfile::toMachine(const QPointF &pointMm) const
{
    const double up = yDirection == YDirection::Up ? -1.0 : 1.0;
    return middle(*this) + QPointF(pointMm.x(), pointMm.y() * up);
}

QPointF MachineProfile::fromMachine(const QPointF &machineMm) const
{
    const double up = yDirection == YDirection::Up ? -1.0 : 1.0;
    const QPointF fromMiddle = machineMm - middle(*this);
    return {fromMiddle.x(), fromMiddle.y() * up};
}

QRectF MachineProfile::fieldMm() const
{
    return {-fieldWidthMm / 2.0, -fieldHeightMm / 2.0, fieldWidthMm, fieldHeightMm};
}

bool operator==(const MachineProfile &a, const MachineProfile &b)
{
    const auto isSame = [&](const auto &field) { return a.*field.value == b.*field.value; };
    return std::all_of(std::begin(kNumbers), std::end(kNumbers), isSame) &&
           std::all_of(std::begin(kTexts), std::end(kTexts), isSame) && a.kind == b.kind &&
           a.origin == b.origin && a.yDirection == b.yDirection && a.isLaserMode == b.isLaserMode &&
           a.form == b.form && a.decimals == b.decimals && a.unit == b.unit;
}

QVector<FieldRange> profileRanges()
{
    QVector<FieldRange> ranges;
    for (const NumberField &field : kNumbers)
        ranges.append({QLatin1String(field.name), field.least, field.most});
    ranges.append({QStringLiteral("decimals"), 0.0, double(kMostDecimals)});
    return ranges;
}

QByteArray writeProfile(const MachineProfile &profile)
{
    QJsonObject object{{QStringLiteral("format"), format()}, {QStringLiteral("version"), 1}};
    for (const NumberField &field : kNumbers)
        object.insert(QLatin1String(field.name), profile.*field.value);
    for (const TextField &field : kTexts)
        object.insert(QLatin1String(field.name), profile.*field.value);
    forEachChoice(profile, [&](const char *name, const QStringList &names, auto value) {
        object.insert(QLatin1String(name), names.at(static_cast<int>(value)));
    });
    object.insert(QStringLiteral("isLaserMode"), profile.isLaserMode);
    object.insert(QStringLiteral("decimals"), profile.decimals);
    return QJsonDocument(object).toJson();
}

bool readProfile(const QByteArray &json, MachineProfile *profile, QString *error)
{
    QJsonObject object;
    if (!readJsonObject(json, &object, error))
        return false;
    JsonFields fields(object, QString(), error);
    MachineProfile read;
    if (!fields.header(format()) || !fields.need("name") || !fields.need("kind"))
        return false;
    for (const NumberField &field : kNumbers)
        fields.number(field.name, field.least, field.most, &(read.*field.value));
    for (const TextField &field : kTexts)
        fields.text(field.name, field.range, &(read.*field.value));
    forEachChoice(read, [&](const char *name, const QStringList &names, auto &value) {
        int index = static_cast<int>(value);
        fields.choice(name, names, &index);
        value = static_cast<std::decay_t<decltype(value)>>(index);
    });
    fields.flag("isLaserMode", &read.isLaserMode);
    fields.whole("decimals", 0, kMostDecimals, &read.decimals);
    if (!fields.finish())
        return false;
    *profile = read;
    return true;
}

QStringList profilesOnBoard()
{
    return {QStringLiteral("galvo-fiber"), QStringLiteral("grbl-diode")};
}

bool profileOnBoard(const QString &name, MachineProfile *profile)
{
    if (!profilesOnBoard().contains(name))
        return false;
    initializeResources();
    QFile file(QStringLiteral(":/jobkit/profiles/%1.json").arg(name));
    return file.open(QIODevice::ReadOnly) && readProfile(file.readAll(), profile, nullptr);
}

} // namespace jobkit
