#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtGui/QPainterPath>

namespace studio {

/**
 * Samples of stroke fonts, each drawn in itself.
 *
 * A sample that is asked for is made when the program has nothing else to do, one file at a time
 * and the one asked for last first, so that a list of any number of fonts shows and scrolls at
 * once. Fonts are read for the sample alone: text heights that drawings share are left alone.
 */
class StrokeSamples : public QObject
{
    Q_OBJECT

public:
    /** Frame of a sample: y downward, base line at 0, tops of capitals at minus this. */
    static constexpr double kHeight = 100.0;

    explicit StrokeSamples(QObject *parent = nullptr);

    /** The strokes of a font, or null while they are not made yet; empty if it has none. */
    const QPainterPath *sample(const QString &fontName);

    /** Makes one at once. */
    static QPainterPath draw(const QString &path);

Q_SIGNALS:
    void ready(const QString &fontName);

private:
    void makeNext();

    QHash<QString, QPainterPath> m_made;
    QStringList m_wanted; ///< the last is the next to be made
    QTimer m_idleTimer;
};

} // namespace studio
