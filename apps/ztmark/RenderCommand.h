#pragma once

#include "FontFolders.h"
#include "InputFiles.h"

#include <common/Command.h>
#include <hostkit/files/Failure.h>

#include <QtCore/QCoreApplication>

#include <string>

class OpenedDrawing;
class Progress;
class ZTGraphicsDocument;

/** `ztmark render`: a picture of a drawing. */
class RenderCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(RenderCommand)

public:
    explicit RenderCommand(CLI::App &app);

    int run() override;

private:
    void addOutput();
    void checkTogether() const;
    bool open(OpenedDrawing &drawing, Progress &progress) const;
    bool save(ZTGraphicsDocument &document, hostkit::Failure *failure) const;
    bool asPaths() const;

    InputFiles m_files;
    std::string m_output;
    int m_longerSidePx;
    FontFolders m_fonts;
};
