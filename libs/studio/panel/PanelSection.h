#pragma once

#include <studio/measures/MeasureField.h>
#include <studio/shapes/ShapeItems.h>

#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <optional>

namespace studio {

/**
 * Fields of the panel that belong together. The panel tells a section what is selected; the
 * section shows it and turns what the user enters into undo steps.
 *
 * A section of another kind of shape derives from this and is added by `ShapePanel::addSection`.
 */
class PanelSection : public QWidget
{
    Q_OBJECT

public:
    explicit PanelSection(QWidget *parent = nullptr);

    /**
     * Shows what the selected shapes are now; they may be none. A section that has nothing to say
     * of them may hide itself.
     */
    virtual void follow(const ShapeItems &selected) = 0;

    /** Shows where they are now, while they are dragged; nothing else about them has changed. */
    virtual void followPlaces(const ShapeItems &selected);

    /** Drops what was typed and not committed: it was meant for other shapes. */
    void takeBack();

Q_SIGNALS:
    /** An entry became wrong, or right again, which is an empty text. */
    void told(const QString &reason);

    /** An edit was tried: fields have to show what came of it. */
    void tried();

protected:
    void changeEvent(QEvent *event) override;

    /** Gives all texts in the language of the program. The constructor of a section calls it. */
    virtual void retranslate() = 0;

    /** A field of the section, with a name for tests and tools. */
    MeasureField *newField(const char *name, MeasureField::Quantity quantity,
                           const MeasureField::Range &range);

    /** Refuses an entry for a reason, if there is one, and lets all fields be shown anew. */
    void settle(MeasureField &field, const QString &reason);
};

/** The value in which all shapes agree; none if they differ, or if there are none. */
template <class ValueOf>
auto commonValue(const ShapeItems &items, const ValueOf &valueOf)
    -> std::optional<decltype(valueOf(*items.first()))>
{
    if (items.isEmpty())
        return std::nullopt;
    const auto first = valueOf(*items.first());
    const bool isCommon = std::all_of(items.begin() + 1, items.end(), [&](const ShapeItem *item) {
        return valueOf(*item) == first;
    });
    return isCommon ? std::make_optional(first) : std::nullopt;
}

/** Shows the measure that all values are, or that they differ; lets go of the noise of sums. */
void showCommon(MeasureField &field, const QVector<double> &values);

/** The same for a value of each shape. */
template <class ValueOf>
void showCommon(MeasureField &field, const ShapeItems &items, const ValueOf &valueOf)
{
    QVector<double> values;
    values.reserve(items.size());
    for (const ShapeItem *item : items)
        values.append(valueOf(*item));
    showCommon(field, values);
}

/** Three states: shapes that differ, and those that agree, which leaves two to choose from. */
template <class Box, class IsOn>
void showCommonFlag(Box &box, const ShapeItems &items, const IsOn &isOn)
{
    const auto common = commonValue(items, isOn);
    if (!common && !items.isEmpty()) {
        box.setCheckState(Qt::PartiallyChecked);
        return;
    }
    box.setTristate(false);
    box.setChecked(common.value_or(false));
}

} // namespace studio
