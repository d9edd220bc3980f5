#pragma once

#include <studio/import/Importer.h>

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class ImportDialog;

/** Brings foreign drawings in as a user asks for it: from files, the clipboard, the file manager.
 */
class ImportTools : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this. Dialogs open over `window`. */
    ImportTools(ZTGraphicsDocument &document, Messages &messages, QWidget &window);

    Importer &importer() { return m_importer; }

    /** Asks for files. */
    void choose();

    /** Offers the SVG drawing that another program has copied. */
    void offerClipboard();

    /**
     * One drawing is shown before it comes in. Several come in as the last one did, but for those
     * whose size can only be guessed: these are shown after that, one after the other.
     *
     * @param scenePx where their middle goes; the origin if none is given
     */
    void offer(const QStringList &paths, std::optional<QPointF> scenePx = std::nullopt);

    /** Brings files in without a question; number of files that came in. */
    int importFiles(const QStringList &paths);

Q_SIGNALS:
    /** A drawing is about to be shown or to come in. */
    void beginning();

    /** Something came in and is selected. Frame: scene pixels. */
    void imported(const QRectF &boxPx);

private:
    void offerNext(const QVector<ReadDrawing> &waiting, std::optional<QPointF> scenePx);
    ImportDialog *offerDrawing(const ReadDrawing &read, std::optional<QPointF> scenePx);
    int tell(int imported);

    ZTGraphicsDocument &m_document;
    QWidget &m_window;
    Importer m_importer;
};

} // namespace studio
