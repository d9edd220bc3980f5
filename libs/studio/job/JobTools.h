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

    /** Pens, machine and order, to be put into a dock. Owner: whoever puts it there. */
    JobPanel &panel() const { return *m_panel; }

    /**
     * Plays the job in the place of the canvas, with a panel of its own. Owner: whoever puts it
     * into the window, and shows it and its panel as `previewing` tells.
     */
    JobPreview &preview() const { return *m_preview; }

    /** Makes the job and shows it in the preview; tells why where there is none. */
    void showPreview();
    void leavePreview();
    bool isPreviewing() const { return m_isPreviewing; }

    /** Brings what is selected into sight in the preview; all of it where nothing is. */
    void showSelected();

    /** Asks where the job is to go, after what its checks found. */
    void chooseExport();

    JobExporter &exporter() const { return *m_exporter; }

Q_SIGNALS:
    /** The preview is to take the canvas's place, or to give it back. */
    void previewing(bool isPreviewing);

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
    JobPreview *m_preview;   ///< of the window
    bool m_isPreviewing = false;
    std::shared_ptr<const Job> m_job;      ///< the one shown last; may be null
    QVector<QPointer<ShapeItem>> m_shapes; ///< behind the objects of the job shown last
};

} // namespace studio
