// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IPrmObserver.h"

#include <QAbstractTableModel>

class HostMemory;
struct Parameter;

/// The 27 parameters of one channel as a table that follows the memory, a row each in the order of
/// parameterTable.
///
/// Values are edited as text, the way an editor's text fields do it: the memory parses what was
/// typed. A text that is not a value is refused and changes nothing. Switches can be checked, too.
/// The memory must outlive it.
class ParameterListModel : public QAbstractTableModel, public IPrmObserver
{
    Q_OBJECT

public:
    enum Column { TitleColumn, ValueColumn, UnitColumn, RawColumn, NameColumn, ColumnCount };
    /// The texts that a value can have, a QStringList; none for numbers.
    static constexpr int ChoicesRole = Qt::UserRole;

    ParameterListModel(HostMemory& memory, int channel, QObject* parent = nullptr);
    ~ParameterListModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char* text) override;

    /// Tells the views that what is translated has changed.
    void retranslate();

Q_SIGNALS:
    /// A typed text was refused; \a reason is a sentence for the user.
    void refused(const QString& reason);

private:
    static QString possibleValues(const Parameter& parameter);
    static QString errorOf(const QString& typed, const Parameter& parameter);
    QVariant text(const QModelIndex& index) const;
    bool setText(const QModelIndex& index, const QString& typed);
    bool setRaw(const QModelIndex& index, int raw);
    QString valueText(std::size_t parameter) const;
    unsigned short channel() const { return static_cast<unsigned short>(m_channel); }

    HostMemory& m_memory;
    int m_channel;
};
