#pragma once

#include "MonkeyHands.h"

#include <studio/commands/ExtrasCommand.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/import/ImportDialog.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListView.h>
#include <studio/window/CommandTable.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QTreeWidget>

#include <memory>

/**
 * A user who does anything that the studio lets one do, the same way for the same seed.
 *
 * Every step goes through widgets and events. Files are opened and saved by the test, which knows
 * what to expect of them.
 */
class Monkey : public MonkeyHands
{
public:
    Monkey(TextWindow &used, quint32 seed) : MonkeyHands(used, seed)
    {
        studio.window->resize(kWindow); // small, for painting takes most of the time
        studio.window->navigation().home();
        for (const studio::Command &command : studio::commandTable()) {
            if (isForMonkeys(QByteArray(command.id)))
                table << command.id;
        }
        QObject::connect(&watch, &QTimer::timeout, [this] { endWaiting(); });
        watch.start(kLongestStepMs);
    }

    /** One thing that a user does; leaves nothing half done but what a user would. */
    void step() { step(kActions); }

    /** The same for a user who makes and changes codes. */
    void codeStep() { step(kCodeActions); }

    /** Ends what is open, so that the drawing can be looked at. */
    void settle()
    {
        studio.window->editor().text().finishTyping();
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<QDialog *>(widget);
            if (dialog != nullptr && dialog->isVisible())
                dialog->reject();
        }
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        studio.window->activateWindow();
        studio.view().setFocus();
        QCoreApplication::processEvents();
    }

private:
    struct Action
    {
        const char *name;
        int weight;
        void (Monkey::*act)();
    };

    static constexpr QSize kWindow = QSize(760, 560);
    static constexpr int kMostShapes = 14;
    static constexpr double kLargestPx = 2500.0;

    static const QVector<Action> kActions;
    static const QVector<Action> kCodeActions;

    void step(const QVector<Action> &actions)
    {
        const Action &action = actions[choice(actions)];
        done << QString::fromLatin1(action.name);
        sinceStart.start();
        (this->*action.act)();
        settle();
        tame();
        sinceStart.invalidate(); // what the test does between the steps may take its time
    }

    int choice(const QVector<Action> &actions)
    {
        int total = 0;
        for (const Action &action : actions)
            total += action.weight;
        int left = upTo(total);
        int chosen = 0;
        while ((left -= actions[chosen].weight) >= 0)
            ++chosen;
        return chosen;
    }

    /** Makes no more than can be looked at, and nothing that takes for ever to hatch. */
    void tame()
    {
        const studio::ShapeItems all = items();
        studio::ShapeItems surplus = all.mid(qMin(kMostShapes, all.size()));
        for (studio::ShapeItem *item : all) {
            const QRectF box = studio::sceneBox(*item);
            if (qMax(box.width(), box.height()) > kLargestPx && !surplus.contains(item))
                surplus << item;
        }
        if (surplus.isEmpty())
            return;
        done << QStringLiteral("tame");
        // What is locked no key takes away.
        const auto unlock = [](hostkit::ItemExtras &extras) {
            extras.isLocked = false;
            extras.isHidden = false;
        };
        auto unlocking = std::make_unique<studio::ExtrasCommand>(surplus, unlock, QString());
        if (!unlocking->changesNothing())
            studio.stack().push(unlocking.release());
        studio.select(surplus);
        studio.run("edit.delete"); // the key may be that of a tool
    }

    /** Commands that end what the test knows of the drawing's files are left to the test. */
    static bool isForMonkeys(const QByteArray &id)
    {
        if (id == "file.sample" || id == "file.importClipboard")
            return true;
        return !id.startsWith("file.");
    }

    /** Whatever the table of commands offers, with the dialog that comes of it. */
    void command()
    {
        const char *id = table[upTo(table.size())];
        note(QString::fromLatin1(id));
        const int failuresBefore = studio.messages->failures.size();
        if (studio.run(id))
            answerDialog();
        // A command may say why it cannot be done; nothing else may.
        studio.messages->failures.resize(failuresBefore);
    }

    /** A step that waits for an answer gets none: what it opened is closed. */
    void endWaiting()
    {
        if (!sinceStart.isValid() || sinceStart.elapsed() < kLongestStepMs)
            return;
        if (QWidget *open = QApplication::activePopupWidget())
            open->close();
        else if (QWidget *modal = QApplication::activeModalWidget())
            modal->close();
    }

    /** A field of the panels beside the drawing. */
    void panel()
    {
        QVector<QWidget *> fields;
        for (auto *dock : studio.window->findChildren<QDockWidget *>())
            fields << fieldsOf(*dock);
        if (fields.isEmpty())
            return;
        const int failuresBefore = studio.messages->failures.size();
        QWidget &field = *fields[upTo(fields.size())];
        const bool isCommand = qobject_cast<QPushButton *>(&field) != nullptr;
        change(field);
        // A button may say why it cannot be done, as a command may.
        if (isCommand)
            studio.messages->failures.resize(failuresBefore);
    }

    void create()
    {
        static constexpr int keys[] = {Qt::Key_R, Qt::Key_E, Qt::Key_P, Qt::Key_L, Qt::Key_D};
        studio.key(keys[upTo(upTo(4) == 0 ? 5 : 4)]);
    }

    void createText()
    {
        studio.key(Qt::Key_T);
        typeAndEnd();
    }

    void retype()
    {
        if (studio.run("text.type") && studio.editor() != nullptr)
            typeAndEnd();
    }

    void typeAndEnd()
    {
        QWidget *field = studio.editor();
        if (field == nullptr)
            return;
        QTest::keyClicks(field, letters());
        switch (upTo(4)) {
        case 0:
            TextWindow::key(field, Qt::Key_Escape);
            break;
        case 1:
            studio.driver->click(somewhere());
            break;
        default:
            TextWindow::key(field, Qt::Key_Return, Qt::ControlModifier);
        }
    }

    void select()
    {
        const studio::ShapeItems all = items();
        if (all.isEmpty())
            return;
        switch (upTo(5)) {
        case 0:
            studio.key(Qt::Key_A, Qt::ControlModifier);
            break;
        case 1:
            studio.key(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
            break;
        case 2:
            clickRow();
            break;
        default: {
            studio.key(Qt::Key_Escape);
            const QPointF middle = studio::sceneBox(*all[upTo(all.size())]).center();
            if (isInSight(middle))
                studio.driver->click(middle.toPoint());
            break;
        }
        }
    }

    void clickRow()
    {
        QCoreApplication::processEvents(); // the list follows when the program waits
        QTreeView *tree = &studio.window->list().view();
        const int rows = tree->model()->rowCount();
        if (rows == 0)
            return;
        const QModelIndex row = tree->model()->index(upTo(rows), 0);
        tree->scrollTo(row);
        const auto modifier = upTo(2) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        click(*tree->viewport(), tree->visualRect(row).center(), modifier);
    }

    void selectNothing() { studio.key(Qt::Key_Escape); }

    void drag()
    {
        const QPointF from = frame().center().toPoint();
        if (isSelected() && isInSight(from))
            studio.driver->drag(from, from + QPointF(upTo(81) - 40, upTo(81) - 40));
    }

    void resize()
    {
        const QRectF box = frame();
        if (!isSelected() || box.width() < 24 || box.height() < 24)
            return;
        const QPointF middle = box.center();
        const double scale = studio.view().getDisplayScale();
        const double outPx = 10 / scale; // handles keep their size
        const QPointF handles[] = {{box.left() - outPx, box.top() - outPx},
                                   {box.right() + outPx, box.top() - outPx},
                                   {box.left() - outPx, box.bottom() + outPx},
                                   {box.right() + outPx, box.bottom() + outPx},
                                   {middle.x(), box.top() - outPx},
                                   {box.left() - outPx, middle.y()},
                                   {box.right() + outPx, middle.y()},
                                   {middle.x(), box.bottom() + outPx}};
        const QPointF from = handles[upTo(8)];
        if (isInSight(from))
            studio.driver->drag(from, from + QPointF(upTo(41) - 20, upTo(41) - 20));
    }

    void nudge()
    {
        static constexpr int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
        static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                                             Qt::ControlModifier};
        studio.key(keys[upTo(4)], modifiers[upTo(3)]);
    }

    void property()
    {
        auto *tree = studio.window->findChild<ZTItemPropertyList *>()->findChild<QTreeWidget *>();
        QVector<QTreeWidgetItem *> rows;
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            rows << *it;
        if (rows.isEmpty())
            return;
        QTreeWidgetItem *row = rows[upTo(rows.size())];
        note(row->text(0));
        tree->scrollToItem(row);
        const QPoint value(tree->columnViewportPosition(1) + 8,
                           tree->visualItemRect(row).center().y());
        click(*tree->viewport(), value);
        QWidget *editor = QApplication::focusWidget();
        if (editor != nullptr && editor != tree && tree->viewport()->isAncestorOf(editor))
            edit(editor);
        QCoreApplication::processEvents();
    }

    void textDialog()
    {
        if (!studio.openDialog(upTo(4)))
            return;
        for (int i = upTo(3); i >= 0 && studio.dialog() != nullptr; --i)
            changeField(*studio.dialog());
        if (studio.dialog() == nullptr)
            return;
        studio.close(upTo(5) == 0 ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok);
    }

    void contextMenu()
    {
        const QPointF pos = isSelected() && upTo(2) == 0 ? frame().center() : somewhere();
        if (!isInSight(pos))
            return;
        const QPoint at = studio.view().mapFromScene(pos);
        QWidget *viewport = studio.view().viewport();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
        QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, at);
        QApplication::sendEvent(viewport, &asked);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu != nullptr)
            QTest::keyClick(menu, Qt::Key_Escape);
        QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, at);
    }

    void undoAndRedo()
    {
        for (int i = upTo(5); i > 0; --i)
            studio.key(Qt::Key_Z, Qt::ControlModifier);
        for (int i = upTo(5); i > 0; --i)
            studio.key(Qt::Key_Y, Qt::ControlModifier);
    }

    void dropPlotterFile()
    {
        const QString path = studio.write("drop.plt", "PU0 0;\nPD400 0;\nPD200 200;\nPD0 0;\n");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        studio.drop(data, studio.view().viewport()->rect().center());
        if (auto *dialog = studio.window->findChild<studio::ImportDialog *>())
            QTest::keyClick(dialog, upTo(4) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    static constexpr int kLongestStepMs = 3000;

    QVector<const char *> table; ///< ids of the commands that it uses
    QElapsedTimer sinceStart;    ///< of the step
    QTimer watch;
};

inline const QVector<Monkey::Action> Monkey::kActions = {
    {"command", 45, &Monkey::command},      {"panel", 14, &Monkey::panel},
    {"create", 8, &Monkey::create},         {"text", 3, &Monkey::createText},
    {"retype", 2, &Monkey::retype},         {"select", 16, &Monkey::select},
    {"nothing", 2, &Monkey::selectNothing}, {"drag", 6, &Monkey::drag},
    {"resize", 6, &Monkey::resize},         {"nudge", 6, &Monkey::nudge},
    {"property", 14, &Monkey::property},    {"text dialog", 3, &Monkey::textDialog},
    {"menu", 3, &Monkey::contextMenu},      {"undo", 5, &Monkey::undoAndRedo},
    {"language", 1, &Monkey::language},     {"order", 1, &Monkey::order},
    {"drop", 1, &Monkey::dropPlotterFile},
};

inline const QVector<Monkey::Action> Monkey::kCodeActions = {
    {"code dialog", 10, &Monkey::codeDialog},
    {"select", 6, &Monkey::select},
    {"drag", 2, &Monkey::drag},
    {"resize", 3, &Monkey::resize},
    {"property", 3, &Monkey::property},
    {"panel", 3, &Monkey::panel},
    {"undo", 4, &Monkey::undoAndRedo},
    {"language", 1, &Monkey::language},
    {"order", 1, &Monkey::order},
};
