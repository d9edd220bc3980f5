#include <studio/clipboard/ClipboardActions.h>

#include <studio/clipboard/ClipboardContent.h>
#include <studio/commands/DrawingExtrasCommand.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/import/Importer.h>
#include <studio/program/UndoTexts.h>
#include <studio/text/StrokeFonts.h>

#include <hostkit/drawing/DrawingLoader.h>

#include <QtCore/QMimeData>
#include <QtCore/QSet>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace studio {

namespace {

constexpr double kAsideMm = 5.0;
constexpr double kSamePx = 1e-3; ///< nearer than this is the same place

using PlaceKey = QPair<qint64, qint64>;

PlaceKey keyOf(const QPointF &placePx)
{
    return {qRound64(placePx.x() / kSamePx), qRound64(placePx.y() / kSamePx)};
}

void moveAll(const ShapeItems &items, const QPointF &wayPx)
{
    for (ShapeItem *item : items)
        item->setPos(item->pos() + wayPx);
}

} // namespace

ClipboardActions::ClipboardActions(ZTGraphicsDocument &document, Importer &importer,
                                   Messages &messages, QObject *parent)
    : QObject(parent), m_document(document), m_importer(importer), m_messages(messages)
{
}

void ClipboardActions::fail(const QString &what, const QString &why)
{
    m_messages.failure({what, why, {}});
}

bool ClipboardActions::copy()
{
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    if (items.isEmpty())
        return false;
    hostkit::Failure failure;
    std::unique_ptr<QMimeData> held = shapesForClipboard(m_document, items, &failure);
    if (!held) {
        fail(tr("The shapes were not copied."), failure.reason);
        return false;
    }
    QGuiApplication::clipboard()->setMimeData(held.release());
    return true;
}

void ClipboardActions::cut()
{
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    if (!copy())
        return;
    m_document.undoStack()->push(new DeleteItemsCommand(
        m_document.itemMag(), items, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Cut"))));
}

void ClipboardActions::paste()
{
    pasteFrom(QGuiApplication::clipboard()->mimeData(), Place::Aside, shownArea().center());
}

void ClipboardActions::pasteAt(const QPointF &placePx)
{
    pasteFrom(QGuiApplication::clipboard()->mimeData(), Place::There, placePx);
}

void ClipboardActions::pasteInPlace()
{
    pasteFrom(QGuiApplication::clipboard()->mimeData(), Place::Same, shownArea().center());
}

QRectF ClipboardActions::shownArea() const
{
    const ZTGraphicsView &view = *m_document.view();
    return view.mapToScene(view.viewport()->rect()).boundingRect();
}

void ClipboardActions::pasteFrom(const QMimeData *held, Place place, const QPointF &placePx)
{
    switch (pasteKind(held)) {
    case PasteKind::Nothing:
        Q_EMIT told(tr("The clipboard holds nothing that can be pasted"));
        return;
    case PasteKind::Shapes:
        pasteShapes(held->data(kShapesType), place, placePx);
        return;
    case PasteKind::Svg:
        pasteSvg(svgOf(*held), placePx);
        return;
    case PasteKind::Words:
        pasteWords(wordsOf(*held), placePx);
        return;
    }
}

void ClipboardActions::pasteShapes(const QByteArray &bytes, Place place, const QPointF &placePx)
{
    hostkit::DrawingFile drawing;
    hostkit::Failure failure;
    hostkit::InsertedDrawing inserted;
    const ShapeItems before = shapeItemsOf(*m_document.scene());
    if (!hostkit::readDrawing(bytes, &drawing, &failure) ||
        !hostkit::insertDrawing(drawing, m_document, {}, &inserted, &failure)) {
        fail(tr("The shapes were not pasted."), failure.reason);
        return;
    }
    const ShapeItems &items = inserted.items;
    if (items.isEmpty())
        return;
    if (place == Place::There)
        moveAll(items, placePx - sceneBox(items).center());
    else if (place == Place::Aside)
        putAside(items, before);
    const QString text = undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Paste"));
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    if (inserted.groupNames.isEmpty()) {
        m_document.undoStack()->push(
            new AddItemsCommand(m_document.itemMag(), items, selected, text));
    } else {
        const UndoMacro macro(*m_document.undoStack(), text);
        m_document.undoStack()->push(new DrawingExtrasCommand(
            m_document,
            [&inserted](hostkit::DrawingExtras &extras) {
                extras.groupNames.insert(inserted.groupNames);
            },
            text));
        m_document.undoStack()->push(
            new AddItemsCommand(m_document.itemMag(), items, selected, text));
    }
    Q_EMIT added(sceneBox(items));
}

void ClipboardActions::putAside(const ShapeItems &items, const ShapeItems &others) const
{
    QSet<PlaceKey> taken;
    for (const ShapeItem *other : others)
        taken.insert(keyOf(other->pos()));
    const double stepPx = ZTCoord::getInstance()->mm2pix(kAsideMm);
    QPointF wayPx;
    while (taken.contains(keyOf(items.first()->pos() + wayPx)))
        wayPx += QPointF(stepPx, stepPx);
    const QRectF boxPx = sceneBox(items).translated(wayPx);
    const QRectF shownPx = shownArea();
    if (!shownPx.intersects(boxPx) && !shownPx.contains(boxPx.center()))
        wayPx += shownPx.center() - boxPx.center();
    if (!wayPx.isNull())
        moveAll(items, wayPx);
}

void ClipboardActions::pasteSvg(const QByteArray &bytes, const QPointF &centrePx)
{
    ReadDrawing read;
    if (!m_importer.read(bytes, tr("clipboard"), &read) ||
        m_importer.bringInAsLast({read}, centrePx) == 0)
        return;
    Q_EMIT added(m_document.scene()->getSelectionItemRect());
}

void ClipboardActions::pasteWords(const QString &words, const QPointF &centrePx)
{
    if (words.size() > kMostCharacters) {
        fail(tr("The text was not pasted."), tr("It has %L1 characters; at most %L2 become a text.")
                                                 .arg(words.size())
                                                 .arg(kMostCharacters));
        return;
    }
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    auto *item = qobject_cast<ZTGraphicsTextItem *>(
        m_document.itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
    if (item == nullptr)
        return;
    setUpNewText(*item);
    item->setFixedText(words);
    item->setPos(item->pos() + centrePx - sceneBox(*item).center());
    m_document.undoStack()->push(
        new AddItemsCommand(m_document.itemMag(), {item}, selected,
                            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Paste"))));
    Q_EMIT added(sceneBox(*item));
}

} // namespace studio
