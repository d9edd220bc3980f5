#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QHash>
#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QFont>
#include <QtGui/QPainterPath>

QT_BEGIN_NAMESPACE
class QGlyphRun;
QT_END_NAMESPACE

namespace ztoutline {

/**
 * Outlines of texts in one font, put together from letters that were laid out before.
 *
 * Serial numbers, dates and names have a font in common and no two are alike. Every text gets, to
 * the last bit, what the path lays out for it; that runs the font's own programs for each letter, a
 * hundred times as long as to move its outline.
 *
 * A letter is trusted once it stood in a text that was laid out and compared. A font whose letters
 * don't make up its texts is noticed so, and takes no further part; neither do texts of anything
 * but ASCII, or in which letters are joined.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT LetterOutlines
{
public:
    explicit LetterOutlines(const QFont &usedFont) : m_font(usedFont) {}

    /** The outline of `text` with its baseline beginning at `position`. */
    QPainterPath outlineOf(const QString &text, const QPointF &position);

    /** How often the path laid out a text or a letter; for tests. */
    [[nodiscard]] int layoutCount() const { return m_layoutCount; }

private:
    struct Letter
    {
        QPainterPath outline; ///< at the origin
        QPointF glyphPos;
        quint32 glyph = 0;
        bool isFound = false;
        bool isTrusted = false;
    };
    /** A letter of a text, and how far it is away from where its outline is. */
    struct Placed
    {
        Letter *letter = nullptr;
        QPointF by;
    };

    Letter &letterOf(QChar character);
    QVector<Placed> placedLetters(const QString &text, const QPointF &position,
                                  const QList<QGlyphRun> &runs);

    QPainterPath laidOut(const QString &text, const QPointF &position,
                         const QList<QGlyphRun> &runs);

    QFont m_font;
    int m_textCount = 0;
    int m_layoutCount = 0;
    bool m_composes = true;
    QHash<QChar, Letter> m_letters;
};

} // namespace ztoutline
