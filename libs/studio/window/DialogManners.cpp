#include <studio/window/DialogManners.h>

#include <QtCore/QEvent>
#include <QtCore/QSet>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabBar>

namespace studio {

namespace {

/** The letter after "&", in capitals; none if there is none. */
QChar letterOf(const QString &text)
{
    const QString keys = QKeySequence::mnemonic(text).toString(QKeySequence::PortableText);
    return keys.isEmpty() ? QChar() : keys.back();
}

QSet<QChar> takenLetters(const QDialog &dialog)
{
    QSet<QChar> taken;
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            taken.insert(letterOf(label->text()));
    }
    for (const QAbstractButton *button : dialog.findChildren<QAbstractButton *>())
        taken.insert(letterOf(button->text()));
    for (const QGroupBox *group : dialog.findChildren<QGroupBox *>())
        taken.insert(letterOf(group->title()));
    for (const QTabBar *tabs : dialog.findChildren<QTabBar *>()) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            taken.insert(letterOf(tabs->tabText(tab)));
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

DialogManners::DialogManners(const QList<QAction *> &drawingKeys, QWidget &window)
    : QObject(&window), m_drawingKeys(drawingKeys), m_window(window)
{
    qApp->installEventFilter(this);
}

void DialogManners::addMnemonics(QDialog &dialog)
{
    QSet<QChar> taken = takenLetters(dialog);
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        const QString text = button->text();
        if (text.isEmpty() || !letterOf(text).isNull())
            continue;
        const QString own = withOwnLetter(text, taken);
        button->setText(own.isEmpty() ? withAddedLetter(text, taken) : own);
        taken.insert(letterOf(button->text()));
    }
}

void DialogManners::receive(QDialog &dialog) const
{
    addMnemonics(dialog);
    if (qobject_cast<QMessageBox *>(&dialog) != nullptr && dialog.windowTitle().isEmpty())
        dialog.setWindowTitle(tr("Studio"));
    if (dialog.isModal() || dialog.parentWidget() == nullptr ||
        dialog.parentWidget()->window() != &m_window)
        return;
    for (QAction *action : m_drawingKeys) {
        if (!dialog.actions().contains(action))
            dialog.addAction(action);
    }
}

bool DialogManners::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        swallows(watched, *static_cast<QKeyEvent *>(event))) {
        event->ignore();
        return true;
    }
    const bool isShown = event->type() == QEvent::Show;
    if (!isShown && event->type() != QEvent::LanguageChange)
        return false;
    auto *dialog = qobject_cast<QDialog *>(watched);
    if (dialog == nullptr)
        return false;
    if (isShown)
        receive(*dialog);
    else // when all texts are those of the language
        QTimer::singleShot(0, dialog, [dialog] { addMnemonics(*dialog); });
    return false;
}

} // namespace studio
