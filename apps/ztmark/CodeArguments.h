#pragma once

#include "FontArguments.h"

#include <codekit/shape/CodeSettings.h>

#include <optional>
#include <string>

/** The options of `ztmark code` that make a code what it is: kind, size, options, form and text. */
class CodeArguments
{
    Q_DECLARE_TR_FUNCTIONS(CodeArguments)

public:
    /** `command` is borrowed and outlives this. */
    explicit CodeArguments(CLI::App *command) : m_command(command) {}

    void addSize();
    void addOptions();
    void addForm();
    void addHumanText();

    /** Throws a usage error for what this kind lacks, or options that contradict each other. */
    void checkKind(const codekit::CodeKindInfo &info);

    /** Throws a usage error for what has no areas that a hatch could be left of alone. */
    void checkWithoutOutline() const;

    /** Looks the fonts up; false, told on stderr, for one that is not there. */
    bool chooseFont();

    /** Whether there are areas to hatch, not single lines or points alone. */
    bool hasAreas() const;

    codekit::CodeSettings settings;

private:
    bool isGiven(const char *option) const;
    void checkOptions(const codekit::CodeKindInfo &info) const;
    void checkForm(const codekit::CodeKindInfo &info) const;
    void checkHumanText() const;

    CLI::App *m_command; ///< owned by the application it was added to
    QString m_level;     ///< as it was typed: which there are depends on the kind
    FontArguments m_font;
};
