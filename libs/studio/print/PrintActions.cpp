#include <studio/print/PrintActions.h>

#include <studio/print/DrawingPrint.h>
#include <studio/program/Messages.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QFileDialog>

#include <memory>

namespace studio {

namespace {

const QString kFolderKey = QStringLiteral("print/folder");

} // namespace

PrintActions::PrintActions(ZTGraphicsDocument &document, Messages &messages, QWidget &window)
    : QObject(&window), m_document(document), m_messages(messages), m_window(window)
{
}

void PrintActions::choosePrinter()
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    auto *dialog = new QPrintDialog(printer.get(), &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, qOverload<QPrinter *>(&QPrintDialog::accepted), this, [this, printer] {
        const DrawingPrint print(m_document);
        if (print.isEmpty() || !print.paint(*printer))
            m_messages.failure({tr("The drawing was not printed."),
                                print.isEmpty() ? tr("There is nothing to mark.")
                                                : tr("The printer does not take it."),
                                {}});
    });
    dialog->open();
}

void PrintActions::choosePdf()
{
    auto *dialog = new QFileDialog(&m_window, tr("Save as PDF"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("PDF (*.pdf)")});
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->setDirectory(QSettings().value(kFolderKey, QDir::homePath()).toString());
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        if (writePdf(path))
            QSettings().setValue(kFolderKey, QFileInfo(path).absolutePath());
    });
    dialog->open();
}

bool PrintActions::writePdf(const QString &path)
{
    const DrawingPrint print(m_document);
    hostkit::Failure failure;
    const auto write = [&print](QIODevice &device) { return print.writePdf(device); };
    if (print.isEmpty())
        failure.reason = tr("There is nothing to mark.");
    else if (hostkit::saveWhole(path, write, &failure)) {
        Q_EMIT written(path);
        return true;
    }
    m_messages.failure(
        {tr("\"%1\" was not written.").arg(QFileInfo(path).fileName()), failure.reason, {}});
    return false;
}

} // namespace studio
