#pragma once

#include <studio/commands/TextState.h>
#include <studio/text/TextSettings.h>

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QTabWidget;
class QUndoStack;
QT_END_NAMESPACE

namespace studio {

class HatchPage;
class TextPage;

/**
 * All settings of a text. The drawing shows each change at once; OK makes them one undo step, and
 * Cancel brings back what was there.
 */
class TextDialog : public QDialog
{
    Q_OBJECT

public:
    /** `item` and `stack` are borrowed; an item that goes closes the dialog. */
    TextDialog(ZTGraphicsTextItem &item, QUndoStack &stack, QWidget *parent);
    ~TextDialog() override;

    void done(int result) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addPage(TextPage *page, const QString &title);
    TextSettings wanted() const;
    void preview();
    void take();
    void giveBack();
    void moveAside();
    QRect textPlace() const;
    void bringIntoSight();
    void scroll(int byPx);

    QPointer<ZTGraphicsTextItem> m_item;
    QUndoStack &m_stack;
    const TextState m_before;
    const TextSettings m_initial;
    QTabWidget *m_tabs;
    QVector<TextPage *> m_pages;
    HatchPage *m_hatch;
    QTimer m_previewTimer; ///< gathers changes that come together
    QRect m_freePlace;     ///< the drawing beside the dialog; pixels of the screen
    int m_scrolledPx = 0;  ///< by which the drawing was moved to show its text there
    bool m_isFinished = false;
};

} // namespace studio
