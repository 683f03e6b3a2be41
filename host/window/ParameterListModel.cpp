// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListModel.h"

#include "controls/ControlAccessible.h"
#include "host/window/MixerStyle.h"
#include "hosting/HostMemory.h"
#include "parameters/ParameterText.h"

#include <QColor>
#include <QCoreApplication>

using CommonController_MemAPI::withUnit;

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

// All values of a choice; of a range its ends, the last one with the unit.
QStringList valueTexts(const Parameter& parameter)
{
    const int step = isChoice(parameter) ? 1 : parameter.maximum - parameter.minimum;
    QStringList texts;
    for (int value = parameter.minimum; value <= parameter.maximum; value += step)
        texts << textOf(parameter, value);
    if (*parameter.unit)
        texts.last() += QLatin1Char(' ') + QLatin1String(parameter.unit);
    return texts;
}

QString unitOf(const QModelIndex& index) { return QLatin1String(parameterAt(index).unit); }

QString allButLast(const QStringList& texts)
{
    return texts.mid(0, texts.size() - 1).join(QLatin1String(", "));
}

// The colours that the editor gives its six bands; grey for the levels and the drive.
QColor bandColor(int row)
{
    constexpr QRgb colors[] = {0xFFED1C24, 0xFFED6B1C, 0xFFFEBA24, 0xFF11B519,
                               0xFF14A8AD, 0xFF9519D0, 0xFF6B737B};
    constexpr int rowsPerBand = 4;
    return QColor::fromRgba(colors[row / rowsPerBand]);
}

bool isSwitch(const Parameter& parameter) { return parameter.kind == ParameterKind::Switch; }

int alignmentOf(int column)
{
    const bool number =
        column == ParameterListModel::ValueColumn || column == ParameterListModel::RawColumn;
    return int(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
}

// The word of a switch stands beside its box.
int alignmentOf(const QModelIndex& index)
{
    const bool boxed =
        index.column() == ParameterListModel::ValueColumn && isSwitch(parameterAt(index));
    return boxed ? int(Qt::AlignVCenter | Qt::AlignLeft) : alignmentOf(index.column());
}

// Titles and values stand out; the other columns are dim.
QVariant colorOf(int column)
{
    const bool main =
        column == ParameterListModel::TitleColumn || column == ParameterListModel::ValueColumn;
    return main ? QVariant() : QVariant(MixerStyle::dimLetters);
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
    case Qt::AccessibleTextRole:
        return index.column() == ValueColumn ? withUnit(text(index).toString(), unitOf(index))
                                             : QVariant();
    case Qt::TextAlignmentRole:
        return alignmentOf(index);
    case Qt::ForegroundRole:
        return colorOf(index.column());
    case Qt::ToolTipRole:
        return possibleValues(parameterAt(index));
    case ChoicesRole:
        return isChoice(parameterAt(index)) ? valueTexts(parameterAt(index)) : QStringList();
    case Qt::CheckStateRole:
        return flags(index).testFlag(Qt::ItemIsUserCheckable)
                   ? QVariant(m_memory.values(m_channel)[static_cast<std::size_t>(index.row())] != 0
                                  ? Qt::Checked
                                  : Qt::Unchecked)
                   : QVariant();
    case Qt::DecorationRole:
        return index.column() == TitleColumn ? QVariant(bandColor(index.row())) : QVariant();
    default:
        return QVariant();
    }
}

bool ParameterListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const Qt::ItemFlags allowed = flags(index);
    if (role == Qt::CheckStateRole && allowed.testFlag(Qt::ItemIsUserCheckable))
        return setRaw(index, value.toInt() == Qt::Unchecked ? 0 : 1);
    if (role == Qt::EditRole && allowed.testFlag(Qt::ItemIsEditable))
        return setText(index, value.toString());
    return false;
}

bool ParameterListModel::setText(const QModelIndex& index, const QString& typed)
{
    const unsigned short id = parameterId(static_cast<std::size_t>(index.row()));
    int raw = 0;
    if (m_memory.stringToValue(id, channel(), typed.toUtf8().constData(), &raw) >= 0)
        return setRaw(index, raw);
    Q_EMIT refused(errorOf(typed, parameterAt(index)));
    return false;
}

bool ParameterListModel::setRaw(const QModelIndex& index, int raw)
{
    const unsigned short id = parameterId(static_cast<std::size_t>(index.row()));
    return m_memory.setValue(id, channel(), raw, 0, 0, 1) >= 0;
}

Qt::ItemFlags ParameterListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || index.column() != ValueColumn)
        return flags;
    return flags | Qt::ItemIsEditable |
           (isSwitch(parameterAt(index)) ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
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
    const QStringList values = valueTexts(parameter);
    return isChoice(parameter) ? tr("%1 or %2").arg(allButLast(values), values.last())
                               : tr("%1 to %2").arg(values.first(), values.last());
}

QString ParameterListModel::errorOf(const QString& typed, const Parameter& parameter)
{
    const QStringList values = valueTexts(parameter);
    const QString title = titleOf(parameter);
    return isChoice(parameter) ? tr("\"%1\" is not a value of %2: enter %3 or %4.")
                                     .arg(typed, title, allButLast(values), values.last())
                               : tr("\"%1\" is not a value of %2: enter a value from %3 to %4.")
                                     .arg(typed, title, values.first(), values.last());
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
