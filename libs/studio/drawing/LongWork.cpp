#include <studio/drawing/LongWork.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QThreadPool>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QProgressDialog>

#include <chrono>
#include <future>
#include <memory>

namespace studio {

namespace {

constexpr int kEventsMs = 30;

struct WorkTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::LongWork)
};

/** Stays while its work lasts, whatever keys are pressed: a hidden one would block no window. */
class LastingProgress : public QProgressDialog
{
public:
    using QProgressDialog::QProgressDialog;

    void reject() override {}

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

QProgressDialog *newProgress(const QString &label, bool canCancel, QWidget *window)
{
    if (canCancel)
        return new QProgressDialog(label, WorkTexts::tr("Cancel"), 0, 0, window);
    return new LastingProgress(label, QString(), 0, 0, window);
}

} // namespace

LongWork::LongWork(QWidget &parentWindow, const QString &text, Cancel canCancel, int quiet)
    : m_window(parentWindow), m_label(text), m_cancel(canCancel), m_quietMs(quiet)
{
    m_clock.start();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

LongWork::~LongWork()
{
    QGuiApplication::restoreOverrideCursor();
    delete m_dialog;
}

bool LongWork::run(const std::function<void()> &job)
{
    const auto ended = std::make_shared<std::promise<void>>();
    const std::future<void> end = ended->get_future();
    QThreadPool::globalInstance()->start([job, ended] {
        try {
            job();
        } catch (...) {
            // It ends the job, not the program; what the job was to say stays unsaid.
        }
        ended->set_value();
    });
    const auto endsWithin = [&end](qint64 waitMs) {
        return end.wait_for(std::chrono::milliseconds(waitMs)) == std::future_status::ready;
    };
    if (endsWithin(qMax(qint64(0), m_quietMs - m_clock.elapsed())))
        return true;
    while (!m_isCancelled && !endsWithin(kEventsMs))
        showProgress(0, 0);
    return !m_isCancelled;
}

void LongWork::setLabel(const QString &text)
{
    m_label = text;
    if (m_dialog)
        m_dialog->setLabelText(text);
}

bool LongWork::step(int done, int total)
{
    if (m_clock.elapsed() >= m_quietMs &&
        (!m_sinceEvents.isValid() || m_sinceEvents.elapsed() >= kEventsMs || done == total))
        showProgress(done, total);
    return !m_isCancelled;
}

void LongWork::showProgress(int done, int total)
{
    if (!m_dialog) {
        const bool canCancel = m_cancel == Cancel::Possible;
        m_dialog = newProgress(m_label, canCancel, &m_window);
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setAutoClose(false);
        m_dialog->setAutoReset(false);
        if (canCancel)
            QObject::connect(m_dialog, &QProgressDialog::canceled, &m_window,
                             [this] { m_isCancelled = true; });
        m_dialog->show();
    }
    m_dialog->setMaximum(total);
    m_dialog->setValue(done);
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

} // namespace studio
