#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <ZTDrawEngineLib/common/LetterOutlines_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QCache>
#include <QtCore/QDataStream>
#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QThread>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainterPath>

namespace {

/** Limit: texts that are remembered; longer ones seldom come again. */
constexpr int kLongestRemembered = 100;

/** Limit: points of all outlines that are remembered, some 3 MB. */
constexpr int kRememberedPoints = 100000;

/** Limit: fonts whose letters are remembered, some 100 KB each. */
constexpr int kRememberedFonts = 50;

template <class... Fields>
QByteArray bytesOf(const Fields &...fields)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    (stream << ... << fields);
    return bytes;
}

/** All that the letters of a font depend on; the height tells the resolution of the screen. */
QByteArray keyOf(const QFont &font) { return bytesOf(font, QFontMetricsF(font).height()); }

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

    ztoutline::LetterOutlines &lettersOf(const QByteArray &fontKey, const QFont &font)
    {
        if (ztoutline::LetterOutlines *letters = m_letters.object(fontKey))
            return *letters;
        auto *letters = new ztoutline::LetterOutlines(font);
        m_letters.insert(fontKey, letters);
        return *letters;
    }

    void forget()
    {
        m_outlines.clear();
        m_letters.clear();
        ++m_generation;
    }

    int generation() const { return m_generation; }

private:
    RememberedOutlines() : m_outlines(kRememberedPoints), m_letters(kRememberedFonts) {}

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
    QCache<QByteArray, ztoutline::LetterOutlines> m_letters;
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
        path.addPath(LetterOutlines(font).outlineOf(text, position));
        return;
    }
    const QByteArray fontKey = keyOf(font);
    const QByteArray key = fontKey + bytesOf(position, text);
    if (const QPainterPath *outline = remembered->find(key)) {
        path.addPath(*outline);
        return;
    }
    const QPainterPath outline = remembered->lettersOf(fontKey, font).outlineOf(text, position);
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
