#pragma once

#include <vectorkit/clean/DrawingCleaning.h>

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
QT_END_NAMESPACE

namespace studio {

class MeasureBox;

/** What cleaning has done, for people: one line a kind of change, or that there was none. */
QString cleanFigures(const vectorkit::CleanReport &report);

/** What cleaning would mend of a drawing as it was read; empty: nothing. */
QString cleanNeeds(const vectorkit::CleanReport &needs);

/** Whether options ask for anything. */
bool asksForCleaning(const vectorkit::CleanOptions &options);

/**
 * What to clean of outlines, with its lengths, and below it the figures before and after.
 *
 * Range: lengths from 0.001 to 10 mm, shown and typed in the unit of the program.
 */
class CleanForm : public QWidget
{
    Q_OBJECT

public:
    explicit CleanForm(QWidget *parent = nullptr);

    vectorkit::CleanOptions options() const;

    /** Shows options without telling. */
    void setOptions(const vectorkit::CleanOptions &options);

    /** What is wrong with a length, for people; empty if nothing is. */
    QString fault() const;

    void showReport(const vectorkit::CleanReport &report);

    /** Shows a line in place of the figures, such as that it takes a moment. */
    void showWords(const QString &words);

Q_SIGNALS:
    /** The user changed something, or a length became wrong or right. */
    void changed();

private:
    /** A thing to clean, and how far it reaches. */
    struct Row
    {
        QCheckBox *box = nullptr;
        MeasureBox *length = nullptr; ///< null: it needs none
    };

    Row addRow(QGridLayout &grid, const QString &name, const QString &text, const QString &hint);
    Row addLengthRow(QGridLayout &grid, const QString &name, const QString &text,
                     const QString &hint);
    static void show(const Row &row, bool isOn, double lengthMm);

    Row m_join;
    Row m_doubles;
    Row m_zero;
    Row m_simplify;
    Row m_arcs;
    Row m_weld;
    Row m_order;
    QComboBox *m_weldRule;
    QLabel *m_figures;
};

} // namespace studio
