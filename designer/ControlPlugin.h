// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "designer/ControlTable.h"

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// What Qt Designer asks about one control.
class ControlPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// \a entry must outlive the plug-in.
    explicit ControlPlugin(const ControlEntry& entry, QObject* parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override { return m_initialized; }
    void initialize(QDesignerFormEditorInterface* core) override;
    /// The control as it lands on a form, with the size of its table entry; texts are edited in a
    /// single line.
    QString domXml() const override;

private:
    const ControlEntry& m_entry;
    bool m_initialized = false;
};
