#include <studio/text/FontPage.h>

#include <studio/measures/MeasureBox.h>
#include <studio/text/StrokeFontList.h>
#include <studio/text/StrokeFonts.h>
#include <studio/text/StrokeSamples.h>

#include <hostkit/text/StrokeFont.h>

#include <QtCore/QDir>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFontComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStackedWidget>

namespace studio {

namespace {

constexpr MeasureBox::Range kHeightMm{0.01, 10000.0, 0.5, 3};
constexpr MeasureBox::Range kWidthPercent{1.0, 1000.0, 5.0, 1};
constexpr MeasureBox::Range kSpacingMm{-1000.0, 1000.0, 0.1, 3};

QVBoxLayout *labelled(const QString &text, QWidget *box, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setBuddy(box);
    auto *layout = new QVBoxLayout;
    layout->addWidget(label);
    layout->addWidget(box, 1);
    return layout;
}

} // namespace

FontPage::FontPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), m_systemButton(new QRadioButton(tr("&System font, outlines"), this)),
      m_strokeButton(new QRadioButton(tr("Stroke &fonts, single lines"), this)),
      m_kinds(new QStackedWidget(this))
{
    m_systemButton->setObjectName(QStringLiteral("systemFont"));
    m_strokeButton->setObjectName(QStringLiteral("strokeFont"));
    m_kinds->addWidget(newSystemPart(settings));
    m_kinds->addWidget(newStrokePart(settings));
    (settings.kind == FontType::singleLine ? m_strokeButton : m_systemButton)->setChecked(true);

    auto *choice = new QHBoxLayout;
    choice->addWidget(m_systemButton);
    choice->addWidget(m_strokeButton);
    choice->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addWidget(m_kinds, 1);
    layout->addWidget(newSizes(settings));
    showKind();
    connect(m_strokeButton, &QRadioButton::toggled, this, [this] {
        showKind();
        Q_EMIT changed();
    });
}

void FontPage::showKind() { m_kinds->setCurrentIndex(m_strokeButton->isChecked() ? 1 : 0); }

QWidget *FontPage::newSystemPart(const TextSettings &settings)
{
    auto *part = new QWidget(this);
    m_familyBox = new QFontComboBox(part);
    m_familyBox->setObjectName(QStringLiteral("family"));
    m_missingLabel = new QLabel(part);
    m_missingLabel->setObjectName(QStringLiteral("familyMissing"));
    m_missingLabel->setWordWrap(true);
    m_missingLabel->setTextFormat(Qt::PlainText);
    m_family = settings.font.family();
    showFamily();
    m_boldBox = new QCheckBox(tr("&Bold"), part);
    m_boldBox->setObjectName(QStringLiteral("bold"));
    m_boldBox->setChecked(settings.font.bold());
    m_italicBox = new QCheckBox(tr("&Italic"), part);
    m_italicBox->setObjectName(QStringLiteral("italic"));
    m_italicBox->setChecked(settings.font.italic());
    auto *styles = new QHBoxLayout;
    styles->addWidget(m_boldBox);
    styles->addWidget(m_italicBox);
    styles->addStretch(1);
    auto *form = new QFormLayout(part);
    form->addRow(tr("F&amily"), m_familyBox);
    form->addRow(QString(), m_missingLabel);
    form->addRow(QString(), styles);
    // Not when its font changes: what stands in for a missing family can be chosen as well.
    connect(m_familyBox, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { takeFamily(m_familyBox->itemText(index)); });
    connect(m_boldBox, &QCheckBox::toggled, this, &TextPage::changed);
    connect(m_italicBox, &QCheckBox::toggled, this, &TextPage::changed);
    return part;
}

/** The family by its own name, also where none of this name is installed. */
void FontPage::showFamily()
{
    const int index = m_familyBox->findText(m_family, Qt::MatchFixedString);
    m_familyBox->setCurrentIndex(index);
    if (index < 0)
        m_familyBox->setEditText(m_family);
    const QString note = missingFamilyNote(QFont(m_family));
    m_missingLabel->setText(note);
    m_missingLabel->setVisible(!note.isEmpty());
}

void FontPage::takeFamily(const QString &family)
{
    m_family = family;
    showFamily();
    Q_EMIT changed();
}

QWidget *FontPage::newStrokePart(const TextSettings &settings)
{
    auto *part = new QWidget(this);
    const QStringList regular = regularStrokeFonts();
    const QStringList big = bigStrokeFonts();
    m_samples = new StrokeSamples(this);
    m_regularList = new StrokeFontList(regular, *m_samples, part);
    m_regularList->setObjectName(QStringLiteral("regularFonts"));
    m_regularList->choose(settings.enName);
    m_bigList = new StrokeFontList(big, *m_samples, part);
    m_bigList->setObjectName(QStringLiteral("bigFonts"));
    m_bigList->choose(settings.zhName);
    connect(m_regularList, &StrokeFontList::chosenByUser, this, &TextPage::changed);
    connect(m_bigList, &StrokeFontList::chosenByUser, this, &TextPage::changed);

    auto *lists = new QHBoxLayout;
    lists->addLayout(labelled(tr("&Letters and digits"), m_regularList, part));
    lists->addLayout(labelled(tr("&Chinese"), m_bigList, part));
    auto *layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(lists, 1);
    if (regular.isEmpty() || big.isEmpty()) {
        auto *hint = new QLabel(tr("Stroke fonts come in pairs: one for letters and one for "
                                   "Chinese, as SHX files in %1.")
                                    .arg(QDir::toNativeSeparators(hostkit::strokeFontFolder())),
                                part);
        hint->setObjectName(QStringLiteral("strokeHint"));
        hint->setWordWrap(true);
        layout->addWidget(hint);
    }
    return part;
}

QWidget *FontPage::newSizes(const TextSettings &settings)
{
    auto *part = new QWidget(this);
    auto *form = new QFormLayout(part);
    const auto add = [&](const QString &text, const MeasureBox::Range &range, const char *name,
                         bool isPercent = false) {
        auto *box = isPercent ? new MeasureBox(range, tr(" %"), part) : new MeasureBox(range, part);
        box->setObjectName(QString::fromLatin1(name));
        form->addRow(text, box);
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
        return box;
    };
    m_heightBox = add(tr("&Height"), kHeightMm, "height");
    m_heightBox->setToolTip(tr("Height of capital letters on the part"));
    m_heightBox->setMeasure(settings.heightMm);
    m_widthBox = add(tr("&Width"), kWidthPercent, "width", true);
    m_widthBox->setToolTip(tr("Width of the letters; at 100 % they are as the font has them"));
    m_widthBox->setMeasure(settings.widthFactor * 100.0);
    m_charSpacingBox = add(tr("Space between charac&ters"), kSpacingMm, "charSpacing");
    m_charSpacingBox->setToolTip(tr("Added to what the font has; on an arc the span decides"));
    m_charSpacingBox->setMeasure(settings.charSpacingMm);
    m_lineSpacingBox = add(tr("S&pace between lines"), kSpacingMm, "lineSpacing");
    m_lineSpacingBox->setToolTip(tr("From the ink of the lines above to the tops of capitals"));
    m_lineSpacingBox->setMeasure(settings.lineSpacingMm);
    return part;
}

void FontPage::choose(const FontOffer &offer)
{
    if (offer.kind == FontType::singleLine) {
        m_regularList->choose(offer.enName);
        m_bigList->choose(offer.zhName);
        m_strokeButton->setChecked(true);
    } else {
        m_family = offer.family;
        showFamily();
        m_systemButton->setChecked(true);
    }
    Q_EMIT changed();
}

void FontPage::read(TextSettings &settings) const
{
    settings.kind = m_strokeButton->isChecked() ? FontType::singleLine : FontType::doubleLine;
    if (m_family != settings.font.family())
        settings.font.setFamily(m_family);
    settings.font.setBold(m_boldBox->isChecked());
    settings.font.setItalic(m_italicBox->isChecked());
    if (!m_regularList->chosen().isEmpty())
        settings.enName = m_regularList->chosen();
    if (!m_bigList->chosen().isEmpty())
        settings.zhName = m_bigList->chosen();
    settings.heightMm = m_heightBox->measure();
    settings.widthFactor = m_widthBox->measure() / 100.0;
    settings.charSpacingMm = m_charSpacingBox->measure();
    settings.lineSpacingMm = m_lineSpacingBox->measure();
}

} // namespace studio
