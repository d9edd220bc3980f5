#include <studio/text/FontPage.h>

#include <studio/text/MeasureBox.h>
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
    : TextPage(parent), systemButton(new QRadioButton(tr("&System font, outlines"), this)),
      strokeButton(new QRadioButton(tr("Stroke &fonts, single lines"), this)),
      kinds(new QStackedWidget(this))
{
    systemButton->setObjectName(QStringLiteral("systemFont"));
    strokeButton->setObjectName(QStringLiteral("strokeFont"));
    kinds->addWidget(newSystemPart(settings));
    kinds->addWidget(newStrokePart(settings));
    (settings.kind == FontType::singleLine ? strokeButton : systemButton)->setChecked(true);

    auto *choice = new QHBoxLayout;
    choice->addWidget(systemButton);
    choice->addWidget(strokeButton);
    choice->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addWidget(kinds, 1);
    layout->addWidget(newSizes(settings));
    showKind();
    connect(strokeButton, &QRadioButton::toggled, this, [this] {
        showKind();
        Q_EMIT changed();
    });
}

void FontPage::showKind() { kinds->setCurrentIndex(strokeButton->isChecked() ? 1 : 0); }

QWidget *FontPage::newSystemPart(const TextSettings &settings)
{
    auto *part = new QWidget(this);
    familyBox = new QFontComboBox(part);
    familyBox->setObjectName(QStringLiteral("family"));
    familyBox->setCurrentFont(settings.font);
    shownFamily = familyBox->currentFont().family();
    boldBox = new QCheckBox(tr("&Bold"), part);
    boldBox->setObjectName(QStringLiteral("bold"));
    boldBox->setChecked(settings.font.bold());
    italicBox = new QCheckBox(tr("&Italic"), part);
    italicBox->setObjectName(QStringLiteral("italic"));
    italicBox->setChecked(settings.font.italic());
    auto *styles = new QHBoxLayout;
    styles->addWidget(boldBox);
    styles->addWidget(italicBox);
    styles->addStretch(1);
    auto *form = new QFormLayout(part);
    form->addRow(tr("F&amily"), familyBox);
    form->addRow(QString(), styles);
    connect(familyBox, &QFontComboBox::currentFontChanged, this, &TextPage::changed);
    connect(boldBox, &QCheckBox::toggled, this, &TextPage::changed);
    connect(italicBox, &QCheckBox::toggled, this, &TextPage::changed);
    return part;
}

QWidget *FontPage::newStrokePart(const TextSettings &settings)
{
    auto *part = new QWidget(this);
    const QStringList regular = regularStrokeFonts();
    const QStringList big = bigStrokeFonts();
    samples = new StrokeSamples(this);
    regularList = new StrokeFontList(regular, *samples, part);
    regularList->setObjectName(QStringLiteral("regularFonts"));
    regularList->choose(settings.enName);
    bigList = new StrokeFontList(big, *samples, part);
    bigList->setObjectName(QStringLiteral("bigFonts"));
    bigList->choose(settings.zhName);
    connect(regularList, &StrokeFontList::chosenByUser, this, &TextPage::changed);
    connect(bigList, &StrokeFontList::chosenByUser, this, &TextPage::changed);

    auto *lists = new QHBoxLayout;
    lists->addLayout(labelled(tr("&Letters and digits"), regularList, part));
    lists->addLayout(labelled(tr("&Chinese"), bigList, part));
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
    const auto add = [&](const QString &text, const MeasureBox::Range &range, const QString &unit,
                         const char *name) {
        auto *box = new MeasureBox(range, unit, part);
        box->setObjectName(QString::fromLatin1(name));
        form->addRow(text, box);
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
        return box;
    };
    heightBox = add(tr("&Height"), kHeightMm, tr(" mm"), "height");
    heightBox->setToolTip(tr("Height of capital letters on the part"));
    heightBox->setMeasure(settings.heightMm);
    widthBox = add(tr("&Width"), kWidthPercent, tr(" %"), "width");
    widthBox->setToolTip(tr("Width of the letters; at 100 % they are as the font has them"));
    widthBox->setMeasure(settings.widthFactor * 100.0);
    charSpacingBox = add(tr("Space between charac&ters"), kSpacingMm, tr(" mm"), "charSpacing");
    charSpacingBox->setToolTip(tr("Added to what the font has; on an arc the span decides"));
    charSpacingBox->setMeasure(settings.charSpacingMm);
    lineSpacingBox = add(tr("S&pace between lines"), kSpacingMm, tr(" mm"), "lineSpacing");
    lineSpacingBox->setToolTip(tr("From the ink of the lines above to the tops of capitals"));
    lineSpacingBox->setMeasure(settings.lineSpacingMm);
    return part;
}

void FontPage::read(TextSettings &settings) const
{
    settings.kind = strokeButton->isChecked() ? FontType::singleLine : FontType::doubleLine;
    // A family that is not installed shows as another one, and stays until one is chosen.
    if (familyBox->currentFont().family() != shownFamily)
        settings.font.setFamily(familyBox->currentFont().family());
    settings.font.setBold(boldBox->isChecked());
    settings.font.setItalic(italicBox->isChecked());
    if (!regularList->chosen().isEmpty())
        settings.enName = regularList->chosen();
    if (!bigList->chosen().isEmpty())
        settings.zhName = bigList->chosen();
    settings.heightMm = heightBox->measure();
    settings.widthFactor = widthBox->measure() / 100.0;
    settings.charSpacingMm = charSpacingBox->measure();
    settings.lineSpacingMm = lineSpacingBox->measure();
}

} // namespace studio
