#include <studio/code/CodeTextPage.h>

#include <studio/text/FontPage.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QVBoxLayout>

namespace studio {

using codekit::HumanPlace;

CodeTextPage::CodeTextPage(const CodeEdit &edit, QWidget *parent)
    : CodePage(parent), m_placeBox(new QComboBox(this)), m_font(new FontPage(edit.words, this))
{
    m_placeBox->setObjectName(QStringLiteral("humanPlace"));
    m_placeBox->addItem(tr("none"), int(HumanPlace::None));
    m_placeBox->addItem(tr("above the code"), int(HumanPlace::Above));
    m_placeBox->addItem(tr("below the code"), int(HumanPlace::Below));
    m_placeBox->setCurrentIndex(m_placeBox->findData(int(edit.code.human.place)));
    auto *form = new QFormLayout;
    form->addRow(tr("&Text for people"), m_placeBox);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_font, 1);
    showFont();
    connect(m_placeBox, qOverload<int>(&QComboBox::activated), this, [this] {
        showFont();
        Q_EMIT changed();
    });
    connect(m_font, &TextPage::changed, this, &CodePage::changed);
}

void CodeTextPage::showFont()
{
    m_font->setEnabled(m_placeBox->currentData().toInt() != int(HumanPlace::None));
}

void CodeTextPage::read(CodeEdit &edit) const
{
    edit.code.human.place = HumanPlace(m_placeBox->currentData().toInt());
    m_font->read(edit.words);
}

} // namespace studio
