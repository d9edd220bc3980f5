#include "FontFolders.h"

#include "Console.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QFileInfo>

void FontFolders::addOption(CLI::App *command)
{
    command
        ->add_option_function<std::vector<std::string>>(
            "--font-dir",
            [this](const std::vector<std::string> &folders) {
                for (const std::string &folder : folders)
                    names << QString::fromStdString(folder);
            },
            tr("More stroke fonts than those that come with the program").toStdString())
        ->type_name("DIR")
        ->allow_extra_args(false);
}

bool FontFolders::makeKnown() const
{
    for (const QString &folder : names) {
        if (!QFileInfo(folder).isDir()) {
            console::complain(folder.toStdString(), tr("no such folder"));
            return false;
        }
        ZTShxFontManager::addFolder(folder);
    }
    return true;
}
