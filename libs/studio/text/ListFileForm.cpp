#include <studio/text/SegmentForm.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QToolButton>

namespace studio {

namespace {

constexpr int kMostColumns = 10000;
constexpr int kMostRows = 1000000000;

/** Settings of a list file. Rows and columns count from 1 for people, from 0 in the segment. */
class ListFileForm final : public SegmentForm
{
public:
    explicit ListFileForm(QWidget *parent)
        : SegmentForm(parent), m_pathEdit(new QLineEdit(this)), m_columnBox(new QSpinBox(this)),
          m_separatorBox(new QComboBox(this)), m_encodingBox(new QComboBox(this)),
          m_firstBox(new QSpinBox(this)), m_presentBox(new QSpinBox(this)),
          m_endBox(new QComboBox(this))
    {
        fillChoices();
        layOut();
        connectAll();
    }

    void showSegment(const Segment &segment) override
    {
        m_rows = std::get<ZTTextFileSegment>(segment);
        const QSignalBlocker blockers[] = {QSignalBlocker(m_pathEdit), QSignalBlocker(m_columnBox),
                                           QSignalBlocker(m_firstBox),
                                           QSignalBlocker(m_presentBox)};
        m_pathEdit->setText(m_rows.path);
        m_columnBox->setValue(m_rows.column + 1);
        chooseData(*m_separatorBox, QString(m_rows.separator), m_rows.separator);
        chooseData(*m_encodingBox, m_rows.encoding, m_rows.encoding);
        m_firstBox->setValue(rowNumber(m_rows.firstRow));
        m_presentBox->setValue(rowNumber(qMax(m_rows.nextRow, m_rows.firstRow)));
        m_endBox->setCurrentIndex(m_endBox->findData(int(m_rows.atEnd)));
        m_separatorBox->setEnabled(m_rows.column >= 0);
    }

    Segment segment() const override { return m_rows; }

private:
    static int rowNumber(quint64 row) { return int(qMin<quint64>(row + 1, kMostRows)); }

    void fillChoices()
    {
        m_columnBox->setRange(0, kMostColumns);
        m_columnBox->setSpecialValueText(SegmentForm::tr("whole row"));
        m_separatorBox->addItem(SegmentForm::tr("comma"), QChar(u','));
        m_separatorBox->addItem(SegmentForm::tr("semicolon"), QChar(u';'));
        m_separatorBox->addItem(SegmentForm::tr("tabulator"), QChar(u'\t'));
        m_separatorBox->addItem(QStringLiteral("|"), QChar(u'|'));
        m_encodingBox->addItem(QStringLiteral("UTF-8"), QString());
        for (const char *name : {"GBK", "GB18030", "ISO-8859-1", "UTF-16"})
            m_encodingBox->addItem(QString::fromLatin1(name), QString::fromLatin1(name));
        m_firstBox->setRange(1, kMostRows);
        m_presentBox->setRange(1, kMostRows);
        m_endBox->addItem(SegmentForm::tr("shows the last row again"), int(ZTVariantTextEnd::Stop));
        m_endBox->addItem(SegmentForm::tr("starts anew"), int(ZTVariantTextEnd::Wrap));
        m_firstBox->setToolTip(SegmentForm::tr("Rows above this one are headings"));
        m_presentBox->setToolTip(SegmentForm::tr("Row of the part that is marked now"));
    }

    void layOut()
    {
        auto *browse = new QToolButton(this);
        browse->setObjectName(QStringLiteral("listBrowse"));
        browse->setText(QStringLiteral("…"));
        browse->setToolTip(SegmentForm::tr("Choose the list file"));
        connect(browse, &QToolButton::clicked, this, &ListFileForm::browse);
        auto *pathRow = new QWidget(this);
        auto *pathLayout = new QHBoxLayout(pathRow);
        pathLayout->setContentsMargins(0, 0, 0, 0);
        pathLayout->addWidget(m_pathEdit);
        pathLayout->addWidget(browse);
        pathRow->setFocusProxy(m_pathEdit);
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("F&ile"), pathRow, "listFile");
        m_pathEdit->setObjectName(QStringLiteral("listPath"));
        addRow(*form, SegmentForm::tr("&Column"), m_columnBox, "listColumn");
        addRow(*form, SegmentForm::tr("&Separated by"), m_separatorBox, "listSeparator");
        addRow(*form, SegmentForm::tr("&Encoding"), m_encodingBox, "listEncoding");
        addRow(*form, SegmentForm::tr("First ro&w"), m_firstBox, "listFirst");
        addRow(*form, SegmentForm::tr("This &part"), m_presentBox, "listPresent");
        addRow(*form, SegmentForm::tr("&Behind it"), m_endBox, "listEnd");
    }

    void connectAll()
    {
        connect(m_pathEdit, &QLineEdit::textChanged, this, [this](const QString &path) {
            m_rows.path = path;
            Q_EMIT changed();
        });
        const auto edited = qOverload<int>(&QSpinBox::valueChanged);
        connect(m_columnBox, edited, this, [this](int column) {
            m_rows.column = column - 1;
            m_separatorBox->setEnabled(m_rows.column >= 0);
            Q_EMIT changed();
        });
        connect(m_firstBox, edited, this, [this](int row) {
            m_rows.firstRow = quint64(row - 1);
            m_rows.nextRow = m_rows.firstRow;
            showSegment(m_rows);
            Q_EMIT changed();
        });
        connect(m_presentBox, edited, this, [this](int row) {
            m_rows.nextRow = quint64(row - 1);
            Q_EMIT changed();
        });
        const auto chosen = qOverload<int>(&QComboBox::activated);
        for (QComboBox *box : {m_separatorBox, m_encodingBox, m_endBox})
            connect(box, chosen, this, &ListFileForm::takeChoices);
    }

    void takeChoices()
    {
        m_rows.separator = m_separatorBox->currentData().toChar();
        m_rows.encoding = m_encodingBox->currentData().toString();
        m_rows.atEnd = ZTVariantTextEnd(m_endBox->currentData().toInt());
        Q_EMIT changed();
    }

    void browse()
    {
        auto *dialog = new QFileDialog(this, SegmentForm::tr("Choose the list file"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::ExistingFile);
        dialog->setNameFilters(
            {SegmentForm::tr("Lists (*.csv *.txt *.tsv)"), SegmentForm::tr("All files (*)")});
        dialog->setDirectory(m_rows.path.isEmpty() ? QDir::homePath()
                                                   : QFileInfo(m_rows.path).absolutePath());
        connect(dialog, &QFileDialog::fileSelected, m_pathEdit, &QLineEdit::setText);
        dialog->open();
    }

    ZTTextFileSegment m_rows;
    QLineEdit *m_pathEdit;
    QSpinBox *m_columnBox;
    QComboBox *m_separatorBox;
    QComboBox *m_encodingBox;
    QSpinBox *m_firstBox;
    QSpinBox *m_presentBox;
    QComboBox *m_endBox;
};

} // namespace

SegmentForm *newListFileForm(QWidget *parent) { return new ListFileForm(parent); }

} // namespace studio
