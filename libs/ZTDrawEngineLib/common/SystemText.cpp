#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QCache>
#include <QtCore/QDataStream>
#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QThread>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGlyphRun>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainterPath>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>

namespace {

/** The letters of `text` with the fonts that they are taken from, fonts that stand in included. */
QList<QGlyphRun> glyphRunsOf(const QFont &font, const QString &text)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    while (layout.createLine().isValid()) {
        // All lines: separators inside the text begin further ones.
    }
    layout.endLayout();
    return layout.glyphRuns();
}

/**
 * Lets the font file of `rawFont` forget where the last letter was painted.
 *
 * Letters are painted at fractions of a pixel. The rasteriser keeps that shift with the file, for
 * all sizes, and adds it to outlines that are asked for next. Opening the file at another size
 * sets the shift to zero.
 */
void forgetLastPainted(QRawFont rawFont) { rawFont.setPixelSize(rawFont.pixelSize() + 1.0); }

void drawText(QPainterPath &path, const QPointF &position, const QFont &font, const QString &text)
{
    const QList<QGlyphRun> runs = glyphRunsOf(font, text);
    for (const QGlyphRun &run : runs)
        forgetLastPainted(run.rawFont());
    path.addText(position, font, text);
}

/** Limit: texts that are remembered; longer ones seldom come again. */
constexpr int kLongestRemembered = 100;

/** Limit: points of all outlines that are remembered, some 3 MB. */
constexpr int kRememberedPoints = 100000;

/** All that an outline depends on; the height tells the resolution of the screen. */
QByteArray keyOf(const QPointF &position, const QFont &font, const QString &text)
{
    QByteArray key;
    QDataStream stream(&key, QIODevice::WriteOnly);
    stream << font << QFontMetricsF(font).height() << position << text;
    return key;
}

/**
 * Outlines asked for last: a text is laid out several times while it is made, loaded or dragged.
 *
 * Laying it out runs the font's own programs for every letter, a hundred times as long as to copy
 * the outline. For the thread of the program's windows alone; fonts that come or go empty it.
 */
class RememberedOutlines
{
public:
    /** Null in other threads, and without a program that could tell of new fonts. */
    static RememberedOutlines *ofThisThread()
    {
        static RememberedOutlines instance;
        if (qGuiApp == nullptr || QThread::currentThread() != qGuiApp->thread())
            return nullptr;
        instance.follow(qGuiApp);
        return &instance;
    }

    const QPainterPath *find(const QByteArray &key) const { return m_outlines.object(key); }

    void keep(const QByteArray &key, const QPainterPath &outline)
    {
        m_outlines.insert(key, new QPainterPath(outline), 1 + outline.elementCount());
    }

    void forget()
    {
        m_outlines.clear();
        ++m_generation;
    }

    int generation() const { return m_generation; }

private:
    RememberedOutlines() : m_outlines(kRememberedPoints) {}

    void follow(QGuiApplication *program)
    {
        if (m_program == program)
            return;
        forget();
        m_program = program;
        QObject::connect(program, &QGuiApplication::fontDatabaseChanged, program,
                         [this] { forget(); });
    }

    QCache<QByteArray, QPainterPath> m_outlines;
    int m_generation = 0;                ///< how often they were forgotten
    QPointer<QGuiApplication> m_program; ///< whose fonts they are of
};

} // namespace

void ztoutline::addText(QPainterPath &path, const QPointF &position, const QFont &font,
                        const QString &text)
{
    if (text.isEmpty())
        return;
    RememberedOutlines *const remembered =
        text.size() > kLongestRemembered ? nullptr : RememberedOutlines::ofThisThread();
    if (remembered == nullptr) {
        drawText(path, position, font, text);
        return;
    }
    const QByteArray key = keyOf(position, font, text);
    if (const QPainterPath *outline = remembered->find(key)) {
        path.addPath(*outline);
        return;
    }
    QPainterPath outline;
    drawText(outline, position, font, text);
    path.addPath(outline);
    remembered->keep(key, outline);
}

int ztoutline::fontGeneration()
{
    const RememberedOutlines *const remembered = RememberedOutlines::ofThisThread();
    return remembered != nullptr ? remembered->generation() : 0;
}

void ztoutline::forgetTexts()
{
    if (RememberedOutlines *remembered = RememberedOutlines::ofThisThread())
        remembered->forget();
}
