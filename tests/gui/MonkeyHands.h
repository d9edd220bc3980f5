#pragma once

#include "TextWindow.h"

#include <QtCore/QRandomGenerator>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSpinBox>

#include <algorithm>

/** What a user at random does with one widget: clicks, types, switches and chooses in it. */
class MonkeyHands
{
public:
    MonkeyHands(TextWindow &used, quint32 seed) : studio(used), random(seed) {}

    /** What was done last, for the one who looks for the reason. */
    QString story() const
    {
        return QStringList(done.mid(qMax(0, done.size() - 40))).join(QLatin1String(", "));
    }

    void forgetStory() { done.clear(); }

    int upTo(int count) { return random.bounded(count); }

protected:
    studio::ShapeItems items() const { return studio::shapeItemsOf(*studio.document().scene()); }

    bool isSelected() const { return !studio.selected().isEmpty(); }

    void note(const QString &detail) { done.last() += QLatin1Char(' ') + detail; }

    /** Clicks where a user can: on what is seen. */
    static void click(QWidget &widget, const QPoint &pos,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        if (widget.visibleRegion().contains(pos))
            QTest::mouseClick(&widget, Qt::LeftButton, modifiers, pos);
    }

    static void click(QWidget &widget) { click(widget, widget.rect().center()); }

    /** The dialog that stands open, or null. */
    static QDialog *openDialog()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<QDialog *>(widget);
            if (dialog != nullptr && dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    void answerDialog()
    {
        for (int i = upTo(4); i >= 0 && openDialog() != nullptr; --i)
            changeField(*openDialog());
        QDialog *dialog = openDialog();
        if (dialog == nullptr)
            return;
        QVector<QPushButton *> buttons;
        for (auto *button : dialog->findChildren<QPushButton *>()) {
            if (button->isVisible() && button->isEnabled())
                buttons << button;
        }
        if (!buttons.isEmpty())
            click(*buttons[upTo(buttons.size())]);
    }

    QString letters()
    {
        static const QString alphabet = QStringLiteral("ABWL ab1?");
        QString words;
        for (int i = upTo(4); i >= 0; --i)
            words += alphabet[upTo(alphabet.size())];
        return words;
    }

    bool isInSight(const QPointF &scenePos)
    {
        return studio.view().viewport()->rect().contains(studio.view().mapFromScene(scenePos));
    }

    QRectF frame() const
    {
        const ZTGraphicsResizeItem *item = studio.document().scene()->getGraphicsResizeItem();
        return item->rect().translated(item->pos());
    }

    /** Enters something into the editor that has the focus. */
    void edit(QWidget *editor)
    {
        if (auto *box = qobject_cast<QComboBox *>(editor)) {
            QTest::keyClick(box, upTo(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
        } else if (qobject_cast<QSpinBox *>(editor) != nullptr) {
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(editor, QString::number(3 + upTo(12)));
        } else if (qobject_cast<QAbstractSpinBox *>(editor) != nullptr) {
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(editor, number());
        } else if (auto *check = editor->findChild<QCheckBox *>()) {
            click(*check);
        }
        QTest::keyClick(editor, upTo(6) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    /** A number that is in the range of most fields, and hatches nothing too finely. */
    QString number() { return QString::number(20 + upTo(300), 10).insert(2, QLatin1Char('.')); }

    void changeField(QDialog &dialog)
    {
        const QVector<QWidget *> fields = fieldsOf(dialog);
        if (!fields.isEmpty())
            change(*fields[upTo(fields.size())]);
    }

    /** What can be typed into, switched or chosen in a window, but for the buttons that end it. */
    static QVector<QWidget *> fieldsOf(const QWidget &window)
    {
        QVector<QWidget *> fields;
        for (QWidget *field : window.findChildren<QWidget *>()) {
            const bool isField = qobject_cast<QAbstractSpinBox *>(field) != nullptr ||
                                 qobject_cast<QAbstractButton *>(field) != nullptr ||
                                 qobject_cast<QComboBox *>(field) != nullptr ||
                                 qobject_cast<QLineEdit *>(field) != nullptr ||
                                 qobject_cast<QListView *>(field) != nullptr ||
                                 qobject_cast<QPlainTextEdit *>(field) != nullptr;
            const bool isPartOfField =
                qobject_cast<QAbstractSpinBox *>(field->parent()) != nullptr ||
                qobject_cast<QComboBox *>(field->parent()) != nullptr;
            const bool endsDialog = qobject_cast<QDialogButtonBox *>(field->parent()) != nullptr ||
                                    field->objectName().startsWith(QLatin1String("qt_dockwidget"));
            if (isField && !isPartOfField && !endsDialog && field->isVisible() &&
                field->isEnabled())
                fields << field;
        }
        return fields;
    }

    void change(QWidget &field)
    {
        note(field.objectName());
        field.setFocus();
        if (qobject_cast<QPlainTextEdit *>(&field) != nullptr) {
            QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(&field, letters());
        } else if (qobject_cast<QAbstractSpinBox *>(&field) != nullptr ||
                   qobject_cast<QLineEdit *>(&field) != nullptr) {
            QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(&field, upTo(6) == 0 ? letters() : number());
            if (qobject_cast<QDialog *>(field.window()) == nullptr)
                QTest::keyClick(&field, upTo(6) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        } else if (qobject_cast<QAbstractButton *>(&field) != nullptr) {
            QTest::keyClick(&field, Qt::Key_Space);
        } else {
            QTest::keyClick(&field, upTo(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
        }
        chooseFromPopup();
        QTest::qWait(1); // a preview gathers changes that come together
    }

    /** Takes an entry of a menu that has opened. */
    void chooseFromPopup()
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        for (int i = upTo(4); i >= 0; --i)
            QTest::keyClick(menu, Qt::Key_Down);
        // No file is chosen: its dialog would be about the folders of this machine.
        const QAction *chosen = menu->activeAction();
        const bool isOfFiles = chosen != nullptr && chosen->text().contains(QLatin1String("..."));
        QTest::keyClick(menu, isOfFiles ? Qt::Key_Escape : Qt::Key_Return);
    }

    /** A code, new or there, with some of its settings changed. */
    void codeDialog()
    {
        static constexpr const char *ids[] = {"code.settings", "create.code", "create.barcode"};
        const char *id = ids[upTo(3)];
        note(QString::fromLatin1(id));
        if (!studio.run(id))
            return;
        for (int i = upTo(6); i >= 0 && openDialog() != nullptr; --i) {
            QDialog *dialog = openDialog();
            if (auto *tabs = dialog->findChild<QTabWidget *>(QStringLiteral("tabs")))
                tabs->setCurrentIndex(upTo(tabs->count()));
            QVector<QWidget *> fields = fieldsOf(*dialog);
            // A code of metres would be hatched for ever.
            const auto isSize = [](const QWidget *field) {
                static const QStringList sizes{QStringLiteral("module"), QStringLiteral("width"),
                                               QStringLiteral("barHeight"),
                                               QStringLiteral("height")};
                return sizes.contains(field->objectName());
            };
            fields.erase(std::remove_if(fields.begin(), fields.end(), isSize), fields.end());
            if (!fields.isEmpty())
                change(*fields[upTo(fields.size())]);
        }
        QDialog *dialog = openDialog();
        auto *buttons = dialog != nullptr ? dialog->findChild<QDialogButtonBox *>() : nullptr;
        if (buttons != nullptr)
            click(*buttons->button(upTo(5) == 0 ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok));
    }

    void language()
    {
        static constexpr const char *names[] = {"language.english", "language.chinese"};
        studio.window->findChild<QAction *>(QString::fromLatin1(names[upTo(2)]))->trigger();
    }

    void order()
    {
        auto *menu = studio.window->findChild<QMenu *>(QStringLiteral("orderMenu"));
        menu->actions().at(upTo(menu->actions().size()))->trigger();
    }

    QPointF somewhere() { return {upTo(500) - 250.0, upTo(500) - 250.0}; }

    TextWindow &studio;
    QStringList done; ///< names of the steps

private:
    QRandomGenerator random;
};
