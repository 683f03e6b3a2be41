// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in that does not let itself be loaded. Compiled several times: TRAP is what it does as
// soon as it is loaded.
#include <QObject>
#include <QtPlugin>

#include <cstdlib>

#include <unistd.h>

class TrapPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.zolta.fx.effect")
};

namespace {

struct Trap
{
    Trap()
    {
        static_cast<void>(!::write(STDOUT_FILENO, "out", 3));
        static_cast<void>(!::write(STDERR_FILENO, "err", 3));
        TRAP;
    }
};

const Trap trap;

} // namespace

#include "TrapPlugin.moc"
