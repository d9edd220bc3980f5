#include <studio/text/SegmentForm.h>

#include <studio/measures/MeasureBox.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>

#include <limits>

namespace studio {

namespace {

// Limit: numbers that the boxes hold exactly; a counter from elsewhere may count further.
constexpr double kMostNumber = 9007199254740991.0;
constexpr int kMostCharacters = 256;
constexpr int kMostRepeats = 1000000;
constexpr double kUsualSteps = 998.0; ///< from 1 to 999

/** Settings of a counter. What is not touched stays, whatever the boxes can show. */
class CounterForm final : public SegmentForm
{
public:
    explicit CounterForm(QWidget *parent)
        : SegmentForm(parent), m_presentBox(newNumber()), m_startBox(newNumber()),
          m_stepBox(newNumber()), m_lastCheck(new QCheckBox(SegmentForm::tr("&Last number"), this)),
          m_lastBox(newNumber()), m_endBox(new QComboBox(this)), m_widthBox(new QSpinBox(this)),
          m_padBox(new QComboBox(this)), m_radixBox(new QComboBox(this)),
          m_repeatBox(new QSpinBox(this)), m_problem(new QLabel(this))
    {
        fillChoices();
        layOut();
        connectNumbers();
        connectWriting();
    }

    void showSegment(const Segment &segment) override
    {
        m_counter = std::get<ZTCounterSegment>(segment);
        m_wantedPresent = m_counter.nextValue();
        showCounter();
    }

    Segment segment() const override { return m_counter; }

private:
    MeasureBox *newNumber()
    {
        return new MeasureBox({-kMostNumber, kMostNumber, 1.0, 0}, QString(), this);
    }

    void fillChoices()
    {
        m_endBox->addItem(SegmentForm::tr("shows the last number again"),
                          int(ZTVariantTextEnd::Stop));
        m_endBox->addItem(SegmentForm::tr("starts anew"), int(ZTVariantTextEnd::Wrap));
        m_padBox->addItem(SegmentForm::tr("with zeros"), QChar());
        m_padBox->addItem(SegmentForm::tr("with blanks"), QChar(u' '));
        for (const char pad : {'-', '_', '*', '.'})
            m_padBox->addItem(QString(QLatin1Char(pad)), QChar(QLatin1Char(pad)));
        m_radixBox->addItem(SegmentForm::tr("decimal, 0 to 9"), int(ZTCounterRadix::Decimal));
        m_radixBox->addItem(SegmentForm::tr("hexadecimal, 0 to F"),
                            int(ZTCounterRadix::Hexadecimal));
        m_radixBox->addItem(SegmentForm::tr("letters, A to Z"), int(ZTCounterRadix::Letters));
        m_widthBox->setRange(0, kMostCharacters);
        m_repeatBox->setRange(1, kMostRepeats);
        m_problem->setWordWrap(true);
        m_problem->setObjectName(QStringLiteral("counterProblem"));
        m_presentBox->setToolTip(SegmentForm::tr("Number of the part that is marked now"));
        m_repeatBox->setToolTip(SegmentForm::tr("How many parts get the same number"));
    }

    void layOut()
    {
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("This &part"), m_presentBox, "counterPresent");
        addRow(*form, SegmentForm::tr("First &number"), m_startBox, "counterStart");
        addRow(*form, SegmentForm::tr("&Step"), m_stepBox, "counterStep");
        m_lastCheck->setObjectName(QStringLiteral("counterHasLast"));
        m_lastBox->setObjectName(QStringLiteral("counterLast"));
        form->addRow(m_lastCheck, m_lastBox);
        addRow(*form, SegmentForm::tr("&Behind it"), m_endBox, "counterEnd");
        addRow(*form, SegmentForm::tr("&Characters"), m_widthBox, "counterWidth");
        addRow(*form, SegmentForm::tr("Filled &up"), m_padBox, "counterPad");
        addRow(*form, SegmentForm::tr("&Digits"), m_radixBox, "counterRadix");
        addRow(*form, SegmentForm::tr("Parts for &each number"), m_repeatBox, "counterRepeat");
        form->addRow(m_problem);
    }

    void connectNumbers()
    {
        const auto edited = qOverload<double>(&QDoubleSpinBox::valueChanged);
        connect(m_presentBox, edited, this, [this](double value) {
            const bool isReached = m_counter.setNextValue(qint64(value));
            m_problem->setText(
                isReached ? QString() : SegmentForm::tr("The counter never comes to this number."));
            if (isReached) {
                m_wantedPresent = m_counter.nextValue();
                Q_EMIT changed();
            }
        });
        connect(m_startBox, edited, this, [this](double value) {
            m_counter.start = qint64(value);
            m_counter.updates = 0;
            m_wantedPresent = m_counter.start;
            tellChange();
        });
        connect(m_stepBox, edited, this,
                [this](double value) { changeCourse([&] { m_counter.step = qint64(value); }); });
        connect(m_lastBox, edited, this,
                [this](double value) { changeCourse([&] { m_counter.last = qint64(value); }); });
        connect(m_lastCheck, &QCheckBox::toggled, this, [this](bool hasLast) {
            changeCourse([&] {
                m_counter.last.reset();
                if (hasLast)
                    m_counter.last = usualLast();
            });
        });
        connect(m_repeatBox, qOverload<int>(&QSpinBox::valueChanged), this,
                [this](int times) { changeCourse([&] { m_counter.repeat = quint32(times); }); });
    }

    void connectWriting()
    {
        const auto chosen = qOverload<int>(&QComboBox::activated);
        connect(m_endBox, chosen, this, [this] {
            m_counter.atEnd = ZTVariantTextEnd(m_endBox->currentData().toInt());
            tellChange();
        });
        connect(m_widthBox, qOverload<int>(&QSpinBox::valueChanged), this, [this](int width) {
            m_counter.width = width;
            tellChange();
        });
        connect(m_padBox, chosen, this, [this] {
            m_counter.pad = m_padBox->currentData().toChar();
            tellChange();
        });
        connect(m_radixBox, chosen, this, [this] {
            m_counter.radix = ZTCounterRadix(m_radixBox->currentData().toInt());
            tellChange();
        });
    }

    /** Changes the way of counting; the present number stays while the counter comes to it. */
    template <class Change>
    void changeCourse(Change change)
    {
        change();
        if (!m_counter.setNextValue(m_wantedPresent))
            m_counter.updates = 0;
        tellChange();
    }

    qint64 usualLast() const
    {
        const double number = double(m_counter.start) + kUsualSteps * double(m_counter.step);
        return qint64(qBound(-kMostNumber, number, kMostNumber));
    }

    void tellChange()
    {
        showCounter();
        Q_EMIT changed();
    }

    void showCounter()
    {
        const QSignalBlocker blockers[] = {QSignalBlocker(m_lastCheck), QSignalBlocker(m_widthBox),
                                           QSignalBlocker(m_repeatBox)};
        m_problem->clear();
        m_presentBox->setMeasure(double(m_counter.nextValue()));
        m_startBox->setMeasure(double(m_counter.start));
        m_stepBox->setMeasure(double(m_counter.step));
        m_lastCheck->setChecked(m_counter.last.has_value());
        m_lastBox->setEnabled(m_counter.last.has_value());
        m_endBox->setEnabled(m_counter.last.has_value());
        if (m_counter.last)
            m_lastBox->setMeasure(double(*m_counter.last));
        m_endBox->setCurrentIndex(m_endBox->findData(int(m_counter.atEnd)));
        m_widthBox->setValue(m_counter.width);
        chooseData(*m_padBox, QString(m_counter.pad), m_counter.pad);
        m_radixBox->setCurrentIndex(m_radixBox->findData(int(m_counter.radix)));
        m_repeatBox->setValue(int(qMin(m_counter.repeat, quint32(kMostRepeats))));
    }

    ZTCounterSegment m_counter;
    qint64 m_wantedPresent = 1; ///< outlasts steps and ends that are half typed
    MeasureBox *m_presentBox;
    MeasureBox *m_startBox;
    MeasureBox *m_stepBox;
    QCheckBox *m_lastCheck;
    MeasureBox *m_lastBox;
    QComboBox *m_endBox;
    QSpinBox *m_widthBox;
    QComboBox *m_padBox;
    QComboBox *m_radixBox;
    QSpinBox *m_repeatBox;
    QLabel *m_problem;
};

} // namespace

SegmentForm *newCounterForm(QWidget *parent) { return new CounterForm(parent); }

} // namespace studio
