#include <studio/panel/ShapePanel.h>

#include <studio/edit/DocumentActions.h>
#include <studio/panel/BoxSection.h>
#include <studio/panel/CodeSection.h>
#include <studio/panel/HatchSection.h>
#include <studio/panel/ItemSection.h>
#include <studio/panel/KindSection.h>
#include <studio/panel/TextSection.h>

#include <QtCore/QEvent>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace studio {

namespace {

constexpr int kMargin = 6;

/** More of them are not read again for each place through which they are dragged. */
constexpr int kFewShapes = 1000;
constexpr int kSlowFollowMs = 150;

QFrame *newRule(QWidget *parent)
{
    auto *rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

void setUpTimer(QTimer &timer)
{
    timer.setSingleShot(true);
    timer.setInterval(0);
}

/** Scrolls a page up and down, and is as wide as it: fields are never cut off at the side. */
class PageScroll : public QScrollArea
{
public:
    explicit PageScroll(QWidget *parent) : QScrollArea(parent)
    {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

    QSize minimumSizeHint() const override
    {
        const int pageWidth = widget() != nullptr ? widget()->minimumSizeHint().width() : 0;
        return {pageWidth + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this),
                QScrollArea::minimumSizeHint().height()};
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

ShapePanel::ShapePanel(ZTGraphicsDocument &document, DocumentActions &actions, QWidget *parent)
    : QDockWidget(parent), m_document(document), m_count(new QLabel(this)),
      m_tabs(new QTabWidget(this)), m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("shapePanel"));
    m_tabs->setObjectName(QStringLiteral("panel.tabs"));
    m_count->setObjectName(QStringLiteral("panel.count"));
    m_message->setObjectName(QStringLiteral("panel.message"));
    m_message->setWordWrap(true);
    m_message->hide();
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_count);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_message);
    setWidget(body);

    m_pages.append(newPage([] { return tr("Shape"); }));
    m_box = new BoxSection(document, actions, this);
    addSection(Page::Shape, m_box);
    addSection(Page::Shape, new KindSection(document, this));
    auto *code = new CodeSection(document, this);
    connect(code, &CodeSection::settingsWanted, this, &ShapePanel::codeSettingsWanted);
    addSection(Page::Shape, code);
    addSection(Page::Shape, new HatchSection(document, this));
    addSection(Page::Shape, new ItemSection(document, actions, this));
    m_pages.append(newPage([] { return tr("Text"); }));
    auto *text = new TextSection(document, this);
    connect(text, &TextSection::wordsWanted, this, &ShapePanel::wordsWanted);
    addSection(Page::Text, text);
    retranslate();
    connectDocument();
    follow();
}

QVBoxLayout *ShapePanel::newPage(const Title &title)
{
    auto *page = new QWidget(this);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addStretch(1);
    addPage(page, title);
    return layout;
}

// Each page scrolls where the window is low, so that none of them keeps it from fitting a screen.
void ShapePanel::addPage(QWidget *page, const Title &title)
{
    auto *scroll = new PageScroll(this);
    scroll->setWidget(page);
    m_titles.append(title);
    m_tabs->addTab(scroll, title());
}

void ShapePanel::setPageShown(QWidget *page, bool isShown)
{
    QWidget *shown = nullptr;
    for (int i = 0; i < m_tabs->count() && shown == nullptr; ++i) {
        if (m_tabs->widget(i)->isAncestorOf(page))
            shown = m_tabs->widget(i);
    }
    if (shown == nullptr)
        return;
    if (isShown && m_tabs->currentWidget() != shown)
        m_pageBefore = m_tabs->currentWidget();
    const bool isInSight = m_tabs->currentWidget() == shown;
    m_tabs->setTabVisible(m_tabs->indexOf(shown), isShown);
    if (isShown)
        m_tabs->setCurrentWidget(shown);
    else if (isInSight && m_pageBefore != nullptr)
        m_tabs->setCurrentWidget(m_pageBefore);
}

void ShapePanel::addSection(Page page, PanelSection *section)
{
    QVBoxLayout &layout = *m_pages[static_cast<int>(page)];
    // The last entry is the stretch below all sections.
    QFrame *rule = layout.count() > 1 ? newRule(this) : nullptr;
    if (rule != nullptr)
        layout.insertWidget(layout.count() - 1, rule);
    layout.insertWidget(layout.count() - 1, section);
    m_sections.append(section);
    m_rules.append(rule);
    connect(section, &PanelSection::told, this, &ShapePanel::tell);
    connect(section, &PanelSection::tried, &m_followTimer, qOverload<>(&QTimer::start));
}

void ShapePanel::connectDocument()
{
    setUpTimer(m_followTimer);
    setUpTimer(m_placesTimer);
    connect(&m_followTimer, &QTimer::timeout, this, &ShapePanel::follow);
    connect(&m_placesTimer, &QTimer::timeout, this, &ShapePanel::followPlaces);
    // Later, not within the signals: an edit tells of many changes while it is under way.
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this, [this] {
        for (PanelSection *section : qAsConst(m_sections))
            section->takeBack();
        dropNotice();
        m_followTimer.start();
    });
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, [this] {
        dropNotice();
        m_followTimer.start();
    });
    if (const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem()) {
        const auto followPlacesSoon = [this] {
            if (!m_placesTimer.isActive())
                m_placesTimer.start();
        };
        connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, followPlacesSoon);
        connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, followPlacesSoon);
    }
}

void ShapePanel::follow()
{
    m_followTimer.stop();
    m_placesTimer.stop();
    const ShapeItems selected = selectedInNoOrder(*m_document.scene());
    m_placesTimer.setInterval(selected.size() > kFewShapes ? kSlowFollowMs : 0);
    if (selected.isEmpty())
        m_count->setText(tr("Nothing selected"));
    else if (selected.size() == 1)
        m_count->setText(tr("1 shape selected"));
    else
        m_count->setText(tr("%1 shapes selected").arg(selected.size()));
    for (int i = 0; i < m_sections.size(); ++i) {
        m_sections[i]->follow(selected);
        if (m_rules[i] != nullptr)
            m_rules[i]->setVisible(!m_sections[i]->isHidden());
    }
}

void ShapePanel::followPlaces()
{
    if (m_followTimer.isActive())
        return; // which shows all that there is
    const ShapeItems selected = selectedInNoOrder(*m_document.scene());
    for (PanelSection *section : qAsConst(m_sections))
        section->followPlaces(selected);
}

void ShapePanel::tell(const QString &reason)
{
    m_message->setText(reason);
    m_message->setVisible(!reason.isEmpty());
}

// What was said of an edit that is done goes with the next one; what is wrong stays.
void ShapePanel::dropNotice()
{
    const auto fields = findChildren<MeasureField *>();
    if (std::none_of(fields.begin(), fields.end(),
                     [](const MeasureField *field) { return !field->fault().isEmpty(); }))
        tell({});
}

void ShapePanel::startTyping()
{
    show();
    raise();
    m_tabs->setCurrentIndex(static_cast<int>(Page::Shape));
    m_box->firstField()->setFocus(Qt::ShortcutFocusReason);
    m_box->firstField()->selectAll();
}

void ShapePanel::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    m_followTimer.start();
}

void ShapePanel::retranslate()
{
    setWindowTitle(tr("Shape"));
    for (int i = 0; i < m_titles.size(); ++i)
        m_tabs->setTabText(i, m_titles[i]());
}

} // namespace studio
