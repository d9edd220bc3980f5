#include <studio/window/HistoryDock.h>

#include <studio/program/UndoTexts.h>

#include <QtCore/QEvent>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QUndoView>

namespace studio {

namespace {

/** Steps have texts in no language yet. */
class StepDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &) const override
    {
        return readableUndoText(value.toString());
    }
};

} // namespace

HistoryDock::HistoryDock(QUndoStack &stack, QWidget *parent)
    : QDockWidget(parent), m_steps(new QUndoView(&stack, this))
{
    setObjectName(QStringLiteral("historyDock"));
    m_steps->setObjectName(QStringLiteral("history"));
    m_steps->setItemDelegate(new StepDelegate(m_steps));
    m_steps->installEventFilter(this);
    m_steps->viewport()->installEventFilter(this);
    setWidget(m_steps);
    retranslate();
}

bool HistoryDock::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)
        Q_EMIT settling();
    return QDockWidget::eventFilter(watched, event);
}

void HistoryDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HistoryDock::retranslate()
{
    setWindowTitle(tr("History"));
    m_steps->setAccessibleName(tr("History"));
    m_steps->setToolTip(tr("Click a step to go back or forward to it"));
    m_steps->setEmptyLabel(tr("As it was opened"));
    m_steps->viewport()->update();
}

} // namespace studio
