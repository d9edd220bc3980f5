#include <hostkit/files/JsonKeys.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QSet>
#include <QtCore/QVector>

namespace hostkit {

namespace {

/** An object or array that is open. */
struct Level
{
    bool isObject = false;
    bool expectsKey = false;
    QSet<QString> keys;
};

/** Behind the closing quote of the string that begins at `begin`; the end if there is none. */
int endOfString(const QByteArray &json, int begin)
{
    for (int i = begin + 1; i < json.size(); ++i) {
        if (json[i] == '\\')
            ++i;
        else if (json[i] == '"')
            return i + 1;
    }
    return json.size();
}

/** Escapes resolved: "\u0061" is the same key as "a". */
QString keyOf(const QByteArray &quoted)
{
    return QJsonDocument::fromJson('[' + quoted + ']').array().first().toString();
}

} // namespace

std::optional<QString> jsonKeyTwice(const QByteArray &json)
{
    QVector<Level> open(1);
    for (int i = 0; i < json.size(); ++i) {
        Level &level = open.last();
        switch (json[i]) {
        case '"': {
            const int end = endOfString(json, i);
            if (level.expectsKey) {
                const QString key = keyOf(json.mid(i, end - i));
                if (level.keys.contains(key))
                    return key;
                level.keys.insert(key);
                level.expectsKey = false;
            }
            i = end - 1;
            break;
        }
        case '{':
            open.append({true, true, {}});
            break;
        case '[':
            open.append(Level());
            break;
        case '}':
        case ']':
            if (open.size() > 1)
                open.removeLast();
            break;
        case ',':
            level.expectsKey = level.isObject;
            break;
        default:
            break;
        }
    }
    return std::nullopt;
}

} // namespace hostkit
