#pragma once

#include <studio/job/JobSettings.h>

#include <jobkit/values/Material.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
QT_END_NAMESPACE

namespace studio {

class PenModel;
struct Job;

/**
 * What a job is made with: the drawing's pens with their laser values, a material to take them
 * from, the machine and the order. Pens belong to the drawing and their edits to its undo stack;
 * the rest is the user's.
 */
class JobPanel : public QWidget
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives the panel. */
    explicit JobPanel(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    const JobSettings &settings() const { return m_settings; }

    /** Shows in one line how long a job takes; none takes the line away. */
    void showTimes(const Job *job);

    /** Shows the drawing's pens, after the drawing was replaced. */
    void refresh();

Q_SIGNALS:
    void previewAsked();
    void exportAsked();
    /** Something that a job depends on is another: pens, machine or order. */
    void changed();

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void addMachines();
    QCheckBox *newSwitch(const char *name, bool isOn);
    void connectFields();
    void retranslate();
    void readFields();
    void chooseProfile();
    void editProfile();
    void keepProfile(const jobkit::MachineProfile &profile);
    void selectMachine(const QString &profile);
    void addPen();
    void changeColor(int row);
    void editPens(const QVector<jobkit::Pen> &pens);
    void changeMode(int row);
    void fillMaterials();
    void applyMaterial();
    void importMaterial();
    void exportMaterial();
    void takeMaterial(bool isRead, const jobkit::Material &material, const QString &error);
    void saveMaterial();
    void tell(const QString &text);

    ZTGraphicsDocument &m_document;
    JobSettings m_settings;
    PenModel *m_model; ///< child, as all below
    QTableView *m_pens;
    QComboBox *m_material;
    QPushButton *m_saveMaterial;
    QComboBox *m_machine;
    QPushButton *m_otherMachine;
    QPushButton *m_editMachine;
    QPushButton *m_addPen;
    QComboBox *m_order;
    QComboBox *m_hatchPlace;
    QCheckBox *m_penByPen;
    QCheckBox *m_innerFirst;
    QLabel *m_pensLabel;
    QLabel *m_materialLabel;
    QLabel *m_machineLabel;
    QLabel *m_orderLabel;
    QLabel *m_hatchLabel;
    QLabel *m_told;
    std::function<QString()> m_times; ///< what is told, if it is the times of a job
    QPushButton *m_preview;
    QPushButton *m_export;
};

} // namespace studio
