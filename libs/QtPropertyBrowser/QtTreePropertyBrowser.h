#pragma once

#include <QtPropertyBrowser/QtAbstractPropertyBrowser.h>

#include <QtGui/QColor>

class QtTreePropertyBrowserPrivate;

/**
 * Shows rows as a tree of two columns: the name, in the application's language, and the value.
 *
 * A left click on a value opens its editor, and so do F2, Return, Enter and Space on the current
 * row. Return, Enter and Tab close it with what was entered, Escape without. A row that is not
 * enabled shows grey, as do the rows below it, and opens no editor. Rows with others below them
 * come expanded. Texts are those of the language at the time when a row is filled: a change of
 * language changes nothing that stands.
 *
 * Limit: every row is 75 pixels high and the scroll bar 200 wide. A program that wants it denser
 * gives the `QtPropertyEditorView` inside a style sheet of its own.
 */
class QTPROPERTYBROWSER_EXPORT QtTreePropertyBrowser : public QtAbstractPropertyBrowser
{
    Q_OBJECT
    Q_PROPERTY(int indentation READ indentation WRITE setIndentation)
    Q_PROPERTY(bool rootIsDecorated READ rootIsDecorated WRITE setRootIsDecorated)
    Q_PROPERTY(bool alternatingRowColors READ alternatingRowColors WRITE setAlternatingRowColors)
    Q_PROPERTY(bool headerVisible READ isHeaderVisible WRITE setHeaderVisible)
    Q_PROPERTY(ResizeMode resizeMode READ resizeMode WRITE setResizeMode)
    Q_PROPERTY(int splitterPosition READ splitterPosition WRITE setSplitterPosition)
    Q_PROPERTY(bool propertiesWithoutValueMarked READ propertiesWithoutValueMarked WRITE
                   setPropertiesWithoutValueMarked)

public:
    /** How the columns get their widths. */
    enum ResizeMode { Interactive, Stretch, Fixed, ResizeToContents };
    Q_ENUM(ResizeMode)

    explicit QtTreePropertyBrowser(QWidget *parent = nullptr);
    ~QtTreePropertyBrowser() override;

    int indentation() const;                ///< of each level, in pixels
    void setIndentation(int indentationPx); ///< in pixels

    bool rootIsDecorated() const;       ///< whether top rows can be folded; true at first
    void setRootIsDecorated(bool show); ///< shows or hides the handles of top rows

    bool alternatingRowColors() const;         ///< true at first
    void setAlternatingRowColors(bool enable); ///< every second row on another ground

    bool propertiesWithoutValueMarked() const; ///< whether groups show as headings; true at first
    void setPropertiesWithoutValueMarked(bool mark); ///< true: groups as headings

    bool isHeaderVisible() const;        ///< true at first
    void setHeaderVisible(bool visible); ///< the row of column titles

    ResizeMode resizeMode() const;       ///< `Stretch` at first
    void setResizeMode(ResizeMode mode); ///< how the two columns share the width

    /** Width of the name column in pixels. Setting it lasts in modes that leave it alone. */
    int splitterPosition() const;
    void setSplitterPosition(int positionPx);

    bool isExpanded(QtBrowserItem *item) const;           ///< false for an item of another browser
    void setExpanded(QtBrowserItem *item, bool expanded); ///< ignores items of others

    bool isItemVisible(QtBrowserItem *item) const; ///< false for an item of another browser
    /** With the rows below; ignores items of others. */
    void setItemVisible(QtBrowserItem *item, bool visible);

    /** Colour behind a row and, where they have none, the rows below; invalid takes it away. */
    void setBackgroundColor(QtBrowserItem *item, const QColor &color);
    QColor backgroundColor(QtBrowserItem *item) const;           ///< the row's own
    QColor calculatedBackgroundColor(QtBrowserItem *item) const; ///< its own or the nearest above

    /** Makes a row current and opens its editor, if it has one and is enabled. */
    void editItem(QtBrowserItem *item);

Q_SIGNALS:
    void expanded(QtBrowserItem *item);  ///< a row was unfolded, by hand or by call
    void collapsed(QtBrowserItem *item); ///< a row was folded, by hand or by call

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *after) override;
    void itemRemoved(QtBrowserItem *item) override;
    void itemChanged(QtBrowserItem *item) override;

private:
    friend class QtTreePropertyBrowserPrivate;

    const std::unique_ptr<QtTreePropertyBrowserPrivate> m_d;
};
