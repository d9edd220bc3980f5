#include <studio/properties/PropertyDock.h>

#include <studio/edit/DocumentActions.h>
#include <studio/properties/PropertyGrid.h>
#include <studio/shapes/PenColors.h>

#include <QtCore/QEvent>
#include <QtCore/QSettings>
#include <QtWidgets/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QUndoStack>

#include <algorithm>

namespace studio {

namespace {

const QString kDenseKey = QStringLiteral("properties/denseRows");

constexpr int kRowMargin = 10;
constexpr int kPanelMargin = 6;

/** Whether all shapes agree in a value; so do none. */
template <class Value>
bool agree(const ShapeItems &items, const Value &valueOf)
{
    return std::all_of(items.begin(), items.end(), [&](const ShapeItem *item) {
        return valueOf(*item) == valueOf(*items.first());
    });
}

} // namespace

PropertyDock::PropertyDock(ZTGraphicsDocument &shown, DocumentActions &editing, QWidget *parent)
    : QDockWidget(parent), m_document(shown), m_actions(editing)
{
    setObjectName(QStringLiteral("propertyDock"));
    auto *panel = new QWidget(this);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, kPanelMargin, 0, 0);
    buildControls(*layout);
    setWidget(panel);
    buildDenseRows();
    rebuildList();
    retranslate();

    m_followTimer.setSingleShot(true);
    m_followTimer.setInterval(0);
    connect(&m_followTimer, &QTimer::timeout, this, &PropertyDock::follow);
    // Later, not within the signal: a grid that is just telling of an edit takes no new values.
    const auto followSoon = [this] { m_followTimer.start(); };
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this, followSoon);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, followSoon);
    follow();
}

void PropertyDock::buildControls(QVBoxLayout &layout)
{
    m_unitsLabel = new QLabel(this);
    m_unitsLabel->setObjectName(QStringLiteral("propertyUnits"));
    m_unitsLabel->setWordWrap(true);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("propertyCount"));
    m_countLabel->setWordWrap(true);
    m_penLabel = new QLabel(this);
    m_penBox = new QComboBox(this);
    m_penBox->setObjectName(QStringLiteral("penBox"));
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_penBox->addItem(penSwatch(pen), QString::number(pen));
    m_penLabel->setBuddy(m_penBox);
    connect(m_penBox, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { m_actions.setPen(index + 1); });
    m_lockBox = new QCheckBox(this);
    m_lockBox->setObjectName(QStringLiteral("lockBox"));
    connect(m_lockBox, &QCheckBox::clicked, this,
            [this] { m_actions.lockAspect(m_lockBox->checkState() == Qt::Checked); });

    auto *row = new QHBoxLayout;
    row->addWidget(m_penLabel);
    row->addWidget(m_penBox);
    row->addWidget(m_lockBox, 1);
    auto *controls = new QVBoxLayout;
    controls->setContentsMargins(kPanelMargin, 0, kPanelMargin, 0);
    controls->addWidget(m_unitsLabel);
    controls->addWidget(m_countLabel);
    controls->addLayout(row);
    layout.addLayout(controls);
}

void PropertyDock::buildDenseRows()
{
    m_denseRows = new QAction(this);
    m_denseRows->setObjectName(QStringLiteral("denseRows"));
    m_denseRows->setCheckable(true);
    m_denseRows->setChecked(QSettings().value(kDenseKey, true).toBool());
    connect(m_denseRows, &QAction::toggled, this, [this](bool isDense) {
        QSettings().setValue(kDenseKey, isDense);
        applyDensity();
    });
}

/** A grid has its texts from the language in which it was made. */
void PropertyDock::rebuildList()
{
    delete m_list;
    m_list = new PropertyGrid(*m_document.undoStack(), widget());
    m_list->setObjectName(QStringLiteral("propertyList"));
    m_list->setObject(nullptr);
    widget()->layout()->addWidget(m_list);
    m_tallRowsSheet = m_list->findChild<QTreeWidget *>()->styleSheet();
    applyDensity();
    m_isListStale = false;
}

void PropertyDock::applyDensity()
{
    const int rowHeight = fontMetrics().height() + kRowMargin;
    const QString denseSheet =
        QStringLiteral("QtPropertyEditorView::item{height:%1px;}").arg(rowHeight);
    auto *view = m_list->findChild<QTreeWidget *>();
    // A widget that has read its sheet before it was polished would keep to that one.
    view->ensurePolished();
    view->setStyleSheet(m_denseRows->isChecked() ? denseSheet : m_tallRowsSheet);
}

void PropertyDock::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    follow();
}

void PropertyDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    m_isListStale = true;
    m_followTimer.start();
}

void PropertyDock::retranslate()
{
    setWindowTitle(tr("Engine properties"));
    m_unitsLabel->setText(
        tr("The engine's own numbers: a place is that of a shape's origin in mm, a spacing is "
           "marked larger than it is shown here, sizes and lengths hold before a shape is turned "
           "or resized. True measures stand in the shape panel."));
    m_denseRows->setText(tr("&Dense property rows"));
    m_penLabel->setText(tr("&Pen"));
    m_penBox->setToolTip(tr("Pen that marks the selected shapes"));
    m_lockBox->setText(tr("&Keep proportions"));
    m_lockBox->setToolTip(tr("Resizing keeps the proportions of the selected shapes"));
}

void PropertyDock::follow()
{
    if (!isVisible()) {
        // Reading thousands of shapes that nobody sees costs time.
        if (m_list->getObject() != nullptr)
            m_list->setObject(nullptr);
        return;
    }
    if (m_isListStale)
        rebuildList();
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    ShapeItem *first = items.isEmpty() ? nullptr : items.first();
    if (first == nullptr || first != m_list->getObject())
        m_list->setObject(first);
    else
        m_list->updateProperty();
    showControls(items);
}

void PropertyDock::showControls(const ShapeItems &items)
{
    if (items.isEmpty())
        m_countLabel->setText(tr("Nothing selected"));
    else if (items.size() == 1)
        m_countLabel->setText(tr("1 shape selected"));
    else
        m_countLabel->setText(tr("%1 shapes selected; the grid shows the first").arg(items.size()));
    m_penLabel->setEnabled(!items.isEmpty());
    m_penBox->setEnabled(!items.isEmpty());
    m_lockBox->setEnabled(!items.isEmpty());
    showPen(items);
    showLock(items);
}

void PropertyDock::showPen(const ShapeItems &items)
{
    const bool isOne =
        !items.isEmpty() && agree(items, [](const ShapeItem &item) { return item.getPenId(); });
    const int pen = isOne ? items.first()->getPenId() : 0;
    m_penBox->setCurrentIndex(pen >= 1 && pen <= kPenCount ? pen - 1 : -1);
}

void PropertyDock::showLock(const ShapeItems &items)
{
    if (!agree(items, &isAspectLocked)) {
        m_lockBox->setCheckState(Qt::PartiallyChecked);
        return;
    }
    // Shapes that differ make it a box of three states.
    m_lockBox->setTristate(false);
    m_lockBox->setChecked(!items.isEmpty() && isAspectLocked(*items.first()));
}

} // namespace studio
