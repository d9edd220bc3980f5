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
        : SegmentForm(parent), pathEdit(new QLineEdit(this)), columnBox(new QSpinBox(this)),
          separatorBox(new QComboBox(this)), encodingBox(new QComboBox(this)),
          firstBox(new QSpinBox(this)), presentBox(new QSpinBox(this)), endBox(new QComboBox(this))
    {
        fillChoices();
        layOut();
        connectAll();
    }

    void showSegment(const Segment &segment) override
    {
        rows = std::get<ZTTextFileSegment>(segment);
        const QSignalBlocker blockers[] = {QSignalBlocker(pathEdit), QSignalBlocker(columnBox),
                                           QSignalBlocker(firstBox), QSignalBlocker(presentBox)};
        pathEdit->setText(rows.path);
        columnBox->setValue(rows.column + 1);
        chooseData(*separatorBox, QString(rows.separator), rows.separator);
        chooseData(*encodingBox, rows.encoding, rows.encoding);
        firstBox->setValue(rowNumber(rows.firstRow));
        presentBox->setValue(rowNumber(qMax(rows.nextRow, rows.firstRow)));
        endBox->setCurrentIndex(endBox->findData(int(rows.atEnd)));
        separatorBox->setEnabled(rows.column >= 0);
    }

    Segment segment() const override { return rows; }

private:
    static int rowNumber(quint64 row) { return int(qMin<quint64>(row + 1, kMostRows)); }

    void fillChoices()
    {
        columnBox->setRange(0, kMostColumns);
        columnBox->setSpecialValueText(SegmentForm::tr("whole row"));
        separatorBox->addItem(SegmentForm::tr("comma"), QChar(u','));
        separatorBox->addItem(SegmentForm::tr("semicolon"), QChar(u';'));
        separatorBox->addItem(SegmentForm::tr("tabulator"), QChar(u'\t'));
        separatorBox->addItem(QStringLiteral("|"), QChar(u'|'));
        encodingBox->addItem(QStringLiteral("UTF-8"), QString());
        for (const char *name : {"GBK", "GB18030", "ISO-8859-1", "UTF-16"})
            encodingBox->addItem(QString::fromLatin1(name), QString::fromLatin1(name));
        firstBox->setRange(1, kMostRows);
        presentBox->setRange(1, kMostRows);
        endBox->addItem(SegmentForm::tr("shows the last row again"), int(ZTVariantTextEnd::Stop));
        endBox->addItem(SegmentForm::tr("starts anew"), int(ZTVariantTextEnd::Wrap));
        firstBox->setToolTip(SegmentForm::tr("Rows above this one are headings"));
        presentBox->setToolTip(SegmentForm::tr("Row of the part that is marked now"));
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
        pathLayout->addWidget(pathEdit);
        pathLayout->addWidget(browse);
        pathRow->setFocusProxy(pathEdit);
        auto *form = new QFormLayout(this);
        addRow(*form, SegmentForm::tr("F&ile"), pathRow, "listFile");
        pathEdit->setObjectName(QStringLiteral("listPath"));
        addRow(*form, SegmentForm::tr("&Column"), columnBox, "listColumn");
        addRow(*form, SegmentForm::tr("&Separated by"), separatorBox, "listSeparator");
        addRow(*form, SegmentForm::tr("&Encoding"), encodingBox, "listEncoding");
        addRow(*form, SegmentForm::tr("First ro&w"), firstBox, "listFirst");
        addRow(*form, SegmentForm::tr("This &part"), presentBox, "listPresent");
        addRow(*form, SegmentForm::tr("&Behind it"), endBox, "listEnd");
    }

    void connectAll()
    {
        connect(pathEdit, &QLineEdit::textChanged, this, [this](const QString &path) {
            rows.path = path;
            Q_EMIT changed();
        });
        const auto edited = qOverload<int>(&QSpinBox::valueChanged);
        connect(columnBox, edited, this, [this](int column) {
            rows.column = column - 1;
            separatorBox->setEnabled(rows.column >= 0);
            Q_EMIT changed();
        });
        connect(firstBox, edited, this, [this](int row) {
            rows.firstRow = quint64(row - 1);
            rows.nextRow = rows.firstRow;
            showSegment(rows);
            Q_EMIT changed();
        });
        connect(presentBox, edited, this, [this](int row) {
            rows.nextRow = quint64(row - 1);
            Q_EMIT changed();
        });
        const auto chosen = qOverload<int>(&QComboBox::activated);
        for (QComboBox *box : {separatorBox, encodingBox, endBox})
            connect(box, chosen, this, &ListFileForm::takeChoices);
    }

    void takeChoices()
    {
        rows.separator = separatorBox->currentData().toChar();
        rows.encoding = encodingBox->currentData().toString();
        rows.atEnd = ZTVariantTextEnd(endBox->currentData().toInt());
        Q_EMIT changed();
    }

    void browse()
    {
        auto *dialog = new QFileDialog(this, SegmentForm::tr("Choose the list file"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::ExistingFile);
        dialog->setNameFilters(
            {SegmentForm::tr("Lists (*.csv *.txt *.tsv)"), SegmentForm::tr("All files (*)")});
        dialog->setDirectory(rows.path.isEmpty() ? QDir::homePath()
                                                 : QFileInfo(rows.path).absolutePath());
        connect(dialog, &QFileDialog::fileSelected, pathEdit, &QLineEdit::setText);
        dialog->open();
    }

    ZTTextFileSegment rows;
    QLineEdit *pathEdit;
    QSpinBox *columnBox;
    QComboBox *separatorBox;
    QComboBox *encodingBox;
    QSpinBox *firstBox;
    QSpinBox *presentBox;
    QComboBox *endBox;
};

} // namespace

SegmentForm *newListFileForm(QWidget *parent) { return new ListFileForm(parent); }

} // namespace studio
