// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

class HostMemory;
class ParameterListModel;

/// A channel's parameters as the mixer holds them, in a table that can be edited. Tab,
/// Backtab and Escape leave it; the arrow keys walk it.
class ParameterListView : public QTableView
{
    Q_OBJECT

public:
    /// \a memory must outlive it.
    ParameterListView(HostMemory& memory, int channel, QWidget* parent = nullptr);

    /// Large enough for every row and column.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// A text that was typed is not a value; \a reason is a sentence.
    void refused(const QString& reason);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitRows();
    void fitColumns();

    ParameterListModel* m_parameters;
};
