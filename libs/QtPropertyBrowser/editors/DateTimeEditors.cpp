#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/types/RowTexts_p.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QDateTimeEdit>

namespace roweditors {

namespace {

/** What the three editors share; each says which signal and which value it goes by. */
class AnyDateTimeEditor : public RowEditor
{
public:
    AnyDateTimeEditor(const EditedRow &row, QDateTimeEdit *dateTimeEdit)
        : RowEditor(row, dateTimeEdit), m_edit(dateTimeEdit)
    {
        m_edit->setKeyboardTracking(false);
    }

protected:
    void takeEntry() override { m_edit->interpretText(); }

    QDateTimeEdit *const m_edit;
};

class DateEditor : public AnyDateTimeEditor
{
public:
    DateEditor(const EditedRow &row, QDateTimeEdit *dateEdit) : AnyDateTimeEditor(row, dateEdit)
    {
        m_edit->setCalendarPopup(true);
        start();
        connect(m_edit, &QDateTimeEdit::dateChanged, this, [this](QDate date) { write(date); });
    }

protected:
    void showAttributes() override
    {
        const QSignalBlocker blocker(m_edit);
        m_edit->setDateRange(attribute(rowtypes::minimumName()).toDate(),
                             attribute(rowtypes::maximumName()).toDate());
    }

    void showValue() override
    {
        const QSignalBlocker blocker(m_edit);
        m_edit->setDate(value().toDate());
    }
};

class TimeEditor : public AnyDateTimeEditor
{
public:
    TimeEditor(const EditedRow &row, QDateTimeEdit *timeEdit) : AnyDateTimeEditor(row, timeEdit)
    {
        start();
        connect(m_edit, &QDateTimeEdit::timeChanged, this, [this](QTime time) { write(time); });
    }

protected:
    void showValue() override
    {
        const QSignalBlocker blocker(m_edit);
        m_edit->setTime(value().toTime());
    }
};

class DateTimeEditor : public AnyDateTimeEditor
{
public:
    DateTimeEditor(const EditedRow &row, QDateTimeEdit *dateTimeEdit)
        : AnyDateTimeEditor(row, dateTimeEdit)
    {
        m_edit->setCalendarPopup(true);
        start();
        connect(m_edit, &QDateTimeEdit::dateTimeChanged, this,
                [this](const QDateTime &dateTime) { write(dateTime); });
    }

protected:
    void showValue() override
    {
        const QSignalBlocker blocker(m_edit);
        m_edit->setTimeSpec(value().toDateTime().timeSpec());
        m_edit->setDateTime(value().toDateTime());
    }
};

template <class Editor, class Widget>
QWidget *makeDateTimeEditor(const EditedRow &row, QWidget *parent)
{
    auto *edit = new Widget(parent);
    new Editor(row, edit);
    return edit;
}

} // namespace

void addDateTimeEditors(Makers *makers)
{
    makers->insert(QMetaType::QDate, makeDateTimeEditor<DateEditor, QDateEdit>);
    makers->insert(QMetaType::QTime, makeDateTimeEditor<TimeEditor, QTimeEdit>);
    makers->insert(QMetaType::QDateTime, makeDateTimeEditor<DateTimeEditor, QDateTimeEdit>);
}

} // namespace roweditors
