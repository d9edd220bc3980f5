#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDockWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QFrame;
class QLabel;
class QTabWidget;
class QVBoxLayout;
QT_END_NAMESPACE

namespace studio {

class BoxSection;
class DocumentActions;
class PanelSection;

/**
 * What one changes about the selected shapes while looking at them: live fields in true measures,
 * in pages. What differs between several shapes is shown as differing; an edit applies to all of
 * them in one undo step.
 *
 * Follows the selection, every step of the undo stack and every drag. Below the pages stands what
 * is wrong with an entry, as long as something is.
 */
class ShapePanel : public QDockWidget
{
    Q_OBJECT

public:
    /** Pages that come with the panel. */
    enum class Page { Shape, Text };

    /** The text of a title in the language of the program at the time it is called. */
    using Title = std::function<QString()>;

    /** Both are borrowed and outlive this. */
    ShapePanel(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent);

    /** Puts a section below those of a page. Owner: the panel. */
    void addSection(Page page, PanelSection *section);

    /** Adds a page of another kind, behind those that are there. Owner: the panel. */
    void addPage(QWidget *page, const Title &title);

    /** Shows a page that was added, and goes to it; or takes it away and goes back. */
    void setPageShown(QWidget *page, bool isShown);

    /** Goes to the first field of the shape page, ready to be typed into. */
    void startTyping();

    /** Shows the selection as it is now, at once. */
    void follow();

Q_SIGNALS:
    /** The user wants to change the words of the selected text. */
    void wordsWanted();

    /** The user wants to change the settings of a code, which have a dialog of their own. */
    void codeSettingsWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    QVBoxLayout *newPage(const Title &title);
    void connectDocument();
    void followPlaces();
    void tell(const QString &reason);
    void dropNotice();
    void retranslate();

    ZTGraphicsDocument &m_document;
    QLabel *m_count;
    QTabWidget *m_tabs;
    QWidget *m_pageBefore = nullptr; ///< the one to go back to; a child, as all pages
    QLabel *m_message;
    QVector<Title> m_titles;        ///< by page
    QVector<QVBoxLayout *> m_pages; ///< those that take sections, by `Page`
    QVector<PanelSection *> m_sections;
    QVector<QFrame *> m_rules; ///< above each section; null above the first of a page
    BoxSection *m_box = nullptr;
    QTimer m_followTimer; ///< gathers what happens together
    QTimer m_placesTimer;
};

} // namespace studio
