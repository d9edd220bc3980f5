#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <set>

class ZTAbstractGraphicsItem;
class ZTShapeText;

namespace hostkit {

/**
 * Which of the fonts that texts ask for are not here. A name is looked for once, as long as this
 * lives: fonts that come later are found by another one.
 *
 * Order: GUI thread, with a `QGuiApplication`.
 */
class FontCheck
{
public:
    /** The fonts of a text that are not here; none of one without text to show in them. */
    QStringList missingFor(const ZTShapeText &text);

    /** Why an item does not show its words as meant, to follow its name; empty while it does. */
    QString reasonFor(const ZTAbstractGraphicsItem &item);

    /** All that were missed so far, each once, in order. */
    QStringList missing() const;

private:
    void lookForFamily(const QString &family);
    void lookForStrokeFont(const QString &fileName);

    std::set<QString> m_known;
    std::set<QString> m_missing;
};

} // namespace hostkit
