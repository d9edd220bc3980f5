#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <string>
#include <vector>

/** `ztmark font`: which fonts there are, what is in a stroke font, and how it looks. */
class FontCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(FontCommand)

public:
    explicit FontCommand(CLI::App &app);

    int run() override;

private:
    void addList();
    void addInfo();
    void addSheet();
    void addFile(CLI::App *part);
    void addFolders(CLI::App *part);
    int list() const;
    int info() const;
    int sheet() const;
    bool listStrokeFonts() const;
    QStringList folders() const;
    QString fontPath() const;

    CLI::App *listCommand = nullptr; ///< this and the next two: owned by the application
    CLI::App *infoCommand = nullptr;
    CLI::App *sheetCommand = nullptr;
    std::string file;
    std::vector<std::string> moreFolders;
    std::vector<std::string> outputs;
    bool systemFonts = false;
    bool quiet = false;
};
