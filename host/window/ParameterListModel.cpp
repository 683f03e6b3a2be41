// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListModel.h"

#include "hosting/HostMemory.h"
#include "parameters/ParameterText.h"

#include <QColor>
#include <QCoreApplication>

namespace {

const Parameter& parameterAt(const QModelIndex& index)
{
    return parameterTable[static_cast<std::size_t>(index.row())];
}

QString titleOf(const Parameter& parameter)
{
    return QCoreApplication::translate("Parameter", parameter.title);
}

QString textOf(const Parameter& parameter, int value)
{
    return QString::fromStdString(formatParameter(parameter, value).value_or(""));
}

// Few values that have names, rather than a range of numbers.
bool isChoice(const Parameter& parameter)
{
    return parameter.kind != ParameterKind::Frequency && parameter.kind != ParameterKind::Quality &&
           parameter.kind != ParameterKind::Decibels;
}

// The colours that the editor gives its six bands; grey for the levels and the drive.
QColor bandColor(int row)
{
    constexpr QRgb colors[] = {0xFFED1C24, 0xFFED6B1C, 0xFFFEBA24, 0xFF11B519,
                               0xFF14A8AD, 0xFF9519D0, 0xFF6B737B};
    constexpr int rowsPerBand = 4;
    return QColor::fromRgba(colors[row / rowsPerBand]);
}

int alignmentOf(int column)
{
    const bool number =
        column == ParameterListModel::ValueColumn || column == ParameterListModel::RawColumn;
    return int(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
}

// What people come for stands out; what they look up now and then stays back.
QVariant colorOf(int column)
{
    const bool main =
        column == ParameterListModel::TitleColumn || column == ParameterListModel::ValueColumn;
    return main ? QVariant() : QVariant(QColor(0x8a, 0x91, 0x99));
}

} // namespace

ParameterListModel::ParameterListModel(HostMemory& memory, int channel, QObject* parent)
    : QAbstractTableModel(parent)
    , m_memory(memory)
    , m_channel(channel)
{
    for (std::size_t i = 0; i < parameterCount; ++i)
        m_memory.registerObserver(parameterId(i), this->channel(), this);
}

ParameterListModel::~ParameterListModel()
{
    for (std::size_t i = 0; i < parameterCount; ++i)
        m_memory.unregisterObserver(parameterId(i), channel(), this);
}

int ParameterListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(parameterCount);
}

int ParameterListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ParameterListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case TitleColumn:
        return tr("Parameter");
    case ValueColumn:
        return tr("Value");
    case UnitColumn:
        return tr("Unit");
    case RawColumn:
        return tr("Raw");
    case NameColumn:
        return tr("Name");
    default:
        return QVariant();
    }
}

QVariant ParameterListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(index);
    case Qt::TextAlignmentRole:
        return alignmentOf(index.column());
    case Qt::ForegroundRole:
        return colorOf(index.column());
    case Qt::ToolTipRole:
        return possibleValues(parameterAt(index));
    case Qt::DecorationRole:
        return index.column() == TitleColumn ? QVariant(bandColor(index.row())) : QVariant();
    default:
        return QVariant();
    }
}

bool ParameterListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!flags(index).testFlag(Qt::ItemIsEditable) || role != Qt::EditRole)
        return false;
    const QString typed = value.toString();
    const unsigned short id = parameterId(static_cast<std::size_t>(index.row()));
    int raw = 0;
    if (m_memory.stringToValue(id, channel(), typed.toUtf8().constData(), &raw) < 0) {
        const Parameter& parameter = parameterAt(index);
        Q_EMIT refused(tr("\"%1\" is no value of %2: type %3.")
                           .arg(typed, titleOf(parameter), possibleValues(parameter)));
        return false;
    }
    return m_memory.setValue(id, channel(), raw, 0, 0, 1) >= 0;
}

Qt::ItemFlags ParameterListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == ValueColumn ? flags | Qt::ItemIsEditable : flags;
}

int ParameterListModel::Update(unsigned short parameter, unsigned short, int, const char*)
{
    const int row = static_cast<int>(findParameterById(parameter));
    Q_EMIT dataChanged(index(row, ValueColumn), index(row, RawColumn));
    return 0;
}

int ParameterListModel::UpdateProperty(unsigned short, unsigned short, int, int, int, bool,
                                       const char*)
{
    return 0;
}

void ParameterListModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    Q_EMIT dataChanged(index(0, TitleColumn), index(rowCount() - 1, ColumnCount - 1));
}

QString ParameterListModel::possibleValues(const Parameter& parameter)
{
    const QString first = textOf(parameter, parameter.minimum);
    const QString last = textOf(parameter, parameter.maximum);
    if (!isChoice(parameter))
        return tr("%1 to %2")
            .arg(first,
                 last + QLatin1String(*parameter.unit ? " " : "") + QLatin1String(parameter.unit));
    QStringList others;
    for (int value = parameter.minimum; value < parameter.maximum; ++value)
        others << textOf(parameter, value);
    return tr("%1 or %2").arg(others.join(QLatin1String(", ")), last);
}

QVariant ParameterListModel::text(const QModelIndex& index) const
{
    const Parameter& parameter = parameterAt(index);
    const auto row = static_cast<std::size_t>(index.row());
    switch (index.column()) {
    case TitleColumn:
        return titleOf(parameter);
    case ValueColumn:
        return valueText(row);
    case UnitColumn:
        return QLatin1String(parameter.unit);
    case RawColumn:
        return m_memory.values(m_channel)[row];
    case NameColumn:
        return QLatin1String(parameter.name);
    default:
        return QVariant();
    }
}

QString ParameterListModel::valueText(std::size_t parameter) const
{
    const int value = m_memory.values(m_channel)[parameter];
    return textOf(parameterTable[parameter], value);
}

#include "moc_ParameterListModel.cpp"
