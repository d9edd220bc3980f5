#include <studio/text/SegmentForm.h>

#include <studio/text/MeasureBox.h>

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
        : SegmentForm(parent), presentBox(newNumber()), startBox(newNumber()), stepBox(newNumber()),
          lastCheck(new QCheckBox(SegmentForm::tr("&Last number"), this)), lastBox(newNumber()),
          endBox(new QComboBox(this)), widthBox(new QSpinBox(this)), padBox(new QComboBox(this)),
          radixBox(new QComboBox(this)), repeatBox(new QSpinBox(this)), problem(new QLabel(this))
    {
        fillChoices();
        layOut();
        connectNumbers();
        connectWriting();
    }

    void showSegment(const Segment &segment) override
    {
        counter = std::get<ZTCounterSegment>(segment);
        wantedPresent = counter.nextValue();
        showCounter();
    }

    Segment segment() const override { return counter; }

private:
    MeasureBox *newNumber()
    {
        return new MeasureBox({-kMostNumber, kMostNumber, 1.0, 0}, QString(), this);
    }

    void fillChoices()
    {
        endBox->addItem(SegmentForm::tr("shows the last number again"),
                        int(ZTVariantTextEnd::Stop));
        endBox->addItem(SegmentForm::tr("starts anew"), int(ZTVariantTextEnd::Wrap));
        padBox->addItem(SegmentForm::tr("with zeros"), QChar());
        padBox->addItem(SegmentForm::tr("with blanks"), QChar(u' '));
        for (const char pad : {'-', '_', '*', '.'})
            padBox->addItem(QString(QLatin1Char(pad)), QChar(QLatin1Char(pad)));
        radixBox->addItem(SegmentForm::tr("decimal, 0 to 9"), int(ZTCounterRadix::Decimal));
        radixBox->addItem(SegmentForm::tr("hexadecimal, 0 to F"), int(ZTCounterRadix::Hexadecimal));
        radixBox->addItem(SegmentForm::tr("letters, A to Z"), int(ZTCounterRadix::Letters));
        widthBox->setRange(0, kMostCharacters);
        repeatBox->setRange(1, kMostRepeats);
        problem->setWordWrap(true);
        problem->setObjectName(QStringLiteral("counterProblem"));
        presentBox->setToolTip(SegmentForm::tr("Number of the part that is marked now"));
        repeatBox->setToolTip(SegmentForm::tr("How many parts get the same number"));
    }

    void layOut()
    {
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("This &part"), presentBox, "counterPresent");
        addRow(*form, SegmentForm::tr("First &number"), startBox, "counterStart");
        addRow(*form, SegmentForm::tr("&Step"), stepBox, "counterStep");
        lastCheck->setObjectName(QStringLiteral("counterHasLast"));
        lastBox->setObjectName(QStringLiteral("counterLast"));
        form->addRow(lastCheck, lastBox);
        addRow(*form, SegmentForm::tr("&Behind it"), endBox, "counterEnd");
        addRow(*form, SegmentForm::tr("&Characters"), widthBox, "counterWidth");
        addRow(*form, SegmentForm::tr("Filled &up"), padBox, "counterPad");
        addRow(*form, SegmentForm::tr("&Digits"), radixBox, "counterRadix");
        addRow(*form, SegmentForm::tr("Parts for &each number"), repeatBox, "counterRepeat");
        form->addRow(problem);
    }

    void connectNumbers()
    {
        const auto edited = qOverload<double>(&QDoubleSpinBox::valueChanged);
        connect(presentBox, edited, this, [this](double value) {
            const bool isReached = counter.setNextValue(qint64(value));
            problem->setText(
                isReached ? QString() : SegmentForm::tr("The counter never comes to this number."));
            if (isReached) {
                wantedPresent = counter.nextValue();
                Q_EMIT changed();
            }
        });
        connect(startBox, edited, this, [this](double value) {
            counter.start = qint64(value);
            counter.updates = 0;
            wantedPresent = counter.start;
            tellChange();
        });
        connect(stepBox, edited, this,
                [this](double value) { changeCourse([&] { counter.step = qint64(value); }); });
        connect(lastBox, edited, this,
                [this](double value) { changeCourse([&] { counter.last = qint64(value); }); });
        connect(lastCheck, &QCheckBox::toggled, this, [this](bool hasLast) {
            changeCourse([&] {
                counter.last.reset();
                if (hasLast)
                    counter.last = usualLast();
            });
        });
        connect(repeatBox, qOverload<int>(&QSpinBox::valueChanged), this,
                [this](int times) { changeCourse([&] { counter.repeat = quint32(times); }); });
    }

    void connectWriting()
    {
        const auto chosen = qOverload<int>(&QComboBox::activated);
        connect(endBox, chosen, this, [this] {
            counter.atEnd = ZTVariantTextEnd(endBox->currentData().toInt());
            tellChange();
        });
        connect(widthBox, qOverload<int>(&QSpinBox::valueChanged), this, [this](int width) {
            counter.width = width;
            tellChange();
        });
        connect(padBox, chosen, this, [this] {
            counter.pad = padBox->currentData().toChar();
            tellChange();
        });
        connect(radixBox, chosen, this, [this] {
            counter.radix = ZTCounterRadix(radixBox->currentData().toInt());
            tellChange();
        });
    }

    /** Changes the way of counting; the present number stays while the counter comes to it. */
    template <class Change>
    void changeCourse(Change change)
    {
        change();
        if (!counter.setNextValue(wantedPresent))
            counter.updates = 0;
        tellChange();
    }

    qint64 usualLast() const
    {
        const double number = double(counter.start) + kUsualSteps * double(counter.step);
        return qint64(qBound(-kMostNumber, number, kMostNumber));
    }

    void tellChange()
    {
        showCounter();
        Q_EMIT changed();
    }

    void showCounter()
    {
        const QSignalBlocker blockers[] = {QSignalBlocker(lastCheck), QSignalBlocker(widthBox),
                                           QSignalBlocker(repeatBox)};
        problem->clear();
        presentBox->setMeasure(double(counter.nextValue()));
        startBox->setMeasure(double(counter.start));
        stepBox->setMeasure(double(counter.step));
        lastCheck->setChecked(counter.last.has_value());
        lastBox->setEnabled(counter.last.has_value());
        endBox->setEnabled(counter.last.has_value());
        if (counter.last)
            lastBox->setMeasure(double(*counter.last));
        endBox->setCurrentIndex(endBox->findData(int(counter.atEnd)));
        widthBox->setValue(counter.width);
        chooseData(*padBox, QString(counter.pad), counter.pad);
        radixBox->setCurrentIndex(radixBox->findData(int(counter.radix)));
        repeatBox->setValue(int(qMin(counter.repeat, quint32(kMostRepeats))));
    }

    ZTCounterSegment counter;
    qint64 wantedPresent = 1; ///< outlasts steps and ends that are half typed
    MeasureBox *presentBox;
    MeasureBox *startBox;
    MeasureBox *stepBox;
    QCheckBox *lastCheck;
    MeasureBox *lastBox;
    QComboBox *endBox;
    QSpinBox *widthBox;
    QComboBox *padBox;
    QComboBox *radixBox;
    QSpinBox *repeatBox;
    QLabel *problem;
};

} // namespace

SegmentForm *newCounterForm(QWidget *parent) { return new CounterForm(parent); }

} // namespace studio
