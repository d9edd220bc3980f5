#include <studio/PropertyDock.h>

#include <studio/DocumentActions.h>
#include <studio/PenColors.h>
#include <studio/PropertyGrid.h>

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
    : QDockWidget(parent), document(shown), actions(editing)
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

    followTimer.setSingleShot(true);
    followTimer.setInterval(0);
    connect(&followTimer, &QTimer::timeout, this, &PropertyDock::follow);
    // Later, not within the signal: a grid that is just telling of an edit takes no new values.
    const auto followSoon = [this] { followTimer.start(); };
    connect(document.scene(), &QGraphicsScene::selectionChanged, this, followSoon);
    connect(document.undoStack(), &QUndoStack::indexChanged, this, followSoon);
    follow();
}

void PropertyDock::buildControls(QVBoxLayout &layout)
{
    countLabel = new QLabel(this);
    countLabel->setObjectName(QStringLiteral("propertyCount"));
    countLabel->setWordWrap(true);
    penLabel = new QLabel(this);
    penBox = new QComboBox(this);
    penBox->setObjectName(QStringLiteral("penBox"));
    for (int pen = 1; pen <= kPenCount; ++pen)
        penBox->addItem(penSwatch(pen), QString::number(pen));
    penLabel->setBuddy(penBox);
    connect(penBox, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { actions.setPen(index + 1); });
    lockBox = new QCheckBox(this);
    lockBox->setObjectName(QStringLiteral("lockBox"));
    connect(lockBox, &QCheckBox::clicked, this,
            [this] { actions.lockAspect(lockBox->checkState() == Qt::Checked); });

    auto *row = new QHBoxLayout;
    row->addWidget(penLabel);
    row->addWidget(penBox);
    row->addWidget(lockBox, 1);
    auto *controls = new QVBoxLayout;
    controls->setContentsMargins(kPanelMargin, 0, kPanelMargin, 0);
    controls->addWidget(countLabel);
    controls->addLayout(row);
    layout.addLayout(controls);
}

void PropertyDock::buildDenseRows()
{
    denseRows = new QAction(this);
    denseRows->setObjectName(QStringLiteral("denseRows"));
    denseRows->setCheckable(true);
    denseRows->setChecked(QSettings().value(kDenseKey, true).toBool());
    connect(denseRows, &QAction::toggled, this, [this](bool isDense) {
        QSettings().setValue(kDenseKey, isDense);
        applyDensity();
    });
}

/** A grid has its texts from the language in which it was made. */
void PropertyDock::rebuildList()
{
    delete list;
    list = new PropertyGrid(*document.undoStack(), widget());
    list->setObjectName(QStringLiteral("propertyList"));
    list->setObject(nullptr);
    widget()->layout()->addWidget(list);
    tallRowsSheet = list->findChild<QTreeWidget *>()->styleSheet();
    applyDensity();
    isListStale = false;
}

void PropertyDock::applyDensity()
{
    const int rowHeight = fontMetrics().height() + kRowMargin;
    const QString denseSheet =
        QStringLiteral("QtPropertyEditorView::item{height:%1px;}").arg(rowHeight);
    auto *view = list->findChild<QTreeWidget *>();
    // A widget that has read its sheet before it was polished would keep to that one.
    view->ensurePolished();
    view->setStyleSheet(denseRows->isChecked() ? denseSheet : tallRowsSheet);
}

void PropertyDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    isListStale = true;
    followTimer.start();
}

void PropertyDock::retranslate()
{
    setWindowTitle(tr("Properties"));
    denseRows->setText(tr("&Dense property rows"));
    penLabel->setText(tr("&Pen"));
    penBox->setToolTip(tr("Pen that marks the selected shapes"));
    lockBox->setText(tr("&Keep proportions"));
    lockBox->setToolTip(tr("Resizing keeps the proportions of the selected shapes"));
}

void PropertyDock::follow()
{
    if (isListStale)
        rebuildList();
    const ShapeItems items = selectedShapeItems(*document.scene());
    ShapeItem *first = items.isEmpty() ? nullptr : items.first();
    if (first == nullptr || first != list->getObject())
        list->setObject(first);
    else
        list->updateProperty();
    showControls(items);
}

void PropertyDock::showControls(const ShapeItems &items)
{
    if (items.isEmpty())
        countLabel->setText(tr("Nothing selected"));
    else if (items.size() == 1)
        countLabel->setText(tr("1 shape selected"));
    else
        countLabel->setText(tr("%1 shapes selected; the grid shows the first").arg(items.size()));
    penLabel->setEnabled(!items.isEmpty());
    penBox->setEnabled(!items.isEmpty());
    lockBox->setEnabled(!items.isEmpty());
    showPen(items);
    showLock(items);
}

void PropertyDock::showPen(const ShapeItems &items)
{
    const bool isOne =
        !items.isEmpty() && agree(items, [](const ShapeItem &item) { return item.getPenId(); });
    const int pen = isOne ? items.first()->getPenId() : 0;
    penBox->setCurrentIndex(pen >= 1 && pen <= kPenCount ? pen - 1 : -1);
}

void PropertyDock::showLock(const ShapeItems &items)
{
    if (!agree(items, &isAspectLocked)) {
        lockBox->setCheckState(Qt::PartiallyChecked);
        return;
    }
    // Shapes that differ make it a box of three states.
    lockBox->setTristate(false);
    lockBox->setChecked(!items.isEmpty() && isAspectLocked(*items.first()));
}

} // namespace studio
