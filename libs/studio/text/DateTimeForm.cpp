#include <studio/text/SegmentForm.h>

#include <QtCore/QLocale>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

namespace studio {

namespace {

constexpr int kMostOffset = 1000000;

constexpr const char *kFormats[] = {"yyyy-MM-dd", "dd.MM.yyyy", "yyyyMMdd",         "yyMMdd",
                                    "HH:mm",      "HH:mm:ss",   "yyyy-MM-dd HH:mm", "d MMM yyyy"};
constexpr const char *kLocales[] = {"zh_CN", "de_DE", "es_ES", "fr_FR", "ja_JP", "ko_KR", "ru_RU"};

/** Settings of a date or time. */
class DateTimeForm final : public SegmentForm
{
public:
    explicit DateTimeForm(QWidget *parent)
        : SegmentForm(parent), contentBox(new QComboBox(this)), formatBox(new QComboBox(this)),
          localeBox(new QComboBox(this)), daysBox(newOffset()), hoursBox(newOffset()),
          minutesBox(newOffset())
    {
        fillChoices();
        layOut();
        connectAll();
    }

    void showSegment(const Segment &segment) override
    {
        moment = std::get<ZTDateTimeSegment>(segment);
        const QSignalBlocker blockers[] = {QSignalBlocker(formatBox), QSignalBlocker(daysBox),
                                           QSignalBlocker(hoursBox), QSignalBlocker(minutesBox)};
        contentBox->setCurrentIndex(contentBox->findData(int(moment.content)));
        formatBox->setEditText(moment.format);
        chooseData(*localeBox, moment.locale, moment.locale);
        daysBox->setValue(moment.offsetDays);
        hoursBox->setValue(moment.offsetHours);
        minutesBox->setValue(moment.offsetMinutes);
        enableFormat();
    }

    Segment segment() const override { return moment; }

private:
    QSpinBox *newOffset()
    {
        auto *box = new QSpinBox(this);
        box->setRange(-kMostOffset, kMostOffset);
        return box;
    }

    void fillChoices()
    {
        const auto add = [this](const QString &text, ZTDateTimeContent content) {
            contentBox->addItem(text, int(content));
        };
        add(SegmentForm::tr("date and time in a format"), ZTDateTimeContent::Formatted);
        add(SegmentForm::tr("number of the week"), ZTDateTimeContent::WeekNumber);
        add(SegmentForm::tr("year of the week"), ZTDateTimeContent::WeekYear);
        add(SegmentForm::tr("day of the year"), ZTDateTimeContent::DayOfYear);
        add(SegmentForm::tr("Julian day"), ZTDateTimeContent::JulianDay);
        formatBox->setEditable(true);
        for (const char *format : kFormats)
            formatBox->addItem(QString::fromLatin1(format));
        formatBox->setToolTip(SegmentForm::tr(
            "yyyy year, MM month, dd day, HH hour, mm minute, ss second; text in 'quotes'"));
        localeBox->addItem(SegmentForm::tr("English"), QString());
        for (const char *name : kLocales) {
            const QString locale = QString::fromLatin1(name);
            localeBox->addItem(QLocale(locale).nativeLanguageName(), locale);
        }
    }

    void layOut()
    {
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("&Shows"), contentBox, "dateContent");
        addRow(*form, SegmentForm::tr("For&mat"), formatBox, "dateFormat");
        addRow(*form, SegmentForm::tr("&Names in"), localeBox, "dateLocale");
        addRow(*form, SegmentForm::tr("&Days later"), daysBox, "dateDays");
        addRow(*form, SegmentForm::tr("&Hours later"), hoursBox, "dateHours");
        addRow(*form, SegmentForm::tr("Min&utes later"), minutesBox, "dateMinutes");
    }

    void connectAll()
    {
        connect(contentBox, qOverload<int>(&QComboBox::activated), this, &DateTimeForm::take);
        connect(formatBox, &QComboBox::editTextChanged, this, &DateTimeForm::take);
        connect(localeBox, qOverload<int>(&QComboBox::activated), this, &DateTimeForm::take);
        for (QSpinBox *box : {daysBox, hoursBox, minutesBox})
            connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &DateTimeForm::take);
    }

    void take()
    {
        moment.content = ZTDateTimeContent(contentBox->currentData().toInt());
        moment.format = formatBox->currentText();
        moment.locale = localeBox->currentData().toString();
        moment.offsetDays = daysBox->value();
        moment.offsetHours = hoursBox->value();
        moment.offsetMinutes = minutesBox->value();
        enableFormat();
        Q_EMIT changed();
    }

    void enableFormat()
    {
        const bool isFormatted = moment.content == ZTDateTimeContent::Formatted;
        formatBox->setEnabled(isFormatted);
        localeBox->setEnabled(isFormatted);
    }

    ZTDateTimeSegment moment;
    QComboBox *contentBox;
    QComboBox *formatBox;
    QComboBox *localeBox;
    QSpinBox *daysBox;
    QSpinBox *hoursBox;
    QSpinBox *minutesBox;
};

} // namespace

SegmentForm *newDateTimeForm(QWidget *parent) { return new DateTimeForm(parent); }

} // namespace studio
