#include <studio/text/StrokeSamples.h>

#include <hostkit/text/FontPlaces.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTextCodec>

#include <cmath>

namespace studio {

namespace {

constexpr int kMostPoints = 20000; ///< of one sample; far more than real letters have
constexpr double kMostWidth = 4000.0;

/** Collects strokes as a path, turned to y downward. */
class StrokePath final : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override { m_isFirst = true; }
    void glEnd() override {}
    void next() override {}

    void glVertex2d(double x, double y) override
    {
        // A painter's numbers are smaller than a damaged font's.
        if (path.elementCount() >= kMostPoints || std::abs(x) > kMostWidth ||
            std::abs(y) > kMostWidth)
            return;
        const QPointF point(x, -y);
        if (!m_isFirst) {
            // Not before there is a line: a move alone is no ink.
            if (path.currentPosition() != m_last || path.isEmpty())
                path.moveTo(m_last);
            path.lineTo(point);
        }
        m_last = point;
        m_isFirst = false;
    }

    QPainterPath path;

private:
    QPointF m_last;
    bool m_isFirst = true;
};

/** Words that show what kind of letters a font has. */
QByteArray wordsFor(SHX_TYPE type)
{
    if (type != SHX_TYPE::SHX_BIGFONT)
        return QByteArrayLiteral("AaBbGg 123");
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    return codec != nullptr ? codec->fromUnicode(QStringLiteral("你好 激光标刻")) : QByteArray();
}

} // namespace

StrokeSamples::StrokeSamples(QObject *parent) : QObject(parent)
{
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &StrokeSamples::makeNext);
}

const QPainterPath *StrokeSamples::sample(const QString &fontName)
{
    const auto found = m_made.constFind(fontName);
    if (found != m_made.constEnd())
        return &*found;
    m_wanted.removeOne(fontName);
    m_wanted.append(fontName);
    m_idleTimer.start();
    return nullptr;
}

void StrokeSamples::makeNext()
{
    if (m_wanted.isEmpty()) {
        m_idleTimer.stop();
        return;
    }
    const QString fontName = m_wanted.takeLast();
    m_made.insert(fontName, draw(hostkit::strokeFontPath(fontName)));
    Q_EMIT ready(fontName);
}

QPainterPath StrokeSamples::draw(const QString &path)
{
    ZTShxParser parser(path.toLocal8Bit().constData());
    parser.setTextHeight(kHeight);
    StrokePath strokes;
    const QByteArray words = wordsFor(parser.GetType());
    parser.drawText(&strokes, words.constData(), 0.0, 0.0);
    return strokes.path;
}

} // namespace studio
