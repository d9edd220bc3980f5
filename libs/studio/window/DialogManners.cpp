#include <studio/window/DialogManners.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QScreen>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabBar>

#include <algorithm>

namespace studio {

namespace {

/** Properties of a button: its text with the letter that it was given here, and without. */
constexpr const char *kGivenText = "studio.letteredText";
constexpr const char *kPlainText = "studio.plainText";

/** The letter after "&", in capitals; none if there is none. */
QChar letterOf(const QString &text)
{
    const QString keys = QKeySequence::mnemonic(text).toString(QKeySequence::PortableText);
    return keys.isEmpty() ? QChar() : keys.back();
}

/** The text of a button without the letter that it was given here before. */
QString plainText(const QPushButton &button)
{
    const QString given = button.property(kGivenText).toString();
    return !given.isEmpty() && given == button.text() ? button.property(kPlainText).toString()
                                                      : button.text();
}

/** Letters that the makers of a dialog gave: all, or those that can be seen at the moment. */
QSet<QChar> takenLetters(const QDialog &dialog, bool isSeenAlone)
{
    QSet<QChar> taken;
    const auto take = [&](const QWidget &widget, const QString &text) {
        if (!isSeenAlone || widget.isVisibleTo(&dialog))
            taken.insert(letterOf(text));
    };
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            take(*label, label->text());
    }
    for (const QAbstractButton *button : dialog.findChildren<QAbstractButton *>()) {
        const auto *push = qobject_cast<const QPushButton *>(button);
        take(*button, push != nullptr ? plainText(*push) : button->text());
    }
    for (const QGroupBox *group : dialog.findChildren<QGroupBox *>())
        take(*group, group->title());
    for (const QTabBar *tabs : dialog.findChildren<QTabBar *>()) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            take(*tabs, tabs->tabText(tab));
    }
    return taken;
}

bool isLatin(QChar character) { return character.isLetter() && character.unicode() < 0x80; }

/** Marks the first letter of a text that is free; empty if there is none. */
QString withOwnLetter(const QString &text, const QSet<QChar> &taken)
{
    for (int i = 0; i < text.size(); ++i) {
        if (isLatin(text[i]) && !taken.contains(text[i].toUpper()))
            return text.left(i) + QLatin1Char('&') + text.mid(i);
    }
    return {};
}

/** Puts a free letter in brackets behind a text, as texts without Latin letters have it. */
QString withAddedLetter(const QString &text, const QSet<QChar> &taken)
{
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if (!taken.contains(QLatin1Char(letter)))
            return text + QStringLiteral("(&%1)").arg(QLatin1Char(letter));
    }
    return text;
}

bool hasLatin(const QString &text) { return std::any_of(text.begin(), text.end(), isLatin); }

/** Whether Return or Escape presses a button. */
bool hasKeyOfItsOwn(const QPushButton &button)
{
    const auto *box = qobject_cast<const QDialogButtonBox *>(button.parentWidget());
    if (button.isDefault() || box == nullptr)
        return button.isDefault();
    const auto role = box->buttonRole(const_cast<QPushButton *>(&button));
    return role == QDialogButtonBox::RejectRole ||
           box->standardButton(const_cast<QPushButton *>(&button)) == QDialogButtonBox::Ok;
}

/** The text with a letter that is free on all pages, or else on the one that can be seen. */
QString lettered(const QPushButton &button, const QString &text, const QSet<QChar> &taken,
                 const QSet<QChar> &seen)
{
    for (const QSet<QChar> &busy : {taken, seen}) {
        QString own = withOwnLetter(text, busy);
        if (!own.isEmpty())
            return own;
    }
    return hasLatin(text) && hasKeyOfItsOwn(button) ? text : withAddedLetter(text, taken);
}

/** What the buttons of a box need beside each other, each with the whole of its text. */
int rowWidth(const QDialogButtonBox &box)
{
    const int gap = box.style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, &box);
    int width = 0;
    for (const QAbstractButton *button : box.buttons())
        width += button->sizeHint().width() + std::max(gap, 0);
    return width;
}

/** The widest that a dialog gets on its screen: messages make themselves no wider than this. */
int roomOf(const QDialog &dialog)
{
    constexpr int kSmallScreen = 1024;
    constexpr int kBesideMessage = 480;
    constexpr int kWidestMessage = 1000;
    const int screen = dialog.screen()->availableGeometry().width();
    if (screen <= kSmallScreen || qobject_cast<const QMessageBox *>(&dialog) == nullptr)
        return screen;
    return std::min(screen - kBesideMessage, kWidestMessage);
}

/** Whether a key is one that no field, list or text of a dialog waits for. */
bool isCommandKey(const QKeySequence &shortcut)
{
    for (const auto own :
         {QKeySequence::Cut, QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll}) {
        if (QKeySequence::keyBindings(own).contains(shortcut))
            return false;
    }
    const int key = shortcut[0] & ~Qt::KeyboardModifierMask;
    const bool isFunction = key >= Qt::Key_F1 && key <= Qt::Key_F35;
    return isFunction || (shortcut[0] & (Qt::ControlModifier | Qt::AltModifier)) != 0;
}

bool isForDialogs(const QAction &command)
{
    const QList<QKeySequence> shortcuts = command.shortcuts();
    return command.shortcutContext() == Qt::WindowShortcut && !shortcuts.isEmpty() &&
           std::all_of(shortcuts.begin(), shortcuts.end(), isCommandKey);
}

bool isUndoOrRedo(const QKeyEvent &key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

/** Whether a field of a dialog that stays open would swallow a key that it has no use for. */
bool swallows(const QObject *watched, const QKeyEvent &key)
{
    const auto *field = qobject_cast<const QLineEdit *>(watched);
    // A box with arrows asks the field in it by itself.
    if (const auto *box = qobject_cast<const QAbstractSpinBox *>(watched))
        field = box->findChild<const QLineEdit *>();
    if (field == nullptr || !isUndoOrRedo(key) || field->window()->isModal() ||
        qobject_cast<const QDialog *>(field->window()) == nullptr)
        return false;
    const bool isUndo = key.matches(QKeySequence::Undo);
    return isUndo ? !field->isUndoAvailable() : !field->isRedoAvailable();
}

} // namespace

DialogManners::DialogManners(const QList<QAction *> &commands, QWidget &window)
    : QObject(&window), m_commands(commands), m_window(window)
{
    qApp->installEventFilter(this);
}

void DialogManners::addMnemonics(QDialog &dialog)
{
    QSet<QChar> taken = takenLetters(dialog, false);
    QSet<QChar> seen = takenLetters(dialog, true);
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        const QString text = plainText(*button);
        if (text.isEmpty() || !letterOf(text).isNull())
            continue;
        const QString given = lettered(*button, text, taken, seen);
        if (given != button->text())
            button->setText(given);
        button->setProperty(kPlainText, text);
        button->setProperty(kGivenText, given);
        taken.insert(letterOf(given));
        seen.insert(letterOf(given));
    }
}

void DialogManners::stackButtons(QDialog &dialog, int roomPx)
{
    const QMargins margins =
        dialog.layout() != nullptr ? dialog.layout()->contentsMargins() : QMargins();
    for (QDialogButtonBox *box : dialog.findChildren<QDialogButtonBox *>()) {
        if (box->orientation() == Qt::Horizontal &&
            rowWidth(*box) + margins.left() + margins.right() > roomPx)
            box->setOrientation(Qt::Vertical);
    }
}

void DialogManners::receive(QDialog &dialog) const
{
    addMnemonics(dialog);
    stackButtons(dialog, roomOf(dialog));
    if (qobject_cast<QMessageBox *>(&dialog) != nullptr && dialog.windowTitle().isEmpty())
        dialog.setWindowTitle(tr("Studio"));
    if (dialog.isModal() || dialog.parentWidget() == nullptr ||
        dialog.parentWidget()->window() != &m_window)
        return;
    for (QAction *command : m_commands) {
        if (isForDialogs(*command) && !dialog.actions().contains(command))
            dialog.addAction(command);
    }
}

void DialogManners::renewSoon(QDialog &dialog)
{
    if (m_toRenew.contains(&dialog))
        return;
    m_toRenew.insert(&dialog);
    QPointer<QDialog> shown(&dialog);
    QTimer::singleShot(0, this, [this, shown, key = &dialog] {
        m_toRenew.remove(key);
        if (shown)
            addMnemonics(*shown);
    });
}

bool DialogManners::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        swallows(watched, *static_cast<QKeyEvent *>(event))) {
        event->ignore();
        return true;
    }
    switch (event->type()) {
    case QEvent::Show:
        if (auto *dialog = qobject_cast<QDialog *>(watched))
            receive(*dialog);
        break;
    case QEvent::LanguageChange: // when all texts are those of the language
        if (auto *dialog = qobject_cast<QDialog *>(watched))
            renewSoon(*dialog);
        break;
    case QEvent::ShowToParent: // another page, or part of one
    case QEvent::HideToParent:
        if (watched->isWidgetType()) {
            auto *dialog = qobject_cast<QDialog *>(static_cast<QWidget *>(watched)->window());
            if (dialog != nullptr && dialog->isVisible())
                renewSoon(*dialog);
        }
        break;
    default:
        break;
    }
    return false;
}

} // namespace studio
