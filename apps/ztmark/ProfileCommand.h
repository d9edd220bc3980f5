#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

#include <string>

/** `ztmark profile`: which machines are known, and what stands in a profile. */
class ProfileCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(ProfileCommand)

public:
    explicit ProfileCommand(CLI::App &app);

    int run() override;

private:
    CLI::App *addPart(const char *name, const QString &help);
    int list() const;

    CLI::App *m_listCommand = nullptr; ///< this and the next two: owned by the application
    CLI::App *m_showCommand = nullptr;
    CLI::App *m_checkCommand = nullptr;
    std::string m_profileName;
};
