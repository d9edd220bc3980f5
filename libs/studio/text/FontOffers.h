#pragma once

#include <studio/text/TextSettings.h>

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace studio {

/** Fonts that a text could be drawn in. */
struct FontOffer
{
    FontType kind = FontType::singleLine;
    QString enName; ///< stroke fonts
    QString zhName;
    QString family; ///< system font

    QString shown() const; ///< names for people, file names without their ends

    void applyTo(TextSettings *settings) const;
};

/**
 * What is to be said of a font whose family is not installed: its name, and what stands in for it.
 * Empty for one that is.
 */
QString missingFamilyNote(const QFont &font);

/** The characters of a text that the fonts of the settings do not draw, each once. */
QStringList missingCharacters(const QString &text, const TextSettings &settings);

/**
 * Fonts that draw every character of a text, those that change least first; stroke fonts before
 * system fonts, of which there is one at most. Empty where none does.
 */
QVector<FontOffer> fontsThatDraw(const QString &text, const TextSettings &settings);

} // namespace studio
