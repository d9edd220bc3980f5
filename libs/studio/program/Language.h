#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QTranslator;
QT_END_NAMESPACE

namespace studio {

/** What the user chose as the program's language. */
enum class LanguageChoice { System, English, Chinese };

/**
 * The language of the whole program: the studio's texts, the library's and Qt's own.
 *
 * The choice is remembered, and holds for the process as long as this lives. Every widget is told
 * of a change by `QEvent::LanguageChange`.
 *
 * Limit: Qt's own dialogs stay English where its Chinese catalogue is not installed.
 */
class Language
{
public:
    /** Takes up the remembered choice; the system's language if there is none. */
    Language();
    ~Language();

    LanguageChoice choice() const { return m_chosen; }

    /** Switches at once, and remembers. */
    void choose(LanguageChoice choice);

private:
    void apply();
    void load(const QString &name, const QString &folder);

    LanguageChoice m_chosen;
    bool m_isChinese = false;
    std::vector<std::unique_ptr<QTranslator>> m_catalogues;
};

/**
 * The locale of dates among the program's texts: the system's where it speaks the language of the
 * texts, else that of their language.
 */
QLocale textLocale();

} // namespace studio
