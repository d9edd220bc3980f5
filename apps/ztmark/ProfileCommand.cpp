#include "ProfileCommand.h"

#include "Console.h"
#include "InfoRows.h"
#include "MachineFiles.h"

using inforows::rounded;

namespace {

constexpr int kNameWidth = 15;

} // namespace

ProfileCommand::ProfileCommand(CLI::App &app)
    : Command(app, "profile", tr("List, show and check machine profiles"))
{
    m_command->require_subcommand(1);
    m_listCommand = m_command->add_subcommand("list", tr("The profiles on board").toStdString());
    m_showCommand = addPart("show", tr("Print a profile as JSON, as a start for one's own"));
    m_checkCommand = addPart("check", tr("Say whether a profile is without fault"));
}

CLI::App *ProfileCommand::addPart(const char *name, const QString &help)
{
    CLI::App *part = m_command->add_subcommand(name, help.toStdString());
    part->add_option("PROFILE", m_profileName, tr("A name on board, or a file").toStdString())
        ->required()
        ->type_name("");
    return part;
}

int ProfileCommand::run()
{
    if (m_listCommand->parsed())
        return list();
    jobkit::MachineProfile profile;
    if (!machinefiles::readProfile(m_profileName, &profile))
        return console::Failed;
    if (m_showCommand->parsed())
        console::print(QString::fromUtf8(jobkit::writeProfile(profile)).trimmed());
    else
        console::print(tr("%1: without fault").arg(profile.name));
    return console::finishOutput() ? console::Done : console::Failed;
}

int ProfileCommand::list() const
{
    const QStringList names = jobkit::profilesOnBoard();
    for (const QString &name : names) {
        jobkit::MachineProfile profile;
        jobkit::profileOnBoard(name, &profile);
        const QString kind =
            profile.kind == jobkit::MachineKind::Galvo ? tr("galvo head") : tr("gantry");
        console::printRow(
            name,
            tr("%1, field of %2 x %3 mm")
                .arg(kind, rounded(profile.fieldWidthMm), rounded(profile.fieldHeightMm)),
            kNameWidth);
    }
    return console::finishOutput() ? console::Done : console::Failed;
}
