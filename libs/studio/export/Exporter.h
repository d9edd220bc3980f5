#pragma once

#include <studio/export/ExportJob.h>
#include <studio/program/Messages.h>

QT_BEGIN_NAMESPACE
class QProgressDialog;
class QWidget;
QT_END_NAMESPACE

namespace studio {

/** Lets the user export mark paths: asks for a file, shows progress, tells how it ended. */
class Exporter : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive the exporter. */
    Exporter(ZTGraphicsDocument &document, Messages &messages, QWidget &window);

    /**
     * Asks for a file to export to, and for what a picture is to show, without waiting for the
     * answers.
     */
    void choose(bool selectionOnly);

    /**
     * Exports to a file; one export at a time, a second call is ignored. Shapes that do not show
     * what they were told, such as a code that cannot hold its content, are told of first: only
     * whoever wants them as they are goes on. `look` is for the pictures among the forms.
     */
    void exportTo(const QString &path, bool selectionOnly,
                  const hostkit::MarkPictureLook &look = {});

    bool isBusy() const { return m_job != nullptr; }

Q_SIGNALS:
    void exported(const QString &path, int objects);
    void ended(); ///< in every case: exported, failed or cancelled

private:
    void begin(const QString &path, bool selectionOnly, const hostkit::MarkPictureLook &look);
    void askBefore(const QString &path, bool selectionOnly, const hostkit::MarkPictureLook &look,
                   const QString &notReady);
    void askForLook(const QString &path, bool selectionOnly);
    void showProgress();
    void giveUp();
    void finish(const QString &error);
    void end();

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    QWidget &m_window;
    ExportJob *m_job = nullptr; ///< child
    QProgressDialog *m_progressDialog = nullptr;
};

} // namespace studio
