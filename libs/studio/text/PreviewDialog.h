#pragma once

#include <studio/commands/TextState.h>
#include <studio/text/TextCommand.h>

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QLayout;
class QPushButton;
class QTabWidget;
class QUndoStack;
class QVBoxLayout;
QT_END_NAMESPACE

namespace studio {

/**
 * A dialog with pages about one text or code. The drawing shows each change at once, and stays in
 * sight beside the dialog; OK makes the changes one undo step, and Cancel brings back what was
 * there. While a number on the pages is wrong the reason stands below them, and there is no OK.
 */
class PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /** `item` and `stack` are borrowed; an item that goes closes the dialog. */
    PreviewDialog(ZTAbstractGraphicsTextItem &item, QUndoStack &stack, QWidget *parent);
    ~PreviewDialog() override;

    void done(int result) override;

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

    void addPage(QWidget *page, const QString &title);
    void insertAbove(QLayout *row); ///< of the pages
    void insertBelow(QLayout *row); ///< of the pages, above the buttons
    void previewSoon();             ///< gathers changes that come together

    /** The item; null once it is gone. */
    ZTAbstractGraphicsTextItem *edited() const { return m_item; }

    /** Brings the item, which stands as it was before, to what is set. Taken: OK was pressed. */
    virtual void apply(bool isTaken) = 0;

    /** What the settings do to the variant text. */
    virtual TextCommand::VariantText variantChange() const = 0;

    /** Text of the undo step. */
    virtual QString stepText() const = 0;

private:
    void showFault();
    void preview();
    void take();
    void giveBack();
    void moveAside();
    QRect itemPlace() const;
    void bringIntoSight();
    void scroll(int byPx);

    QPointer<ZTAbstractGraphicsTextItem> m_item;
    QUndoStack &m_stack;
    const TextState m_before;
    QTabWidget *m_tabs;
    QVBoxLayout *m_layout;
    QLabel *m_faultLabel; ///< what is wrong with a number on the pages
    QPushButton *m_okButton = nullptr;
    QTimer m_previewTimer;
    QRect m_freePlace;    ///< the drawing beside the dialog; pixels of the screen
    int m_scrolledPx = 0; ///< by which the drawing was moved to show the item there
    bool m_isFinished = false;
};

} // namespace studio
