#pragma once

#include "TextWindow.h"

#include <studio/CommandTable.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/import/ImportDialog.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListView.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QMimeData>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTreeWidget>

/**
 * A user who does anything that the studio lets one do, the same way for the same seed.
 *
 * Every step goes through widgets and events. Files are opened and saved by the test, which knows
 * what to expect of them.
 */
class Monkey
{
public:
    Monkey(TextWindow &used, quint32 seed) : studio(used), random(seed)
    {
        studio.window->resize(kWindow); // small, for painting takes most of the time
        studio.window->navigation().home();
        for (const studio::Command &command : studio::commandTable()) {
            if (isForMonkeys(command.id))
                table << command.id;
        }
        QObject::connect(&watch, &QTimer::timeout, [this] { endWaiting(); });
        watch.start(kLongestStepMs);
    }

    /** One thing that a user does; leaves nothing half done but what a user would. */
    void step()
    {
        const auto &action = kActions[choice()];
        done << QString::fromLatin1(action.name);
        sinceStart.start();
        (this->*action.act)();
        settle();
        tame();
    }

    /** Ends what is open, so that the drawing can be looked at. */
    void settle()
    {
        studio.window->text().finishTyping();
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

    int upTo(int count) { return random.bounded(count); }

    /** What was done last, for the one who looks for the reason. */
    QString story() const
    {
        return QStringList(done.mid(qMax(0, done.size() - 40))).join(QLatin1String(", "));
    }
    void forgetStory() { done.clear(); }

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

    int choice()
    {
        int total = 0;
        for (const Action &action : kActions)
            total += action.weight;
        int left = upTo(total);
        int chosen = 0;
        while ((left -= kActions[chosen].weight) >= 0)
            ++chosen;
        return chosen;
    }

    studio::ShapeItems items() const { return studio::shapeItemsOf(*studio.document().scene()); }
    bool isSelected() const { return !studio.selected().isEmpty(); }

    void note(const QString &detail) { done.last() += QLatin1Char(' ') + detail; }

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
        for (studio::ShapeItem *item : surplus) {
            if (!(item->flags() & QGraphicsItem::ItemIsSelectable))
                hostkit::setItemExtras(*item, {}); // locked: no key takes it away
        }
        studio.select(surplus);
        studio.key(Qt::Key_Delete);
    }

    /** Commands that end what the test knows of the drawing's files are left to the test. */
    static bool isForMonkeys(const QByteArray &id)
    {
        return !id.startsWith("file.") || id == "file.sample" || id == "file.importClipboard";
    }

    /** Clicks where a user can: on what is seen. */
    static void click(QWidget &widget, const QPoint &pos,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        if (widget.visibleRegion().contains(pos))
            QTest::mouseClick(&widget, Qt::LeftButton, modifiers, pos);
    }
    static void click(QWidget &widget) { click(widget, widget.rect().center()); }

    /** Whatever the table of commands offers, with the dialog that comes of it. */
    void command()
    {
        const char *id = table[upTo(table.size())];
        note(QString::fromLatin1(id));
        if (studio.run(id))
            answerDialog();
        if (qstrcmp(id, "file.importClipboard") == 0)
            studio.messages->failures.clear(); // there may be no drawing there
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

    /** A field of the panels beside the drawing. */
    void panel()
    {
        QVector<QWidget *> fields;
        for (auto *dock : studio.window->findChildren<QDockWidget *>())
            fields << fieldsOf(*dock);
        if (!fields.isEmpty())
            change(*fields[upTo(fields.size())]);
    }

    void create()
    {
        static constexpr int keys[] = {Qt::Key_R, Qt::Key_E, Qt::Key_P, Qt::Key_L, Qt::Key_D};
        studio.key(keys[upTo(upTo(4) == 0 ? 5 : 4)]);
    }

    QString letters()
    {
        static const QString alphabet = QStringLiteral("ABWL ab1?");
        QString words;
        for (int i = upTo(4); i >= 0; --i)
            words += alphabet[upTo(alphabet.size())];
        return words;
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

    QPointF somewhere() { return {upTo(500) - 250.0, upTo(500) - 250.0}; }

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

    bool isInSight(const QPointF &scenePos)
    {
        return studio.view().viewport()->rect().contains(studio.view().mapFromScene(scenePos));
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

    QRectF frame() const
    {
        const ZTGraphicsResizeItem *item = studio.document().scene()->getGraphicsResizeItem();
        return item->rect().translated(item->pos());
    }

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

    void arrange()
    {
        static constexpr const char *commands[] = {
            "arrange.left",        "arrange.hcenter",          "arrange.right",
            "arrange.top",         "arrange.vcenter",          "arrange.bottom",
            "arrange.center",      "arrange.mirrorHorizontal", "arrange.mirrorVertical",
            "arrange.rotateRight", "arrange.rotateLeft"};
        const char *command = commands[upTo(11)];
        note(QString::fromLatin1(command));
        studio.run(command);
    }

    void rotate()
    {
        if (!studio.run("arrange.rotate"))
            return;
        auto *dialog = studio.window->findChild<QInputDialog *>(QStringLiteral("rotationDialog"));
        auto *field = dialog->findChild<QDoubleSpinBox *>();
        field->selectAll();
        QTest::keyClicks(field, QString::number(upTo(7200) / 10.0 - 360.0, 'f', 1));
        TextWindow::key(field, upTo(5) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    void matrix()
    {
        if (!studio.run("arrange.matrix"))
            return;
        auto *dialog = studio.window->findChild<QDialog *>(QStringLiteral("matrixDialog"));
        for (const char *name : {"rows", "columns"}) {
            auto *box = dialog->findChild<QSpinBox *>(QString::fromLatin1(name));
            box->selectAll();
            QTest::keyClicks(box, QString::number(1 + upTo(3)));
        }
        auto *create = dialog->findChild<QPushButton *>(QStringLiteral("create"));
        if (upTo(4) != 0)
            click(*create);
    }

    /** A number that is in the range of most fields, and hatches nothing too finely. */
    QString number() { return QString::number(20 + upTo(300), 10).insert(2, QLatin1Char('.')); }

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

    void pen()
    {
        auto *box = studio.window->findChild<QComboBox *>(QStringLiteral("penBox"));
        if (!box->isEnabled())
            return;
        box->setFocus();
        QTest::keyClick(box, upTo(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
    }

    void lock()
    {
        auto *box = studio.window->findChild<QCheckBox *>(QStringLiteral("lockBox"));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
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

    void duplicate() { studio.key(Qt::Key_D, Qt::ControlModifier); }
    void remove() { studio.key(Qt::Key_Delete); }
    void nextPart() { studio.run("text.nextPart"); }

    void look()
    {
        static constexpr const char *commands[] = {"view.zoomIn", "view.zoomOut", "view.home",
                                                   "view.fitSelection", "view.fitAll"};
        studio.run(commands[upTo(5)]);
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

    TextWindow &studio;
    QRandomGenerator random;
    QVector<const char *> table; ///< ids of the commands that it uses
    QStringList done;
    QElapsedTimer sinceStart; ///< of the step
    QTimer watch;
};

inline const QVector<Monkey::Action> Monkey::kActions = {
    {"command", 20, &Monkey::command},
    {"panel", 8, &Monkey::panel},
    {"create", 8, &Monkey::create},
    {"text", 3, &Monkey::createText},
    {"retype", 2, &Monkey::retype},
    {"select", 16, &Monkey::select},
    {"nothing", 2, &Monkey::selectNothing},
    {"drag", 6, &Monkey::drag},
    {"resize", 6, &Monkey::resize},
    {"nudge", 6, &Monkey::nudge},
    {"arrange", 4, &Monkey::arrange},
    {"rotate", 4, &Monkey::rotate},
    {"matrix", 1, &Monkey::matrix},
    {"property", 14, &Monkey::property},
    {"pen", 3, &Monkey::pen},
    {"lock", 2, &Monkey::lock},
    {"text dialog", 3, &Monkey::textDialog},
    {"menu", 3, &Monkey::contextMenu},
    {"undo", 5, &Monkey::undoAndRedo},
    {"duplicate", 2, &Monkey::duplicate},
    {"delete", 2, &Monkey::remove},
    {"next part", 1, &Monkey::nextPart},
    {"look", 2, &Monkey::look},
    {"language", 1, &Monkey::language},
    {"order", 1, &Monkey::order},
    {"drop", 1, &Monkey::dropPlotterFile},
};
