#pragma once

#include <studio/text/VariantParts.h>

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QFormLayout;
QT_END_NAMESPACE

namespace studio {

/** The settings of one segment of a variant text, of one kind of segments. */
class SegmentForm : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /** Shows a segment of the form's kind, without telling. */
    virtual void showSegment(const Segment &segment) = 0;

    /** The segment as it is set now. */
    virtual Segment segment() const = 0;

Q_SIGNALS:
    void changed(); ///< by the user

protected:
    /** Adds a box under a label; the box gets the name for those who look for it. */
    static void addRow(QFormLayout &form, const QString &label, QWidget *box, const char *name);

    /** Chooses the entry with that data, which is added if it is none of the usual ones. */
    static void chooseData(QComboBox &box, const QString &text, const QVariant &data);
};

SegmentForm *newFixedTextForm(QWidget *parent);
SegmentForm *newCounterForm(QWidget *parent);
SegmentForm *newDateTimeForm(QWidget *parent);
SegmentForm *newListFileForm(QWidget *parent);

/** The forms by the index of their kind in a segment. */
QVector<SegmentForm *> newSegmentForms(QWidget *parent);

/** New segments of each kind, in the same order. */
Segment newSegment(int kind);

} // namespace studio
