#include <studio/panel/PanelSection.h>

#include <QtCore/QEvent>

#include <cmath>

namespace studio {

namespace {

/** Less than half of the last digit that a field shows. */
constexpr double kNoise = 5e-7;

} // namespace

PanelSection::PanelSection(QWidget *parent) : QWidget(parent) {}

void PanelSection::followPlaces(const ShapeItems &) {}

void PanelSection::takeBack()
{
    for (MeasureField *field : findChildren<MeasureField *>()) {
        if (field->isEdited())
            field->takeBack();
    }
}

void PanelSection::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        Q_EMIT tried();
    }
}

MeasureField *PanelSection::newField(const char *name, MeasureField::Quantity quantity,
                                     const MeasureField::Range &range)
{
    auto *field = new MeasureField(quantity, range, this);
    field->setObjectName(QString::fromLatin1(name));
    connect(field, &MeasureField::faultChanged, this, &PanelSection::told);
    return field;
}

void PanelSection::settle(MeasureField &field, const QString &reason)
{
    if (!reason.isEmpty())
        field.refuse(reason);
    Q_EMIT tried();
}

void showCommon(MeasureField &field, const QVector<double> &values)
{
    if (values.isEmpty()) {
        field.showNothing();
        return;
    }
    const double first = values.first();
    const bool isCommon = std::all_of(values.begin(), values.end(), [first](double value) {
        return std::abs(value - first) < kNoise;
    });
    if (isCommon)
        field.showValue(first);
    else
        field.showDiffering();
}

} // namespace studio
