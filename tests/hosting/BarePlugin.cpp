// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in with the right identifier that is not an effect.
#include <QObject>
#include <QtPlugin>

class BarePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.zolta.fx.effect")
};

#include "BarePlugin.moc"
