#pragma once

#include <studio/drawing/DrawingSession.h>
#include <studio/drawing/LongWork.h>
#include <studio/program/Messages.h>

#include <hostkit/drawing/DrawingLoader.h>

#include <QtCore/QObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QMessageBox;
class QPushButton;
class QWidget;
QT_END_NAMESPACE

namespace studio {

struct RecoveryEntry;

/**
 * New, open, save, save as, revert: everything that joins the drawing in a window with files. Asks
 * before anything is lost, tells what failed, and leaves the drawing as it is whenever it does.
 *
 * Questions do not wait for their answer. What can take long shows progress, and waits.
 */
class DrawingFiles : public QObject
{
    Q_OBJECT

public:
    /** What to do when nothing is in the way any more. */
    using Next = std::function<void()>;

    /** All are borrowed and outlive this. */
    DrawingFiles(ZTGraphicsDocument &document, Messages &messages, QWidget &window);

    DrawingSession &session() { return m_drawing; }
    const DrawingSession &session() const { return m_drawing; }

    /** A file by its extension, or by how it begins. */
    static bool isDrawing(const QString &path);

    // What a user asks for.

    void startNew();
    void chooseOpen();
    void open(const QString &path, const Next &next = {}); ///< `next` when it is open
    void save();
    void saveAs();
    void revert();

    /** Goes on when there is nothing to lose: saves first, or the user lets the drawing go. */
    void confirmLoss(const Next &next);

    // The same without a question.

    bool load(const QString &path);
    bool saveTo(const QString &path);

    /** Opens a drawing that was left behind, unsaved still. Its file stays in the slot. */
    bool recover(const RecoveryEntry &entry);

    /** What new drawings rest on from now on; at first what held when this was made. */
    const hostkit::DrawingSetup &newSetup() const { return m_firstSetup; }
    void setNewSetup(const hostkit::DrawingSetup &setup) { m_firstSetup = setup; }

    /** How long reading, loading and writing go on before they show progress. */
    void setQuietMs(int quiet) { m_quietMs = quiet; }

    /** Whether a drawing is on its way in or out; then everything else has to wait. */
    bool isBusy() const { return m_busy; }

Q_SIGNALS:
    void settling(); ///< what is half done, such as typing, has to be recorded now
    void emptied();  ///< by startNew()
    void loaded();   ///< another drawing is in the document, or the same one once more
    void reverted(); ///< after `loaded`, when it is the same one
    void saved(const QString &path);

private:
    bool read(const QString &path, hostkit::DrawingFile *file, hostkit::Failure *error);
    bool apply(const hostkit::DrawingFile &file, const QString &label, hostkit::Failure *error,
               hostkit::DrawingReport *report);
    void tell(const hostkit::DrawingReport &report, const QString &path);
    static QString fontsOf(const hostkit::DrawingReport &report, const QString &path);
    bool write(const QString &path, quint64 *revision, hostkit::Failure *error);
    void empty();
    void saveThen(const Next &next);
    void saveAsThen(const Next &next);
    bool hasNumbers() const;
    void askToOverwrite(const Next &next);
    void saveUnder(const QString &chosen, const Next &next);
    void saveAndGoOn(const QString &path, const Next &next);
    QMessageBox *question(const char *name, const QString &text, const QString &more);
    void failedToLoad(const QString &path, const hostkit::Failure &error);

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    QWidget &m_window;
    DrawingSession m_drawing;
    hostkit::DrawingSetup m_firstSetup; ///< of a new drawing
    QString m_toldFonts;                ///< the warning of fonts that was told last
    int m_quietMs = LongWork::kQuietMs;
    bool m_busy = false;
};

} // namespace studio
