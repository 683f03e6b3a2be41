// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostTheme.h"
#include "tests/monkey/MixerMonkey.h"
#include "tests/monkey/MonkeyRun.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

namespace {

// Whatever the program reads and writes lies in a folder of its own.
void moveTo(const QTemporaryDir& folder)
{
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                 "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(folder.path()));
    QDir(folder.path()).mkdir(QStringLiteral("files"));
    QDir::setCurrent(folder.filePath(QStringLiteral("files")));
}

} // namespace

// monkey_mixer [--seed S] [--events N]: does so many random things to the mixer's windows.
int main(int argc, char* argv[])
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        return 2;
    moveTo(folder);
    MonkeyRun::prepare();
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zolta-host"));
    const MonkeyRun::Options options = MonkeyRun::options(QStringLiteral(MONKEY_PLUGIN));
    applyHostTheme();
    QAccessible::setActive(options.seed % 2 == 0);
    MixerMonkey monkey(options.plugin, folder.path(), options.seed);
    return MonkeyRun(options.events).run([&monkey] { return monkey.act(); });
}
