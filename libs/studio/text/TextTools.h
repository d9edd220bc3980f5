#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTGraphicsTextItem;

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace studio {

class InPlaceEditor;
class Messages;
class TextDialog;
class TextState;

/**
 * Everything that is done to texts alone: typing on the drawing, the dialog with all settings, and
 * the change to the next part.
 *
 * A double click on a text starts typing; over a variant text it opens the dialog.
 * Each edit is one undo step. Going to the next part is none: a part that was marked is marked, and
 * no undo gives its number out again.
 */
class TextTools : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this; `window` is what dialogs stand over. */
    TextTools(ZTGraphicsDocument &document, Messages &messages, QWidget &window);
    ~TextTools() override;

    /** The selected text if it is the whole selection, or null. */
    ZTGraphicsTextItem *selectedText() const;

    void typeIntoSelected();

    /** Lets the user type into a text on the drawing. */
    void type(ZTGraphicsTextItem &item);

    void showDialog();
    void nextPart();

    /**
     * Brings the present part up to this moment: dates of today, lists as they are now. Numbers and
     * rows stay. Returns what cannot be read, a line each; nothing changes then.
     */
    QStringList renewPart();

    /**
     * Lets the selected texts and codes share the counter of the lowest of them that has variant
     * text: each has the next value.
     */
    void shareCounter();

    /** Takes what is being typed, so that it is recorded before anything else is. */
    void finishTyping();

Q_SIGNALS:
    /** Something to be told in passing. */
    void told(const QString &text);

    /** The next part has come; nothing stands on the undo stack for it. */
    void partChanged();

private:
    void open(ZTAbstractGraphicsItem *item);
    void take(const QString &words, const TextState &before);
    void closeEditor();
    void showDialogFor(ZTGraphicsTextItem &item);
    void followStack();
    void showInTree(const QSet<const ZTAbstractGraphicsItem *> &texts);

    ZTGraphicsDocument &m_document;
    Messages &m_messages;
    QWidget &m_window;
    QPointer<InPlaceEditor> m_editor;
    QPointer<TextDialog> m_dialog;
};

} // namespace studio
