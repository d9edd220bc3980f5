#include <studio/text/SegmentForm.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

namespace studio {

namespace {

constexpr int kNewCounterWidth = 4;

class FixedTextForm final : public SegmentForm
{
public:
    explicit FixedTextForm(QWidget *parent) : SegmentForm(parent), m_words(new QPlainTextEdit(this))
    {
        auto *form = new QFormLayout(this);
        m_words->setTabChangesFocus(true);
        addRow(*form, SegmentForm::tr("Te&xt"), m_words, "segmentText");
        connect(m_words, &QPlainTextEdit::textChanged, this, &SegmentForm::changed);
    }

    void showSegment(const Segment &segment) override
    {
        const QSignalBlocker quiet(m_words);
        m_words->setPlainText(std::get<ZTFixedTextSegment>(segment).text);
    }

    Segment segment() const override { return ZTFixedTextSegment{m_words->toPlainText()}; }

private:
    QPlainTextEdit *m_words;
};

} // namespace

void SegmentForm::addRow(QFormLayout &form, const QString &text, QWidget *box, const char *name)
{
    box->setObjectName(QString::fromLatin1(name));
    auto *label = new QLabel(text, form.parentWidget());
    label->setBuddy(box);
    form.addRow(label, box);
}

void SegmentForm::chooseData(QComboBox &box, const QString &text, const QVariant &data)
{
    if (box.findData(data) < 0)
        box.addItem(text, data);
    box.setCurrentIndex(box.findData(data));
}

SegmentForm *newFixedTextForm(QWidget *parent) { return new FixedTextForm(parent); }

QVector<SegmentForm *> newSegmentForms(QWidget *parent)
{
    return {newFixedTextForm(parent), newCounterForm(parent), newDateTimeForm(parent),
            newListFileForm(parent)};
}

Segment newSegment(int kind)
{
    switch (kind) {
    case 1: {
        ZTCounterSegment counter;
        counter.width = kNewCounterWidth;
        return counter;
    }
    case 2:
        return ZTDateTimeSegment();
    case 3:
        return ZTTextFileSegment();
    default:
        return ZTFixedTextSegment();
    }
}

} // namespace studio
