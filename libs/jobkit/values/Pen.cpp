#include <jobkit/values/PenFields_p.h>

#include <jobkit/values/JsonFields_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace jobkit {

namespace {

struct NumberField
{
    const char *name;
    double Pen::*value;
    double least;
    double most;
};

struct WholeField
{
    const char *name;
    int Pen::*value;
    int least;
    int most;
};

constexpr WholeField kWholes[] = {
    {"number", &Pen::number, 1, 9999},
    {"passes", &Pen::passes, 1, 1000},
};

constexpr NumberField kNumbers[] = {
    {"speedMmPerS", &Pen::speedMmPerS, 0.001, 100000.0},
    {"powerPercent", &Pen::powerPercent, 0.0, 100.0},
    {"frequencyKHz", &Pen::frequencyKHz, 0.0, 100000.0},
    {"pulseWidthNs", &Pen::pulseWidthNs, 0.0, 1e9},
    {"dotMs", &Pen::dotMs, 0.0, 60000.0},
};

constexpr TextRange kName{0, 200};

QStringList powerModes() { return {QStringLiteral("constant"), QStringLiteral("dynamic")}; }

bool readColor(JsonFields *fields, QColor *color)
{
    QString text = color->name();
    if (!fields->text("color", {0, 200}, &text))
        return false;
    const bool isSharp = text.size() == 7 && text.startsWith(QLatin1Char('#'));
    const QColor read = isSharp ? QColor(text) : QColor();
    if (!read.isValid())
        return fields->refuse(colorProblem(QStringLiteral("color")), QString());
    *color = read;
    return true;
}

} // namespace

QString Pen::problem() const
{
    for (const WholeField &field : kWholes) {
        QString what =
            rangeProblem(QLatin1String(field.name), this->*field.value, field.least, field.most);
        if (!what.isEmpty())
            return what;
    }
    for (const NumberField &field : kNumbers) {
        QString what =
            rangeProblem(QLatin1String(field.name), this->*field.value, field.least, field.most);
        if (!what.isEmpty())
            return what;
    }
    if (!color.isValid())
        return colorProblem(QStringLiteral("color"));
    return lengthProblem(QStringLiteral("name"), name, kName);
}

bool operator==(const Pen &a, const Pen &b)
{
    const auto isSame = [&](const auto &field) { return a.*field.value == b.*field.value; };
    return std::all_of(std::begin(kWholes), std::end(kWholes), isSame) &&
           std::all_of(std::begin(kNumbers), std::end(kNumbers), isSame) && a.name == b.name &&
           a.color == b.color && a.isOn == b.isOn && a.powerMode == b.powerMode;
}

QVector<FieldRange> penRanges()
{
    QVector<FieldRange> ranges;
    for (const WholeField &field : kWholes)
        ranges.append({QLatin1String(field.name), double(field.least), double(field.most)});
    for (const NumberField &field : kNumbers)
        ranges.append({QLatin1String(field.name), field.least, field.most});
    return ranges;
}

Pen defaultPen(int number)
{
    Pen pen;
    pen.number = number;
    return pen;
}

QVector<Pen> defaultPens()
{
    QVector<Pen> pens;
    for (int number = 1; number <= 16; ++number) {
        pens.append(defaultPen(number));
        pens.last().color = ZTAbstractGraphicsItem::screenPen(number).color();
    }
    return pens;
}

const Pen *findPen(const QVector<Pen> &pens, int number)
{
    const auto found = std::find_if(pens.begin(), pens.end(),
                                    [number](const Pen &pen) { return pen.number == number; });
    return found == pens.end() ? nullptr : &*found;
}

bool readPen(const QJsonObject &object, const QString &path, Pen *pen, QString *error)
{
    JsonFields fields(object, path, error);
    Pen read;
    fields.need("number");
    for (const WholeField &field : kWholes)
        fields.whole(field.name, field.least, field.most, &(read.*field.value));
    for (const NumberField &field : kNumbers)
        fields.number(field.name, field.least, field.most, &(read.*field.value));
    fields.text("name", kName, &read.name);
    fields.flag("isOn", &read.isOn);
    int mode = static_cast<int>(read.powerMode);
    if (!fields.choice("powerMode", powerModes(), &mode) || !readColor(&fields, &read.color) ||
        !fields.finish())
        return false;
    read.powerMode = static_cast<PowerMode>(mode);
    *pen = read;
    return true;
}

QJsonObject penToJson(const Pen &pen)
{
    QJsonObject object;
    for (const WholeField &field : kWholes)
        object.insert(QLatin1String(field.name), pen.*field.value);
    for (const NumberField &field : kNumbers)
        object.insert(QLatin1String(field.name), pen.*field.value);
    object.insert(QStringLiteral("name"), pen.name);
    object.insert(QStringLiteral("color"), pen.color.name());
    object.insert(QStringLiteral("isOn"), pen.isOn);
    object.insert(QStringLiteral("powerMode"), powerModes().at(static_cast<int>(pen.powerMode)));
    return object;
}

} // namespace jobkit
