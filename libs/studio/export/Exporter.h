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

    /** Asks for a file to export to, without waiting for the answer. */
    void choose(bool selectionOnly);

    /**
     * Exports to a file; one export at a time, a second call is ignored. Shapes that do not show
     * what they were told, such as a code that cannot hold its content, are told of first: only
     * whoever wants them as they are goes on.
     */
    void exportTo(const QString &path, bool selectionOnly);

    bool isBusy() const { return m_job != nullptr; }

Q_SIGNALS:
    void exported(const QString &path, int objects);
    void ended(); ///< in every case: exported, failed or cancelled

private:
    void begin(const QString &path, bool selectionOnly);
    void askBefore(const QString &path, bool selectionOnly, const QString &notReady);
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
