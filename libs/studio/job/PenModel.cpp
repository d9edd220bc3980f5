#include <studio/job/PenModel.h>

#include <studio/program/Icons.h>

#include <QtCore/QLocale>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>

namespace studio {

namespace {

constexpr int kSwatchPx = 12;

QIcon swatch(const QColor &color)
{
    QPixmap pixmap(kSwatchPx, kSwatchPx);
    pixmap.fill(color);
    return pictureIcon(pixmap);
}

QString numberText(double value) { return QLocale().toString(value, 'g', 8); }

/** A number as people of this language type it, or as programs do. */
bool readNumber(const QString &text, double *value)
{
    bool isNumber = false;
    *value = QLocale().toDouble(text.trimmed(), &isNumber);
    if (!isNumber)
        *value = QLocale::c().toDouble(text.trimmed(), &isNumber);
    return isNumber;
}

/** The pen's number that a column holds; null where it holds something else. */
double *field(jobkit::Pen *pen, int column)
{
    switch (column) {
    case PenModel::Speed:
        return &pen->speedMmPerS;
    case PenModel::Power:
        return &pen->powerPercent;
    case PenModel::Frequency:
        return &pen->frequencyKHz;
    case PenModel::PulseWidth:
        return &pen->pulseWidthNs;
    case PenModel::DotTime:
        return &pen->dotMs;
    default:
        return nullptr;
    }
}

/** Changes one value of a pen; false where the text is none. */
bool change(jobkit::Pen *pen, int column, const QString &text)
{
    if (column == PenModel::Name) {
        pen->name = text;
        return true;
    }
    double value = 0.0;
    if (!readNumber(text, &value))
        return false;
    if (column == PenModel::Passes) {
        pen->passes = static_cast<int>(qBound(-1.0, value, 1e6));
        return pen->passes == value;
    }
    *field(pen, column) = value;
    return true;
}

} // namespace

PenModel::PenModel(QObject *parent) : QAbstractTableModel(parent) {}

void PenModel::setPens(const QVector<jobkit::Pen> &pens)
{
    if (pens == m_pens)
        return;
    if (pens.size() != m_pens.size()) {
        beginResetModel();
        m_pens = pens;
        endResetModel();
        return;
    }
    m_pens = pens;
    Q_EMIT dataChanged(index(0, 0), index(m_pens.size() - 1, ColumnCount - 1));
}

int PenModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_pens.size();
}

int PenModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString PenModel::shown(const jobkit::Pen &pen, int column) const
{
    switch (column) {
    case Number:
        return QString::number(pen.number);
    case Name:
        return pen.name;
    case Passes:
        return QString::number(pen.passes);
    case Mode:
        return pen.powerMode == jobkit::PowerMode::Constant ? tr("constant") : tr("dynamic");
    default:
        break;
    }
    jobkit::Pen copy = pen;
    const double *value = field(&copy, column);
    return value != nullptr ? numberText(*value) : QString();
}

QVariant PenModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const jobkit::Pen &pen = m_pens[index.row()];
    const int column = index.column();
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return shown(pen, column);
    if (role == Qt::CheckStateRole && column == On)
        return pen.isOn ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::DecorationRole && column == Number)
        return swatch(pen.color);
    if (role == Qt::ToolTipRole && column == Number)
        return tr("Double click changes the colour.");
    if (role == Qt::ToolTipRole && column == DotTime)
        return tr("How long the beam stays on a dot, such as those of a code of points.");
    if (role == Qt::ToolTipRole && column == Mode)
        return tr("constant: the same power at any speed; dynamic: lowered where the head slows "
                  "down. Double click changes it.");
    return {};
}

bool PenModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid())
        return false;
    QVector<jobkit::Pen> pens = m_pens;
    jobkit::Pen &pen = pens[index.row()];
    if (role == Qt::CheckStateRole && index.column() == On) {
        pen.isOn = value.toInt() == Qt::Checked;
    } else if (role == Qt::EditRole) {
        if (!change(&pen, index.column(), value.toString())) {
            Q_EMIT refused(tr("\"%1\" is not a number that can stand here").arg(value.toString()));
            return false;
        }
        const QString problem = pen.problem();
        if (!problem.isEmpty()) {
            Q_EMIT refused(problem);
            return false;
        }
    } else {
        return false;
    }
    if (pens != m_pens)
        Q_EMIT edited(pens);
    return true;
}

Qt::ItemFlags PenModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    if (index.column() == On)
        return usual | Qt::ItemIsUserCheckable;
    const bool isTyped = index.column() != Number && index.column() != Mode;
    return isTyped ? usual | Qt::ItemIsEditable : usual;
}

QVariant PenModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString names[ColumnCount] = {tr("On"),    tr("Pen"),  tr("Name"),      tr("mm/s"),
                                        tr("%"),     tr("kHz"),  tr("Pulse, ns"), tr("Dot, ms"),
                                        tr("Times"), tr("Power")};
    return names[section];
}

} // namespace studio
