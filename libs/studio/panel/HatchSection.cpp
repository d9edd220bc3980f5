#include <studio/panel/HatchSection.h>

#include <studio/choices/Units.h>
#include <studio/measures/TypedMeasure.h>
#include <studio/panel/ChoiceBox.h>
#include <studio/panel/HatchList.h>
#include <studio/shapes/PenColors.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <array>
#include <utility>

namespace studio {

using hostkit::HatchKind;
using hostkit::HatchMoment;
using hostkit::OutlineUnion;
using hostkit::ShapeHatch;

namespace {

constexpr MeasureField::Range kSpacingMm{0.005, 1000.0};
constexpr MeasureField::Range kInsetMm{0.0, 1000.0};
constexpr MeasureField::Range kAngleDeg{-360.0, 360.0};
constexpr MeasureField::Range kPasses{1.0, 1000.0};
constexpr std::size_t kKinds = 5;

// Texts of the lists, in the order of their values.
constexpr std::array<const char *, kKinds> kKindTexts = {
    QT_TRANSLATE_NOOP("studio::HatchSection", "single lines"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "zigzag"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "crossed lines"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "lines, turned each pass"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "contours inward")};
constexpr std::array<const char *, 3> kMomentTexts = {
    QT_TRANSLATE_NOOP("studio::HatchSection", "as the job says"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "before the outlines"),
    QT_TRANSLATE_NOOP("studio::HatchSection", "after the outlines")};

/** Whether a hatch is wanted that cannot be made, too fine or too wide for its shape. */
bool lacksHatch(const ShapeItem *item)
{
    ZTShapeBase &shape = *item->getShapeBase();
    if (shape.getFillParam().fillType == FillType::None)
        return false;
    shape.paint();
    const QVector<hostkit::HatchLayer> layers = hostkit::hatchLayersOf(*item);
    return std::any_of(layers.begin(), layers.end(),
                       [](const hostkit::HatchLayer &layer) { return layer.lines == 0; });
}

bool isUnited(const ShapeItem &item)
{
    const OutlineUnion wanted = hostkit::itemExtras(item).outlineUnion;
    return wanted == OutlineUnion::Always ||
           (wanted == OutlineUnion::OfTexts && item.getShapeType() == ShapeType::Text);
}

} // namespace

HatchSection::HatchSection(ZTGraphicsDocument &document, QWidget *parent)
    : PanelSection(parent), m_edits(document), m_list(new HatchList(this)),
      m_kindLabel(new QLabel(this)), m_kind(new ChoiceBox(this)), m_spacingLabel(new QLabel(this)),
      m_spacing(newField("panel.hatchSpacing", MeasureField::Quantity::Length, kSpacingMm)),
      m_angleLabel(new QLabel(this)),
      m_angle(newField("panel.hatchAngle", MeasureField::Quantity::Angle, kAngleDeg)),
      m_insetLabel(new QLabel(this)),
      m_inset(newField("panel.hatchInset", MeasureField::Quantity::Length, kInsetMm)),
      m_turnLabel(new QLabel(this)),
      m_turn(newField("panel.hatchTurn", MeasureField::Quantity::Angle, kAngleDeg)),
      m_penLabel(new QLabel(this)), m_pen(new ChoiceBox(this)), m_passesLabel(new QLabel(this)),
      m_passes(newField("panel.hatchPasses", MeasureField::Quantity::Count, kPasses)),
      m_momentLabel(new QLabel(this)), m_moment(new ChoiceBox(this)), m_oneWay(new QCheckBox(this)),
      m_border(new QCheckBox(this)), m_union(new QCheckBox(this)), m_hint(new QLabel(this))
{
    m_kind->setObjectName(QStringLiteral("panel.hatch"));
    m_pen->setObjectName(QStringLiteral("panel.hatchPen"));
    m_moment->setObjectName(QStringLiteral("panel.hatchMoment"));
    m_oneWay->setObjectName(QStringLiteral("panel.hatchOneWay"));
    m_border->setObjectName(QStringLiteral("panel.border"));
    m_union->setObjectName(QStringLiteral("panel.union"));
    m_hint->setObjectName(QStringLiteral("panel.hatchHint"));
    m_hint->setWordWrap(true);
    addChoices();
    layOut();
    connectFields();
    connectList();
    HatchSection::retranslate();
}

void HatchSection::addChoices()
{
    m_kind->addItem(QString());
    for (int kind = 0; kind <= int(HatchKind::Contours); ++kind)
        m_kind->addItem(QString(), kind);
    m_pen->addItem(QString(), 0);
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->addItem(penSwatch(pen), QString(), pen);
    for (int moment = 0; moment <= int(HatchMoment::AfterOutline); ++moment)
        m_moment->addItem(QString(), moment);
}

template <class Value>
void HatchSection::connectMeasure(MeasureField &field, Value ShapeHatch::*value)
{
    connect(&field, &MeasureField::committed, this, [this, &field, value](double entered) {
        settle(field, edit([value, entered](ShapeHatch &hatch) {
                   hatch.*value = static_cast<Value>(entered);
               }));
    });
}

template <class Value>
void HatchSection::connectChoice(QComboBox &box, Value ShapeHatch::*value)
{
    connect(&box, qOverload<int>(&QComboBox::activated), this, [this, &box, value] {
        const auto chosen = static_cast<Value>(box.currentData().toInt());
        edit([value, chosen](ShapeHatch &hatch) { hatch.*value = chosen; });
        Q_EMIT tried();
    });
}

void HatchSection::connectFields()
{
    connect(m_kind, qOverload<int>(&QComboBox::activated), this, &HatchSection::chooseKind);
    connectMeasure(*m_spacing, &ShapeHatch::spacingMm);
    connectMeasure(*m_angle, &ShapeHatch::angleDeg);
    connectMeasure(*m_inset, &ShapeHatch::insetMm);
    connectMeasure(*m_turn, &ShapeHatch::turnDeg);
    connectMeasure(*m_passes, &ShapeHatch::passes);
    connectChoice(*m_pen, &ShapeHatch::pen);
    connectChoice(*m_moment, &ShapeHatch::moment);
    connect(m_oneWay, &QCheckBox::clicked, this, [this] {
        const bool isOn = m_oneWay->checkState() == Qt::Checked;
        edit([isOn](ShapeHatch &hatch) { hatch.isOneWay = isOn; });
        Q_EMIT tried();
    });
    connect(m_border, &QCheckBox::clicked, this, [this] {
        const bool isOn = m_border->checkState() == Qt::Checked;
        m_edits.setHatch([isOn](ZTFillParam &fill) { fill.isEnableBorder = isOn; });
        Q_EMIT tried();
    });
    connect(m_union, &QCheckBox::clicked, this, [this] {
        m_edits.setOutlinesUnited(m_union->checkState() == Qt::Checked);
        Q_EMIT tried();
    });
}

void HatchSection::connectList()
{
    connect(m_list, &HatchList::picked, this, [this] {
        takeBack();
        Q_EMIT tried();
    });
    connect(m_list, &HatchList::addAsked, this, &HatchSection::add);
    connect(m_list, &HatchList::removeAsked, this, &HatchSection::remove);
    connect(m_list, &HatchList::moveAsked, this, &HatchSection::move);
}

void HatchSection::chooseKind(int row)
{
    if (row == 0) {
        remove();
        return;
    }
    const auto kind = static_cast<HatchKind>(row - 1);
    const int place = m_list->current();
    m_edits.setHatches([kind, place](Hatches &hatches, const ShapeHatch &fresh) {
        if (hatches.isEmpty())
            hatches.append(fresh);
        if (place < hatches.size())
            hatches[place].kind = kind;
    });
    Q_EMIT tried();
}

/** A copy of the last one across it: what people add a second hatch for. */
void HatchSection::add()
{
    constexpr double kAcrossDeg = 90.0;
    m_edits.setHatches([](Hatches &hatches, const ShapeHatch &fresh) {
        if (hatches.size() >= hostkit::kMostHatches)
            return;
        ShapeHatch further = hatches.isEmpty() ? fresh : hatches.last();
        if (!hatches.isEmpty())
            further.angleDeg += further.angleDeg > 0.0 ? -kAcrossDeg : kAcrossDeg;
        hatches.append(further);
    });
    int most = 0;
    for (const Hatches &hatches : qAsConst(m_shown))
        most = std::max(most, hatches.size());
    m_list->setCurrent(most);
    Q_EMIT tried();
}

void HatchSection::remove()
{
    const int place = m_list->current();
    m_edits.setHatches([place](Hatches &hatches, const ShapeHatch &) {
        if (place < hatches.size())
            hatches.removeAt(place);
    });
    Q_EMIT tried();
}

void HatchSection::move(int by)
{
    const int from = m_list->current();
    const int to = from + by;
    m_edits.setHatches([from, to](Hatches &hatches, const ShapeHatch &) {
        if (from < hatches.size() && to >= 0 && to < hatches.size())
            std::swap(hatches[from], hatches[to]);
    });
    m_list->setCurrent(to);
    Q_EMIT tried();
}

QString HatchSection::edit(const std::function<void(ShapeHatch &hatch)> &change)
{
    const int place = m_list->current();
    return m_edits.setHatches([&change, place](Hatches &hatches, const ShapeHatch &) {
        if (place < hatches.size())
            change(hatches[place]);
    });
}

void HatchSection::layOut()
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    const auto unit = [&](const QString &text) {
        auto *label = new QLabel(text, this);
        m_units.append(label);
        return label;
    };
    const auto addPair = [&](int row, int column, QLabel *label, QWidget *field, QLabel *after) {
        grid->addWidget(label, row, column);
        grid->addWidget(field, row, column + 1, 1, after == nullptr ? 2 : 1);
        if (after != nullptr)
            grid->addWidget(after, row, column + 2);
        label->setBuddy(field);
    };
    const QString degree = QStringLiteral("°");
    grid->addWidget(m_list, 0, 0, 1, 6);
    grid->addWidget(m_kindLabel, 1, 0);
    grid->addWidget(m_kind, 1, 1, 1, 5);
    m_kindLabel->setBuddy(m_kind);
    addPair(2, 0, m_spacingLabel, m_spacing, unit({}));
    addPair(2, 3, m_angleLabel, m_angle, unit(degree));
    addPair(3, 0, m_insetLabel, m_inset, unit({}));
    addPair(3, 3, m_turnLabel, m_turn, unit(degree));
    addPair(4, 0, m_passesLabel, m_passes, nullptr);
    addPair(4, 3, m_penLabel, m_pen, nullptr);
    grid->addWidget(m_momentLabel, 5, 0);
    grid->addWidget(m_moment, 5, 1, 1, 5);
    m_momentLabel->setBuddy(m_moment);
    grid->addWidget(m_oneWay, 6, 0, 1, 6);
    grid->addWidget(m_border, 7, 0, 1, 6);
    grid->addWidget(m_union, 8, 0, 1, 6);
    grid->addWidget(m_hint, 9, 0, 1, 6);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    m_pen->setMinimumContentsLength(1);
    m_pen->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void HatchSection::retranslate()
{
    m_kindLabel->setText(tr("Hatch"));
    m_kind->setAccessibleName(tr("Hatch"));
    m_kind->setItemText(0, tr("none"));
    for (std::size_t kind = 0; kind < kKindTexts.size(); ++kind)
        m_kind->setItemText(int(kind) + 1, tr(kKindTexts[kind]));
    for (std::size_t moment = 0; moment < kMomentTexts.size(); ++moment)
        m_moment->setItemText(int(moment), tr(kMomentTexts[moment]));
    m_pen->setItemText(0, tr("the shape's"));
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->setItemText(pen, QStringLiteral("%1  %2").arg(pen).arg(penName(pen)));
    m_units[0]->setText(units::name());
    m_units[2]->setText(units::name());
    m_list->retranslate();
    retranslateFields();
}

void HatchSection::retranslateFields()
{
    m_spacingLabel->setText(tr("Spacing"));
    m_spacing->setAccessibleName(tr("Spacing of the hatch in %1").arg(units::name()));
    m_spacing->setHint(tr("Distance of the hatch lines on the part"));
    m_angleLabel->setText(tr("Angle"));
    m_angle->setAccessibleName(tr("Angle of the hatch in degrees"));
    m_angle->setHint(tr("0 is across, positive is anticlockwise"));
    m_insetLabel->setText(tr("Inset"));
    m_inset->setAccessibleName(tr("Inset of the hatch in %1").arg(units::name()));
    m_inset->setHint(tr("Distance of the hatch from the outline, on the part"));
    m_turnLabel->setText(tr("Turn"));
    m_turn->setAccessibleName(tr("Turn of each pass in degrees"));
    m_turn->setHint(tr("By how much each pass is turned against the one before"));
    m_passesLabel->setText(tr("Passes"));
    m_passes->setAccessibleName(tr("Passes of the hatch"));
    m_passes->setHint(tr("How often this hatch is marked, times the passes of its pen"));
    m_penLabel->setText(tr("Pen"));
    m_pen->setAccessibleName(tr("Pen of the hatch"));
    m_pen->setToolTip(tr("Pen that marks this hatch"));
    m_momentLabel->setText(tr("When"));
    m_moment->setAccessibleName(tr("When the hatch is marked"));
    m_moment->setToolTip(tr("Whether this hatch is marked before or after the outlines"));
    m_oneWay->setText(tr("All lines one way"));
    m_oneWay->setToolTip(tr("Every line is marked in the same direction; otherwise to and fro"));
    m_border->setText(tr("Outline as well"));
    m_border->setToolTip(tr("Marks the outline, too"));
    m_union->setText(tr("Unite overlapping outlines"));
    m_union->setToolTip(tr("Outlines of the shape that overlap are marked as one, and hatched "
                           "where they overlap"));
}

QString HatchSection::differing() const { return tr("differs"); }

template <class Value>
void HatchSection::showMeasure(MeasureField &field, Value ShapeHatch::*value)
{
    QVector<double> values;
    for (const Hatches &hatches : qAsConst(m_shown)) {
        if (m_list->current() < hatches.size())
            values.append(double(hatches[m_list->current()].*value));
    }
    if (values.isEmpty())
        field.showNothing();
    else
        showCommon(field, values);
}

template <class Value>
void HatchSection::showChoice(QComboBox &box, Value ShapeHatch::*value)
{
    QVector<int> values;
    for (const Hatches &hatches : qAsConst(m_shown)) {
        if (m_list->current() < hatches.size())
            values.append(int(hatches[m_list->current()].*value));
    }
    const bool isCommon = !values.isEmpty() && values.count(values.first()) == values.size();
    box.setPlaceholderText(values.isEmpty() ? QString() : differing());
    box.setCurrentIndex(isCommon ? box.findData(values.first()) : -1);
}

void HatchSection::follow(const ShapeItems &selected)
{
    ShapeItems areas;
    std::copy_if(selected.begin(), selected.end(), std::back_inserter(areas),
                 [](const ShapeItem *item) { return canBeHatched(*item); });
    setEnabled(!areas.isEmpty());
    m_shown.clear();
    for (const ShapeItem *item : qAsConst(areas))
        m_shown.append(hostkit::hatchesOf(*item));
    const QStringList rows = rowTexts();
    const bool canAdd =
        !rows.isEmpty() && std::any_of(m_shown.begin(), m_shown.end(), [](const Hatches &hatches) {
            return hatches.size() < hostkit::kMostHatches;
        });
    m_list->showHatches(rows, canAdd);

    const int place = m_list->current();
    const auto kind = commonValue(areas, [place](const ShapeItem &item) {
        const Hatches hatches = hostkit::hatchesOf(item);
        return place < hatches.size() ? int(hatches[place].kind) : -1;
    });
    m_kind->setPlaceholderText(areas.isEmpty() ? QString() : tr("differs"));
    m_kind->setCurrentIndex(kind ? *kind + 1 : -1);
    showRows(!rows.isEmpty(), !kind || *kind == int(HatchKind::Turned),
             !kind || *kind != int(HatchKind::Contours));
    showMeasure(*m_inset, &ShapeHatch::insetMm);
    showMeasure(*m_turn, &ShapeHatch::turnDeg);
    showMeasure(*m_passes, &ShapeHatch::passes);
    showChoice(*m_pen, &ShapeHatch::pen);
    showChoice(*m_moment, &ShapeHatch::moment);
    showCommonFlag(*m_oneWay, areas, [place](const ShapeItem &item) {
        const Hatches hatches = hostkit::hatchesOf(item);
        return place < hatches.size() && hatches[place].isOneWay;
    });
    showCommonFlag(*m_border, areas,
                   [](const ShapeItem &item) { return item.getFillParam().isEnableBorder; });
    showCommonFlag(*m_union, areas, &isUnited);
    if (place == 0) { // also of shapes that are not hatched now, as they will be
        showCommon(*m_spacing, areas,
                   [](const ShapeItem &item) { return item.getFillParam().spac; });
        showCommon(*m_angle, areas,
                   [](const ShapeItem &item) { return 0.0 - item.getFillParam().angle; });
    } else {
        showMeasure(*m_spacing, &ShapeHatch::spacingMm);
        showMeasure(*m_angle, &ShapeHatch::angleDeg);
    }
    m_hint->setText(hintFor(selected, areas));
    m_hint->setVisible(!m_hint->text().isEmpty());
}

void HatchSection::showRows(bool isHatched, bool isTurned, bool hasAngle)
{
    m_spacing->setEnabled(isHatched);
    m_angle->setEnabled(isHatched && hasAngle);
    // Those below what is chosen first: nothing moves away from under the mouse.
    const std::initializer_list<QWidget *> further = {
        m_insetLabel, m_inset,       m_units[2],    m_penLabel, m_pen,
        m_passes,     m_passesLabel, m_momentLabel, m_moment,   m_oneWay};
    for (QWidget *field : further)
        field->setVisible(isHatched);
    for (QWidget *field : {static_cast<QWidget *>(m_turnLabel), static_cast<QWidget *>(m_turn),
                           static_cast<QWidget *>(m_units[3])})
        field->setVisible(isHatched && isTurned);
}

QStringList HatchSection::rowTexts() const
{
    int most = 0;
    for (const Hatches &hatches : m_shown)
        most = std::max(most, hatches.size());
    QStringList rows;
    for (int i = 0; i < most; ++i) {
        QStringList texts;
        for (const Hatches &hatches : m_shown)
            texts << (i < hatches.size() ? rowText(hatches[i]) : QString());
        const bool isCommon = texts.count(texts.first()) == texts.size();
        rows << QStringLiteral("%1  %2").arg(i + 1).arg(isCommon ? texts.first() : tr("differs"));
    }
    return rows;
}

QString HatchSection::rowText(const ShapeHatch &hatch) const
{
    QStringList parts{tr(kKindTexts[std::size_t(hatch.kind)]), units::text(hatch.spacingMm)};
    if (hatch.kind != HatchKind::Contours)
        parts << tr("%1°").arg(measureText(hatch.angleDeg, 1));
    if (hatch.pen > 0)
        parts << tr("pen %1").arg(hatch.pen);
    if (hatch.passes > 1)
        parts << tr("%1 passes").arg(hatch.passes);
    return parts.join(QStringLiteral(", "));
}

QString HatchSection::hintFor(const ShapeItems &selected, const ShapeItems &areas) const
{
    if (areas.isEmpty() && !selected.isEmpty())
        return tr("Lines and stroke fonts have no inside to hatch.");
    const bool isNothingMarked = std::any_of(areas.begin(), areas.end(), [](const ShapeItem *item) {
        const ZTFillParam fill = item->getFillParam();
        return fill.fillType == FillType::None && !fill.isEnableBorder;
    });
    if (isNothingMarked)
        return tr("Neither outline nor hatch: nothing of it is marked.");
    if (std::any_of(areas.begin(), areas.end(), &lacksHatch))
        return tr("No hatch can be made: its spacing does not suit the size of the shape.");
    return {};
}

} // namespace studio
