#include <studio/job/JobPanel.h>

#include <studio/job/JobRun.h>
#include <studio/job/MaterialStore.h>
#include <studio/job/PenModel.h>
#include <studio/job/PensCommand.h>
#include <studio/job/ProfileDialog.h>
#include <studio/job/ProfileStore.h>
#include <studio/program/UndoTexts.h>

#include <jobkit/marks/DrawingPens.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableView>
#include <QtWidgets/QUndoStack>

#include <algorithm>

namespace studio {

namespace {

constexpr int kRowRoomPx = 6;

QString seconds(double value) { return QLocale().toString(value, 'f', 1); }

QHBoxLayout *inARow(QWidget *wide, QWidget *narrow)
{
    auto *row = new QHBoxLayout;
    row->addWidget(wide, 1);
    row->addWidget(narrow);
    return row;
}

/** The pens with those of a material in place of the ones with their numbers. */
QVector<jobkit::Pen> replaced(QVector<jobkit::Pen> pens, const QVector<jobkit::Pen> &by)
{
    for (const jobkit::Pen &pen : by) {
        const auto same = std::find_if(pens.begin(), pens.end(), [&pen](const jobkit::Pen &old) {
            return old.number == pen.number;
        });
        if (same != pens.end())
            *same = pen;
        else
            pens.append(pen);
    }
    return pens;
}

template <class Widget>
Widget *named(Widget *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

JobPanel::JobPanel(ZTGraphicsDocument &document, QWidget *parent)
    : QWidget(parent), m_document(document), m_settings(JobSettings::load()),
      m_model(new PenModel(this)), m_pens(named(new QTableView(this), "job.pens")),
      m_material(named(new QComboBox(this), "job.material")),
      m_saveMaterial(named(new QPushButton(this), "job.saveMaterial")),
      m_machine(named(new QComboBox(this), "job.machine")),
      m_otherMachine(named(new QPushButton(this), "job.otherMachine")),
      m_editMachine(named(new QPushButton(this), "job.editMachine")),
      m_addPen(named(new QPushButton(this), "job.addPen")),
      m_order(named(new QComboBox(this), "job.order")),
      m_hatchPlace(named(new QComboBox(this), "job.hatchPlace")),
      m_penByPen(newSwitch("job.penByPen", m_settings.isPenByPen)),
      m_innerFirst(newSwitch("job.innerFirst", m_settings.isInnerFirst)),
      m_pensLabel(new QLabel(this)), m_materialLabel(new QLabel(this)),
      m_machineLabel(new QLabel(this)), m_orderLabel(new QLabel(this)),
      m_hatchLabel(new QLabel(this)), m_told(named(new QLabel(this), "job.told")),
      m_preview(named(new QPushButton(this), "job.preview")),
      m_export(named(new QPushButton(this), "job.export"))
{
    setObjectName(QStringLiteral("jobPanel"));
    build();
    retranslate();
    connectFields();
    refresh();
}

QCheckBox *JobPanel::newSwitch(const char *name, bool isOn)
{
    QCheckBox *box = named(new QCheckBox(this), name);
    box->setChecked(isOn);
    return box;
}

void JobPanel::build()
{
    m_pens->setModel(m_model);
    m_pens->verticalHeader()->hide();
    m_pens->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoomPx);
    m_pens->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_pens->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pens->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    m_pens->setTabKeyNavigation(true);
    m_told->setWordWrap(true);
    m_told->setTextFormat(Qt::PlainText);
    m_order->addItems({QString(), QString(), QString()});
    m_order->setCurrentIndex(static_cast<int>(m_settings.order));
    m_hatchPlace->addItems({QString(), QString(), QString()});
    m_hatchPlace->setCurrentIndex(static_cast<int>(m_settings.hatchPlace));
    addMachines();
    m_pensLabel->setBuddy(m_pens);
    m_materialLabel->setBuddy(m_material);
    m_machineLabel->setBuddy(m_machine);
    m_orderLabel->setBuddy(m_order);
    m_hatchLabel->setBuddy(m_hatchPlace);

    auto *form = new QFormLayout;
    form->addRow(m_materialLabel, inARow(m_material, m_saveMaterial));
    auto *machineRow = inARow(m_machine, m_editMachine);
    machineRow->addWidget(m_otherMachine);
    form->addRow(m_machineLabel, machineRow);
    form->addRow(m_orderLabel, m_order);
    form->addRow(m_hatchLabel, m_hatchPlace);
    form->addRow(m_penByPen);
    form->addRow(m_innerFirst);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_preview);
    buttons->addWidget(m_export);
    auto *all = new QVBoxLayout(this);
    auto *pensRow = new QHBoxLayout;
    pensRow->addWidget(m_pensLabel, 1);
    pensRow->addWidget(m_addPen);
    all->addLayout(pensRow);
    all->addWidget(m_pens, 1);
    all->addLayout(form);
    all->addWidget(m_told);
    all->addLayout(buttons);
}

/** Those on board, those that the user keeps, and one from a file. */
void JobPanel::addMachines()
{
    m_machine->clear();
    for (const QString &name : jobkit::profilesOnBoard())
        m_machine->addItem(name, name);
    for (const QString &path : ProfileStore().paths()) {
        jobkit::MachineProfile kept;
        QString ignored;
        const bool isRead = ProfileStore::readFile(path, &kept, &ignored);
        m_machine->addItem(isRead ? kept.name : QFileInfo(path).fileName(), path);
    }
    selectMachine(m_settings.profile);
}

void JobPanel::selectMachine(const QString &profile)
{
    if (m_machine->findData(profile) < 0)
        m_machine->addItem(QFileInfo(profile).fileName(), profile);
    m_machine->setCurrentIndex(m_machine->findData(profile));
}

void JobPanel::connectFields()
{
    connect(m_model, &PenModel::edited, this, &JobPanel::editPens);
    connect(m_model, &PenModel::refused, this, &JobPanel::tell);
    connect(m_pens, &QTableView::doubleClicked, this, [this](const QModelIndex &index) {
        if (index.column() == PenModel::Mode)
            changeMode(index.row());
        if (index.column() == PenModel::Number)
            changeColor(index.row());
    });
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &JobPanel::refresh);
    connect(m_material, qOverload<int>(&QComboBox::activated), this, &JobPanel::applyMaterial);
    connect(m_saveMaterial, &QPushButton::clicked, this, &JobPanel::saveMaterial);
    connect(m_otherMachine, &QPushButton::clicked, this, &JobPanel::chooseProfile);
    connect(m_editMachine, &QPushButton::clicked, this, &JobPanel::editProfile);
    connect(m_addPen, &QPushButton::clicked, this, &JobPanel::addPen);
    for (QComboBox *box : {m_machine, m_order, m_hatchPlace})
        connect(box, qOverload<int>(&QComboBox::activated), this, &JobPanel::readFields);
    for (QCheckBox *box : {m_penByPen, m_innerFirst})
        connect(box, &QCheckBox::toggled, this, &JobPanel::readFields);
    connect(m_preview, &QPushButton::clicked, this, &JobPanel::previewAsked);
    connect(m_export, &QPushButton::clicked, this, &JobPanel::exportAsked);
}

void JobPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void JobPanel::retranslate()
{
    m_pensLabel->setText(tr("P&ens of this drawing"));
    m_pens->setAccessibleName(tr("Pens of this drawing"));
    m_materialLabel->setText(tr("&Material"));
    m_saveMaterial->setText(tr("&Keep as..."));
    m_saveMaterial->setToolTip(tr("Keep these pens as a material under a name"));
    m_machineLabel->setText(tr("Mac&hine"));
    m_otherMachine->setText(tr("&Other..."));
    m_otherMachine->setToolTip(tr("Read a machine profile from a file"));
    m_editMachine->setText(tr("E&dit..."));
    m_editMachine->setToolTip(tr("Change the values of this machine, or make a machine like it"));
    m_addPen->setText(tr("Add &pen"));
    m_addPen->setToolTip(tr("A further pen, with the values of the last one"));
    m_orderLabel->setText(tr("O&rder"));
    m_order->setItemText(0, tr("As drawn"));
    m_order->setItemText(1, tr("Nearest end next"));
    m_order->setItemText(2, tr("Shortest found"));
    m_hatchLabel->setText(tr("Hatch&es"));
    m_hatchPlace->setItemText(0, tr("Anywhere"));
    m_hatchPlace->setItemText(1, tr("Before outlines"));
    m_hatchPlace->setItemText(2, tr("After outlines"));
    m_penByPen->setText(tr("Pen &by pen"));
    m_innerFirst->setText(tr("&Inner outlines before outer ones"));
    m_preview->setText(tr("Pre&view"));
    m_export->setText(tr("E&xport job..."));
    m_told->setText(m_times ? m_times() : QString());
    fillMaterials();
    Q_EMIT m_model->headerDataChanged(Qt::Horizontal, 0, PenModel::ColumnCount - 1);
}

void JobPanel::refresh() { m_model->setPens(jobkit::drawingPens(m_document)); }

void JobPanel::tell(const QString &text)
{
    m_times = {};
    m_told->setText(text);
}

void JobPanel::showTimes(const Job *job)
{
    if (job == nullptr) {
        tell({});
        return;
    }
    // Made anew in another language.
    m_times = [all = job->times.all, byPen = job->times.byPen] {
        QStringList pens;
        for (const auto &pen : byPen)
            pens << tr("pen %1 %2").arg(pen.first).arg(seconds(pen.second.totalS()));
        return tr("%1 s a part (marking %2, jumps %3, delays %4; %5)")
            .arg(seconds(all.totalS()), seconds(all.markS), seconds(all.jumpS), seconds(all.delayS),
                 pens.join(QStringLiteral(", ")));
    };
    m_told->setText(m_times());
}

void JobPanel::editPens(const QVector<jobkit::Pen> &pens)
{
    tell({});
    m_document.undoStack()->push(new PensCommand(
        m_document, pens, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change pens"))));
    Q_EMIT changed();
}

void JobPanel::changeMode(int row)
{
    QVector<jobkit::Pen> pens = m_model->pens();
    pens[row].powerMode = pens[row].powerMode == jobkit::PowerMode::Constant
                              ? jobkit::PowerMode::Dynamic
                              : jobkit::PowerMode::Constant;
    editPens(pens);
}

void JobPanel::readFields()
{
    m_settings.profile = m_machine->currentData().toString();
    m_settings.order = static_cast<jobkit::OrderKind>(m_order->currentIndex());
    m_settings.hatchPlace = static_cast<jobkit::HatchPlace>(m_hatchPlace->currentIndex());
    m_settings.isPenByPen = m_penByPen->isChecked();
    m_settings.isInnerFirst = m_innerFirst->isChecked();
    m_settings.save();
    tell({});
    Q_EMIT changed();
}

void JobPanel::chooseProfile()
{
    auto *dialog = new QFileDialog(this, tr("Machine profile"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Machine profiles (*.json)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        JobSettings tried = m_settings;
        tried.profile = path;
        jobkit::MachineProfile machine;
        QString error;
        if (!tried.readProfile(&machine, &error)) {
            tell(error);
            return;
        }
        selectMachine(path);
        readFields();
    });
    dialog->open();
}

void JobPanel::editProfile()
{
    jobkit::MachineProfile machine;
    QString error;
    if (!m_settings.readProfile(&machine, &error)) {
        tell(error);
        return;
    }
    const QString path = m_settings.profile;
    const bool isKept = ProfileStore().holds(path);
    auto *dialog = new ProfileDialog(
        machine, isKept ? ProfileDialog::Origin::Kept : ProfileDialog::Origin::OnBoard, this);
    connect(dialog, &ProfileDialog::chosen, this, &JobPanel::keepProfile);
    connect(dialog, &ProfileDialog::removeAsked, this, [this, path] {
        ProfileStore().remove(path);
        m_settings.profile = jobkit::profilesOnBoard().constFirst();
        addMachines();
        readFields();
    });
    dialog->open();
}

/** A machine that gets another name is another machine: the one before it stays. */
void JobPanel::keepProfile(const jobkit::MachineProfile &profile)
{
    QString error;
    if (!ProfileStore().save(profile, &error)) {
        tell(error);
        return;
    }
    m_settings.profile = ProfileStore().pathOf(profile.name);
    addMachines();
    readFields();
}

void JobPanel::addPen()
{
    QVector<jobkit::Pen> pens = m_model->pens();
    jobkit::Pen pen = pens.isEmpty() ? jobkit::Pen() : pens.last();
    pen.number = 1;
    while (jobkit::findPen(pens, pen.number) != nullptr)
        ++pen.number;
    if (!pen.problem().isEmpty()) {
        tell(pen.problem());
        return;
    }
    pens.append(pen);
    editPens(pens);
    m_pens->scrollToBottom();
}

void JobPanel::changeColor(int row)
{
    auto *dialog = new QColorDialog(m_model->pens()[row].color, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("penColorDialog"));
    connect(dialog, &QColorDialog::colorSelected, this, [this, row](const QColor &color) {
        QVector<jobkit::Pen> pens = m_model->pens();
        if (row >= pens.size() || !color.isValid())
            return;
        pens[row].color = color;
        editPens(pens);
    });
    dialog->open();
}

/** The first row stands for the pens as they are; the last ones read and write a file. */
void JobPanel::fillMaterials()
{
    m_material->clear();
    m_material->addItem(tr("Choose..."));
    m_material->addItems(MaterialStore().names());
    m_material->addItem(tr("From a file..."));
    m_material->addItem(tr("To a file..."));
}

void JobPanel::applyMaterial()
{
    const int row = m_material->currentIndex();
    const QString name = m_material->currentText();
    m_material->setCurrentIndex(0);
    if (row == m_material->count() - 1) {
        exportMaterial();
    } else if (row == m_material->count() - 2) {
        importMaterial();
    } else if (row > 0) {
        jobkit::Material material;
        QString error;
        const bool isRead = MaterialStore().read(name, &material, &error);
        takeMaterial(isRead, material, error);
    }
}

void JobPanel::takeMaterial(bool isRead, const jobkit::Material &material, const QString &error)
{
    if (isRead)
        editPens(replaced(m_model->pens(), material.pens));
    tell(isRead ? tr("Pens of %1").arg(material.name) : error);
}

void JobPanel::importMaterial()
{
    auto *dialog = new QFileDialog(this, tr("Material"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Materials (*.json)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        jobkit::Material material;
        QString error;
        const bool isRead = MaterialStore::readFile(path, &material, &error);
        takeMaterial(isRead, material, error);
    });
    dialog->open();
}

void JobPanel::exportMaterial()
{
    auto *dialog = new QFileDialog(this, tr("Material"));
    dialog->setObjectName(QStringLiteral("materialExport"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("json"));
    dialog->setNameFilters({tr("Materials (*.json)")});
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        QString error;
        const QString name = QFileInfo(path).completeBaseName();
        const bool isSaved = MaterialStore::saveFile(path, {name, m_model->pens()}, &error);
        tell(isSaved ? tr("Kept as %1").arg(QDir::toNativeSeparators(path)) : error);
    });
    dialog->open();
}

void JobPanel::saveMaterial()
{
    auto *dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("materialDialog"));
    dialog->setWindowTitle(tr("Material"));
    dialog->setLabelText(tr("Name of the material:"));
    connect(dialog, &QInputDialog::textValueSelected, this, [this](const QString &name) {
        QString error;
        const bool isSaved = MaterialStore().save({name, m_model->pens()}, &error);
        fillMaterials();
        tell(isSaved ? tr("Kept as %1").arg(name) : error);
    });
    dialog->open();
}

} // namespace studio
