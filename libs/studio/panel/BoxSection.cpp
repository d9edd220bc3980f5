#include <studio/panel/BoxSection.h>

#include <studio/choices/Units.h>
#include <studio/edit/DocumentActions.h>

#include <QtCore/QSettings>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>

#include <cmath>

namespace studio {

namespace {

const QString kAnchorKey = QStringLiteral("panel/anchor");
const QString kExtentKey = QStringLiteral("panel/extent");

constexpr int kAnchorCount = 9;
constexpr int kAnchorsInRow = 3;

// The whole area of a drawing, which reaches 7026.8 mm from its origin; a place is checked again
// against the area itself.
constexpr MeasureField::Range kPlaceMm{-7100.0, 7100.0};
constexpr MeasureField::Range kSizeMm{0.001, 14200.0};
constexpr MeasureField::Range kAngleDeg{-360.0, 360.0};

/** Half of the last digit that counts. */
constexpr double kNoticedMm = 0.0005;

} // namespace

BoxSection::BoxSection(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent)
    : PanelSection(parent), m_document(document), m_actions(actions), m_edits(document),
      m_x(newField("panel.x", MeasureField::Quantity::Length, kPlaceMm)),
      m_y(newField("panel.y", MeasureField::Quantity::Length, kPlaceMm)),
      m_width(newField("panel.width", MeasureField::Quantity::Length, kSizeMm)),
      m_height(newField("panel.height", MeasureField::Quantity::Length, kSizeMm)),
      m_angle(newField("panel.angle", MeasureField::Quantity::Angle, kAngleDeg))
{
    buildAnchors();
    buildExtent();
    buildLock();
    layOut();
    connectFields();
    BoxSection::retranslate();
}

void BoxSection::buildAnchors()
{
    m_anchorBox = new QWidget(this);
    m_anchors = new QButtonGroup(this);
    auto *grid = new QGridLayout(m_anchorBox);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int i = 0; i < kAnchorCount; ++i) {
        auto *button = new QRadioButton(m_anchorBox);
        button->setObjectName(QStringLiteral("panel.anchor.%1").arg(i));
        m_anchors->addButton(button, i);
        grid->addWidget(button, i / kAnchorsInRow, i % kAnchorsInRow);
    }
    const int remembered = QSettings().value(kAnchorKey, 0).toInt();
    m_anchors->button(qBound(0, remembered, kAnchorCount - 1))->setChecked(true);
    connect(m_anchors, &QButtonGroup::idClicked, this, &BoxSection::remember);
}

void BoxSection::buildExtent()
{
    m_extent = new QComboBox(this);
    m_extent->setObjectName(QStringLiteral("panel.extent"));
    m_extent->addItem(QString(), int(ShapeEdits::Extent::Together));
    m_extent->addItem(QString(), int(ShapeEdits::Extent::Each));
    m_extent->setCurrentIndex(qBound(0, QSettings().value(kExtentKey, 0).toInt(), 1));
    connect(m_extent, qOverload<int>(&QComboBox::activated), this, &BoxSection::remember);
}

void BoxSection::buildLock()
{
    m_lock = new QCheckBox(this);
    m_lock->setObjectName(QStringLiteral("panel.lock"));
    connect(m_lock, &QCheckBox::clicked, this,
            [this] { m_actions.lockAspect(m_lock->checkState() == Qt::Checked); });
    m_mirrored = new QLabel(this);
    m_mirrored->setObjectName(QStringLiteral("panel.mirrored"));
}

void BoxSection::connectFields()
{
    connect(m_x, &MeasureField::committed, this,
            [this](double mm) { settle(*m_x, m_edits.setPlace(Qt::Horizontal, mm, frame())); });
    connect(m_y, &MeasureField::committed, this, [this](double mm) {
        settle(*m_y, m_edits.setPlace(Qt::Vertical, units::y(mm), frame()));
    });
    connect(m_width, &MeasureField::committed, this,
            [this](double mm) { takeSize(*m_width, Qt::Horizontal, mm); });
    connect(m_height, &MeasureField::committed, this,
            [this](double mm) { takeSize(*m_height, Qt::Vertical, mm); });
    connect(m_angle, &MeasureField::committed, this,
            [this](double deg) { settle(*m_angle, m_edits.setTurn(deg, frame())); });
}

// A curve is marked as chords, and more of them the larger it is: it may jump over a size.
void BoxSection::takeSize(MeasureField &field, Qt::Orientation direction, double mm)
{
    const QString reason = m_edits.setSize(direction, mm, frame());
    settle(field, reason);
    if (!reason.isEmpty())
        return;
    for (const QRectF &boxMm : shownBoxesMm(selectedInNoOrder(*m_document.scene()))) {
        const double foundMm = direction == Qt::Horizontal ? boxMm.width() : boxMm.height();
        if (std::abs(foundMm - mm) > kNoticedMm) {
            Q_EMIT told(tr("Curves are marked as chords: %1 is as near as it comes")
                            .arg(units::text(foundMm)));
            return;
        }
    }
}

QLabel *BoxSection::labelled(QGridLayout &grid, MeasureField &field, int row, int column)
{
    auto *label = new QLabel(this);
    label->setBuddy(&field);
    grid.addWidget(label, row, column);
    grid.addWidget(&field, row, column + 1);
    return label;
}

void BoxSection::layOut()
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_anchorBox, 0, 0, 2, 1, Qt::AlignCenter);
    // These letters are the same in every language.
    labelled(*grid, *m_x, 0, 1)->setText(QStringLiteral("X"));
    labelled(*grid, *m_width, 0, 3)->setText(QStringLiteral("W"));
    labelled(*grid, *m_y, 1, 1)->setText(QStringLiteral("Y"));
    labelled(*grid, *m_height, 1, 3)->setText(QStringLiteral("H"));
    m_unit = new QLabel(this);
    grid->addWidget(m_unit, 0, 5, 2, 1, Qt::AlignVCenter);
    m_angleLabel = new QLabel(this);
    m_angleLabel->setBuddy(m_angle);
    grid->addWidget(m_angleLabel, 2, 0, 1, 2, Qt::AlignRight);
    grid->addWidget(m_angle, 2, 2);
    grid->addWidget(m_mirrored, 2, 3, 1, 3);
    grid->addWidget(m_lock, 3, 0, 1, 6);
    grid->addWidget(m_extent, 4, 0, 1, 6);
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(4, 1);
    setTabOrder(m_x, m_y);
    setTabOrder(m_y, m_width);
    setTabOrder(m_width, m_height);
    setTabOrder(m_height, m_angle);
}

void BoxSection::retranslate()
{
    const QStringList anchors = {tr("Top left"),    tr("Top middle"),    tr("Top right"),
                                 tr("Middle left"), tr("Middle"),        tr("Middle right"),
                                 tr("Bottom left"), tr("Bottom middle"), tr("Bottom right")};
    for (int i = 0; i < kAnchorCount; ++i) {
        QAbstractButton *button = m_anchors->button(i);
        button->setAccessibleName(anchors[i]);
        button->setToolTip(
            tr("%1: the point that X and Y tell, and that stays when the size changes")
                .arg(anchors[i]));
    }
    const auto name = [](MeasureField &field, const QString &called, const QString &hint) {
        field.setAccessibleName(called);
        field.setHint(hint);
    };
    const auto inUnit = [](const QString &text) { return text.arg(units::name()); };
    name(*m_x, inUnit(tr("X in %1")),
         tr("Place across the field, to the right. Sums and units are welcome: 20+5, 1in"));
    name(*m_y, inUnit(tr("Y in %1")),
         units::isYUp() ? tr("Place up the field, upward") : tr("Place down the field, downward"));
    name(*m_width, inUnit(tr("Width in %1")), tr("Width of the outline's box"));
    name(*m_height, inUnit(tr("Height in %1")), tr("Height of the outline's box"));
    name(*m_angle, tr("Angle in degrees"),
         tr("0 points right, positive is anticlockwise; turns about the middle of the box"));
    m_angleLabel->setText(tr("Angle"));
    m_unit->setText(units::name());
    m_lock->setText(tr("Keep proportions"));
    m_lock->setToolTip(tr("Width and height change together, in these fields and by the handles"));
    m_extent->setItemText(0, tr("Box around all"));
    m_extent->setItemText(1, tr("Each shape its own box"));
    m_extent->setAccessibleName(tr("What places and sizes are about"));
    m_extent->setToolTip(
        tr("Of several shapes: whether the fields tell and change the box around all of them, or "
           "the box of each"));
}

void BoxSection::follow(const ShapeItems &selected)
{
    setEnabled(!selected.isEmpty());
    m_extent->setEnabled(selected.size() > 1);
    showCommonFlag(*m_lock, selected, &isAspectLocked);
    followPlaces(selected);
}

void BoxSection::followPlaces(const ShapeItems &selected)
{
    const QVector<QRectF> boxes = shownBoxesMm(selected);
    const QPointF point = anchor();
    const auto show = [&boxes](MeasureField &field, const auto &valueOf) {
        QVector<double> values;
        values.reserve(boxes.size());
        for (const QRectF &boxMm : boxes)
            values.append(valueOf(boxMm));
        showCommon(field, values);
    };
    show(*m_x, [&](const QRectF &boxMm) { return anchorPoint(boxMm, point).x(); });
    show(*m_y, [&](const QRectF &boxMm) { return units::y(anchorPoint(boxMm, point).y()); });
    show(*m_width, [](const QRectF &boxMm) { return boxMm.width(); });
    show(*m_height, [](const QRectF &boxMm) { return boxMm.height(); });
    showCommon(*m_angle, selected, &turnDeg);
    const bool areMirrored = commonValue(selected, &isMirrored).value_or(false);
    m_mirrored->setText(areMirrored ? tr("°, mirrored") : QStringLiteral("°"));
}

QVector<QRectF> BoxSection::shownBoxesMm(const ShapeItems &selected) const
{
    if (selected.isEmpty())
        return {};
    if (frame().extent == ShapeEdits::Extent::Together)
        return {outlineBoxMm(selected)};
    QVector<QRectF> boxes;
    boxes.reserve(selected.size());
    for (const ShapeItem *item : selected)
        boxes.append(outlineBoxMm(*item));
    return boxes;
}

QPointF BoxSection::anchor() const
{
    const int id = m_anchors->checkedId();
    const int across = id % kAnchorsInRow;
    const int down = id / kAnchorsInRow;
    return {across / 2.0, down / 2.0};
}

ShapeEdits::Frame BoxSection::frame() const
{
    return {anchor(), ShapeEdits::Extent(m_extent->currentData().toInt())};
}

void BoxSection::remember()
{
    QSettings().setValue(kAnchorKey, m_anchors->checkedId());
    QSettings().setValue(kExtentKey, m_extent->currentIndex());
    takeBack();
    Q_EMIT tried();
}

} // namespace studio
