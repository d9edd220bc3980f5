#include <studio/canvas/GuideTools.h>

#include <studio/canvas/CanvasLines.h>
#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/SnapTools.h>
#include <studio/choices/Units.h>
#include <studio/commands/DrawingExtrasCommand.h>
#include <studio/program/UndoTexts.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QUndoStack>

#include <cmath>

namespace studio {

namespace {

constexpr int kNearPx = 4; ///< on the screen
constexpr int kStill = 3;  ///< pixels that a hand trembles
constexpr double kFarthestMm = 7000.0;
constexpr double kShownMm = 0.001; ///< what is shown is what is kept
const QColor kInk(0x00, 0x9a, 0xa8);

QLineF lineOf(const Guide &guide, const QRectF &scenePx)
{
    const double atPx = ZTCoord::getInstance()->mm2pix(guide.atMm);
    return guide.orientation == Qt::Vertical ? QLineF(atPx, scenePx.top(), atPx, scenePx.bottom())
                                             : QLineF(scenePx.left(), atPx, scenePx.right(), atPx);
}

QString placeOf(const Guide &guide)
{
    return guide.orientation == Qt::Vertical
               ? QStringLiteral("X ") + units::text(guide.atMm)
               : QStringLiteral("Y ") + units::text(units::y(guide.atMm));
}

/** The place of a guide as people count it, in millimetres, and back. */
double countedMm(const Guide &guide)
{
    return guide.orientation == Qt::Vertical ? guide.atMm : units::y(guide.atMm);
}

QString labelOf(const Guide &guide)
{
    if (guide.orientation == Qt::Vertical)
        return GuideTools::tr("X in %1:");
    return units::isYUp() ? GuideTools::tr("Y in %1, upward:")
                          : GuideTools::tr("Y in %1, downward:");
}

} // namespace

GuideTools::GuideTools(ZTGraphicsDocument &document, SnapTools &snap, QWidget &window)
    : QObject(&window), m_document(document), m_snap(snap), m_window(window),
      m_lines(std::make_unique<CanvasLines>(*document.scene(), kInk, Qt::SolidLine)),
      m_label(new PointerLabel(document.view()->viewport()))
{
    m_document.view()->viewport()->installEventFilter(this);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &GuideTools::follow);
}

GuideTools::~GuideTools() = default;

QVector<Guide> GuideTools::guides() const { return guidesOf(hostkit::drawingExtras(m_document)); }

void GuideTools::follow() { show(guides()); }

void GuideTools::show(const QVector<Guide> &guides)
{
    QVector<QLineF> lines;
    for (const Guide &guide : guides)
        lines.append(lineOf(guide, m_document.scene()->sceneRect()));
    m_lines->show(lines);
}

void GuideTools::change(const QVector<Guide> &guides, const QString &text)
{
    if (guides == this->guides())
        return;
    m_document.undoStack()->push(new DrawingExtrasCommand(
        m_document, [&guides](hostkit::DrawingExtras &extras) { setGuides(guides, &extras); },
        text));
}

void GuideTools::removeAll()
{
    change({}, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Remove guides")));
}

void GuideTools::watchRuler(QWidget &ruler, Qt::Orientation orientation)
{
    ruler.setProperty("guides", int(orientation));
    ruler.setCursor(orientation == Qt::Vertical ? Qt::SplitHCursor : Qt::SplitVCursor);
    ruler.installEventFilter(this);
}

bool GuideTools::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTaken = watched == m_document.view()->viewport()
                             ? canvasEvent(event)
                             : rulerEvent(*static_cast<QWidget *>(watched), event);
    return isTaken || QObject::eventFilter(watched, event);
}

bool GuideTools::rulerEvent(const QWidget &ruler, QEvent *event)
{
    const auto mouse = [event]() -> QMouseEvent & { return *static_cast<QMouseEvent *>(event); };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse().button() != Qt::LeftButton)
            return false;
        m_drag =
            Drag{{Qt::Orientation(ruler.property("guides").toInt()), 0.0}, -1, mouse().globalPos()};
        return true;
    case QEvent::MouseMove:
        if (m_drag)
            dragTo(mouse().globalPos(), mouse().modifiers());
        return true;
    case QEvent::MouseButtonRelease:
        if (m_drag)
            drop(mouse().globalPos(), mouse().modifiers());
        return true;
    default:
        return false;
    }
}

bool GuideTools::canvasEvent(QEvent *event)
{
    const auto mouse = [event]() -> QMouseEvent & { return *static_cast<QMouseEvent *>(event); };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(mouse());
    case QEvent::MouseButtonDblClick:
        if (isFree(mouse().pos()) && guideAt(mouse().pos()) >= 0) {
            giveUp();
            askForPlace(guideAt(mouse().pos()));
            return true;
        }
        return false;
    case QEvent::MouseMove:
        if (m_drag) {
            dragTo(mouse().globalPos(), mouse().modifiers());
            return true;
        }
        if (mouse().buttons() == Qt::NoButton)
            showCursor(mouse().pos());
        return false;
    case QEvent::MouseButtonRelease:
        if (!m_drag)
            return false;
        drop(mouse().globalPos(), mouse().modifiers());
        return true;
    default:
        return false;
    }
}

bool GuideTools::press(const QMouseEvent &event)
{
    if (m_drag) {
        giveUp(); // another button
        return true;
    }
    const int place =
        event.button() == Qt::LeftButton && isFree(event.pos()) ? guideAt(event.pos()) : -1;
    if (place < 0)
        return false;
    m_drag = Drag{guides().at(place), place, event.globalPos()};
    return true;
}

void GuideTools::giveUp()
{
    m_drag.reset();
    m_snap.hide();
    if (m_label)
        m_label->hide();
    follow();
}

void GuideTools::dragTo(const QPoint &globalPos, Qt::KeyboardModifiers keys)
{
    if ((globalPos - m_drag->pressPos).manhattanLength() >= kStill)
        m_drag->isMoved = true;
    if (!m_drag->isMoved)
        return;
    const ZTGraphicsView &view = *m_document.view();
    const QPoint pos = view.viewport()->mapFromGlobal(globalPos);
    const QPointF placePx = view.viewportTransform().inverted().map(QPointF(pos));
    const bool isUpright = m_drag->guide.orientation == Qt::Vertical;
    const double wantedPx = isUpright ? placePx.x() : placePx.y();
    const double atPx = m_snap.line(m_drag->guide.orientation, wantedPx, keys);
    double atMm = ZTCoord::getInstance()->pix2mm(atPx);
    if (atPx == wantedPx)
        atMm = std::round(atMm / kShownMm) * kShownMm;
    m_drag->guide.atMm = atMm;
    QVector<Guide> shown = guides();
    if (m_drag->place >= 0 && m_drag->place < shown.size())
        shown[m_drag->place] = m_drag->guide;
    else
        shown.append(m_drag->guide);
    show(shown);
    m_label->tell(placeOf(m_drag->guide), pos);
}

void GuideTools::drop(const QPoint &globalPos, Qt::KeyboardModifiers keys)
{
    dragTo(globalPos, keys);
    if (!m_drag->isMoved) {
        giveUp(); // a click
        return;
    }
    const QWidget &canvas = *m_document.view()->viewport();
    const bool isOnCanvas = canvas.rect().contains(canvas.mapFromGlobal(globalPos));
    const Drag dragged = *m_drag;
    giveUp();
    QVector<Guide> wanted = guides();
    if (dragged.place < 0) {
        if (!isOnCanvas)
            return;
        wanted.append(dragged.guide);
        change(wanted, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add guide")));
    } else if (dragged.place < wanted.size()) {
        if (isOnCanvas)
            wanted[dragged.place] = dragged.guide;
        else
            wanted.remove(dragged.place);
        change(wanted, isOnCanvas
                           ? undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Move guide"))
                           : undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Remove guide")));
    }
}

void GuideTools::askForPlace(int place)
{
    const Guide asked = guides().at(place);
    auto *dialog = new QInputDialog(&m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("guideDialog"));
    dialog->setWindowTitle(tr("Guide"));
    dialog->setLabelText(labelOf(asked).arg(units::name()));
    dialog->setInputMode(QInputDialog::DoubleInput);
    const double farthest = kFarthestMm / units::unitMm();
    dialog->setDoubleDecimals(units::unit() == LengthUnit::Inch ? 5 : 3);
    dialog->setDoubleRange(-farthest, farthest);
    dialog->setDoubleValue(countedMm(asked) / units::unitMm());
    connect(dialog, &QInputDialog::doubleValueSelected, this, [this, asked](double typed) {
        const double atMm = countedMm({asked.orientation, typed * units::unitMm()});
        QVector<Guide> wanted = guides();
        const int now = wanted.indexOf(asked);
        if (now < 0)
            return;
        wanted[now].atMm = atMm;
        change(wanted, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Move guide")));
    });
    dialog->open();
}

int GuideTools::guideAt(const QPoint &pos) const
{
    const QTransform toView = m_document.view()->viewportTransform();
    const QVector<Guide> all = guides();
    for (int place = all.size() - 1; place >= 0; --place) {
        const double atPx = ZTCoord::getInstance()->mm2pix(all[place].atMm);
        const QPointF shown = toView.map(QPointF(atPx, atPx));
        const double away =
            all[place].orientation == Qt::Vertical ? shown.x() - pos.x() : shown.y() - pos.y();
        if (std::abs(away) <= kNearPx)
            return place;
    }
    return -1;
}

/** Whether neither a shape nor the selection frame lies there, which come first. */
bool GuideTools::isFree(const QPoint &pos) const { return m_document.view()->items(pos).isEmpty(); }

void GuideTools::showCursor(const QPoint &pos)
{
    QWidget *canvas = m_document.view()->viewport();
    const int place = isFree(pos) ? guideAt(pos) : -1;
    if (place >= 0) {
        canvas->setCursor(guides().at(place).orientation == Qt::Vertical ? Qt::SplitHCursor
                                                                         : Qt::SplitVCursor);
        m_hasCursor = true;
    } else if (m_hasCursor) {
        canvas->unsetCursor();
        m_hasCursor = false;
    }
}

} // namespace studio
