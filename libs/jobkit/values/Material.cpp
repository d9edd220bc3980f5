#include <jobkit/values/Material.h>

#include <jobkit/values/JsonFields_p.h>
#include <jobkit/values/PenFields_p.h>

#include <QtCore/QJsonDocument>

namespace jobkit {

namespace {

constexpr int kMostPens = 9999;
constexpr TextRange kName{1, 200};
QString format() { return QStringLiteral("job-pens"); }

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(jobkit::Material)
};

QString pathOf(int index) { return QStringLiteral("pens[%1].").arg(index); }

QString twiceProblem(int index, int number)
{
    return Texts::tr("%1number: pen %2 is there already").arg(pathOf(index)).arg(number);
}

bool readPens(const QJsonArray &list, QVector<Pen> *pens, QString *error)
{
    QSet<int> numbers;
    for (int i = 0; i < list.size(); ++i) {
        Pen pen;
        if (!readPen(list.at(i).toObject(), pathOf(i), &pen, error))
            return false;
        if (numbers.contains(pen.number)) {
            *error = twiceProblem(i, pen.number);
            return false;
        }
        numbers.insert(pen.number);
        pens->append(pen);
    }
    return true;
}

} // namespace

QString Material::problem() const
{
    QSet<int> numbers;
    for (int i = 0; i < pens.size(); ++i) {
        const QString what = pens[i].problem();
        if (!what.isEmpty())
            return pathOf(i) + what;
        if (numbers.contains(pens[i].number))
            return twiceProblem(i, pens[i].number);
        numbers.insert(pens[i].number);
    }
    return lengthProblem(QStringLiteral("name"), name, kName);
}

bool operator==(const Material &a, const Material &b)
{
    return a.name == b.name && a.pens == b.pens;
}

QByteArray writeMaterial(const Material &material)
{
    QJsonArray list;
    for (const Pen &pen : material.pens)
        list.append(penToJson(pen));
    const QJsonObject object{{QStringLiteral("format"), format()},
                             {QStringLiteral("version"), 1},
                             {QStringLiteral("name"), material.name},
                             {QStringLiteral("pens"), list}};
    return QJsonDocument(object).toJson();
}

bool readMaterial(const QByteArray &json, Material *material, QString *error)
{
    QString ignored;
    QString *const why = error != nullptr ? error : &ignored;
    QJsonObject object;
    if (!readJsonObject(json, &object, why))
        return false;
    JsonFields fields(object, QString(), why);
    Material read;
    QJsonArray list;
    if (!fields.header(format()) || !fields.need("name") ||
        !fields.text("name", kName, &read.name) || !fields.need("pens") ||
        !fields.array("pens", kMostPens, &list) || !fields.finish() ||
        !readPens(list, &read.pens, why))
        return false;
    *material = read;
    return true;
}

} // namespace jobkit
