#include <studio/program/Messages.h>

#include <QtWidgets/QMessageBox>

#include <cstdio>

namespace studio {

namespace {

void print(const QString &line) { std::fprintf(stderr, "ztstudio: %s\n", qUtf8Printable(line)); }

void print(const Message &message)
{
    print(message.why.isEmpty() ? message.what : message.what + QLatin1Char(' ') + message.why);
    for (const QString &detail : message.details)
        print(detail);
}

} // namespace

Messages::~Messages() = default;

DialogMessages::DialogMessages(QWidget *parent) : m_window(parent) {}

void DialogMessages::failure(const Message &message) { show(QMessageBox::Critical, message); }

void DialogMessages::warning(const Message &message) { show(QMessageBox::Warning, message); }

void DialogMessages::show(int icon, const Message &message)
{
    m_waiting.append({icon, message});
    if (m_shown == nullptr)
        showNext();
}

void DialogMessages::showNext()
{
    m_shown = nullptr;
    if (m_waiting.isEmpty())
        return;
    const Waiting next = m_waiting.takeFirst();
    const Message &message = next.message;
    auto *box = new QMessageBox(m_window);
    m_shown = box;
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIcon(static_cast<QMessageBox::Icon>(next.icon));
    // File names may look like markup.
    box->setTextFormat(Qt::PlainText);
    box->setText(message.what);
    box->setInformativeText(message.why);
    box->setDetailedText(message.details.join(QLatin1Char('\n')));
    QObject::connect(box, &QMessageBox::finished, box, [this] { showNext(); });
    box->open();
}

void ConsoleMessages::failure(const Message &message) { print(message); }

void ConsoleMessages::warning(const Message &message) { print(message); }

} // namespace studio
