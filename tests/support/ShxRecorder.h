#pragma once

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace testsupport {

/** Writes down every call of a glyph callback. */
class ShxRecorder : public ZTAbstractGlyphCallback
{
public:
    struct Call
    {
        char kind; ///< B for a begun stroke, V for a point, E for an ended one, N for a character
        double x;
        double y;

        bool operator==(const Call &other) const;
    };

    void glBegin() override { calls.append({'B', 0, 0}); }
    void glVertex2d(double x, double y) override { calls.append({'V', x, y}); }
    void glEnd() override { calls.append({'E', 0, 0}); }
    void next() override { calls.append({'N', 0, 0}); }

    /** The calls as "B 0,0 2,0 E", all digits. */
    QString text() const;

    QVector<Call> calls;
};

/** Reads what `ShxRecorder::text` writes. */
QVector<ShxRecorder::Call> parseCalls(const QString &text);

/** Whether both are the same calls with points within the tolerance; prints both sides if not. */
bool nearCalls(const ShxRecorder &actual, const QString &expected, double tolerance = 1e-9);

} // namespace testsupport
