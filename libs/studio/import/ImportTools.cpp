#include <studio/import/ImportTools.h>

#include <studio/import/ImportDialog.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QFileDialog>

namespace studio {

namespace {

const QString kFolderKey = QStringLiteral("import/folder");

const QString kPatterns = QStringLiteral(
    "*.svg *.svgz *.dxf *.plt *.hpgl *.hpg *.hgl *.plo *.hp *.SVG *.SVGZ *.DXF *.PLT *.HPGL *.HPG "
    "*.HGL");

} // namespace

ImportTools::ImportTools(ZTGraphicsDocument &document, Messages &messages, QWidget &window)
    : QObject(&window), m_document(document), m_window(window), m_importer(document, messages)
{
}

int ImportTools::tell(int imported)
{
    if (imported > 0)
        Q_EMIT this->imported(m_document.scene()->getSelectionItemRect());
    return imported;
}

int ImportTools::importFiles(const QStringList &paths)
{
    Q_EMIT beginning();
    return tell(m_importer.importFiles(paths));
}

void ImportTools::offer(const QStringList &paths, std::optional<QPointF> scenePx)
{
    Q_EMIT beginning();
    QVector<ReadDrawing> certain;
    QVector<ReadDrawing> guessed;
    const QVector<ReadDrawing> read = m_importer.readAll(paths);
    for (const ReadDrawing &one : read) {
        const bool isGuess = one.drawing.sizeSource == vectorkit::SizeSource::Guessed;
        (isGuess || paths.size() == 1 ? guessed : certain).append(one);
    }
    if (!certain.isEmpty())
        tell(m_importer.bringInAsLast(certain, scenePx));
    offerNext(guessed, scenePx);
}

void ImportTools::offerNext(const QVector<ReadDrawing> &waiting, std::optional<QPointF> scenePx)
{
    if (waiting.isEmpty())
        return;
    connect(offerDrawing(waiting.first(), scenePx), &QDialog::finished, this,
            [this, left = waiting.mid(1), scenePx] { offerNext(left, scenePx); });
}

ImportDialog *ImportTools::offerDrawing(const ReadDrawing &read, std::optional<QPointF> scenePx)
{
    auto *dialog = new ImportDialog(read.path, read.drawing, &m_window);
    connect(dialog, &ImportDialog::chosen, this, [this, dialog, path = read.path, scenePx] {
        const ReadDrawing taken{path, dialog->drawing(), dialog->scale().width(),
                                dialog->scale().height(), dialog->cleaning()};
        tell(m_importer.bringIn({taken}, dialog->options(), scenePx));
    });
    dialog->open();
    return dialog;
}

void ImportTools::offerClipboard()
{
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    QByteArray bytes = held != nullptr ? held->data(QStringLiteral("image/svg+xml")) : QByteArray();
    if (bytes.isEmpty() && held != nullptr)
        bytes = held->text().toUtf8();
    ReadDrawing read;
    if (m_importer.read(bytes, tr("clipboard"), &read))
        offerDrawing(read, std::nullopt);
}

void ImportTools::choose()
{
    auto *dialog = new QFileDialog(&m_window, tr("Import drawings"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({tr("Drawings (%1)").arg(kPatterns), tr("All files (*)")});
    dialog->setDirectory(QSettings().value(kFolderKey, QDir::homePath()).toString());
    connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList &paths) {
        QSettings().setValue(kFolderKey, QFileInfo(paths.first()).absolutePath());
        offer(paths);
    });
    dialog->open();
}

} // namespace studio
