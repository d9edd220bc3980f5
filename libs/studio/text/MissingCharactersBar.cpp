#include <studio/text/MissingCharactersBar.h>

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

constexpr int kMostNamed = 40;

QString named(const QStringList &characters)
{
    const QString all = QStringList(characters.mid(0, kMostNamed)).join(QLatin1Char(' '));
    return characters.size() > kMostNamed ? all + QStringLiteral(" …") : all;
}

} // namespace

MissingCharactersBar::MissingCharactersBar(QWidget *parent)
    : QWidget(parent), m_label(new QLabel(this)), m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("missingBar"));
    m_label->setObjectName(QStringLiteral("missingLabel"));
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addLayout(m_buttons);
    m_buttons->addStretch(1);
    hide();
}

QStringList MissingCharactersBar::look(const QString &text, const TextSettings &settings)
{
    QStringList missing = missingCharacters(text, settings);
    const QVector<FontOffer> offers =
        missing.isEmpty() ? QVector<FontOffer>() : fontsThatDraw(text, settings);
    offer(offers);
    QString told = tr("This font does not draw: %1").arg(named(missing));
    if (offers.isEmpty())
        told += QLatin1Char('\n') + tr("No font here draws all of the text.");
    m_label->setText(told);
    setVisible(!missing.isEmpty());
    return missing;
}

void MissingCharactersBar::offer(const QVector<FontOffer> &offers)
{
    while (m_buttons->count() > 1) { // the last one is the room behind the buttons
        QLayoutItem *item = m_buttons->takeAt(0);
        item->widget()->hide();
        item->widget()->deleteLater(); // it may be the one that was clicked
        delete item;
    }
    for (const FontOffer &font : offers) {
        auto *button = new QPushButton(tr("Use %1").arg(font.shown()), this);
        button->setObjectName(QStringLiteral("offer%1").arg(m_buttons->count()));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, font] { Q_EMIT chosen(font); });
        m_buttons->insertWidget(m_buttons->count() - 1, button);
    }
}

} // namespace studio
