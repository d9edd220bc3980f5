#include <jobkit/values/JsonFields_p.h>

#include <hostkit/files/JsonKeys.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonDocument>
#include <QtCore/QLocale>

#include <cmath>

namespace jobkit {

namespace {

constexpr int kLongestName = 100; // of a field that is not known, in a message

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(jobkit::JsonFields)
};

QString numberText(double value) { return QString::number(value, 'g', 10); }

} // namespace

QString rangeProblem(const QString &name, double value, double least, double most)
{
    if (value >= least && value <= most) // false also where it is no number
        return {};
    return Texts::tr("%1: %2 to %3 is allowed, not %4")
        .arg(name, numberText(least), numberText(most), numberText(value));
}

QString lengthProblem(const QString &name, const QString &text, const TextRange &range)
{
    if (text.size() >= range.least && text.size() <= range.most)
        return {};
    return Texts::tr("%1: %2 to %3 characters are allowed, not %4")
        .arg(name, QString::number(range.least), QString::number(range.most),
             QString::number(text.size()));
}

QString colorProblem(const QString &name)
{
    return Texts::tr("%1: a colour as \"#rrggbb\" is needed").arg(name);
}

bool readJsonObject(const QByteArray &json, QJsonObject *object, QString *error, int mostBytes)
{
    const auto fail = [error](const QString &what) {
        if (error != nullptr)
            *error = what;
        return false;
    };
    if (json.size() > mostBytes)
        return fail(Texts::tr("larger than %1 bytes").arg(mostBytes));
    if (const std::optional<QString> twice = hostkit::jsonKeyTwice(json))
        return fail(Texts::tr("%1: stands twice").arg(twice->left(kLongestName)));
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const int line = json.left(problem.offset).count('\n') + 1;
        return fail(Texts::tr("no JSON: line %1").arg(line));
    }
    if (!document.isObject())
        return fail(Texts::tr("no JSON object"));
    *object = document.object();
    return true;
}

bool JsonFields::refuse(const QString &name, const QString &what)
{
    if (m_isGood && m_error != nullptr)
        *m_error = m_path + (what.isEmpty() ? name : what.arg(name.left(kLongestName)));
    m_isGood = false;
    return false;
}

bool JsonFields::has(const char *name)
{
    const QString key = QLatin1String(name);
    m_known.insert(key);
    return m_isGood && m_object.contains(key);
}

bool JsonFields::need(const char *name)
{
    if (m_isGood && !has(name))
        return refuse(QLatin1String(name), Texts::tr("%1: is missing"));
    return m_isGood;
}

bool JsonFields::number(const char *name, double least, double most, double *value)
{
    if (!has(name))
        return m_isGood;
    const QJsonValue found = m_object.value(QLatin1String(name));
    if (!found.isDouble())
        return refuse(QLatin1String(name), Texts::tr("%1: a number is needed"));
    const QString problem = rangeProblem(QLatin1String(name), found.toDouble(), least, most);
    if (!problem.isEmpty())
        return refuse(problem, QString());
    *value = found.toDouble();
    return true;
}

bool JsonFields::whole(const char *name, int least, int most, int *value)
{
    double found = *value;
    if (!number(name, least, most, &found))
        return false;
    if (found != std::floor(found))
        return refuse(QLatin1String(name), Texts::tr("%1: a whole number is needed"));
    *value = static_cast<int>(found);
    return true;
}

bool JsonFields::flag(const char *name, bool *value)
{
    if (!has(name))
        return m_isGood;
    const QJsonValue found = m_object.value(QLatin1String(name));
    if (!found.isBool())
        return refuse(QLatin1String(name), Texts::tr("%1: true or false is needed"));
    *value = found.toBool();
    return true;
}

bool JsonFields::text(const char *name, const TextRange &range, QString *value)
{
    if (!has(name))
        return m_isGood;
    const QJsonValue found = m_object.value(QLatin1String(name));
    if (!found.isString())
        return refuse(QLatin1String(name), Texts::tr("%1: a text is needed"));
    const QString problem = lengthProblem(QLatin1String(name), found.toString(), range);
    if (!problem.isEmpty())
        return refuse(problem, QString());
    *value = found.toString();
    return true;
}

bool JsonFields::choice(const char *name, const QStringList &names, int *value)
{
    if (!has(name))
        return m_isGood;
    const QJsonValue found = m_object.value(QLatin1String(name));
    const int index = found.isString() ? names.indexOf(found.toString()) : -1;
    if (index < 0) {
        const QString what = Texts::tr("%1: one of %2 is needed");
        return refuse(what.arg(QLatin1String(name), names.join(QLatin1String(", "))), QString());
    }
    *value = index;
    return true;
}

bool JsonFields::array(const char *name, int most, QJsonArray *value)
{
    if (!has(name))
        return m_isGood;
    const QJsonValue found = m_object.value(QLatin1String(name));
    if (!found.isArray())
        return refuse(QLatin1String(name), Texts::tr("%1: a list is needed"));
    if (found.toArray().size() > most) {
        const QString what = Texts::tr("%1: at most %2 entries are allowed");
        return refuse(what.arg(QLatin1String(name), QString::number(most)), QString());
    }
    *value = found.toArray();
    return true;
}

bool JsonFields::header(const QString &format)
{
    int version = 0;
    if (!need("format") || !choice("format", {format}, &version) || !need("version") ||
        !whole("version", 1, 1000000, &version))
        return false;
    if (version != 1)
        return refuse(QLatin1String("version"), Texts::tr("%1: is newer than this program"));
    return true;
}

bool JsonFields::finish()
{
    if (!m_isGood)
        return false;
    const QStringList keys = m_object.keys();
    for (const QString &key : keys) {
        if (!m_known.contains(key))
            return refuse(key, Texts::tr("%1: no such field"));
    }
    return true;
}

} // namespace jobkit
