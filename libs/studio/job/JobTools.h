#pragma once

#include <studio/job/JobRun.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class JobExporter;
class LongWork;
class JobPanel;
class JobPreview;
class Messages;
class TextTools;

/** Everything that makes a job of the drawing: its panel, its preview and its files. */
class JobTools : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this; `window` is what dialogs stand over. */
    JobTools(ZTGraphicsDocument &document, TextTools &texts, Messages &messages, QWidget &window);
    ~JobTools() override;

    /** Pens, machine and order, to be put into a dock. Owner: whoever puts it there. */
    JobPanel &panel() const { return *m_panel; }

    /** Makes the job and plays it; tells why where there is none. */
    void showPreview();

    /** Asks where the job is to go, after what its checks found. */
    void chooseExport();

    JobExporter &exporter() const { return *m_exporter; }

private:
    std::shared_ptr<const Job> makeJob();
    bool gather(LongWork &work, JobRequest *request);
    void askAndExport();
    void selectObject(int object);
    void showOutdated();

    ZTGraphicsDocument &m_document;
    TextTools &m_texts;
    Messages &m_messages;
    QWidget &m_window;
    JobPanel *m_panel;
    JobExporter *m_exporter; ///< child
    QPointer<JobPreview> m_preview;
    std::shared_ptr<const Job> m_job;      ///< the one shown last; may be null
    QVector<QPointer<ShapeItem>> m_shapes; ///< behind the objects of the job shown last
};

} // namespace studio
