#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

/** The option `--font-dir`: where stroke fonts are, beside those in the folder "font". */
class FontFolders
{
    Q_DECLARE_TR_FUNCTIONS(FontFolders)

public:
    void addOption(CLI::App *command);

    /** Makes the folders known to the library; false, told on stderr, for one that is not there. */
    bool makeKnown() const;

    QStringList names;
};
