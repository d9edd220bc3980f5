#include <hostkit/view/ViewRulers.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QScrollBar>

namespace hostkit {

namespace {

constexpr int kLetterPx = 9; ///< height of the numbers; they stand in the upper half

// A ruler's numbers are its ticks divided by the nice number of its unit, and its ticks stand ten
// units apart: counted in tenths of the unit, the numbers are units.
constexpr double kRulerUnit = 0.1;

void prepare(QWidget &ruler)
{
    QFont letters = ruler.font();
    letters.setPixelSize(kLetterPx);
    ruler.setFont(letters);
    // The strip is white, whatever colours the program has.
    QPalette ink = ruler.palette();
    ink.setColor(QPalette::WindowText, Qt::black);
    ruler.setPalette(ink);
}

} // namespace

ViewRulers::ViewRulers(ZTGraphicsDocument *document, QWidget *parent)
    : QWidget(parent), m_document(document), m_horizontal(new ZTHorizontalAxis(this)),
      m_vertical(new ZTVerticalAxis(this)), m_corner(new QWidget(this))
{
    prepare(*m_horizontal);
    prepare(*m_vertical);
    m_horizontal->setFixedHeight(kThickness);
    m_vertical->setFixedWidth(kThickness);
    m_corner->setAutoFillBackground(true);
    QPalette white = m_corner->palette();
    white.setColor(QPalette::Window, Qt::white);
    m_corner->setPalette(white);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_corner, 0, 0);
    layout->addWidget(m_horizontal, 0, 1);
    layout->addWidget(m_vertical, 1, 0);
    layout->addWidget(m_document, 1, 1);
    for (QScrollBar *bar :
         {m_document->view()->horizontalScrollBar(), m_document->view()->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &ViewRulers::follow);
        connect(bar, &QScrollBar::rangeChanged, this, &ViewRulers::follow);
    }
    m_document->view()->viewport()->installEventFilter(this);
    follow();
}

// A document that goes tells of changes until its end; the rulers may be gone by then.
ViewRulers::~ViewRulers()
{
    if (!m_document)
        return;
    m_document->view()->horizontalScrollBar()->disconnect(this);
    m_document->view()->verticalScrollBar()->disconnect(this);
    m_document->view()->viewport()->removeEventFilter(this);
}

void ViewRulers::setRulersVisible(bool areVisible)
{
    for (QWidget *widget :
         {static_cast<QWidget *>(m_horizontal), static_cast<QWidget *>(m_vertical), m_corner})
        widget->setVisible(areVisible);
}

void ViewRulers::setUnitMm(double unitMm)
{
    m_unitMm = unitMm;
    follow();
}

bool ViewRulers::areRulersVisible() const { return !m_horizontal->isHidden(); }

bool ViewRulers::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        follow();
    return QWidget::eventFilter(watched, event);
}

void ViewRulers::follow()
{
    if (!m_document)
        return;
    const ZTGraphicsView &view = *m_document->view();
    const QPointF zero = view.viewportTransform().map(QPointF(0.0, 0.0)) +
                         view.viewport()->mapTo(m_document, QPoint(0, 0));
    const double unitPx =
        ZTCoord::getInstance()->mm2pix(kRulerUnit * m_unitMm) * view.getDisplayScale();
    m_horizontal->setPixelsPerUnit(unitPx);
    m_horizontal->setOrigin(-zero.x());
    m_horizontal->setLength(m_document->width());
    m_vertical->setPixelsPerUnit(unitPx);
    m_vertical->setOrigin(-zero.y());
    m_vertical->setLength(m_document->height());
}

} // namespace hostkit
