#include <studio/panel/TextSection.h>

#include <studio/choices/Units.h>
#include <studio/panel/ChoiceBox.h>
#include <studio/panel/ShapeStep.h>
#include <studio/program/UndoTexts.h>
#include <studio/text/FontOffers.h>
#include <studio/text/StrokeFonts.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFontComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace studio {

namespace {

constexpr MeasureField::Range kHeightMm{0.01, 10000.0};
constexpr MeasureField::Range kWidthPercent{1.0, 1000.0};
constexpr MeasureField::Range kSpacingMm{-1000.0, 1000.0};
constexpr MeasureField::Range kArcDeg{-3600.0, 3600.0};
constexpr MeasureField::Range kDiameterMm{0.0, 100000.0};

/** Numbers of the page from here on are about the arc. */
constexpr int kFirstOfArc = 4;

template <class ValueOf>
auto commonSetting(const QVector<TextSettings> &settings, const ValueOf &valueOf)
    -> std::optional<std::decay_t<decltype(valueOf(settings.first()))>>
{
    if (settings.isEmpty())
        return std::nullopt;
    const auto first = valueOf(settings.first());
    const bool isCommon = std::all_of(settings.begin(), settings.end(),
                                      [&](const TextSettings &s) { return valueOf(s) == first; });
    return isCommon ? std::make_optional(first) : std::nullopt;
}

ShapeItems textsAmong(ShapeItems items)
{
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](const ShapeItem *item) {
                                   return qobject_cast<const ZTGraphicsTextItem *>(item) == nullptr;
                               }),
                items.end());
    return items;
}

} // namespace

TextSection::TextSection(ZTGraphicsDocument &document, QWidget *parent)
    : PanelSection(parent), m_document(document), m_hint(new QLabel(this)),
      m_words(new QPushButton(this)), m_kind(new ChoiceBox(this)),
      m_family(new QFontComboBox(this)), m_letters(new ChoiceBox(this)),
      m_chinese(new ChoiceBox(this)), m_arc(new QCheckBox(this))
{
    m_hint->setObjectName(QStringLiteral("panel.textHint"));
    m_hint->setWordWrap(true);
    m_words->setObjectName(QStringLiteral("panel.words"));
    connect(m_words, &QPushButton::clicked, this, &TextSection::wordsWanted);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_hint, 0, 0, 1, 3);
    grid->addWidget(m_words, 1, 0, 1, 3);
    buildFonts(*grid);
    buildNumbers(*grid);
    TextSection::retranslate();
}

QLabel *TextSection::addRow(QGridLayout &grid, QWidget *field)
{
    auto *label = new QLabel(this);
    label->setBuddy(field);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
    return label;
}

void TextSection::buildFonts(QGridLayout &grid)
{
    m_kind->setObjectName(QStringLiteral("panel.fontKind"));
    m_kind->addItem(QString(), int(FontType::doubleLine));
    m_kind->addItem(QString(), int(FontType::singleLine));
    m_family->setObjectName(QStringLiteral("panel.family"));
    m_letters->setObjectName(QStringLiteral("panel.letters"));
    m_chinese->setObjectName(QStringLiteral("panel.chinese"));
    for (QComboBox *box : {m_kind, static_cast<QComboBox *>(m_family), m_letters, m_chinese}) {
        // As narrow as the panel is made, however long the names of fonts are.
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(8);
        m_fontLabels << addRow(grid, box);
    }
    connect(m_kind, qOverload<int>(&QComboBox::activated), this, [this] {
        const auto kind = static_cast<FontType>(m_kind->currentData().toInt());
        change([kind](TextSettings &settings) { settings.kind = kind; });
    });
    connect(m_family, qOverload<int>(&QComboBox::activated), this, [this] {
        const QString family = m_family->currentFont().family();
        change([&family](TextSettings &settings) { settings.font.setFamily(family); });
    });
    connect(m_letters, qOverload<int>(&QComboBox::activated), this, [this] {
        change([this](TextSettings &settings) { settings.enName = m_letters->currentText(); });
    });
    connect(m_chinese, qOverload<int>(&QComboBox::activated), this, [this] {
        change([this](TextSettings &settings) { settings.zhName = m_chinese->currentText(); });
    });
}

void TextSection::addNumber(QGridLayout &grid, const char *name, MeasureField::Quantity quantity,
                            const MeasureField::Range &range, double TextSettings::*member,
                            double factor)
{
    MeasureField *field = newField(name, quantity, range);
    QLabel *label = addRow(grid, field);
    auto *unit = new QLabel(this);
    grid.addWidget(unit, grid.rowCount() - 1, 2);
    m_numbers.append({label, field, unit, member, factor});
    connect(field, &MeasureField::committed, this, [this, field, member, factor](double value) {
        settle(*field, change([member, kept = value / factor](TextSettings &settings) {
            settings.*member = kept + 0.0;
        }));
    });
}

void TextSection::buildNumbers(QGridLayout &grid)
{
    using Quantity = MeasureField::Quantity;
    addNumber(grid, "panel.textHeight", Quantity::Length, kHeightMm, &TextSettings::heightMm, 1.0);
    addNumber(grid, "panel.textWidth", Quantity::Percent, kWidthPercent, &TextSettings::widthFactor,
              100.0);
    addNumber(grid, "panel.charSpacing", Quantity::Length, kSpacingMm, &TextSettings::charSpacingMm,
              1.0);
    addNumber(grid, "panel.lineSpacing", Quantity::Length, kSpacingMm, &TextSettings::lineSpacingMm,
              1.0);
    m_arc->setObjectName(QStringLiteral("panel.arc"));
    grid.addWidget(m_arc, grid.rowCount(), 0, 1, 3);
    connect(m_arc, &QCheckBox::clicked, this, [this] {
        const bool isOn = m_arc->checkState() == Qt::Checked;
        change([isOn](TextSettings &settings) {
            if (isOn && !settings.isOnArc)
                settings.putOnArc();
            settings.isOnArc = isOn;
        });
    });
    // The settings count clockwise.
    addNumber(grid, "panel.arcStart", Quantity::Angle, kArcDeg, &TextSettings::startDeg, -1.0);
    addNumber(grid, "panel.arcSpan", Quantity::Angle, kArcDeg, &TextSettings::spanDeg, -1.0);
    addNumber(grid, "panel.arcDiameter", Quantity::Length, kDiameterMm, &TextSettings::diameterMm,
              1.0);
}

void TextSection::retranslate()
{
    m_hint->setText(tr("Select a text to change its font, size and arc."));
    m_words->setText(tr("Words and variant text..."));
    const QStringList fonts = {tr("Font"), tr("Family"), tr("Letters"), tr("Chinese")};
    const QVector<QWidget *> boxes = {m_kind, m_family, m_letters, m_chinese};
    for (int i = 0; i < fonts.size(); ++i) {
        m_fontLabels[i]->setText(fonts[i]);
        boxes[i]->setAccessibleName(fonts[i]);
    }
    m_kind->setPlaceholderText(tr("differs"));
    m_kind->setItemText(0, tr("System font, outlines"));
    m_kind->setItemText(1, tr("Stroke fonts, single lines"));
    m_arc->setText(tr("On an arc"));
    const QString length = units::name();
    const QString deg = QStringLiteral("°");
    const QStringList names = {tr("Height"),      tr("Width"),     tr("Letter space"),
                               tr("Line space"),  tr("Arc start"), tr("Arc span"),
                               tr("Arc diameter")};
    const QStringList unitNames = {length, QStringLiteral("%"), length, length, deg, deg, length};
    const QStringList hints = {
        tr("Height of capital letters on the part"),
        tr("Width of the letters in percent; at 100 they are as the font has them"),
        tr("Added to what the font has; on an arc the span decides"),
        tr("From the ink of the lines above to the tops of capitals"),
        tr("Where the arc starts: 0 is at three o'clock, 90 at twelve"),
        tr("Shared out among the characters; positive is anticlockwise"),
        tr("Of the circle on which the characters stand")};
    for (int i = 0; i < m_numbers.size(); ++i) {
        m_numbers[i].label->setText(names[i]);
        m_numbers[i].unit->setText(unitNames[i]);
        m_numbers[i].field->setAccessibleName(names[i]);
        m_numbers[i].field->setHint(hints[i]);
    }
}

ShapeItems TextSection::selectedTexts() const
{
    return textsAmong(selectedShapeItems(*m_document.scene()));
}

QString TextSection::change(const Change &change)
{
    editShapes(m_document, selectedTexts(),
               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change text")),
               [&change](ShapeItem &item) {
                   auto &text = static_cast<ZTGraphicsTextItem &>(item);
                   TextSettings settings = TextSettings::of(text);
                   change(settings);
                   settings.applyTo(text);
               });
    Q_EMIT tried();
    return {};
}

void TextSection::follow(const ShapeItems &selected)
{
    const ShapeItems texts = textsAmong(selected);
    QVector<TextSettings> settings;
    settings.reserve(texts.size());
    for (ShapeItem *item : texts)
        settings.append(TextSettings::of(static_cast<ZTGraphicsTextItem &>(*item)));
    m_hint->setVisible(texts.isEmpty());
    setEnabled(!texts.isEmpty());
    if (texts.isEmpty()) {
        for (const Number &number : qAsConst(m_numbers))
            number.field->showNothing();
        return;
    }
    m_words->setEnabled(texts.size() == 1);
    showFonts(settings);
    const auto onArc = commonSetting(settings, [](const TextSettings &s) { return s.isOnArc; });
    if (!onArc && !texts.isEmpty()) {
        m_arc->setCheckState(Qt::PartiallyChecked);
    } else {
        m_arc->setTristate(false);
        m_arc->setChecked(onArc.value_or(false));
    }
    for (int i = 0; i < m_numbers.size(); ++i) {
        const Number &number = m_numbers[i];
        QVector<double> values;
        values.reserve(settings.size());
        for (const TextSettings &s : qAsConst(settings))
            values.append(s.*number.member * number.factor + 0.0);
        showCommon(*number.field, values);
        number.field->setEnabled(i < kFirstOfArc || onArc.value_or(true));
    }
}

void TextSection::showFonts(const QVector<TextSettings> &settings)
{
    const auto kind = commonSetting(settings, [](const TextSettings &s) { return s.kind; });
    m_kind->setCurrentIndex(kind ? m_kind->findData(int(*kind)) : -1);
    const auto family =
        commonSetting(settings, [](const TextSettings &s) { return s.font.family(); });
    m_family->setToolTip(family ? missingFamilyNote(QFont(*family)) : QString());
    m_family->setCurrentIndex(family ? m_family->findText(*family) : -1);
    if (family && m_family->currentIndex() < 0)
        m_family->setEditText(*family);
    else if (!family)
        m_family->setEditText(QString());
    const auto letters = commonSetting(settings, [](const TextSettings &s) { return s.enName; });
    showStrokeFont(*m_letters, regularStrokeFonts(), letters);
    const auto chinese = commonSetting(settings, [](const TextSettings &s) { return s.zhName; });
    showStrokeFont(*m_chinese, bigStrokeFonts(), chinese);
    const bool isStroke = kind == FontType::singleLine;
    m_family->setEnabled(!isStroke);
    m_letters->setEnabled(isStroke);
    m_chinese->setEnabled(isStroke);
}

// Fonts may come while the program runs; one that is missing is told by its name all the same.
void TextSection::showStrokeFont(QComboBox &box, const QStringList &fonts,
                                 const std::optional<QString> &name)
{
    QStringList listed;
    for (int i = 0; i < box.count(); ++i)
        listed << box.itemText(i);
    if (listed != fonts) {
        box.clear();
        box.addItems(fonts);
    }
    box.setPlaceholderText(name.value_or(tr("differs")));
    box.setCurrentIndex(name ? box.findText(*name) : -1);
}

} // namespace studio
