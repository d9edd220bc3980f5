#include <studio/panel/KindSection.h>

#include <studio/choices/Units.h>

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <algorithm>

namespace studio {

namespace {

/** Limit: sides of a polygon; with more it is a circle to every eye and laser. */
constexpr MeasureField::Range kSides{3, 1000};
constexpr MeasureField::Range kLengthMm{0.001, 14200.0};

template <class Kind>
bool areAll(const ShapeItems &items)
{
    return !items.isEmpty() && std::all_of(items.begin(), items.end(), [](const ShapeItem *item) {
        return qobject_cast<const Kind *>(item) != nullptr;
    });
}

} // namespace

KindSection::KindSection(ZTGraphicsDocument &document, QWidget *parent)
    : PanelSection(parent), m_edits(document)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    const auto length = MeasureField::Quantity::Length;
    m_sides = addRow(*grid, newField("panel.sides", MeasureField::Quantity::Count, kSides));
    m_length = addRow(*grid, newField("panel.length", length, kLengthMm));
    m_firstDiameter = addRow(*grid, newField("panel.diameter1", length, kLengthMm));
    m_secondDiameter = addRow(*grid, newField("panel.diameter2", length, kLengthMm));
    connect(m_sides.field, &MeasureField::committed, this, [this](double sides) {
        settle(*m_sides.field, m_edits.setSides(static_cast<int>(sides)));
    });
    connect(m_length.field, &MeasureField::committed, this,
            [this](double mm) { settle(*m_length.field, m_edits.setLength(mm)); });
    connect(m_firstDiameter.field, &MeasureField::committed, this,
            [this](double mm) { settle(*m_firstDiameter.field, m_edits.setDiameter(true, mm)); });
    connect(m_secondDiameter.field, &MeasureField::committed, this,
            [this](double mm) { settle(*m_secondDiameter.field, m_edits.setDiameter(false, mm)); });
    KindSection::retranslate();
    KindSection::follow({});
}

KindSection::Row KindSection::addRow(QGridLayout &grid, MeasureField *field)
{
    const Row row{new QLabel(this), field, new QLabel(this)};
    const int at = grid.rowCount();
    grid.addWidget(row.label, at, 0);
    grid.addWidget(row.field, at, 1);
    grid.addWidget(row.unit, at, 2);
    row.label->setBuddy(field);
    return row;
}

void KindSection::Row::setVisible(bool isVisible) const
{
    label->setVisible(isVisible);
    field->setVisible(isVisible);
    unit->setVisible(isVisible);
}

void KindSection::Row::name(const QString &text, const QString &unitText, const QString &hint) const
{
    label->setText(text);
    unit->setText(unitText);
    field->setAccessibleName(text);
    field->setHint(hint);
}

void KindSection::retranslate()
{
    const QString length = units::name();
    m_sides.name(tr("Sides"), QString(), tr("Number of sides of the polygon"));
    m_length.name(tr("Length"), length, tr("Length of the line; its start stays"));
    m_firstDiameter.name(tr("Diameter 1"), length, tr("Along the ellipse's own first axis"));
    m_secondDiameter.name(tr("Diameter 2"), length, tr("Along the ellipse's other axis"));
}

void KindSection::follow(const ShapeItems &selected)
{
    m_sides.setVisible(areAll<ZTGraphicsPolygonItem>(selected));
    m_length.setVisible(areAll<ZTGraphicsLineItem>(selected));
    const bool areEllipses = areAll<ZTGraphicsEllipseItem>(selected);
    m_firstDiameter.setVisible(areEllipses);
    m_secondDiameter.setVisible(areEllipses);
    setVisible(areAll<ZTGraphicsPolygonItem>(selected) || areAll<ZTGraphicsLineItem>(selected) ||
               areEllipses);
    followPlaces(selected);
}

void KindSection::followPlaces(const ShapeItems &selected)
{
    if (areAll<ZTGraphicsPolygonItem>(selected))
        showCommon(*m_sides.field, selected, [](const ShapeItem &item) {
            return static_cast<const ZTGraphicsPolygonItem &>(item).getSideCount();
        });
    if (areAll<ZTGraphicsLineItem>(selected))
        showCommon(*m_length.field, selected, [](const ShapeItem &item) {
            return static_cast<const ZTGraphicsLineItem &>(item).length();
        });
    if (areAll<ZTGraphicsEllipseItem>(selected)) {
        showCommon(*m_firstDiameter.field, selected,
                   [](const ShapeItem &item) { return diametersMm(item).first; });
        showCommon(*m_secondDiameter.field, selected,
                   [](const ShapeItem &item) { return diametersMm(item).second; });
    }
}

} // namespace studio
