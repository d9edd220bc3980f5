#include <studio/text/StrokeFontList.h>

#include <studio/text/StrokeSamples.h>

#include <QtCore/QStringListModel>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyledItemDelegate>

namespace studio {

namespace {

constexpr int kMargin = 4;
constexpr double kSampleLines = 1.5; ///< height of a sample's row, in lines of text
constexpr double kInkHeight = 1.6;   ///< of a sample with what hangs below, in capitals
constexpr double kPenWidth = 1.2;

/** The name above, and the sample below it. */
class SampleDelegate final : public QStyledItemDelegate
{
public:
    SampleDelegate(StrokeSamples &shown, QObject *parent)
        : QStyledItemDelegate(parent), m_samples(shown)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        const int line = option.fontMetrics.height();
        return {8 * line, qRound(line * (1.0 + kSampleLines)) + 2 * kMargin};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const QString name = index.data().toString();
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text.clear();
        const QStyle *style = row.widget != nullptr ? row.widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

        const QRect area = option.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
        const QRect nameArea(area.topLeft(), QSize(area.width(), option.fontMetrics.height()));
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        const QColor ink = option.palette.color(
            groupOf(option), isChosen ? QPalette::HighlightedText : QPalette::Text);
        painter->save();
        painter->setPen(ink);
        painter->setFont(option.font);
        painter->drawText(nameArea, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(name, Qt::ElideMiddle, nameArea.width()));
        if (const QPainterPath *sample = m_samples.sample(name))
            drawSample(*painter, *sample, area.adjusted(0, nameArea.height(), 0, 0));
        painter->restore();
    }

private:
    static QPalette::ColorGroup groupOf(const QStyleOptionViewItem &option)
    {
        if (!option.state.testFlag(QStyle::State_Enabled))
            return QPalette::Disabled;
        return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    }

    static void drawSample(QPainter &painter, const QPainterPath &sample, const QRect &area)
    {
        const double scale = area.height() / (kInkHeight * StrokeSamples::kHeight);
        painter.setClipRect(area);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(area.left() + kPenWidth, area.top() + kPenWidth);
        painter.scale(scale, scale);
        painter.translate(0.0, StrokeSamples::kHeight);
        QPen pen(painter.pen().color(), kPenWidth);
        pen.setCosmetic(true);
        painter.strokePath(sample, pen);
    }

    StrokeSamples &m_samples;
};

} // namespace

StrokeFontList::StrokeFontList(const QStringList &names, StrokeSamples &samples, QWidget *parent)
    : QListView(parent), m_fonts(new QStringListModel(names, this))
{
    setModel(m_fonts);
    setItemDelegate(new SampleDelegate(samples, this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideMiddle);
    connect(&samples, &StrokeSamples::ready, viewport(), [this] { viewport()->update(); });
}

QString StrokeFontList::chosen() const { return currentIndex().data().toString(); }

void StrokeFontList::choose(const QString &name)
{
    m_isQuiet = true;
    setCurrentIndex(m_fonts->index(m_fonts->stringList().indexOf(name)));
    m_isQuiet = false;
}

QSize StrokeFontList::sizeHint() const
{
    return {14 * fontMetrics().height(), 11 * fontMetrics().height()};
}

void StrokeFontList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_isQuiet && current.isValid())
        Q_EMIT chosenByUser(current.data().toString());
}

} // namespace studio
