#pragma once

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QMessageBox;
class QWidget;
QT_END_NAMESPACE

namespace studio {

/** Something that went wrong, in the words of the person before the screen. */
struct Message
{
    QString what;        ///< one sentence: what failed
    QString why;         ///< the reason, and what to do now
    QStringList details; ///< lines to look at on demand; may be empty
};

/** The one place where failures reach the user. */
class Messages
{
public:
    virtual ~Messages();

    /** Something was not done. */
    virtual void failure(const Message &message) = 0;

    /** Something was done, but not all of it. */
    virtual void warning(const Message &message) = 0;
};

/**
 * Shows messages as dialogs over a window, without waiting for them to be closed: the next one
 * comes up when the one before it has gone.
 */
class DialogMessages final : public Messages
{
public:
    explicit DialogMessages(QWidget *window);

    void failure(const Message &message) override;
    void warning(const Message &message) override;

private:
    struct Waiting
    {
        int icon;
        Message message;
    };
    void show(int icon, const Message &message);
    void showNext();

    QPointer<QWidget> m_window; ///< borrowed
    QVector<Waiting> m_waiting;
    QPointer<QMessageBox> m_shown; ///< Owner: the window
};

/** Writes messages to standard error, each line behind the program's name. */
class ConsoleMessages final : public Messages
{
public:
    void failure(const Message &message) override;
    void warning(const Message &message) override;
};

} // namespace studio
