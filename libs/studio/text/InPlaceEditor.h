#pragma once

#include <studio/commands/TextState.h>

#include <QtCore/QPointer>
#include <QtWidgets/QTextEdit>

namespace studio {

/**
 * A field beside a text on the drawing in which its words are typed; the drawing follows.
 *
 * Return starts a new line. Ctrl+Return, and leaving the field, take the words; Esc gives them up.
 * The field stands below its text, so that both are in sight, and stays with it under zooming and
 * scrolling. It is in readable letters whatever the font of the drawing. Input methods work as in
 * any field.
 *
 * Order: one that was left or given up has done its work; its maker deletes it.
 */
class InPlaceEditor : public QTextEdit
{
    Q_OBJECT

public:
    /** Shows itself in the view and takes the focus. `view` and `item` are borrowed. */
    InPlaceEditor(ZTGraphicsView &view, ZTGraphicsTextItem &item);

    /** The text that is being typed, or null when it has gone. */
    ZTGraphicsTextItem *edited() const { return m_item; }

    /** Takes the words as if the field were left. */
    void accept();

Q_SIGNALS:
    void accepted(const QString &words);
    void givenUp();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void showWords();
    void follow();
    void giveUp();
    QSize wantedSize() const;
    QPoint wantedPlace(const QSize &size) const;

    ZTGraphicsView &m_view;
    QPointer<ZTGraphicsTextItem> m_item;
    bool m_isDone = false;
};

} // namespace studio
