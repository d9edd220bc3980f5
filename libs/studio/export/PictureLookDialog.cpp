#include <studio/export/PictureLookDialog.h>

#include <QtCore/QSettings>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace studio {

namespace {

const QString kJumpsKey = QStringLiteral("export/jumps");
const QString kArrowsKey = QStringLiteral("export/arrows");
const QString kBackgroundKey = QStringLiteral("export/background");

QCheckBox *newSwitch(const char *name, const QString &text, bool isOn, QWidget *parent)
{
    auto *box = new QCheckBox(text, parent);
    box->setObjectName(QLatin1String(name));
    box->setChecked(isOn);
    return box;
}

} // namespace

PictureLookDialog::PictureLookDialog(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("pictureLookDialog"));
    setWindowTitle(tr("Picture of the mark paths"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QSettings settings;
    const auto kept = [&settings](const QString &key, bool usual) {
        return settings.value(key, usual).toBool();
    };
    const hostkit::MarkPictureLook usual;
    m_jumps = newSwitch("jumps", tr("&Jumps, and where the head begins"),
                        kept(kJumpsKey, usual.hasJumps), this);
    m_arrows =
        newSwitch("arrows", tr("&Arrows of direction"), kept(kArrowsKey, usual.hasArrows), this);
    m_background = newSwitch("background", tr("White &background"),
                             kept(kBackgroundKey, usual.hasBackground), this);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton *go = buttons->addButton(tr("E&xport"), QDialogButtonBox::AcceptRole);
    go->setObjectName(QStringLiteral("export"));
    go->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &PictureLookDialog::finish);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *all = new QVBoxLayout(this);
    for (QCheckBox *box : {m_jumps, m_arrows, m_background})
        all->addWidget(box);
    all->addWidget(buttons);
}

hostkit::MarkPictureLook PictureLookDialog::look() const
{
    return {m_jumps->isChecked(), m_arrows->isChecked(), m_background->isChecked()};
}

void PictureLookDialog::finish()
{
    QSettings settings;
    settings.setValue(kJumpsKey, m_jumps->isChecked());
    settings.setValue(kArrowsKey, m_arrows->isChecked());
    settings.setValue(kBackgroundKey, m_background->isChecked());
    Q_EMIT chosen(look());
    accept();
}

} // namespace studio
