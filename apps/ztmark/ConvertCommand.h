#pragma once

#include "FontFolders.h"
#include "ForeignFiles.h"
#include "InputFiles.h"
#include "OpenedDrawing.h"

#include <common/Command.h>

#include <QtCore/QCoreApplication>

#include <string>

/** `ztmark convert`: foreign drawings become a drawing, or a drawing is saved anew. */
class ConvertCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(ConvertCommand)

public:
    explicit ConvertCommand(CLI::App &app);

    int run() override;

private:
    static bool isDrawingName(const std::string &name);

    void addOutput();
    void takeOutput();
    void checkDrawing() const;
    int importForeignFiles(Progress &progress);
    int saveAnew(Progress &progress) const;
    int save(ZTGraphicsDocument &document, Progress &progress) const;

    InputFiles m_files;
    std::string m_output;
    ForeignFiles m_foreign;
    FontFolders m_fonts;
};
