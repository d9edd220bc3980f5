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

    CLI::App *m_listCommand = nullptr; ///< this and the next two: owned by the application
    CLI::App *m_infoCommand = nullptr;
    CLI::App *m_sheetCommand = nullptr;
    std::string m_file;
    std::vector<std::string> m_moreFolders;
    std::vector<std::string> m_outputs;
    bool m_systemFonts = false;
    bool m_quiet = false;
};
