#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QObject>

#include <optional>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

namespace studio {

class Importer;
class Messages;

/**
 * Cut, copy and paste. Shapes travel with all that they are, also to another window and after their
 * own has closed; drawings of other programs come in as SVG, plain text as a text shape.
 *
 * Each cut and each paste is one undo step. What is pasted is selected.
 */
class ClipboardActions : public QObject
{
    Q_OBJECT

public:
    /** Limit: characters of plain text that become one text shape. */
    static constexpr int kMostCharacters = 10000;

    /** All are borrowed and outlive this. */
    ClipboardActions(ZTGraphicsDocument &document, Importer &importer, Messages &messages,
                     QObject *parent = nullptr);

    /** Of the selected shapes; nothing without any. False, told in a message, if it failed. */
    bool copy();
    void cut();

    /**
     * Pastes where the shapes come from, aside by 5 mm as often as it takes not to lie upon the
     * very same; what would be out of sight, and what has no place of its own, comes to the middle
     * of the view.
     */
    void paste();

    /** Pastes with the middle of the whole at a place. Frame: scene pixels. */
    void pasteAt(const QPointF &placePx);

    /** Pastes exactly where the shapes come from. */
    void pasteInPlace();

Q_SIGNALS:
    /** Shapes came in; the view may want to show them. */
    void added(const QRectF &boxPx);

    /** Something to be told in passing. */
    void told(const QString &text);

private:
    enum class Place { Aside, There, Same };

    void pasteFrom(const QMimeData *held, Place place, const QPointF &placePx);
    void pasteShapes(const QByteArray &bytes, Place place, const QPointF &placePx);
    void pasteSvg(const QByteArray &bytes, const QPointF &centrePx);
    void pasteWords(const QString &words, const QPointF &centrePx);
    void putAside(const ShapeItems &items, const ShapeItems &others) const;
    QRectF shownArea() const;
    void fail(const QString &what, const QString &why);

    ZTGraphicsDocument &m_document;
    Importer &m_importer;
    Messages &m_messages;
};

} // namespace studio
