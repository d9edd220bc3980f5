#pragma once

#include <codekit/CodeMarks.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>

namespace codekit {

/** Where the text for people stands. The values are written to drawings: they stay. */
enum class HumanPlace : quint8 { None = 0, Above = 1, Below = 2 };

/** The text for people beside a code. Lengths are millimetres. */
struct HumanText
{
    HumanPlace place = HumanPlace::None;  ///< above, below or nowhere
    FontType kind = FontType::doubleLine; ///< system font or stroke font
    QFont font;                 ///< family and style of the system font; its size is not looked at
    QString enName;             ///< file of the stroke font for letters
    QString zhName;             ///< file of the stroke font for Chinese
    double heightMm = 2.0;      ///< of capital letters; greater than 0
    double widthFactor = 1.0;   ///< 1 leaves the letters as the font has them; greater than 0
    double charSpacingMm = 0.0; ///< added behind each letter; may be negative
};

/** All that makes a code out of a content. A value. */
struct CodeSettings
{
    CodeSpec spec;               ///< its content is not looked at: the shape has it
    CodeForm form;               ///< of the part as it is before the shape's transform
    HumanText human;             ///< the text for people
    bool isSizedByWidth = false; ///< `widthMm` tells the module, not `form`
    double widthMm = 10.0;       ///< without the quiet zone; greater than 0
    bool showsQuietZone = false; ///< on the screen; it is never marked
};

bool operator==(const CodeSettings &a, const CodeSettings &b);
bool operator!=(const CodeSettings &a, const CodeSettings &b);

/** The settings as a drawing holds them; the content is left out. */
QByteArray codeSettingsToBytes(const CodeSettings &settings);

/**
 * Reads what `codeSettingsToBytes` wrote.
 *
 * Failure: false for anything else, and for settings of a later version; `settings` stays.
 */
bool codeSettingsFromBytes(const QByteArray &bytes, CodeSettings *settings);

/** Lengths multiplied, as by a shape's transform; whoever enlarges a code enlarges all of it. */
CodeSettings enlarged(const CodeSettings &settings, double factor);

} // namespace codekit
