#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

namespace testsupport {

/** What a controller makes of a program: written from the controller's manual, not the writer. */
struct Burn
{
    QPolygonF machineMm;
    double power = 0.0;
    double feedMmPerMin = 0.0;
    char mode = '5';
    double dwellS = 0.0; ///< how long the beam stood still at its end
};

class Controller
{
public:
    QVector<Burn> burns;
    int pauses = 0;
    QString fault; ///< the first

    void run(const QByteArray &program)
    {
        const QList<QByteArray> lines = program.split('\n');
        for (const QByteArray &line : lines)
            step(QString::fromLatin1(line));
        if (mode != '5')
            fault = QStringLiteral("the laser is on at the end");
        if (!isEnded)
            fault = QStringLiteral("no end");
    }

private:
    void step(const QString &line)
    {
        static const QRegularExpression word(QStringLiteral("([A-Z])(-?[0-9.]+)"));
        const QString code = line.section(QLatin1Char(';'), 0, 0);
        QPointF to = at;
        bool moves = false;
        bool isDwell = false;
        int motionNow = motion;
        auto words = word.globalMatch(code);
        while (words.hasNext()) {
            const auto match = words.next();
            const char letter = match.captured(1).at(0).toLatin1();
            const double value = match.captured(2).toDouble();
            const int whole = static_cast<int>(value);
            if (letter == 'G' && whole <= 1)
                motionNow = whole;
            else if (letter == 'G' && whole == 4)
                isDwell = true;
            else if (letter == 'P' && isDwell)
                dwell(value);
            else if (letter == 'G' && (whole == 20 || whole == 21))
                unitMm = whole == 20 ? 25.4 : 1.0;
            else if (letter == 'G' && whole == 90)
                isAbsolute = true;
            else if (letter == 'M' && whole >= 3 && whole <= 5)
                mode = match.captured(2).at(0).toLatin1();
            else if (letter == 'M' && whole == 0)
                pause();
            else if (letter == 'M' && whole == 2)
                isEnded = true;
            else if (letter == 'S')
                power = value;
            else if (letter == 'F')
                feed = value * unitMm;
            else if (letter == 'X') {
                to.setX(value * unitMm);
                moves = true;
            } else if (letter == 'Y') {
                to.setY(value * unitMm);
                moves = true;
            } else
                fault = QStringLiteral("unknown word in ") + line;
        }
        motion = motionNow;
        if (moves)
            go(to);
    }

    bool isBurning() const { return mode != '5' && power > 0.0; }

    void dwell(double seconds)
    {
        if (mode == '4')
            fault = QStringLiteral("stands still with power that follows the speed");
        if (isBurning() && isOpen)
            burns.last().dwellS += seconds;
        else if (isBurning())
            fault = QStringLiteral("burns before it was told where");
    }

    void pause()
    {
        ++pauses;
        if (mode != '5')
            fault = QStringLiteral("the laser is on in a pause");
        isOpen = false;
    }

    void go(const QPointF &to)
    {
        if (!isAbsolute)
            fault = QStringLiteral("moves before G90");
        if (motion == 0) {
            if (isBurning())
                fault = QStringLiteral("burns during a jump");
            isOpen = false;
        } else {
            if (!isOpen)
                burns.append({QPolygonF(QVector<QPointF>{at}), power, feed, mode});
            isOpen = true;
            if (burns.last().power != power || burns.last().feedMmPerMin != feed)
                fault = QStringLiteral("power or speed changes within a piece");
            burns.last().machineMm.append(to);
        }
        at = to;
    }

    QPointF at;
    int motion = 0;
    double unitMm = 1.0;
    double power = 0.0;
    double feed = 0.0;
    char mode = '5';
    bool isAbsolute = false;
    bool isEnded = false;
    bool isOpen = false;
};

} // namespace testsupport
