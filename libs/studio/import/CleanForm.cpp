#include <studio/import/CleanForm.h>

#include <studio/choices/Units.h>
#include <studio/measures/MeasureBox.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QSignalBlocker>
#include <QtCore/QStringList>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

namespace studio {

namespace {

constexpr MeasureBox::Range kLengthMm{0.001, 10.0, 0.01, 3};
constexpr double kUsualJoinMm = 0.05;
constexpr double kUsualSameMm = 0.01;
constexpr double kUsualFitMm = 0.01;

struct CleanTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::CleanForm)
};

QString number(qint64 count) { return QLocale().toString(count); }

/** A length for reading, with its unit: to a tenth of a millimetre. */
QString lengthText(double lengthMm)
{
    const int decimals = units::unit() == LengthUnit::Inch ? 2 : 1;
    return QLocale().toString(lengthMm / units::unitMm(), 'f', decimals) + units::suffix();
}

/** What joining and removing did or would do. */
QStringList mended(const vectorkit::CleanReport &report)
{
    QStringList lines;
    if (report.joined > 0)
        lines << CleanTexts::tr("Ends joined: %1").arg(number(report.joined));
    if (report.closed > 0)
        lines << CleanTexts::tr("Outlines closed: %1").arg(number(report.closed));
    if (report.doubled > 0)
        lines << CleanTexts::tr("Drawn twice: %1 pieces, %2")
                     .arg(number(report.doubled), lengthText(report.doubledMm));
    if (report.zeroLength > 0)
        lines << CleanTexts::tr("Without length: %1 pieces").arg(number(report.zeroLength));
    return lines;
}

} // namespace

QString cleanFigures(const vectorkit::CleanReport &report)
{
    QStringList lines = mended(report);
    lines << CleanTexts::tr("Outlines: %1 → %2")
                 .arg(number(report.pathsBefore), number(report.pathsAfter));
    lines << CleanTexts::tr("Pieces: %1 → %2")
                 .arg(number(report.piecesBefore), number(report.piecesAfter));
    lines << CleanTexts::tr("Jumps: %1 → %2")
                 .arg(lengthText(report.jumpsBeforeMm), lengthText(report.jumpsAfterMm));
    return lines.join(QLatin1Char('\n'));
}

QString cleanNeeds(const vectorkit::CleanReport &needs)
{
    return mended(needs).join(QStringLiteral("; "));
}

bool asksForCleaning(const vectorkit::CleanOptions &options)
{
    return options.dropZeroLength || options.dropDoubles || options.joinMm >= 0.0 ||
           options.simplifyMm > 0.0 || options.fitArcsMm > 0.0 || options.weld || options.order;
}

CleanForm::CleanForm(QWidget *parent)
    : QWidget(parent), m_weldRule(new QComboBox(this)), m_figures(new QLabel(this))
{
    auto *grid = new QGridLayout(this);
    m_join = addLengthRow(*grid, QStringLiteral("cleanJoin"), tr("&Join ends within"),
                          tr("Ends so near to each other become one, and outlines that come back "
                             "to their start are closed"));
    m_doubles = addLengthRow(*grid, QStringLiteral("cleanDoubles"), tr("Remove &doubles within"),
                             tr("What is drawn twice, or lies on a longer line, is marked once"));
    m_zero = addRow(*grid, QStringLiteral("cleanZero"), tr("Remove pieces without &length"),
                    tr("Single points go too"));
    m_simplify = addLengthRow(*grid, QStringLiteral("cleanSimplify"), tr("&Simplify within"),
                              tr("Fewer points, so near to the lines as they are"));
    m_arcs = addLengthRow(*grid, QStringLiteral("cleanArcs"), tr("&Arcs for points within"),
                          tr("Arcs of circles in place of fine straight pieces"));
    m_weld = addRow(*grid, QStringLiteral("cleanWeld"), tr("&Weld areas that overlap"),
                    tr("Closed outlines become the edge of what they cover together"));
    m_weldRule->setObjectName(QStringLiteral("cleanWeldRule"));
    m_weldRule->addItem(tr("overlaps stay open"), int(Qt::OddEvenFill));
    m_weldRule->addItem(tr("overlaps are filled"), int(Qt::WindingFill));
    m_weldRule->setEnabled(false);
    grid->addWidget(m_weldRule, grid->rowCount() - 1, 1);
    connect(m_weld.box, &QCheckBox::toggled, m_weldRule, &QWidget::setEnabled);
    connect(m_weldRule, qOverload<int>(&QComboBox::activated), this, &CleanForm::changed);
    m_order = addRow(*grid, QStringLiteral("cleanOrder"), tr("S&hort ways"),
                     tr("Outlines by the nearest end, inner ones before outer ones"));
    m_figures->setObjectName(QStringLiteral("cleanFigures"));
    m_figures->setTextFormat(Qt::PlainText);
    m_figures->setWordWrap(true);
    m_figures->setAlignment(Qt::AlignTop);
    grid->addWidget(m_figures, grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount() - 1, 1);
    setOptions({});
}

CleanForm::Row CleanForm::addRow(QGridLayout &grid, const QString &name, const QString &text,
                                 const QString &hint)
{
    Row row;
    row.box = new QCheckBox(text, this);
    row.box->setObjectName(name);
    row.box->setToolTip(hint);
    grid.addWidget(row.box, grid.rowCount(), 0);
    connect(row.box, &QCheckBox::toggled, this, &CleanForm::changed);
    return row;
}

CleanForm::Row CleanForm::addLengthRow(QGridLayout &grid, const QString &name, const QString &text,
                                       const QString &hint)
{
    Row row = addRow(grid, name, text, hint);
    row.length = new MeasureBox(kLengthMm, this);
    row.length->setObjectName(name + QStringLiteral("Length"));
    row.length->setKeyboardTracking(false);
    row.length->setEnabled(false);
    grid.addWidget(row.length, grid.rowCount() - 1, 1);
    connect(row.box, &QCheckBox::toggled, row.length, &QWidget::setEnabled);
    connect(row.length, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &CleanForm::changed);
    connect(row.length, &MeasureBox::faultChanged, this, &CleanForm::changed);
    return row;
}

void CleanForm::show(const Row &row, bool isOn, double lengthMm)
{
    row.box->setChecked(isOn);
    if (row.length != nullptr) {
        row.length->setMeasure(lengthMm);
        row.length->setEnabled(isOn);
    }
}

void CleanForm::setOptions(const vectorkit::CleanOptions &options)
{
    const QSignalBlocker quiet(this);
    const bool joins = options.joinMm >= 0.0;
    show(m_join, joins, joins ? options.joinMm : kUsualJoinMm);
    show(m_doubles, options.dropDoubles, options.dropDoubles ? options.sameMm : kUsualSameMm);
    show(m_zero, options.dropZeroLength, 0.0);
    const bool simplifies = options.simplifyMm > 0.0;
    show(m_simplify, simplifies, simplifies ? options.simplifyMm : kUsualFitMm);
    const bool fits = options.fitArcsMm > 0.0;
    show(m_arcs, fits, fits ? options.fitArcsMm : kUsualFitMm);
    show(m_weld, options.weld, 0.0);
    m_weldRule->setCurrentIndex(m_weldRule->findData(int(options.weldRule)));
    show(m_order, options.order, 0.0);
}

vectorkit::CleanOptions CleanForm::options() const
{
    vectorkit::CleanOptions options;
    const auto lengthOf = [](const Row &row, double none) {
        return row.box->isChecked() ? row.length->measure() : none;
    };
    options.joinMm = lengthOf(m_join, -1.0);
    options.dropDoubles = m_doubles.box->isChecked();
    options.sameMm = m_doubles.length->measure();
    options.dropZeroLength = m_zero.box->isChecked();
    options.simplifyMm = lengthOf(m_simplify, 0.0);
    options.fitArcsMm = lengthOf(m_arcs, 0.0);
    options.weld = m_weld.box->isChecked();
    options.weldRule = static_cast<Qt::FillRule>(m_weldRule->currentData().toInt());
    options.order = m_order.box->isChecked();
    return options;
}

QString CleanForm::fault() const { return MeasureBox::faultIn(*this); }

void CleanForm::showReport(const vectorkit::CleanReport &report)
{
    m_figures->setText(cleanFigures(report));
}

void CleanForm::showWords(const QString &words) { m_figures->setText(words); }

} // namespace studio
