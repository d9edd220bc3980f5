#pragma once

#include "FontFolders.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

/** The options `--font`, `--font-pair` and `--font-dir`: the letters of a text. */
class FontArguments
{
    Q_DECLARE_TR_FUNCTIONS(FontArguments)

public:
    /** `command` is borrowed and outlives this. */
    void addOptions(CLI::App *command);

    /** Throws a usage error for options that contradict each other. */
    void checkTogether() const;

    bool isGiven() const { return !m_regularFont.isEmpty() || !m_family.isEmpty(); }
    bool isStrokeFont() const { return !m_regularFont.isEmpty(); }

    /** Looks the fonts up; false, told on stderr, for one that is not there. */
    bool choose(ZTFontParam *font) const;

private:
    bool chooseSystemFont(ZTFontParam *font) const;

    QString m_regularFont; ///< file names; empty without stroke fonts
    QString m_bigFont;
    QString m_family; ///< of a system font; empty for the default one
    FontFolders m_folders;
};
