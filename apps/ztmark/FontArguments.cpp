#include "FontArguments.h"

#include "Console.h"
#include "Usage.h"

#include <hostkit/text/FontPlaces.h>
#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFont.h>

#include <QtWidgets/QApplication>

using usage::addValue;

void FontArguments::addOptions(CLI::App *command)
{
    const auto setPair = [this](const std::string &text) {
        const QString pair = arguments::text(text);
        m_regularFont = pair.section(QLatin1Char(','), 0, 0).trimmed();
        m_bigFont = pair.section(QLatin1Char(','), 1).trimmed();
        if (m_regularFont.isEmpty())
            arguments::refuse(text, tr("\"%1\" names no font, write REGULAR.shx,BIG.shx"));
    };
    addValue(command, "--font-pair",
             tr("Stroke fonts, the big one for Chinese; without it the first one found"), setPair)
        ->type_name("REG.shx[,BIG.shx]");
    addValue(command, "--font", tr("Family of a system font; else the system's usual font"),
             [this](const std::string &text) {
                 m_family = arguments::text(text);
                 if (m_family.isEmpty())
                     arguments::refuse(text, tr("\"%1\" names no font"));
             })
        ->type_name("FAMILY");
    m_folders.addOption(command);
}

void FontArguments::checkTogether() const
{
    if (!m_regularFont.isEmpty() && !m_family.isEmpty())
        usage::refuse("--font", tr("cannot be given together with --font-pair"));
}

bool FontArguments::choose(ZTFontParam *font) const
{
    if (!m_folders.makeKnown())
        return false;
    if (m_regularFont.isEmpty())
        return chooseSystemFont(font);
    font->fontType = FontType::singleLine;
    hostkit::Failure failure;
    const QStringList folders = hostkit::fontFolders() + m_folders.names;
    if (hostkit::strokeFont(m_regularFont, m_bigFont, folders, &font->shxFont, &failure))
        return true;
    console::complain(failure.reason.toStdString());
    return false;
}

bool FontArguments::chooseSystemFont(ZTFontParam *font) const
{
    font->fontType = FontType::doubleLine;
    font->font = QApplication::font();
    if (m_family.isEmpty())
        return true;
    if (!hostkit::hasSystemFont(m_family)) {
        console::complain(tr("no system font %1, ztmark font list --system tells them")
                              .arg(m_family)
                              .toStdString());
        return false;
    }
    font->font.setFamily(m_family);
    return true;
}
