#pragma once

#include <studio/panel/PanelSection.h>

class ZTGraphicsDocument;

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace studio {

/**
 * What is at hand about the selected codes: what one of them has become and reads, the module of
 * all, and the way to their other settings. Hidden for other shapes.
 */
class CodeSection : public PanelSection
{
    Q_OBJECT

public:
    /** `document` is borrowed and outlives this. */
    explicit CodeSection(ZTGraphicsDocument &document, QWidget *parent = nullptr);

    void follow(const ShapeItems &selected) override;
    void followPlaces(const ShapeItems &selected) override;

Q_SIGNALS:
    /** The user wants to change the other settings, which have a dialog of their own. */
    void settingsWanted();

protected:
    void retranslate() override;

private:
    QString setModule(double moduleMm);

    ZTGraphicsDocument &m_document;
    QLabel *m_summary;
    QLabel *m_problem;
    QLabel *m_moduleLabel;
    MeasureField *m_module;
    QLabel *m_unit;
    QPushButton *m_settings;
};

} // namespace studio
