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
    : window(parentWindow), label(text), cancel(canCancel), quietMs(quiet)
{
    clock.start();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

LongWork::~LongWork()
{
    QGuiApplication::restoreOverrideCursor();
    delete dialog;
}

bool LongWork::run(const std::function<void()> &job)
{
    const auto ended = std::make_shared<std::promise<void>>();
    const std::future<void> end = ended->get_future();
    QThreadPool::globalInstance()->start([job, ended] {
        job();
        ended->set_value();
    });
    const auto endsWithin = [&end](qint64 waitMs) {
        return end.wait_for(std::chrono::milliseconds(waitMs)) == std::future_status::ready;
    };
    if (endsWithin(qMax(qint64(0), quietMs - clock.elapsed())))
        return true;
    while (!isCancelled && !endsWithin(kEventsMs))
        showProgress(0, 0);
    return !isCancelled;
}

bool LongWork::step(int done, int total)
{
    if (clock.elapsed() >= quietMs &&
        (!sinceEvents.isValid() || sinceEvents.elapsed() >= kEventsMs || done == total))
        showProgress(done, total);
    return !isCancelled;
}

void LongWork::showProgress(int done, int total)
{
    if (!dialog) {
        const bool canCancel = cancel == Cancel::Possible;
        dialog = newProgress(label, canCancel, &window);
        dialog->setWindowModality(Qt::WindowModal);
        dialog->setAutoClose(false);
        dialog->setAutoReset(false);
        if (canCancel)
            QObject::connect(dialog, &QProgressDialog::canceled, &window,
                             [this] { isCancelled = true; });
        dialog->show();
    }
    dialog->setMaximum(total);
    dialog->setValue(done);
    QCoreApplication::processEvents();
    sinceEvents.start();
}

} // namespace studio
