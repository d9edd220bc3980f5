#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace jobkit {

/** What a text field takes. */
struct TextRange
{
    int least = 0;
    int most = 200;
};

/**
 * Takes the fields of one JSON object, each checked; the first fault ends the reading.
 *
 * A field that is left out leaves its value as it was. Every function gives false once there is a
 * fault, and `error` says it with the field's path.
 */
class JsonFields
{
public:
    JsonFields(const QJsonObject &taken, const QString &pathOfObject, QString *whyNot)
        : m_object(taken), m_path(pathOfObject), m_error(whyNot)
    {
    }

    bool need(const char *name);
    bool number(const char *name, double least, double most, double *value);
    bool whole(const char *name, int least, int most, int *value);
    bool flag(const char *name, bool *value);
    bool text(const char *name, const TextRange &range, QString *value);
    bool choice(const char *name, const QStringList &names, int *value);
    bool array(const char *name, int most, QJsonArray *value);
    /** "format" must be this, and "version" 1. */
    bool header(const QString &format);
    /** Whether all went well and no field is left that nobody asked for. */
    bool finish();

    /** Ends the reading at this field. */
    bool refuse(const QString &name, const QString &what);

private:
    bool has(const char *name);

    QJsonObject m_object;
    QString m_path; ///< "pens[2]." or empty
    QString *m_error;
    QSet<QString> m_known;
    bool m_isGood = true;
};

/** "name: 0 to 100 is allowed, not 140"; empty where the value lies in the range. */
QString rangeProblem(const QString &name, double value, double least, double most);

/** "name: 1 to 200 characters are allowed, not 0"; empty where that many are. */
QString lengthProblem(const QString &name, const QString &text, const TextRange &range);

/** "name: a colour as "#rrggbb" is needed" */
QString colorProblem(const QString &name);

/** Limit: bytes of a file that people write, a profile or a material. */
constexpr int kMostJsonBytes = 1024 * 1024;

/** The object that these bytes hold. Failure: false, with the reason and place in `error`. */
bool readJsonObject(const QByteArray &json, QJsonObject *object, QString *error,
                    int mostBytes = kMostJsonBytes);

} // namespace jobkit
