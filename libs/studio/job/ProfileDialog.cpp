#include <studio/job/ProfileDialog.h>

#include <studio/job/ProfileStore.h>

#include <QtCore/QLocale>
#include <QtCore/QSet>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include <cmath>
#include <limits>

namespace studio {

using jobkit::MachineKind;
using jobkit::MachineProfile;

namespace {

constexpr int kShownLines = 3;
constexpr int kMostDecimals = 6;

/** Fields that one kind of machine alone has a use for, by their keys. */
const QSet<QString> &fieldsOf(MachineKind kind)
{
    static const QSet<QString> galvo{QStringLiteral("jumpDelayUs"), QStringLiteral("markDelayUs"),
                                     QStringLiteral("cornerDelayUs")};
    static const QSet<QString> gantry{QStringLiteral("accelerationMmPerS2"),
                                      QStringLiteral("junctionDeviationMm")};
    return kind == MachineKind::Galvo ? galvo : gantry;
}

/** A number as people of this language type it, or as programs do; no number otherwise. */
double numberIn(const QString &text)
{
    bool isNumber = false;
    double value = QLocale().toDouble(text.trimmed(), &isNumber);
    if (!isNumber)
        value = QLocale::c().toDouble(text.trimmed(), &isNumber);
    return isNumber ? value : std::numeric_limits<double>::quiet_NaN();
}

QString textOf(double value)
{
    QLocale plain;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    return plain.toString(value, 'g', QLocale::FloatingPointShortest);
}

template <class Value>
Value chosenIn(const QComboBox &box)
{
    return static_cast<Value>(box.currentIndex());
}

} // namespace

ProfileDialog::ProfileDialog(const MachineProfile &profile, Origin origin, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("profileDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Machine"));
    build(origin);
    show(profile);
    if (origin == Origin::OnBoard) {
        m_name->setText(tr("%1, my own").arg(profile.name));
        tell(tr("This machine comes with the program and stays as it is: a copy is kept."));
    }
    m_name->setFocus();
    m_name->selectAll();
}

void ProfileDialog::build(Origin origin)
{
    auto *grid = new QGridLayout(this);
    const auto newGroup = [&](const QString &title, int row, int column, int rows) {
        auto *group = new QGroupBox(title, this);
        grid->addWidget(group, row, column, rows, 1);
        return new QFormLayout(group);
    };
    buildMachine(*newGroup(tr("Machine and field"), 0, 0, 1));
    buildMotion(*newGroup(tr("Motion"), 1, 0, 1));
    buildOutput(*newGroup(tr("Files"), 0, 1, 2));
    m_told = new QLabel(this);
    m_told->setObjectName(QStringLiteral("profile.told"));
    m_told->setWordWrap(true);
    m_told->setTextFormat(Qt::PlainText);
    grid->addWidget(m_told, 2, 0, 1, 2);
    buildButtons(origin);
}

void ProfileDialog::buildMachine(QFormLayout &form)
{
    m_name = new QLineEdit(this);
    m_name->setObjectName(QStringLiteral("profile.name"));
    connect(m_name, &QLineEdit::textChanged, this, &ProfileDialog::check);
    form.addRow(tr("Name"), m_name);
    m_kind = newChoice("profile.kind", {tr("Galvo: mirrors"), tr("Gantry: axes with mass")});
    form.addRow(tr("Kind"), m_kind);
    addNumber(form, "fieldWidthMm", tr("Width of the field, mm"), &MachineProfile::fieldWidthMm);
    addNumber(form, "fieldHeightMm", tr("Height of the field, mm"), &MachineProfile::fieldHeightMm);
    m_origin = newChoice("profile.origin", {tr("Middle"), tr("Bottom left"), tr("Bottom right"),
                                            tr("Top left"), tr("Top right")});
    form.addRow(tr("Origin"), m_origin);
    m_yDirection = newChoice("profile.yDirection", {tr("upward"), tr("downward")});
    form.addRow(tr("Y counts"), m_yDirection);
}

void ProfileDialog::buildMotion(QFormLayout &form)
{
    addNumber(form, "mostSpeedMmPerS", tr("Fastest marking, mm/s"),
              &MachineProfile::mostSpeedMmPerS);
    addNumber(form, "jumpSpeedMmPerS", tr("Speed of jumps, mm/s"),
              &MachineProfile::jumpSpeedMmPerS);
    addNumber(form, "jumpDelayUs", tr("Delay after a jump, µs"), &MachineProfile::jumpDelayUs);
    addNumber(form, "markDelayUs", tr("Delay after a mark, µs"), &MachineProfile::markDelayUs);
    addNumber(form, "cornerDelayUs", tr("Delay at corners, µs"), &MachineProfile::cornerDelayUs);
    addNumber(form, "accelerationMmPerS2", tr("Acceleration, mm/s²"),
              &MachineProfile::accelerationMmPerS2);
    addNumber(form, "junctionDeviationMm", tr("Junction deviation, mm"),
              &MachineProfile::junctionDeviationMm);
}

void ProfileDialog::buildOutput(QFormLayout &form)
{
    m_form = newChoice("profile.form",
                       {tr("G-code"), tr("HP-GL"), tr("DXF"), tr("SVG"), tr("JSON"), tr("CSV")});
    form.addRow(tr("Form"), m_form);
    addNumber(form, "mostPower", tr("S at full power"), &MachineProfile::mostPower);
    m_laserMode = new QCheckBox(tr("Laser mode: power changes on the way"), this);
    m_laserMode->setObjectName(QStringLiteral("profile.laserMode"));
    form.addRow(m_laserMode);
    m_unit = newChoice("profile.unit", {tr("Millimetres"), tr("Inches")});
    form.addRow(tr("Unit"), m_unit);
    QStringList decimals;
    for (int count = 0; count <= kMostDecimals; ++count)
        decimals << QString::number(count);
    m_decimals = newChoice("profile.decimals", decimals);
    form.addRow(tr("Decimals"), m_decimals);
    m_head = newLines("profile.head");
    form.addRow(tr("Lines before the job"), m_head);
    m_tail = newLines("profile.tail");
    form.addRow(tr("Lines after the job"), m_tail);
}

void ProfileDialog::buildButtons(Origin origin)
{
    auto *buttons = new QDialogButtonBox(this);
    buttons->setObjectName(QStringLiteral("profile.buttons"));
    const auto add = [&](const QString &text, const char *name) {
        QPushButton *button = buttons->addButton(text, QDialogButtonBox::ActionRole);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        return button;
    };
    connect(add(tr("&Import..."), "profile.import"), &QPushButton::clicked, this,
            &ProfileDialog::importFile);
    m_export = add(tr("E&xport..."), "profile.export");
    connect(m_export, &QPushButton::clicked, this, &ProfileDialog::exportFile);
    if (origin == Origin::Kept) {
        connect(add(tr("&Remove"), "profile.remove"), &QPushButton::clicked, this, [this] {
            Q_EMIT removeAsked();
            reject();
        });
    }
    m_keep = buttons->addButton(tr("&Keep"), QDialogButtonBox::AcceptRole);
    m_keep->setObjectName(QStringLiteral("profile.keep"));
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        Q_EMIT chosen(profile());
        accept();
    });
    static_cast<QGridLayout *>(layout())->addWidget(buttons, 3, 0, 1, 2);
}

void ProfileDialog::addNumber(QFormLayout &form, const char *key, const QString &label,
                              double MachineProfile::*value)
{
    const QString name = QLatin1String(key);
    auto *field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("profile.") + name);
    field->setAccessibleName(label);
    connect(field, &QLineEdit::textChanged, this, &ProfileDialog::check);
    form.addRow(label, field);
    m_numbers.append({name, label, field, value});
}

QComboBox *ProfileDialog::newChoice(const char *name, const QStringList &texts)
{
    auto *box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->addItems(texts);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &ProfileDialog::check);
    return box;
}

QPlainTextEdit *ProfileDialog::newLines(const char *name)
{
    auto *edit = new QPlainTextEdit(this);
    edit->setObjectName(QLatin1String(name));
    edit->setTabChangesFocus(true);
    edit->setMinimumHeight(kShownLines * edit->fontMetrics().lineSpacing());
    connect(edit, &QPlainTextEdit::textChanged, this, &ProfileDialog::check);
    return edit;
}

void ProfileDialog::show(const MachineProfile &profile)
{
    m_name->setText(profile.name);
    for (const Number &number : qAsConst(m_numbers))
        number.field->setText(textOf(profile.*number.value));
    m_kind->setCurrentIndex(static_cast<int>(profile.kind));
    m_origin->setCurrentIndex(static_cast<int>(profile.origin));
    m_yDirection->setCurrentIndex(static_cast<int>(profile.yDirection));
    m_laserMode->setChecked(profile.isLaserMode);
    m_form->setCurrentIndex(static_cast<int>(profile.form));
    m_unit->setCurrentIndex(static_cast<int>(profile.unit));
    m_decimals->setCurrentIndex(profile.decimals);
    m_head->setPlainText(profile.head);
    m_tail->setPlainText(profile.tail);
    check();
}

MachineProfile ProfileDialog::profile() const
{
    MachineProfile profile;
    profile.name = m_name->text().trimmed();
    for (const Number &number : m_numbers)
        profile.*number.value = numberIn(number.field->text());
    profile.kind = chosenIn<MachineKind>(*m_kind);
    profile.origin = chosenIn<jobkit::FieldOrigin>(*m_origin);
    profile.yDirection = chosenIn<jobkit::YDirection>(*m_yDirection);
    profile.isLaserMode = m_laserMode->isChecked();
    profile.form = chosenIn<jobkit::JobForm>(*m_form);
    profile.unit = chosenIn<jobkit::LengthUnit>(*m_unit);
    profile.decimals = m_decimals->currentIndex();
    profile.head = m_head->toPlainText();
    profile.tail = m_tail->toPlainText();
    return profile;
}

/** What is wrong, in the words of the fields; empty: nothing. */
QString ProfileDialog::problem() const
{
    if (jobkit::profilesOnBoard().contains(m_name->text().trimmed()))
        return tr("Name: \"%1\" is that of a machine that comes with the program.")
            .arg(m_name->text().trimmed());
    for (const Number &number : m_numbers) {
        if (std::isnan(numberIn(number.field->text())))
            return tr("%1: a number is needed.").arg(number.label);
    }
    QString problem = profile().problem();
    for (const Number &number : m_numbers) {
        if (problem.startsWith(number.key))
            problem.replace(0, number.key.size(), number.label);
    }
    return problem;
}

void ProfileDialog::check()
{
    if (m_keep == nullptr) // while the fields are made
        return;
    const auto kind = chosenIn<MachineKind>(*m_kind);
    const QSet<QString> &unused =
        fieldsOf(kind == MachineKind::Galvo ? MachineKind::Gantry : MachineKind::Galvo);
    for (const Number &number : qAsConst(m_numbers))
        number.field->setEnabled(!unused.contains(number.key));
    const QString wrong = problem();
    tell(wrong);
    m_keep->setEnabled(wrong.isEmpty());
    m_export->setEnabled(wrong.isEmpty());
}

void ProfileDialog::tell(const QString &text) { m_told->setText(text); }

void ProfileDialog::importFile()
{
    auto *dialog = new QFileDialog(this, tr("Machine profile"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Machine profiles (*.json)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        MachineProfile read;
        QString error;
        if (ProfileStore::readFile(path, &read, &error))
            show(read);
        else
            tell(error);
    });
    dialog->open();
}

void ProfileDialog::exportFile()
{
    auto *dialog = new QFileDialog(this, tr("Export the machine profile"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("json"));
    dialog->setNameFilters({tr("Machine profiles (*.json)")});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        QString error;
        const bool isSaved = ProfileStore::saveFile(path, profile(), &error);
        tell(isSaved ? tr("Exported.") : error);
    });
    dialog->open();
}

} // namespace studio
