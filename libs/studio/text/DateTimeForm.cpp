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
        : SegmentForm(parent), m_contentBox(new QComboBox(this)), m_formatBox(new QComboBox(this)),
          m_localeBox(new QComboBox(this)), m_daysBox(newOffset()), m_hoursBox(newOffset()),
          m_minutesBox(newOffset())
    {
        fillChoices();
        layOut();
        connectAll();
    }

    void showSegment(const Segment &segment) override
    {
        m_moment = std::get<ZTDateTimeSegment>(segment);
        const QSignalBlocker blockers[] = {QSignalBlocker(m_formatBox), QSignalBlocker(m_daysBox),
                                           QSignalBlocker(m_hoursBox),
                                           QSignalBlocker(m_minutesBox)};
        m_contentBox->setCurrentIndex(m_contentBox->findData(int(m_moment.content)));
        m_formatBox->setEditText(m_moment.format);
        chooseData(*m_localeBox, m_moment.locale, m_moment.locale);
        m_daysBox->setValue(m_moment.offsetDays);
        m_hoursBox->setValue(m_moment.offsetHours);
        m_minutesBox->setValue(m_moment.offsetMinutes);
        enableFormat();
    }

    Segment segment() const override { return m_moment; }

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
            m_contentBox->addItem(text, int(content));
        };
        add(SegmentForm::tr("date and time in a format"), ZTDateTimeContent::Formatted);
        add(SegmentForm::tr("number of the week"), ZTDateTimeContent::WeekNumber);
        add(SegmentForm::tr("year of the week"), ZTDateTimeContent::WeekYear);
        add(SegmentForm::tr("day of the year"), ZTDateTimeContent::DayOfYear);
        add(SegmentForm::tr("Julian day"), ZTDateTimeContent::JulianDay);
        m_formatBox->setEditable(true);
        for (const char *format : kFormats)
            m_formatBox->addItem(QString::fromLatin1(format));
        m_formatBox->setToolTip(SegmentForm::tr(
            "yyyy year, MM month, dd day, HH hour, mm minute, ss second; text in 'quotes'"));
        m_localeBox->addItem(SegmentForm::tr("English"), QString());
        for (const char *name : kLocales) {
            const QString locale = QString::fromLatin1(name);
            m_localeBox->addItem(QLocale(locale).nativeLanguageName(), locale);
        }
    }

    void layOut()
    {
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("&Shows"), m_contentBox, "dateContent");
        addRow(*form, SegmentForm::tr("For&mat"), m_formatBox, "dateFormat");
        addRow(*form, SegmentForm::tr("&Names in"), m_localeBox, "dateLocale");
        addRow(*form, SegmentForm::tr("&Days later"), m_daysBox, "dateDays");
        addRow(*form, SegmentForm::tr("&Hours later"), m_hoursBox, "dateHours");
        addRow(*form, SegmentForm::tr("Min&utes later"), m_minutesBox, "dateMinutes");
    }

    void connectAll()
    {
        connect(m_contentBox, qOverload<int>(&QComboBox::activated), this, &DateTimeForm::take);
        connect(m_formatBox, &QComboBox::editTextChanged, this, &DateTimeForm::take);
        connect(m_localeBox, qOverload<int>(&QComboBox::activated), this, &DateTimeForm::take);
        for (QSpinBox *box : {m_daysBox, m_hoursBox, m_minutesBox})
            connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &DateTimeForm::take);
    }

    void take()
    {
        m_moment.content = ZTDateTimeContent(m_contentBox->currentData().toInt());
        m_moment.format = m_formatBox->currentText();
        m_moment.locale = m_localeBox->currentData().toString();
        m_moment.offsetDays = m_daysBox->value();
        m_moment.offsetHours = m_hoursBox->value();
        m_moment.offsetMinutes = m_minutesBox->value();
        enableFormat();
        Q_EMIT changed();
    }

    void enableFormat()
    {
        const bool isFormatted = m_moment.content == ZTDateTimeContent::Formatted;
        m_formatBox->setEnabled(isFormatted);
        m_localeBox->setEnabled(isFormatted);
    }

    ZTDateTimeSegment m_moment;
    QComboBox *m_contentBox;
    QComboBox *m_formatBox;
    QComboBox *m_localeBox;
    QSpinBox *m_daysBox;
    QSpinBox *m_hoursBox;
    QSpinBox *m_minutesBox;
};

} // namespace

SegmentForm *newDateTimeForm(QWidget *parent) { return new DateTimeForm(parent); }

} // namespace studio
