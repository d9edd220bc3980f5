#include "ShxRecorder.h"

#include <QtCore/QStringList>
#include <QtCore/QtDebug>

#include <cmath>
#include <cstring>

namespace testsupport {

bool ShxRecorder::Call::operator==(const Call &other) const
{
    return kind == other.kind && std::memcmp(&x, &other.x, sizeof x) == 0 &&
           std::memcmp(&y, &other.y, sizeof y) == 0;
}

QString ShxRecorder::text() const
{
    QStringList words;
    for (const Call &call : calls) {
        if (call.kind == 'V')
            words << QStringLiteral("%1,%2").arg(call.x, 0, 'g', 17).arg(call.y, 0, 'g', 17);
        else
            words << QString(QLatin1Char(call.kind));
    }
    return words.join(QLatin1Char(' '));
}

QVector<ShxRecorder::Call> parseCalls(const QString &text)
{
    QVector<ShxRecorder::Call> calls;
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QStringList numbers = word.split(QLatin1Char(','));
        if (numbers.size() == 2)
            calls.append({'V', numbers[0].toDouble(), numbers[1].toDouble()});
        else
            calls.append({word[0].toLatin1(), 0, 0});
    }
    return calls;
}

bool nearCalls(const ShxRecorder &actual, const QString &expected, double tolerance)
{
    const QVector<ShxRecorder::Call> wanted = parseCalls(expected);
    bool equal = actual.calls.size() == wanted.size();
    for (int i = 0; equal && i < wanted.size(); ++i) {
        const ShxRecorder::Call &call = actual.calls[i];
        equal = call.kind == wanted[i].kind && std::abs(call.x - wanted[i].x) <= tolerance &&
                std::abs(call.y - wanted[i].y) <= tolerance;
    }
    if (!equal)
        qWarning().noquote() << "actual  " << actual.text() << "\nexpected" << expected;
    return equal;
}

} // namespace testsupport
